#pragma once

#include "FxSlider.h"

class QDoubleValidator;

// Slider frame of a single- or double-precision value. The slider always runs
// from position 0 to 100 over the span [bottomValue, topValue].
class FxRealSlider : public FxSlider
{
    Q_OBJECT
    Q_DISABLE_COPY(FxRealSlider)

public:
    FxRealSlider(int inTable, KalFieldEditors* editor, QWidget* parent, bool isFloat, int row, int column);
    ~FxRealSlider() override;

    void setValueText(QString text) override;
    void updateText() override;
    void readText() override;
    void setPosition(int position) override;
    void storeValueText() override;

    // Bounded: the span limits what can be typed and typed values are
    // clamped into it. Unbounded: it is only where the slider starts, and a
    // value outside moves the nearer end.
    void setRange(double min, double max, bool bounded);
    void setTopValue(double top);
    void setBottomValue(double bottom);
    void setValue(double value);

    double getValue() const { return value; }
    double minimum() const { return bottomValue; }
    double maximum() const { return topValue; }
    bool isBounded() const { return bounded; }
    bool isFloatValue() const { return isFloat; }

    QString format(double number) const;
    int positionOf(double number) const;
    double valueOf(int position) const;

private:
    double bottomValue = 0.0;
    double topValue = 0.0;
    double value = 0.0;
    QDoubleValidator* validator = nullptr;
    bool bounded = false;
    bool isFloat = true;
};
