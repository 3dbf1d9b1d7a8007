#pragma once

#include "FxSFIntegerWidget.h"

#include <Inventor/fields/SoSFUShort.h>

// Editor of SoSFUShort fields; the value is narrowed to 16 bits before it
// is written.
class FxSFUShortWidget : public FxSFIntegerWidget<FxUIntSlider, uint16_t>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFUShortWidget)

public:
    explicit FxSFUShortWidget(const char* name = nullptr);
};
