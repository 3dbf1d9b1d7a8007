#pragma once

#include "FxSFIntegerWidget.h"

#include <Inventor/fields/SoSFShort.h>

// Editor of SoSFShort fields. The frame's value is written as it is, not
// narrowed to 16 bits: the frame's 16-bit limits keep it in range.
class FxSFShortWidget : public FxSFIntegerWidget<FxIntSlider, int32_t>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFShortWidget)

public:
    explicit FxSFShortWidget(const char* name = nullptr);
};
