#include "FxMFVec3fWidget.h"

#include <Inventor/fields/SoMFColor.h>

FxMFVec3fWidget::FxMFVec3fWidget(const char* name)
    : FxMFVec3fWidget(PlainTable, name, "FxMFVec3fWidget")
{}

FxMFVec3fWidget::FxMFVec3fWidget(int tableKind, const char* name, const char* className)
    : FxMFComponentWidget(name, className, tableKind)
{}

bool FxMFVec3fWidget::vectorAt(int row, SbVec3f& vector) const
{
    if (!holdsRow(row))
        return false;
    const SoTypedObject field(getField());
    if (const SoMFVec3f* vectors = field.cast<SoMFVec3f>())
        vector = (*vectors)[row];
    else if (const SoMFColor* colors = field.cast<SoMFColor>())
        vector = (*colors)[row];
    else
        return false;
    return true;
}

void FxMFVec3fWidget::storeVector(int row, const SbVec3f& vector)
{
    const SoTypedObject field(getField());
    if (SoMFVec3f* vectors = field.cast<SoMFVec3f>())
        vectors->set1Value(row, vector);
    else if (SoMFColor* colors = field.cast<SoMFColor>())
        colors->set1Value(row, SbColor(vector));
}

void FxMFVec3fWidget::writeVector(int row, const SbVec3f& vector)
{
    SbVec3f stored;
    if (!vectorAt(row, stored) || stored == vector)
        return;
    storeVector(row, vector);
    SbString none;
    KalServices::getInstance()->pushCommand(new KalMFSetValueCommand(getField(), row, none));
}

QString FxMFVec3fWidget::getValueText(int row, int column)
{
    SbVec3f vector;
    if (column < 0 || column > 2 || !vectorAt(row, vector))
        return QString();
    return MFComponents::realText(vector[column]);
}

// A cell still showing its own text stands for the component the field
// holds, not for the six digits it shows.
void FxMFVec3fWidget::setValueFromText(int row, int column, QString text)
{
    if (text == getValueText(row, column))
        return;
    float number = 0.0f;
    if (MFComponents::toReal(text, number))
        setComponentValue(number, row, column);
}

void FxMFVec3fWidget::swapValues(int first, int second)
{
    SbVec3f a;
    SbVec3f b;
    if (!vectorAt(first, a) || !vectorAt(second, b))
        return;
    storeVector(first, b);
    storeVector(second, a);
}

void FxMFVec3fWidget::setComponentValue(float value, int row, int component)
{
    SbVec3f vector;
    if (component < 0 || component > 2 || !std::isfinite(value) || !vectorAt(row, vector))
        return;
    vector[component] = value;
    writeVector(row, vector);
}
