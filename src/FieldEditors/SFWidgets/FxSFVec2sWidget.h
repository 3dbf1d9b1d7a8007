#pragma once

#include "FxSFVec2iWidget.h"

// Editor of SoSFVec2s fields, limited to 16 bits.
class FxSFVec2sWidget : public FxSFVec2iWidget<SoSFVec2s>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFVec2sWidget)

public:
    explicit FxSFVec2sWidget(const char* name = nullptr);
};
