#pragma once

#include "FxSF2iSpinBox.h"

#include <Inventor/fields/SoSFVec2s.h>

// Editor of SoSFVec2s fields, limited to 16 bits.
class FxSFVec2sWidget : public FxSF2iSpinBox
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFVec2sWidget)

public:
    explicit FxSFVec2sWidget(const char* name = nullptr);

    void createWidget() override;
    void updateWidget() override;
    void applyChanges() override;
};
