#pragma once

#include "FxNumberSlider.h"

#include <cstdint>

class QIntValidator;

// Slider frame of a signed 32-bit (kind 1) or 16-bit (kind 3) value. The
// slider's positions are the values themselves.
class FxIntSlider : public FxNumberSlider<FxIntSlider, int32_t>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxIntSlider)

public:
    FxIntSlider(int kind, int inTable, KalFieldEditors* editor, QWidget* parent, int row, int column);
    ~FxIntSlider() override;

    void setValueText(QString text) override;
    void updateText() override;
    void readText() override;
    void storeValueText() override;

    void setRange(int32_t min, int32_t max, bool bounded);

    const QIntValidator* getValidator() const { return validator; }

private:
    friend class FxNumberSlider<FxIntSlider, int32_t>;
    static int positionOf(int32_t number) { return number; }
    static int32_t valueOf(int position) { return position; }

    // What the kind's type holds: the validator's range when unbounded.
    int32_t typeLowest = 0;
    int32_t typeHighest = 0;
    QIntValidator* validator = nullptr;
    bool detectBase = true;
};
