#include "FxSFVec2fWidget.h"

#include "FieldWrite.h"

#include <SoTypedObject.h>

namespace {
const ComponentColumnStyle kStyle = {
    "SF2BoxVSpacing", "SFVec2fLayout", "SFVec2fLabel", "SFVec2fBox", -1, false};
}

FxSFVec2fWidget::FxSFVec2fWidget(const char* name)
    : FxSFFloatComponents(name, "FxSFVec2fWidget")
{
    handledType = SoSFVec2f::getClassTypeId();
    this->name = "SFVec2f";
}

void FxSFVec2fWidget::createWidget()
{
    setFieldLabel(QStringLiteral("SFVec2f"));
    FxSFieldWidget::createWidget();
    if (lineEdits[0])
        return;
    buildColumns(kStyle, "SF2BoxHSpacing", "SF2BoxHMargin");
    // This editor's columns zero the row's margin, whatever the metric says.
    editLayout->setContentsMargins(0, 0, 0, 0);
    labels[0]->setText(tr("<p>x</p>"));
    labels[1]->setText(tr("<p>y</p>"));
}

bool FxSFVec2fWidget::readField(std::array<float, 2>& values)
{
    auto* typed = SoTypedObject(field).cast<SoSFVec2f>();
    if (!typed)
        return false;
    const SbVec2f& v = typed->getValue();
    values = {v[0], v[1]};
    return true;
}

bool FxSFVec2fWidget::writeField(const std::array<float, 2>& values, const std::array<bool, 2>&)
{
    auto* typed = SoTypedObject(field).cast<SoSFVec2f>();
    if (!typed)
        return false;
    FieldWrite::setValue(typed, SbVec2f(values[0], values[1]));
    return true;
}
