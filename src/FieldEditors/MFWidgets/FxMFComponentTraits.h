#pragma once

#include "FxMFieldTableItemDelegate.h"
#include "KeptComponents.h"

#include <Inventor/SbPlane.h>
#include <Inventor/SbRotation.h>
#include <Inventor/SbVec2f.h>
#include <Inventor/SbVec2i32.h>
#include <Inventor/SbVec2s.h>
#include <Inventor/SbVec3f.h>
#include <Inventor/SbVec4f.h>
#include <Inventor/fields/SoMFPlane.h>
#include <Inventor/fields/SoMFRotation.h>
#include <Inventor/fields/SoMFVec2f.h>
#include <Inventor/fields/SoMFVec2i32.h>
#include <Inventor/fields/SoMFVec2s.h>
#include <Inventor/fields/SoMFVec3f.h>
#include <Inventor/fields/SoMFVec4f.h>

#include <QString>
#include <QStringList>

#include <array>
#include <cmath>
#include <limits>

// What the list editors of values with components differ in: the field
// class, the title, the columns, the value kind of their cells, and how one
// component is read from a value and written into it. A component text that
// does not make a value the field can hold is refused (false): unparsable
// text, a number the type cannot store, a plane's zero normal, a rotation's
// zero axis.
namespace MFComponents {

inline bool toReal(const QString& text, float& number)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(value) || std::fabs(value) > double(std::numeric_limits<float>::max()))
        return false;
    number = float(value);
    return true;
}

inline QString realText(float number)
{
    return QString::number(double(number), 'g', 6);
}

// Vectors of N floats, whose components are plain array elements.
template <class Vector, int N>
struct FloatVector
{
    using Value = Vector;
    static constexpr int columns = N;
    static constexpr int kind = FxMFieldTableItemDelegate::FloatKind;
    static QString text(const Value& value, int column) { return realText(value[column]); }
    static bool replace(Value& value, int column, const QString& text)
    {
        float number = 0.0f;
        if (!toReal(text, number))
            return false;
        value[column] = number;
        return true;
    }
};

// Integer vectors; a text that is no number of the component's type is
// refused.
template <class Vector, class Component, int Kind>
struct IntegerVector
{
    using Value = Vector;
    static constexpr int columns = 2;
    static constexpr int kind = Kind;
    static QString text(const Value& value, int column) { return QString::number(value[column]); }
    static bool replace(Value& value, int column, const QString& text)
    {
        bool ok = false;
        const qlonglong number = text.trimmed().toLongLong(&ok, 10);
        if (!ok || number < std::numeric_limits<Component>::min() ||
            number > std::numeric_limits<Component>::max())
            return false;
        value[column] = Component(number);
        return true;
    }
};

// Normal (columns 0 to 2) and distance from the origin (column 3).
struct Plane
{
    using Value = SbPlane;
    static constexpr int columns = 4;
    static constexpr int kind = FxMFieldTableItemDelegate::FloatKind;
    static QString text(const Value& value, int column)
    {
        return realText(column < 3 ? value.getNormal()[column] : value.getDistanceFromOrigin());
    }
    static bool replace(Value& value, int column, const QString& text)
    {
        float number = 0.0f;
        if (!toReal(text, number))
            return false;
        // Making a plane normalises its normal again; a new distance keeps
        // the normal as the field holds it.
        if (column == 3) {
            value = KeptComponents::planeWithDistance(value, number);
            return true;
        }
        SbVec3f normal = value.getNormal();
        normal[column] = number;
        if (normal.length() == 0.0f || !std::isfinite(normal.length()))
            return false;
        value = SbPlane(normal, value.getDistanceFromOrigin());
        return true;
    }
};

// Axis (columns 0 to 2) and angle in radians (column 3).
struct Rotation
{
    using Value = SbRotation;
    static constexpr int columns = 4;
    static constexpr int kind = FxMFieldTableItemDelegate::FloatKind;
    static std::array<float, 4> components(const Value& value)
    {
        SbVec3f axis;
        float angle = 0.0f;
        value.getValue(axis, angle);
        return {axis[0], axis[1], axis[2], angle};
    }
    static QString text(const Value& value, int column)
    {
        return realText(components(value)[size_t(column)]);
    }
    static bool replace(Value& value, int column, const QString& text)
    {
        float number = 0.0f;
        if (!toReal(text, number))
            return false;
        std::array<float, 4> parts = components(value);
        parts[size_t(column)] = number;
        const SbVec3f axis(parts[0], parts[1], parts[2]);
        if (axis.length() == 0.0f || !std::isfinite(axis.length()))
            return false;
        // The quaternion is made again from the four numbers; a new angle
        // keeps the axis reading back as it was.
        if (column == 3)
            value = KeptComponents::rotationWithAxis(axis, parts[3]);
        else
            value.setValue(axis, parts[3]);
        return true;
    }
};

} // namespace MFComponents

template <class Field>
struct MFComponentTraits;

template <>
struct MFComponentTraits<SoMFVec2f> : MFComponents::FloatVector<SbVec2f, 2>
{
    static constexpr const char* typeText = "MFVec2f";
    static QStringList headers() { return {QStringLiteral("x"), QStringLiteral("y")}; }
};

template <>
struct MFComponentTraits<SoMFVec2i32>
    : MFComponents::IntegerVector<SbVec2i32, int32_t, FxMFieldTableItemDelegate::Int32Kind>
{
    static constexpr const char* typeText = "MFVec2i32";
    static QStringList headers() { return {QStringLiteral("x"), QStringLiteral("y")}; }
};

template <>
struct MFComponentTraits<SoMFVec2s>
    : MFComponents::IntegerVector<SbVec2s, short, FxMFieldTableItemDelegate::NoKind>
{
    static constexpr const char* typeText = "MFVec2s";
    static QStringList headers() { return {QStringLiteral("x"), QStringLiteral("y")}; }
};

template <>
struct MFComponentTraits<SoMFVec3f> : MFComponents::FloatVector<SbVec3f, 3>
{
    static constexpr const char* typeText = "MFVec3f";
    static QStringList headers() { return {QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z")}; }
};

template <>
struct MFComponentTraits<SoMFVec4f> : MFComponents::FloatVector<SbVec4f, 4>
{
    static constexpr const char* typeText = "MFVec4f";
    static QStringList headers()
    {
        return {QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z"), QStringLiteral("w")};
    }
};

template <>
struct MFComponentTraits<SoMFPlane> : MFComponents::Plane
{
    static constexpr const char* typeText = "MFPlane";
    static QStringList headers()
    {
        return {QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z"), QStringLiteral("distance")};
    }
};

template <>
struct MFComponentTraits<SoMFRotation> : MFComponents::Rotation
{
    static constexpr const char* typeText = "MFRotation";
    static QStringList headers()
    {
        return {QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z"), QStringLiteral("radians")};
    }
};
