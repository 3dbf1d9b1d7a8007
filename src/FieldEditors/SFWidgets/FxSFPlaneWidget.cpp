#include "FxSFPlaneWidget.h"

#include "FieldWrite.h"
#include "KeptComponents.h"

#include <SoTypedObject.h>

#include <Inventor/SbPlane.h>
#include <Inventor/SbRotation.h>
#include <Inventor/SbVec3f.h>

FxSFPlaneWidget::FxSFPlaneWidget(const char* name)
    : FxSF4fBox(name ? name : "FxSFPlaneWidget")
{
    handledType = SoSFPlane::getClassTypeId();
    this->name = "SFPlane";
}

void FxSFPlaneWidget::createWidget()
{
    setFieldLabel(QStringLiteral("SFPlane"));
    const bool built = lineEdits[0] != nullptr;
    FxSF4fBox::createWidget();
    if (built)
        return;
    setLabels({"x", "y", "z", "distance"});
}

bool FxSFPlaneWidget::readField(std::array<float, 4>& values)
{
    auto* typed = SoTypedObject(field).cast<SoSFPlane>();
    if (!typed)
        return false;
    const SbPlane& plane = typed->getValue();
    const SbVec3f& normal = plane.getNormal();
    values = {normal[0], normal[1], normal[2], plane.getDistanceFromOrigin()};
    return true;
}

bool FxSFPlaneWidget::writeField(const std::array<float, 4>& values, const std::array<bool, 4>& kept)
{
    auto* typed = SoTypedObject(field).cast<SoSFPlane>();
    // A plane without a normal is no plane; the field keeps the last one.
    if (!typed || !isDirection(values))
        return false;
    if (allKept(kept))
        return true;
    // Making a plane normalises its normal again, which can move its last
    // digit; a normal nobody edited stays the field's.
    if (kept[0] && kept[1] && kept[2])
        FieldWrite::setValue(typed, KeptComponents::planeWithDistance(typed->getValue(), values[3]));
    else
        FieldWrite::setValue(typed, SbPlane(SbVec3f(values[0], values[1], values[2]), values[3]));
    return true;
}
