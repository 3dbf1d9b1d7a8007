#pragma once

#include "FxSFIntegerWidget.h"

#include <Inventor/fields/SoSFUInt32.h>

// Editor of SoSFUInt32 fields.
class FxSFUInt32Widget : public FxSFIntegerWidget<FxUIntSlider, uint32_t>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFUInt32Widget)

public:
    explicit FxSFUInt32Widget(const char* name = nullptr);
};
