#pragma once

#include "FxMFNumberWidget.h"

// Editor of SoMFShort fields.
class FxMFShortWidget : public FxMFNumberWidget<SoMFShort>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFShortWidget)

public:
    explicit FxMFShortWidget(const char* name = nullptr);
};
