#pragma once

#include "FxSlider.h"

#include <QSlider>

// What the typed slider frames share: a value of type Value within the span
// [bottomValue, topValue]. A bounded span clamps what is read into it; an
// unbounded one is only where the slider starts, and a value outside moves
// the nearer end. Derived says how a value maps to a slider position
// (positionOf) and back (valueOf).
template <class Derived, class Value>
class FxNumberSlider : public FxSlider
{
    Q_DISABLE_COPY(FxNumberSlider)

public:
    using FxSlider::FxSlider;

    void setPosition(int newPosition) override
    {
        position = newPosition;
        value = self().valueOf(newPosition);
    }

    void setTopValue(Value top)
    {
        if (bounded)
            return;
        topValue = top;
        quietly([this] { slider->setMaximum(self().positionOf(topValue)); });
    }

    void setBottomValue(Value bottom)
    {
        if (bounded)
            return;
        bottomValue = bottom;
        quietly([this] { slider->setMinimum(self().positionOf(bottomValue)); });
    }

    Value getValue() const { return value; }
    Value minimum() const { return bottomValue; }
    Value maximum() const { return topValue; }
    bool isBounded() const { return bounded; }

protected:
    // Bounded: [min, max] becomes the span and the slider's whole run.
    // Unbounded: the span only starts there, and values outside widen it.
    void setSpan(Value min, Value max, bool isBounded)
    {
        bounded = isBounded;
        if (bounded) {
            bottomValue = min;
            topValue = max;
            quietly([this, min, max] { slider->setRange(self().positionOf(min), self().positionOf(max)); });
            return;
        }
        setTopValue(max);
        setBottomValue(min);
    }

    // Takes a number read from the line edit as the value.
    void takeValue(Value number)
    {
        if (bounded) {
            if (number > topValue)
                number = topValue;
            if (number < bottomValue)
                number = bottomValue;
        } else {
            if (number > topValue)
                setTopValue(number);
            if (number < bottomValue)
                setBottomValue(number);
        }
        position = self().positionOf(number);
        value = number;
    }

    // Shows a text as the value; the value is read back from the line edit,
    // so what the line edit accepts is what the value becomes.
    void showValueText(const QString& text)
    {
        showText(text);
        readText();
        syncSlider();
    }

    Value bottomValue = Value();
    Value topValue = Value();
    Value value = Value();
    bool bounded = false;

private:
    const Derived& self() const { return static_cast<const Derived&>(*this); }
};
