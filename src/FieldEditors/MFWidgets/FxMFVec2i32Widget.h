#pragma once

#include "FxMFComponentWidget.h"

// Editor of SoMFVec2i32 fields.
class FxMFVec2i32Widget : public FxMFComponentWidget<SoMFVec2i32>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFVec2i32Widget)

public:
    explicit FxMFVec2i32Widget(const char* name = nullptr);
};
