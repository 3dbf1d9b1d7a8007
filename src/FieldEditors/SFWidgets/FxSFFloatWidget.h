#pragma once

#include "FxSFRealWidget.h"

// Editor of SoSFFloat fields.
class FxSFFloatWidget : public FxSFRealWidget<SoSFFloat>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFFloatWidget)

public:
    explicit FxSFFloatWidget(const char* name = nullptr);
};
