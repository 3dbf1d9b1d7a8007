#pragma once

#include "FxSF4fBox.h"

#include <Inventor/fields/SoSFPlane.h>

// Editor of SoSFPlane fields: the normal's three components and the distance
// from the origin.
class FxSFPlaneWidget : public FxSF4fBox
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFPlaneWidget)

public:
    explicit FxSFPlaneWidget(const char* name = nullptr);

    void createWidget() override;

protected:
    bool readField(std::array<float, 4>& values) override;
    bool writeField(const std::array<float, 4>& values, const std::array<bool, 4>& kept) override;
};
