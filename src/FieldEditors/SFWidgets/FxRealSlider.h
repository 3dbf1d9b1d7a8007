#pragma once

#include "FxNumberSlider.h"

class QDoubleValidator;

// Slider frame of a single- or double-precision value. The slider always runs
// from position 0 to 100 over the span [bottomValue, topValue].
class FxRealSlider : public FxNumberSlider<FxRealSlider, double>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxRealSlider)

public:
    FxRealSlider(int inTable, KalFieldEditors* editor, QWidget* parent, bool isFloat, int row, int column);
    ~FxRealSlider() override;

    void setValueText(QString text) override;
    void updateText() override;
    void readText() override;
    void storeValueText() override;

    // Bounded: the span limits what can be typed and typed values are
    // clamped into it. Unbounded: it is only where the slider starts, and a
    // value outside moves the nearer end.
    void setRange(double min, double max, bool bounded);
    void setValue(double value);

    bool isFloatValue() const { return isFloat; }
    // The value in the field's own text form, every digit it needs.
    QString fieldText() const override;

    QString format(double number) const;
    int positionOf(double number) const;
    double valueOf(int position) const;

private:
    QDoubleValidator* validator = nullptr;
    bool isFloat = true;
    // The text setValue showed and the number behind it: six decimals are
    // fewer than a float has, and a line edit still showing them stands for
    // the number, not for what they read as.
    QString shownText;
    double shownValue = 0.0;
};
