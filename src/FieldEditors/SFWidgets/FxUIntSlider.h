#pragma once

#include "FxNumberSlider.h"

#include <cstdint>

// Slider frame of an unsigned 32-bit (any kind but 4) or 16-bit (kind 4)
// value. The slider's signed positions carry the unsigned range by an offset
// of 2^31.
class FxUIntSlider : public FxNumberSlider<FxUIntSlider, uint32_t>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxUIntSlider)

public:
    FxUIntSlider(int kind, int inTable, KalFieldEditors* editor, QWidget* parent, int row, int column);
    ~FxUIntSlider() override;

    void setValueText(QString text) override;
    void updateText() override;
    void readText() override;
    void storeValueText() override;

    // A bounded range narrows only the type limits: the span and the slider
    // stay as they were. That is how unsigned frames have always behaved.
    // An unbounded range gives the type's own limits back.
    void setRange(uint32_t min, uint32_t max, bool bounded);

    uint32_t typeMinimum() const { return typeMin; }
    uint32_t typeMaximum() const { return typeMax; }

    static int positionOf(uint32_t number);
    static uint32_t valueOf(int position);

private:
    uint32_t typeMax = 0;
    uint32_t typeMin = 0;
    // The type's own maximum, which a bounded range narrows typeMax from.
    uint32_t typeLimit = 0;
    bool detectBase = true;
};
