#pragma once

#include "FxMFComponentWidget.h"

// Editor of SoMFVec4f fields.
class FxMFVec4fWidget : public FxMFComponentWidget<SoMFVec4f>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFVec4fWidget)

public:
    explicit FxMFVec4fWidget(const char* name = nullptr);
};
