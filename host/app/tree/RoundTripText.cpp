#include "RoundTripText.h"

#include <Inventor/SbName.h>
#include <Inventor/SbString.h>
#include <Inventor/SoType.h>
#include <Inventor/fields/SoField.h>

#include <QLocale>
#include <QRegularExpression>

#include <cmath>
#include <cstring>

namespace {

// The field classes whose numbers are floats; a type derived from one of
// them (a scene's own field class) is found through its parents.
const char* const kFloatTypes[] = {"SFFloat",     "MFFloat",     "SFVec2f",    "MFVec2f",    "SFVec3f",
                                   "MFVec3f",     "SFVec4f",     "MFVec4f",    "SFColor",    "MFColor",
                                   "SFColorRGBA", "MFColorRGBA", "SFRotation", "MFRotation", "SFPlane",
                                   "MFPlane",     "SFMatrix",    "MFMatrix",   "SFBox2f",    "SFBox3f"};

bool isFloatTypeName(const char* name)
{
    for (const char* floatType : kFloatTypes) {
        if (std::strcmp(name, floatType) == 0)
            return true;
    }
    return false;
}

// A decimal number with a fraction or an exponent: integers, names and
// "0x..." image data do not match and are kept as they are.
bool isDecimalNumber(const QStringRef& token)
{
    static const QRegularExpression pattern(
        QStringLiteral("^[+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?$"));
    if (!token.contains(QLatin1Char('.')) && !token.contains(QLatin1Char('e')) &&
        !token.contains(QLatin1Char('E')))
        return false;
    return pattern.match(token).hasMatch();
}

bool isSeparator(QChar c)
{
    return c.isSpace() || c == QLatin1Char('(') || c == QLatin1Char(')') || c == QLatin1Char('|') ||
           c == QLatin1Char(',') || c == QLatin1Char('[') || c == QLatin1Char(']') || c == QLatin1Char('{') ||
           c == QLatin1Char('}');
}

QString shortenNumber(const QStringRef& token, bool floats)
{
    bool ok = false;
    const double value = QLocale::c().toDouble(token, &ok);
    if (!ok)
        return token.toString();
    return floats ? RoundTripText::shortestFloat(static_cast<float>(value))
                  : RoundTripText::shortestDouble(value);
}

} // namespace

QString RoundTripText::of(SoField* field)
{
    if (!field)
        return QString();
    SbString text;
    field->get(text);
    return shorten(QString::fromUtf8(text.getString()), field->getTypeId());
}

bool RoundTripText::holdsFloats(const SoType& fieldType)
{
    for (SoType type = fieldType; !type.isBad(); type = type.getParent()) {
        if (isFloatTypeName(type.getName().getString()))
            return true;
    }
    return false;
}

QString RoundTripText::shortestFloat(float value)
{
    if (!std::isfinite(value))
        return QString::number(static_cast<double>(value));
    // Nine significant digits always read back; most values need far fewer.
    for (int digits = 1; digits < 9; ++digits) {
        const QString text = QString::number(static_cast<double>(value), 'g', digits);
        if (static_cast<float>(QLocale::c().toDouble(text)) == value)
            return text;
    }
    return QString::number(static_cast<double>(value), 'g', 9);
}

QString RoundTripText::shortestDouble(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

QString RoundTripText::shorten(const QString& coinText, const SoType& fieldType)
{
    const bool floats = holdsFloats(fieldType);
    QString result;
    result.reserve(coinText.size());
    int i = 0;
    const int size = coinText.size();
    while (i < size) {
        const QChar c = coinText.at(i);
        if (c == QLatin1Char('"')) {
            // A quoted string is copied through to its closing quote.
            int end = i + 1;
            while (end < size && coinText.at(end) != QLatin1Char('"'))
                end += coinText.at(end) == QLatin1Char('\\') ? 2 : 1;
            end = qMin(end + 1, size);
            result += coinText.midRef(i, end - i);
            i = end;
            continue;
        }
        if (isSeparator(c)) {
            result += c;
            ++i;
            continue;
        }
        int end = i;
        while (end < size && !isSeparator(coinText.at(end)) && coinText.at(end) != QLatin1Char('"'))
            ++end;
        const QStringRef token = coinText.midRef(i, end - i);
        if (isDecimalNumber(token))
            result += shortenNumber(token, floats);
        else
            result += token;
        i = end;
    }
    return result;
}
