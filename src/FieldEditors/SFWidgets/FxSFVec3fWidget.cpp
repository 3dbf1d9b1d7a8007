#include "FxSFVec3fWidget.h"

#include "FieldWrite.h"

#include <SoTypedObject.h>

namespace {
const ComponentColumnStyle kStyle = {
    "SF3fBoxVSpacing", "SFVec3fLayout", "SFVec3fLabel", "SFVec3fLine", 0, true};
}

FxSFVec3fWidget::FxSFVec3fWidget(const char* name)
    : FxSFFloatComponents(name, "FxSFVec3fWidget")
{
    handledType = SoSFVec3f::getClassTypeId();
    this->name = "SFVec3f";
}

void FxSFVec3fWidget::createWidget()
{
    setFieldLabel(QStringLiteral("SFVec3f"));
    FxSFieldWidget::createWidget();
    if (lineEdits[0])
        return;
    buildColumns(kStyle, "SF3fBoxHSpacing", "SF3fBoxHMargin");
    labels[0]->setText(tr("<p>x</p>"));
    labels[1]->setText(tr("<p>y</p>"));
    labels[2]->setText(tr("<p>z</p>"));
}

bool FxSFVec3fWidget::readField(std::array<float, 3>& values)
{
    auto* typed = SoTypedObject(field).cast<SoSFVec3f>();
    if (!typed)
        return false;
    const SbVec3f& v = typed->getValue();
    values = {v[0], v[1], v[2]};
    return true;
}

bool FxSFVec3fWidget::writeField(const std::array<float, 3>& values, const std::array<bool, 3>&)
{
    auto* typed = SoTypedObject(field).cast<SoSFVec3f>();
    if (!typed)
        return false;
    FieldWrite::setValue(typed, SbVec3f(values[0], values[1], values[2]));
    return true;
}
