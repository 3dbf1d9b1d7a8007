#pragma once

#include "FxSFFloatComponents.h"

#include <QStringList>

// Four float components side by side: the base of the four-number vector,
// plane and rotation editors.
class FxSF4fBox : public FxSFFloatComponents<4>
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSF4fBox)

public:
    explicit FxSF4fBox(const char* name = nullptr);

    void createWidget() override;
    // Each text is shown as a paragraph of its own.
    void setLabels(const QStringList& texts);
    void setCursorsToStart();

protected:
    // Whether the first three components make a direction Coin can
    // normalise: neither all zero nor so long that the length overflows,
    // both of which leave a zero vector in the field.
    static bool isDirection(const std::array<float, 4>& values);

    bool readField(std::array<float, 4>&) override { return false; }
    bool writeField(const std::array<float, 4>&, const std::array<bool, 4>&) override { return false; }
};
