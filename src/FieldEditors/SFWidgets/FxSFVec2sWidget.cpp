#include "FxSFVec2sWidget.h"

#include "KalSFSetValueCommand.h"

#include <KalServices.h>
#include <SoTypedObject.h>

#include <QSpinBox>

FxSFVec2sWidget::FxSFVec2sWidget(const char* name)
    : FxSF2iSpinBox(name ? name : "FxSFVec2sWidget")
{
    handledType = SoSFVec2s::getClassTypeId();
    this->name = "SFVec2s";
}

void FxSFVec2sWidget::createWidget()
{
    setFieldLabel(QStringLiteral("SFVec2s"));
    FxSF2iSpinBox::createWidget();
    setLabels({QStringLiteral("x"), QStringLiteral("y")});
    setRangeKind(0);
}

void FxSFVec2sWidget::updateWidget()
{
    auto* typed = SoTypedObject(field).cast<SoSFVec2s>();
    if (!typed || !spinBoxes[0])
        return;
    // A copy: setting the first spin box writes the field through its
    // signal before the second one is set.
    const SbVec2s value = typed->getValue();
    spinBoxes[0]->setValue(value[0]);
    spinBoxes[1]->setValue(value[1]);
    FxSF2iSpinBox::updateWidget();
}

void FxSFVec2sWidget::applyChanges()
{
    auto* typed = SoTypedObject(field).cast<SoSFVec2s>();
    if (!typed || !spinBoxes[0])
        return;
    typed->setValue(short(spinBoxes[0]->value()), short(spinBoxes[1]->value()));
    SbString none;
    KalServices::getInstance()->pushCommand(new KalSFSetValueCommand(typed, none));
}
