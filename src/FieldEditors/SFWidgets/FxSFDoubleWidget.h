#pragma once

#include "FxSFRealWidget.h"

// Editor of SoSFDouble fields. On a complexity, material or directional
// light node it starts from the float row's zero double span and widens it
// to the field's value.
class FxSFDoubleWidget : public FxSFRealWidget<SoSFDouble>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFDoubleWidget)

public:
    explicit FxSFDoubleWidget(const char* name = nullptr);
};
