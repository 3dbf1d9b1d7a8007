#include "FxSF4fBox.h"

#include <Inventor/SbVec3f.h>

#include <cmath>

namespace {
const ComponentColumnStyle kStyle = {"SF4fBoxVSpacing", "SF4FvLayout", "SF4flabel", "SF4fine", 0, true};
}

FxSF4fBox::FxSF4fBox(const char* name)
    : FxSFFloatComponents(name, "FxSF4fBox")
{}

void FxSF4fBox::createWidget()
{
    FxSFieldWidget::createWidget();
    buildColumns(kStyle, "SF4fBoxHSpacing", "SF4fBoxHMargin");
}

void FxSF4fBox::setLabels(const QStringList& texts)
{
    for (int i = 0; i < 4 && i < texts.size(); ++i) {
        if (labels[size_t(i)])
            labels[size_t(i)]->setText(tr("<p>") + texts.at(i) + tr("</p>"));
    }
}

// Normalised the way Coin normalises, in single precision, so that what is
// judged is what the field would get.
bool FxSF4fBox::isDirection(const std::array<float, 4>& values)
{
    SbVec3f direction(values[0], values[1], values[2]);
    const float squared = direction.sqrLength();
    if (!(squared > 0.0f) || !std::isfinite(squared))
        return false;
    direction.normalize();
    return std::fabs(direction.length() - 1.0f) < 1e-3f;
}

void FxSF4fBox::setCursorsToStart()
{
    cursorsToStart();
}
