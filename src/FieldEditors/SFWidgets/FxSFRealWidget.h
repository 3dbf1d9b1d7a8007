#pragma once

#include "FieldRange.h"
#include "FieldRangeMap.h"
#include "FieldWrite.h"
#include "FxRealSlider.h"
#include "FxSFieldWidget.h"
#include "KalSFSetValueCommand.h"
#include "NumberInput.h"

#include <KalServices.h>
#include <SoTypedObject.h>

#include <Inventor/fields/SoSFDouble.h>
#include <Inventor/fields/SoSFFloat.h>

#include <QLineEdit>

// What the float and double editors differ in.
template <class Field>
struct RealEditorTraits;

template <>
struct RealEditorTraits<SoSFFloat>
{
    using Value = float;
    static constexpr int sliderKind = FxSFieldWidget::FloatSlider;
    static constexpr FieldRangeKind rangeKind = FieldRangeKind::Float;
    static constexpr const char* typeText = "SFFloat";
    static double minimum(const FieldRange& range) { return range.floatMin(); }
    static double maximum(const FieldRange& range) { return range.floatMax(); }
};

template <>
struct RealEditorTraits<SoSFDouble>
{
    using Value = double;
    static constexpr int sliderKind = FxSFieldWidget::DoubleSlider;
    static constexpr FieldRangeKind rangeKind = FieldRangeKind::Double;
    static constexpr const char* typeText = "SFDouble";
    static double minimum(const FieldRange& range) { return range.doubleMin(); }
    static double maximum(const FieldRange& range) { return range.doubleMax(); }
};

// The editor of a real-number field: a slider frame whose span comes from
// the field range table, chosen again for every field because it depends on
// the node that owns the field.
template <class Field>
class FxSFRealWidget : public FxSFieldWidget
{
    Q_DISABLE_COPY(FxSFRealWidget)

    using Traits = RealEditorTraits<Field>;

public:
    void createWidget() override
    {
        setFieldLabel(QLatin1String(Traits::typeText));
        FxSFieldWidget::createWidget();
    }

    void setField(SoField* newField) override
    {
        valueRange = fieldRangeForField(buildFieldRangeMap(), newField, Traits::rangeKind);
        realSlider->setRange(Traits::minimum(valueRange), Traits::maximum(valueRange),
                             valueRange.isBounded());
        FxSFieldWidget::setField(newField);
    }

    void updateWidget() override
    {
        auto* typed = SoTypedObject(field).cast<Field>();
        if (!typed)
            return;
        const double value = typed->getValue();
        // The span grows to take in whatever the field holds, bounded or
        // not: a slider must be able to show the value it edits.
        if (value > realSlider->maximum())
            realSlider->setRange(realSlider->minimum(), value, realSlider->isBounded());
        if (realSlider->minimum() > value)
            realSlider->setRange(value, realSlider->maximum(), realSlider->isBounded());
        realSlider->setValue(value);
        FxSFieldWidget::updateWidget();
    }

    // The validator keeps what is typed within the type; a value the type
    // cannot hold is refused here as well, whatever brought it.
    void applyChanges() override
    {
        using Value = typename Traits::Value;
        auto* typed = SoTypedObject(field).cast<Field>();
        if (!typed || !NumberInput::holds<Value>(realSlider->getValue()))
            return;
        const auto value = Value(realSlider->getValue());
        FieldWrite::setValue(typed, value);
        KalServices::getInstance()->pushCommand(
            new KalSFSetValueCommand(typed, realSlider->previousValueText()));
    }

    bool edited() override { return realSlider->getLineEdit()->isModified(); }

protected:
    FxSFRealWidget(const char* name, const char* className, SoType handled, const char* extensionName)
        : FxSFieldWidget(Traits::sliderKind, name ? name : className)
        , realSlider(static_cast<FxRealSlider*>(sliderFrame))
    {
        handledType = handled;
        this->name = extensionName;
    }

private:
    FxRealSlider* realSlider = nullptr;
    FieldRange valueRange;
};
