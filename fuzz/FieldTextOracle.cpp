#include "FieldTextOracle.h"

#include <Inventor/SbString.h>
#include <Inventor/fields/SoMFColor.h>
#include <Inventor/fields/SoMFDouble.h>
#include <Inventor/fields/SoMFFloat.h>
#include <Inventor/fields/SoMFMatrix.h>
#include <Inventor/fields/SoMFPlane.h>
#include <Inventor/fields/SoMFRotation.h>
#include <Inventor/fields/SoMFTime.h>
#include <Inventor/fields/SoMFVec2d.h>
#include <Inventor/fields/SoMFVec2f.h>
#include <Inventor/fields/SoMFVec3d.h>
#include <Inventor/fields/SoMFVec3f.h>
#include <Inventor/fields/SoMFVec4f.h>
#include <Inventor/fields/SoSFBox3f.h>
#include <Inventor/fields/SoSFColor.h>
#include <Inventor/fields/SoSFColorRGBA.h>
#include <Inventor/fields/SoSFDouble.h>
#include <Inventor/fields/SoSFFloat.h>
#include <Inventor/fields/SoSFMatrix.h>
#include <Inventor/fields/SoSFPlane.h>
#include <Inventor/fields/SoSFRotation.h>
#include <Inventor/fields/SoSFTime.h>
#include <Inventor/fields/SoSFVec2d.h>
#include <Inventor/fields/SoSFVec2f.h>
#include <Inventor/fields/SoSFVec3d.h>
#include <Inventor/fields/SoSFVec3f.h>
#include <Inventor/fields/SoSFVec4d.h>
#include <Inventor/fields/SoSFVec4f.h>

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>

namespace {

bool isOfAny(const SoField* field, std::initializer_list<SoType> types)
{
    for (SoType type : types) {
        if (field->isOfType(type))
            return true;
    }
    return false;
}

bool isUnitPlane(const SbPlane& plane)
{
    const SbVec3f& normal = plane.getNormal();
    const float length = normal.length();
    return std::isfinite(length) && std::fabs(length - 1.0f) < 1e-3f;
}

bool isUnitRotation(const SbRotation& rotation)
{
    const float* q = rotation.getValue();
    const float squared = q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3];
    return std::isfinite(squared) && std::fabs(squared - 1.0f) < 1e-3f;
}

} // namespace

QString FieldTextOracle::textOf(const SoField* field)
{
    SbString text;
    const_cast<SoField*>(field)->get(text);
    return QString::fromUtf8(text.getString());
}

void FieldTextOracle::require(bool holds, const char* what, const SoField* field, const QString& text)
{
    if (holds)
        return;
    const QByteArray shown = text.left(200).toUtf8();
    const QByteArray stored = textOf(field).left(400).toUtf8();
    std::fprintf(stderr,
                 "Invariant broken: %s\n  field type: %s\n  text given (%d characters): \"%s\"\n"
                 "  field now: \"%s\"\n",
                 what, field->getTypeId().getName().getString(), int(text.size()), shown.constData(),
                 stored.constData());
    std::abort();
}

// Coin's own text of a value is not always the same value again: a plane's
// normal is normalised once more when it is read, a rotation goes through
// a quaternion, and a double is written with 16 digits and read back in
// the last one differently. A number read back is the same to six digits;
// everything else to the letter.
bool FieldTextOracle::sameText(const QString& written, const QString& again)
{
    if (written == again)
        return true;
    static const QRegularExpression separators(QStringLiteral("[\\s,\\[\\]]+"));
    const QStringList before = written.split(separators, Qt::SkipEmptyParts);
    const QStringList after = again.split(separators, Qt::SkipEmptyParts);
    if (before.size() != after.size())
        return false;
    for (int i = 0; i < before.size(); ++i) {
        if (before.at(i) == after.at(i))
            continue;
        bool readBefore = false;
        bool readAfter = false;
        const double a = before.at(i).toDouble(&readBefore);
        const double b = after.at(i).toDouble(&readAfter);
        if (!readBefore || !readAfter || !(std::fabs(a - b) <= std::max(1e-30, 1e-5 * std::fabs(a))))
            return false;
    }
    return true;
}

bool FieldTextOracle::readsBack(const SoField* field, SoField* scratch)
{
    SbString written;
    const_cast<SoField*>(field)->get(written);
    if (!scratch->set(written.getString()))
        return false;
    SbString again;
    scratch->get(again);
    return sameText(QString::fromUtf8(written.getString()), QString::fromUtf8(again.getString()));
}

bool FieldTextOracle::realsAreFinite(const SoField* field)
{
    const bool reals = isOfAny(
        field,
        {SoSFFloat::getClassTypeId(),    SoSFDouble::getClassTypeId(),    SoSFTime::getClassTypeId(),
         SoSFVec2f::getClassTypeId(),    SoSFVec3f::getClassTypeId(),     SoSFVec4f::getClassTypeId(),
         SoSFVec2d::getClassTypeId(),    SoSFVec3d::getClassTypeId(),     SoSFVec4d::getClassTypeId(),
         SoSFColor::getClassTypeId(),    SoSFColorRGBA::getClassTypeId(), SoSFPlane::getClassTypeId(),
         SoSFRotation::getClassTypeId(), SoSFMatrix::getClassTypeId(),    SoSFBox3f::getClassTypeId(),
         SoMFFloat::getClassTypeId(),    SoMFDouble::getClassTypeId(),    SoMFTime::getClassTypeId(),
         SoMFVec2f::getClassTypeId(),    SoMFVec3f::getClassTypeId(),     SoMFVec4f::getClassTypeId(),
         SoMFVec2d::getClassTypeId(),    SoMFVec3d::getClassTypeId(),     SoMFColor::getClassTypeId(),
         SoMFPlane::getClassTypeId(),    SoMFRotation::getClassTypeId(),  SoMFMatrix::getClassTypeId()});
    if (!reals)
        return true;
    static const QRegularExpression nonFinite(QStringLiteral("nan|inf"),
                                              QRegularExpression::CaseInsensitiveOption);
    return !textOf(field).contains(nonFinite);
}

bool FieldTextOracle::directionsHold(const SoField* field)
{
    if (field->isOfType(SoSFPlane::getClassTypeId()))
        return isUnitPlane(static_cast<const SoSFPlane*>(field)->getValue());
    if (field->isOfType(SoSFRotation::getClassTypeId()))
        return isUnitRotation(static_cast<const SoSFRotation*>(field)->getValue());
    if (field->isOfType(SoMFPlane::getClassTypeId())) {
        const auto* planes = static_cast<const SoMFPlane*>(field);
        for (int i = 0; i < planes->getNum(); ++i) {
            if (!isUnitPlane((*planes)[i]))
                return false;
        }
    }
    if (field->isOfType(SoMFRotation::getClassTypeId())) {
        const auto* rotations = static_cast<const SoMFRotation*>(field);
        for (int i = 0; i < rotations->getNum(); ++i) {
            if (!isUnitRotation((*rotations)[i]))
                return false;
        }
    }
    return true;
}
