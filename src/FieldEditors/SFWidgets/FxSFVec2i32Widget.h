#pragma once

#include "FxSF2iSpinBox.h"

#include <Inventor/fields/SoSFVec2i32.h>

// Editor of SoSFVec2i32 fields, over the full signed 32-bit range.
class FxSFVec2i32Widget : public FxSF2iSpinBox
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFVec2i32Widget)

public:
    explicit FxSFVec2i32Widget(const char* name = nullptr);

    void createWidget() override;
    void updateWidget() override;
    void applyChanges() override;
};
