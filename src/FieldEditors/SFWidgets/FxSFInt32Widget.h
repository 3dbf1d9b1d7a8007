#pragma once

#include "FxSFIntegerWidget.h"

#include <Inventor/fields/SoSFInt32.h>

// Editor of SoSFInt32 fields.
class FxSFInt32Widget : public FxSFIntegerWidget<FxIntSlider, int32_t>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFInt32Widget)

public:
    explicit FxSFInt32Widget(const char* name = nullptr);
};
