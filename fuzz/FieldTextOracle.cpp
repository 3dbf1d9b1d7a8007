#include "FieldTextOracle.h"

#include <FieldTextGuard.h>
#include <FxMFieldTable.h>
#include <FxMFieldTableItemDelegate.h>
#include <FxMFieldWidget.h>
#include <FxSFMatrixWidget.h>
#include <FxSFPlaneWidget.h>
#include <FxSFieldWidget.h>
#include <KalServices.h>
#include <SoTypedObject.h>

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
#include <Inventor/fields/SoSFInt32.h>
#include <Inventor/fields/SoSFMatrix.h>
#include <Inventor/fields/SoSFPlane.h>
#include <Inventor/fields/SoSFRotation.h>
#include <Inventor/fields/SoSFShort.h>
#include <Inventor/fields/SoSFTime.h>
#include <Inventor/fields/SoSFVec2d.h>
#include <Inventor/fields/SoSFVec2f.h>
#include <Inventor/fields/SoSFVec3d.h>
#include <Inventor/fields/SoSFVec3f.h>
#include <Inventor/fields/SoSFVec4d.h>
#include <Inventor/fields/SoSFVec4f.h>

#include <QLineEdit>
#include <QRegularExpression>
#include <QStringList>
#include <QValidator>

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

bool close(double got, double wanted, double relative, double absolute)
{
    return got == wanted || std::fabs(got - wanted) <= std::max(absolute, relative * std::fabs(wanted));
}

} // namespace

QString FieldTextOracle::textOf(const SoField* field)
{
    SbString text;
    const_cast<SoField*>(field)->get(text);
    return QString::fromUtf8(text.getString());
}

QByteArray FieldTextOracle::bytesOf(const SoField* field)
{
    SbString text;
    const_cast<SoField*>(field)->get(text);
    return QByteArray(text.getString(), text.getLength());
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

bool FieldTextOracle::validatorAccepts(const QLineEdit& line, const QString& text)
{
    const QValidator* validator = line.validator();
    if (!validator)
        return false;
    QString checked = text;
    int position = int(checked.size());
    return validator->validate(checked, position) == QValidator::Acceptable;
}

bool FieldTextOracle::verdictCounts(const QString& text)
{
    return !text.trimmed().isEmpty() && FieldTextGuard::acceptable(text);
}

void FieldTextOracle::checkField(const SoField* field, SoField* scratch, bool specific, const QString& text)
{
    require(readsBack(field, scratch), "the field does not read back from its own text", field, text);
    require(realsAreFinite(field), "a real that is not finite was stored", field, text);
    if (specific)
        require(directionsHold(field), "a plane without a normal or a rotation without an axis was stored",
                field, text);
}

void FieldTextOracle::checkRefusedText(const SoField* field, const QString& textBefore, int commandsBefore,
                                       const QString& text)
{
    if (FieldTextGuard::acceptable(text))
        return;
    require(textOf(field) == textBefore, "a number long enough to overrun Coin's reader reached the field",
            field, text);
    require(KalServices::getInstance()->commandCount() == commandsBefore, "a refused text recorded a command",
            field, text);
}

void FieldTextOracle::checkSingleStored(const FxSFieldWidget* editor, SoField* field, int input,
                                        const QString& text)
{
    const double wanted = text.trimmed().toDouble();
    const char* what = "a text the validator accepts was not stored as it reads";
    if (auto* reals = SoTypedObject(field).cast<SoSFFloat>()) {
        require(reals->getValue() == float(wanted), what, field, text);
    } else if (auto* doubles = SoTypedObject(field).cast<SoSFDouble>()) {
        require(doubles->getValue() == wanted, what, field, text);
    } else if (field->isOfType(SoSFInt32::getClassTypeId()) || field->isOfType(SoSFShort::getClassTypeId())) {
        bool ok = false;
        const int number = text.trimmed().toInt(&ok);
        require(ok && textOf(field) == QString::number(number), what, field, text);
    } else if (auto* vec2 = SoTypedObject(field).cast<SoSFVec2f>()) {
        require(vec2->getValue()[input] == float(wanted), what, field, text);
    } else if (auto* vec3 = SoTypedObject(field).cast<SoSFVec3f>()) {
        require(vec3->getValue()[input] == float(wanted), what, field, text);
    } else if (auto* vec4 = SoTypedObject(field).cast<SoSFVec4f>()) {
        require(vec4->getValue()[input] == float(wanted), what, field, text);
    } else if (auto* matrix = SoTypedObject(field).cast<SoSFMatrix>()) {
        if (dynamic_cast<const FxSFMatrixWidget*>(editor))
            require(matrix->getValue()[input / 4][input % 4] == float(wanted), what, field, text);
    } else if (auto* plane = SoTypedObject(field).cast<SoSFPlane>()) {
        // The normal is normalised; the distance is what was typed.
        if (input == 3 && dynamic_cast<const FxSFPlaneWidget*>(editor))
            require(close(plane->getValue().getDistanceFromOrigin(), float(wanted), 1e-6, 1e-37), what, field,
                    text);
    }
}

void FieldTextOracle::checkListStored(FxMFieldWidget* editor, SoField* field, int row, int column,
                                      const QString& text)
{
    const char* what = "a text the validator accepts was not stored as it reads";
    const QString trimmed = text.trimmed();
    const QString stored = editor->getValueText(row, column);
    switch (editor->getTable()->getDelegate()->getValueKind()) {
    case FxMFieldTableItemDelegate::ShortKind:
    case FxMFieldTableItemDelegate::UShortKind:
    case FxMFieldTableItemDelegate::IntKind:
    case FxMFieldTableItemDelegate::UIntKind:
    case FxMFieldTableItemDelegate::Int32Kind:
    case FxMFieldTableItemDelegate::UInt32Kind: {
        bool ok = false;
        const qlonglong wanted = trimmed.toLongLong(&ok);
        // Coin writes unsigned lists in hexadecimal.
        require(ok && stored.toLongLong(nullptr, 0) == wanted, what, field, text);
        break;
    }
    case FxMFieldTableItemDelegate::FloatKind: {
        const double wanted = double(float(trimmed.toDouble()));
        // Rotations are stored as quaternions and planes keep a unit normal:
        // only a plane's distance reads as typed. A colour component outside
        // 0..1 is dropped without a word, as designed.
        if (field->isOfType(SoMFRotation::getClassTypeId()))
            break;
        if (field->isOfType(SoMFPlane::getClassTypeId()) && column != 3)
            break;
        if (field->isOfType(SoMFColor::getClassTypeId()) && !(wanted >= 0.0 && wanted <= 1.0))
            break;
        // Component lists show six digits, single-value lists Coin's eight.
        require(close(stored.toDouble(), wanted, 1e-5, 1e-37), what, field, text);
        break;
    }
    case FxMFieldTableItemDelegate::DoubleKind:
        require(close(stored.toDouble(), trimmed.toDouble(), 1e-15, 1e-300), what, field, text);
        break;
    default:
        break;
    }
}

void FieldTextOracle::checkListLength(const SoMField* field, int rows, const QString& text)
{
    require(field->getNum() == rows, "a text changed the number of values", field, text);
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
