#include "KeptComponents.h"

#include <Inventor/SbPlane.h>
#include <Inventor/SbRotation.h>
#include <Inventor/SbVec3f.h>

#include <cmath>
#include <cstdlib>
#include <initializer_list>
#include <limits>

namespace {

// How far from the nearest quaternion the search goes: the fourth
// component (which fixes the angle) up to this many units in the last
// place either way, each axis component up to kAxisReach.
constexpr int kAngleReach = 32;
constexpr int kAxisReach = 4;

float stepped(float value, int steps)
{
    const float toward =
        steps < 0 ? -std::numeric_limits<float>::infinity() : std::numeric_limits<float>::infinity();
    for (int i = 0; i < std::abs(steps); ++i)
        value = std::nextafter(value, toward);
    return value;
}

// SbRotation normalises every quaternion it is given, in float, which moves
// the components that were chosen to the unit; the four floats are written
// into the rotation's own storage, which getValue() hands out, instead.
SbRotation withQuaternion(const float (&q)[4])
{
    SbRotation rotation;
    auto* stored = const_cast<float*>(rotation.getValue());
    for (int i = 0; i < 4; ++i)
        stored[i] = q[i];
    return rotation;
}

SbVec3f axisOf(const float (&q)[4])
{
    SbVec3f axis;
    float angle = 0.0f;
    withQuaternion(q).getValue(axis, angle);
    return axis;
}

// The quaternion with this fourth component whose axis reads back as
// `axis`, component by component; false when there is none near.
bool fitAxis(const SbVec3f& axis, float (&q)[4])
{
    const double scale = std::sin(std::acos(double(q[3])));
    for (int i = 0; i < 3; ++i)
        q[i] = float(double(axis[i]) * scale);
    for (int i = 0; i < 3; ++i) {
        const float start = q[i];
        bool fitted = false;
        for (int distance = 0; distance <= kAxisReach && !fitted; ++distance) {
            for (int sign : {1, -1}) {
                q[i] = stepped(start, sign * distance);
                if (axisOf(q)[i] == axis[i]) {
                    fitted = true;
                    break;
                }
            }
        }
        if (!fitted)
            return false;
    }
    return axisOf(q) == axis;
}

} // namespace

SbRotation KeptComponents::rotationWithAxis(const SbVec3f& axis, float angle)
{
    const SbRotation plain(axis, angle);
    // getValue gives angles from 0 to two pi; any other turns the axis round.
    constexpr double turn = 6.283185307179586;
    if (!(angle > 0.0f) || !(double(angle) < turn) || !std::isfinite(axis.length()))
        return plain;
    // The fourth component nearest the angle first, then its neighbours:
    // the first that keeps the axis is the nearest angle that does.
    const float nearest = float(std::cos(double(angle) / 2.0));
    for (int n = 0; n <= 2 * kAngleReach; ++n) {
        const int steps = n % 2 ? (n + 1) / 2 : -(n / 2);
        float q[4] = {0.0f, 0.0f, 0.0f, stepped(nearest, steps)};
        if (std::fabs(q[3]) < 1.0f && fitAxis(axis, q))
            return withQuaternion(q);
    }
    return plain;
}

SbPlane KeptComponents::planeWithDistance(const SbPlane& plane, float distance)
{
    // Offsetting moves the distance and leaves the normal alone; the sum is
    // rounded, so the offset is nudged until the distance is the one asked.
    SbPlane moved = plane;
    float offset = distance - plane.getDistanceFromOrigin();
    for (int attempt = 0; attempt < 8; ++attempt) {
        moved = plane;
        moved.offset(offset);
        const float reached = moved.getDistanceFromOrigin();
        if (reached == distance || !std::isfinite(offset))
            break;
        offset = std::nextafter(offset, reached < distance ? std::numeric_limits<float>::infinity()
                                                           : -std::numeric_limits<float>::infinity());
    }
    return moved;
}
