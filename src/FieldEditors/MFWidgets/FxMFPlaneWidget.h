#pragma once

#include "FxMFComponentWidget.h"

// Editor of SoMFPlane fields.
class FxMFPlaneWidget : public FxMFComponentWidget<SoMFPlane>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFPlaneWidget)

public:
    explicit FxMFPlaneWidget(const char* name = nullptr);
};
