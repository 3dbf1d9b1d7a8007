#pragma once

#include "FxMFNumberWidget.h"

// Editor of SoMFDouble fields.
class FxMFDoubleWidget : public FxMFNumberWidget<SoMFDouble>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFDoubleWidget)

public:
    explicit FxMFDoubleWidget(const char* name = nullptr);
};
