#pragma once

#include "FxMFNumberWidget.h"

// Editor of SoMFUInt32 fields.
class FxMFUInt32Widget : public FxMFNumberWidget<SoMFUInt32>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFUInt32Widget)

public:
    explicit FxMFUInt32Widget(const char* name = nullptr);
};
