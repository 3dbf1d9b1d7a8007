#pragma once

#include "FxSFVec2iWidget.h"

// Editor of SoSFVec2i32 fields, over the full signed 32-bit range.
class FxSFVec2i32Widget : public FxSFVec2iWidget<SoSFVec2i32>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFVec2i32Widget)

public:
    explicit FxSFVec2i32Widget(const char* name = nullptr);
};
