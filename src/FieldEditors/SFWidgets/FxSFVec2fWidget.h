#pragma once

#include "FxSFFloatComponents.h"

#include <Inventor/fields/SoSFVec2f.h>

// Editor of SoSFVec2f fields, one line edit per component.
class FxSFVec2fWidget : public FxSFFloatComponents<2>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFVec2fWidget)

public:
    explicit FxSFVec2fWidget(const char* name = nullptr);

    void createWidget() override;

protected:
    bool readField(std::array<float, 2>& values) override;
    bool writeField(const std::array<float, 2>& values, const std::array<bool, 2>& kept) override;
};
