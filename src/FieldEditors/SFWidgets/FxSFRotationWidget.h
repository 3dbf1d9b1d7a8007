#pragma once

#include "FxSF4fBox.h"

#include <Inventor/fields/SoSFRotation.h>

// Editor of SoSFRotation fields: the axis and the angle in radians. Only
// Return applies a rotation; leaving an input does not.
class FxSFRotationWidget : public FxSF4fBox
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFRotationWidget)

public:
    explicit FxSFRotationWidget(const char* name = nullptr);

    void createWidget() override;

    // Nothing calls it; it stays for editors that want focus-leave checks.
    virtual void checkFocusLeave(void* unused);

protected:
    bool readField(std::array<float, 4>& values) override;
    bool writeField(const std::array<float, 4>& values, const std::array<bool, 4>& kept) override;
};
