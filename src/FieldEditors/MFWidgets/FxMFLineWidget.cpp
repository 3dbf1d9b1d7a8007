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
    return column < 1 ? rowText(row) : QString();
}

bool FxMFLineWidget::writeText(int row, const QString& text)
{
    // A row past the end would grow the field; a stale row from before a
    // change made elsewhere is refused instead.
    if (!holdsRow(row) || !FieldTextGuard::acceptable(text))
        return false;
    return getField()->set1(row, text.toUtf8().constData());
}

void FxMFLineWidget::setValueFromText(int row, int, QString text)
{
    writeText(row, text);
}

void FxMFLineWidget::swapValues(int first, int second)
{
    exchangeValues(first, second);
}
