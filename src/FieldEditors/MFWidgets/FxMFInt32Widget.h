#pragma once

#include "FxMFNumberWidget.h"

// Editor of SoMFInt32 fields.
class FxMFInt32Widget : public FxMFNumberWidget<SoMFInt32>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFInt32Widget)

public:
    explicit FxMFInt32Widget(const char* name = nullptr);
};
