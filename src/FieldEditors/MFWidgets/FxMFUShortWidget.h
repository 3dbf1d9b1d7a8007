#pragma once

#include "FxMFNumberWidget.h"

// Editor of SoMFUShort fields.
class FxMFUShortWidget : public FxMFNumberWidget<SoMFUShort>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFUShortWidget)

public:
    explicit FxMFUShortWidget(const char* name = nullptr);
};
