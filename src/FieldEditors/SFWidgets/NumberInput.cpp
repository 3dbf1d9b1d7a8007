#include "NumberInput.h"

#include <Inventor/fields/SoSFBox2d.h>
#include <Inventor/fields/SoSFBox2f.h>
#include <Inventor/fields/SoSFBox3d.h>
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

#include <QAbstractSpinBox>
#include <QRegularExpression>
#include <QValidator>

namespace {

using Check = bool (*)(const QString&);

template <class Real>
bool fits(const QString& token)
{
    Real value{};
    return NumberInput::read(token, value);
}

// The single-value field types whose components are reals, and the real
// each component is.
struct RealComponents
{
    SoType (*type)();
    Check check;
};

const RealComponents kRealComponents[] = {
    {SoSFFloat::getClassTypeId, fits<float>},  {SoSFVec2f::getClassTypeId, fits<float>},
    {SoSFVec3f::getClassTypeId, fits<float>},  {SoSFVec4f::getClassTypeId, fits<float>},
    {SoSFColor::getClassTypeId, fits<float>},  {SoSFColorRGBA::getClassTypeId, fits<float>},
    {SoSFPlane::getClassTypeId, fits<float>},  {SoSFRotation::getClassTypeId, fits<float>},
    {SoSFMatrix::getClassTypeId, fits<float>}, {SoSFBox2f::getClassTypeId, fits<float>},
    {SoSFBox3f::getClassTypeId, fits<float>},  {SoSFDouble::getClassTypeId, fits<double>},
    {SoSFTime::getClassTypeId, fits<double>},  {SoSFVec2d::getClassTypeId, fits<double>},
    {SoSFVec3d::getClassTypeId, fits<double>}, {SoSFVec4d::getClassTypeId, fits<double>},
    {SoSFBox2d::getClassTypeId, fits<double>}, {SoSFBox3d::getClassTypeId, fits<double>},
};

} // namespace

bool NumberInput::fitsField(const SoField* field, const QString& text)
{
    if (!field)
        return true;
    for (const RealComponents& row : kRealComponents) {
        if (!field->isOfType(row.type()))
            continue;
        static const QRegularExpression separators(QStringLiteral("\\s+"));
        for (const QString& token : text.split(separators, Qt::SkipEmptyParts)) {
            if (!row.check(token))
                return false;
        }
        return true;
    }
    return true;
}

QLocale NumberInput::fieldLocale()
{
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::RejectGroupSeparator);
    return locale;
}

void NumberInput::useFieldLocale(QValidator* validator)
{
    if (validator)
        validator->setLocale(fieldLocale());
}

void NumberInput::useFieldLocale(QAbstractSpinBox* spinBox)
{
    if (spinBox)
        spinBox->setLocale(fieldLocale());
}
