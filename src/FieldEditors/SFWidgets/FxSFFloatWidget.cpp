#include "FxSFFloatWidget.h"

#include "FieldRangeMap.h"
#include "FxRealSlider.h"
#include "KalSFSetValueCommand.h"

#include <KalServices.h>
#include <SoTypedObject.h>

#include <Inventor/fields/SoSFFloat.h>

#include <QLineEdit>

FxSFFloatWidget::FxSFFloatWidget(const char* name)
    : FxSFieldWidget(FloatSlider, name ? name : "FxSFFloatWidget")
    , realSlider(static_cast<FxRealSlider*>(sliderFrame))
{
    handledType = SoSFFloat::getClassTypeId();
    this->name = "SFFloat";
}

FxSFFloatWidget::~FxSFFloatWidget() = default;

void FxSFFloatWidget::createWidget()
{
    setFieldLabel(QStringLiteral("SFFloat"));
    FxSFieldWidget::createWidget();
}

void FxSFFloatWidget::setField(SoField* newField)
{
    // The span is chosen again for every field: it depends on the node that
    // owns the field.
    valueRange = fieldRangeForField(buildFieldRangeMap(), newField, FieldRangeKind::Float);
    realSlider->setRange(valueRange.floatMin(), valueRange.floatMax(), valueRange.isBounded());
    FxSFieldWidget::setField(newField);
}

void FxSFFloatWidget::updateWidget()
{
    auto* floatField = SoTypedObject(field).cast<SoSFFloat>();
    if (!floatField)
        return;
    const double value = floatField->getValue();
    // The span grows to take in whatever the field holds, bounded or not:
    // a slider must be able to show the value it edits.
    if (value > realSlider->maximum())
        realSlider->setRange(realSlider->minimum(), value, realSlider->isBounded());
    if (realSlider->minimum() > value)
        realSlider->setRange(value, realSlider->maximum(), realSlider->isBounded());
    realSlider->setValue(value);
    FxSFieldWidget::updateWidget();
}

void FxSFFloatWidget::applyChanges()
{
    const float value = float(realSlider->getValue());
    auto* floatField = SoTypedObject(field).cast<SoSFFloat>();
    if (!floatField)
        return;
    floatField->setValue(value);
    KalServices::getInstance()->pushCommand(
        new KalSFSetValueCommand(floatField, realSlider->previousValueText()));
}

bool FxSFFloatWidget::edited()
{
    return realSlider->getLineEdit()->isModified();
}
