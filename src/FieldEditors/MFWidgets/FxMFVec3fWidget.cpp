#include "FxMFVec3fWidget.h"

FxMFVec3fWidget::FxMFVec3fWidget(const char* name)
    : FxMFComponentWidget(name, "FxMFVec3fWidget")
{}

void FxMFVec3fWidget::setValueFromText(int row, int column, QString text)
{
    float number = 0.0f;
    if (MFComponents::toReal(text, number))
        setComponentValue(number, row, column);
}

void FxMFVec3fWidget::setComponentValue(float value, int row, int component)
{
    if (!holdsRow(row) || component < 0 || component > 2 || !std::isfinite(value))
        return;
    SbVec3f vector = (*typedField())[row];
    vector[component] = value;
    writeValue(row, vector);
}
