#include "FxMFLineWidget.h"

#include "FieldText.h"
#include "FieldTextGuard.h"
#include "FieldWrite.h"

#include <Inventor/fields/SoMField.h>

FxMFLineWidget::FxMFLineWidget(const char* name)
    : FxMFieldWidget(name ? name : "FxMFLineWidget")
{}

void FxMFLineWidget::createWidget()
{
    FxMFieldWidget::createWidget();
    prepareSingleColumn();
}

bool FxMFLineWidget::acceptField(SoField* field)
{
    return field && field->isOfType(SoMField::getClassTypeId());
}

QString FxMFLineWidget::getValueText(int row, int column)
{
    return column < 1 ? rowText(row) : QString();
}

bool FxMFLineWidget::writeText(int row, const QString& text)
{
    // A row past the end would grow the field; a stale row from before a
    // change made elsewhere is refused instead.
    if (!holdsRow(row) || !FieldTextGuard::acceptable(text) || !FieldTextGuard::namesFit(getField(), text))
        return false;
    SbString current;
    getField()->get1(row, current);
    const QByteArray bytes = FieldText::toBytes(text, current);
    if (bytes == current.getString())
        return true;
    return FieldWrite::set1Text(getField(), row, bytes.constData());
}

void FxMFLineWidget::setValueFromText(int row, int, QString text)
{
    writeText(row, text);
}

void FxMFLineWidget::swapValues(int first, int second)
{
    exchangeValues(first, second);
}
