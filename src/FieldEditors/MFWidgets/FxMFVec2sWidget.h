#pragma once

#include "FxMFComponentWidget.h"

// Editor of SoMFVec2s fields.
class FxMFVec2sWidget : public FxMFComponentWidget<SoMFVec2s>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFVec2sWidget)

public:
    explicit FxMFVec2sWidget(const char* name = nullptr);
};
