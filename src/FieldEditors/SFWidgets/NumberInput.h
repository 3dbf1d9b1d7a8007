#pragma once

#include <QLocale>
#include <QString>

#include <cmath>
#include <limits>

class QAbstractSpinBox;
class QValidator;
class SoField;

// How the single-value editors take a number from a person. A field's text
// is always Coin's C form, so the inputs check in the C locale whatever the
// user's locale is, and read with QString's conversions, which are C-only:
// a German validator let "1,5" through and the reading made a 0 of it. A
// number the field's type cannot hold is refused, not written: Coin writes
// a scene with "nan" or "inf" in it that it cannot read back, and turns a
// float beyond range into 0 without a word.
class NumberInput
{
public:
    // The C locale with group separators refused: "1,000" is not a number
    // Coin reads, and the reading made a 0 of it.
    static QLocale fieldLocale();
    static void useFieldLocale(QValidator* validator);
    static void useFieldLocale(QAbstractSpinBox* spinBox);

    // Whether a value fits the type it is written as.
    template <class Real>
    static bool holds(double value)
    {
        return std::isfinite(value) && std::fabs(value) <= double(std::numeric_limits<Real>::max());
    }

    // A typed component as the editors have always read it (an unreadable
    // or empty text is 0), or false when it names a number the type cannot
    // hold. Overflow is told from unreadable text by the infinity the C
    // reading gives it.
    template <class Real>
    static bool read(const QString& text, Real& value)
    {
        bool ok = false;
        double number = text.toDouble(&ok);
        if (!ok && !std::isinf(number))
            number = 0.0;
        if (!holds<Real>(number))
            return false;
        value = Real(number);
        return true;
    }

    // Whether every number in a text written to `field` fits the field's
    // components. Coin's reader makes 0 of a float beyond range, and of a
    // double beyond range, without a word; fields of other types, and
    // words that are no numbers, are left to Coin as they always were.
    static bool fitsField(const SoField* field, const QString& text);
};
