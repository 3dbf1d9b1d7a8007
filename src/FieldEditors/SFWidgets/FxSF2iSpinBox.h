#pragma once

#include "FxSFieldWidget.h"

#include <QStringList>

#include <array>

class QLabel;
class QSpinBox;

// Two integer components on spin boxes: the base of the two-component
// integer vector editors. A spin box applies its value at once, and so does
// a refresh that changes one: its signal is not blocked, so the refresh that
// follows an undo writes the field again and pushes a further command.
class FxSF2iSpinBox : public FxSFieldWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSF2iSpinBox)

public:
    explicit FxSF2iSpinBox(const char* name = nullptr);

    void createWidget() override;
    void setLabels(const QStringList& texts);
    // 0: 16-bit limits; 1 and 2: 32-bit limits; anything else changes nothing.
    void setRangeKind(int kind);

protected:
    std::array<QSpinBox*, 2> spinBoxes{};
    std::array<QLabel*, 2> labels{};
};
