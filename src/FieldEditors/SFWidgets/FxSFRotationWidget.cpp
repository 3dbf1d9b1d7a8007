#include "FxSFRotationWidget.h"

#include "FieldWrite.h"
#include "KeptComponents.h"

#include <SoTypedObject.h>

#include <Inventor/SbPlane.h>
#include <Inventor/SbRotation.h>
#include <Inventor/SbVec3f.h>

FxSFRotationWidget::FxSFRotationWidget(const char* name)
    : FxSF4fBox(name ? name : "FxSFRotationWidget")
{
    handledType = SoSFRotation::getClassTypeId();
    this->name = "SFRotation";
}

void FxSFRotationWidget::createWidget()
{
    setFieldLabel(QStringLiteral("SFRotation"));
    const bool built = lineEdits[0] != nullptr;
    FxSF4fBox::createWidget();
    if (built)
        return;
    setLabels({"x", "y", "z", "radians"});
    // Leaving a rotation input must not apply a half-typed axis.
    for (QLineEdit* edit : lineEdits)
        disconnect(edit, SIGNAL(editingFinished()), this, SLOT(setFocusLeaveEvent()));
}

bool FxSFRotationWidget::readField(std::array<float, 4>& values)
{
    auto* typed = SoTypedObject(field).cast<SoSFRotation>();
    if (!typed)
        return false;
    SbVec3f axis;
    float angle = 0.0f;
    typed->getValue(axis, angle);
    values = {axis[0], axis[1], axis[2], angle};
    return true;
}

bool FxSFRotationWidget::writeField(const std::array<float, 4>& values, const std::array<bool, 4>& kept)
{
    auto* typed = SoTypedObject(field).cast<SoSFRotation>();
    // Without an axis the angle turns about nothing; the field keeps the
    // last rotation.
    if (!typed || !isDirection(values))
        return false;
    // The field holds a quaternion, which the four numbers were worked out
    // from: untouched, it stays as it is, and with only the angle typed its
    // axis reads back as it was shown.
    if (allKept(kept))
        return true;
    const SbVec3f axis(values[0], values[1], values[2]);
    if (kept[0] && kept[1] && kept[2])
        FieldWrite::setValue(typed, KeptComponents::rotationWithAxis(axis, values[3]));
    else
        FieldWrite::setValue(typed, SbRotation(axis, values[3]));
    return true;
}

void FxSFRotationWidget::checkFocusLeave(void*)
{
    if (edited())
        setFocusLeaveEvent();
}
