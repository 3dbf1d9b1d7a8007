#include "FxMFLineWidget.h"

#include "FieldTextGuard.h"

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
    SoMField* field = getField();
    if (!field || column >= 1 || row < 0 || row >= field->getNum())
        return QString();
    SbString text;
    field->get1(row, text);
    return QString::fromUtf8(text.getString());
}

bool FxMFLineWidget::writeText(int row, const QString& text)
{
    SoMField* field = getField();
    // A row past the end would grow the field; a stale row from before a
    // change made elsewhere is refused instead.
    if (!field || row < 0 || row >= field->getNum() || !FieldTextGuard::acceptable(text))
        return false;
    return field->set1(row, text.toUtf8().constData());
}

void FxMFLineWidget::setValueFromText(int row, int, QString text)
{
    writeText(row, text);
}

void FxMFLineWidget::swapValues(int first, int second)
{
    exchangeValues(first, second);
}
