#pragma once

#include "FxSFTextWidget.h"

// Editor of SoSFString fields.
class FxSFStringWidget : public FxSFTextWidget<SoSFString>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFStringWidget)

public:
    explicit FxSFStringWidget(const char* name = nullptr);
};
