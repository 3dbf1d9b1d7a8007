#pragma once

#include "FxSFFloatComponents.h"

#include <Inventor/fields/SoSFVec3f.h>

// Editor of SoSFVec3f fields, one line edit per component.
class FxSFVec3fWidget : public FxSFFloatComponents<3>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFVec3fWidget)

public:
    explicit FxSFVec3fWidget(const char* name = nullptr);

    void createWidget() override;

protected:
    bool readField(std::array<float, 3>& values) override;
    bool writeField(const std::array<float, 3>& values, const std::array<bool, 3>& kept) override;
};
