#pragma once

#include "FxSF4fBox.h"

#include <Inventor/fields/SoSFVec4f.h>

// Editor of SoSFVec4f fields.
class FxSFVec4fWidget : public FxSF4fBox
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFVec4fWidget)

public:
    explicit FxSFVec4fWidget(const char* name = nullptr);

    void createWidget() override;

protected:
    bool readField(std::array<float, 4>& values) override;
    bool writeField(const std::array<float, 4>& values, const std::array<bool, 4>& kept) override;
};
