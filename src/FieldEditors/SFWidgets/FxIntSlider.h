#pragma once

#include "FxSlider.h"

#include <cstdint>

class QIntValidator;

// Slider frame of a signed 32-bit (kind 1) or 16-bit (kind 3) value. The
// slider's positions are the values themselves.
class FxIntSlider : public FxSlider
{
    Q_OBJECT
    Q_DISABLE_COPY(FxIntSlider)

public:
    FxIntSlider(int kind, int inTable, KalFieldEditors* editor, QWidget* parent, int row, int column);
    ~FxIntSlider() override;

    void setValueText(QString text) override;
    void updateText() override;
    void readText() override;
    void setPosition(int position) override;
    void storeValueText() override;

    void setRange(int32_t min, int32_t max, bool bounded);
    void setTopValue(int32_t top);
    void setBottomValue(int32_t bottom);

    int32_t getValue() const { return value; }
    int32_t minimum() const { return bottomValue; }
    int32_t maximum() const { return topValue; }
    bool isBounded() const { return bounded; }
    const QIntValidator* getValidator() const { return validator; }

private:
    int32_t bottomValue = 0;
    int32_t topValue = 0;
    int32_t value = 0;
    // What the kind's type holds: the validator's range when unbounded.
    int32_t typeLowest = 0;
    int32_t typeHighest = 0;
    QIntValidator* validator = nullptr;
    bool bounded = false;
    bool detectBase = true;
};
