#pragma once

#include "FxMFNumberWidget.h"

// Editor of SoMFFloat fields.
class FxMFFloatWidget : public FxMFNumberWidget<SoMFFloat>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFFloatWidget)

public:
    explicit FxMFFloatWidget(const char* name = nullptr);
};
