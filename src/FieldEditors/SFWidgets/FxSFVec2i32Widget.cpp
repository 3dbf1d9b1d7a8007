#include "FxSFVec2i32Widget.h"

#include "KalSFSetValueCommand.h"

#include <KalServices.h>
#include <SoTypedObject.h>

#include <QSpinBox>

FxSFVec2i32Widget::FxSFVec2i32Widget(const char* name)
    : FxSF2iSpinBox(name ? name : "FxSFVec2i32Widget")
{
    handledType = SoSFVec2i32::getClassTypeId();
    this->name = "SFVec2i32";
}

void FxSFVec2i32Widget::createWidget()
{
    setFieldLabel(QStringLiteral("SFVec2i32"));
    FxSF2iSpinBox::createWidget();
    setLabels({QStringLiteral("x"), QStringLiteral("y")});
    setRangeKind(2);
}

void FxSFVec2i32Widget::updateWidget()
{
    auto* typed = SoTypedObject(field).cast<SoSFVec2i32>();
    if (!typed || !spinBoxes[0])
        return;
    // A copy: setting the first spin box writes the field through its
    // signal before the second one is set.
    const SbVec2i32 value = typed->getValue();
    spinBoxes[0]->setValue(value[0]);
    spinBoxes[1]->setValue(value[1]);
    FxSF2iSpinBox::updateWidget();
}

void FxSFVec2i32Widget::applyChanges()
{
    auto* typed = SoTypedObject(field).cast<SoSFVec2i32>();
    if (!typed || !spinBoxes[0])
        return;
    typed->setValue(int32_t(spinBoxes[0]->value()), int32_t(spinBoxes[1]->value()));
    SbString none;
    KalServices::getInstance()->pushCommand(new KalSFSetValueCommand(typed, none));
}
