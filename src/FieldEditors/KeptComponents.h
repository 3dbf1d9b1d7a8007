#pragma once

class SbPlane;
class SbRotation;
class SbVec3f;

// Values rebuilt from components where only some of them changed, such that
// the untouched components read back exactly as before. A rotation is
// stored as a quaternion and a plane normalises its normal when it is made,
// so building them again from shown components moves the last digit of the
// components nobody edited.
class KeptComponents
{
public:
    // A rotation by `angle` about `axis`, where `axis` is what the field's
    // own getValue(axis, angle) gave: among the quaternions next to the
    // exact one, one that gives back this very axis, with the angle nearest
    // the one asked. When none near does, the plain rotation: an angle of
    // no turn has no axis, and a negative angle or one past a whole turn
    // reads back about the reversed axis.
    static SbRotation rotationWithAxis(const SbVec3f& axis, float angle);
    // `plane` moved to `distance` from the origin, its normal kept as it is.
    static SbPlane planeWithDistance(const SbPlane& plane, float distance);
};
