#include "FxSFVec4fWidget.h"

#include "FieldWrite.h"

#include <SoTypedObject.h>

FxSFVec4fWidget::FxSFVec4fWidget(const char* name)
    : FxSF4fBox(name ? name : "FxSFVec4fWidget")
{
    handledType = SoSFVec4f::getClassTypeId();
    this->name = "SFVec4f";
}

void FxSFVec4fWidget::createWidget()
{
    setFieldLabel(QStringLiteral("SFVec4f"));
    const bool built = lineEdits[0] != nullptr;
    FxSF4fBox::createWidget();
    if (built)
        return;
    setLabels({"x", "y", "z", "w"});
}

bool FxSFVec4fWidget::readField(std::array<float, 4>& values)
{
    auto* typed = SoTypedObject(field).cast<SoSFVec4f>();
    if (!typed)
        return false;
    const SbVec4f& v = typed->getValue();
    values = {v[0], v[1], v[2], v[3]};
    return true;
}

bool FxSFVec4fWidget::writeField(const std::array<float, 4>& values, const std::array<bool, 4>&)
{
    auto* typed = SoTypedObject(field).cast<SoSFVec4f>();
    if (!typed)
        return false;
    FieldWrite::setValue(typed, SbVec4f(values[0], values[1], values[2], values[3]));
    return true;
}
