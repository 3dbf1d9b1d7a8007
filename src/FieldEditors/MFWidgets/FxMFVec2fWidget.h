#pragma once

#include "FxMFComponentWidget.h"

// Editor of SoMFVec2f fields.
class FxMFVec2fWidget : public FxMFComponentWidget<SoMFVec2f>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFVec2fWidget)

public:
    explicit FxMFVec2fWidget(const char* name = nullptr);
};
