#pragma once

#include "FxMFComponentWidget.h"

// Editor of SoMFRotation fields.
class FxMFRotationWidget : public FxMFComponentWidget<SoMFRotation>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFRotationWidget)

public:
    explicit FxMFRotationWidget(const char* name = nullptr);
};
