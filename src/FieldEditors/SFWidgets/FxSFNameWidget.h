#pragma once

#include "FxSFTextWidget.h"

// Editor of SoSFName fields.
class FxSFNameWidget : public FxSFTextWidget<SoSFName>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFNameWidget)

public:
    explicit FxSFNameWidget(const char* name = nullptr);
};
