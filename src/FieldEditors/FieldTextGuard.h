#pragma once

#include <QString>

// Coin reads a number into a fixed buffer on the stack and overruns it on a
// number of a few hundred digits. Every text an editor hands the field for
// parsing passes here first; a text that could reach that limit is refused,
// as an unparsable text is.
class FieldTextGuard
{
public:
    // The longest run of number characters (digits, signs, points,
    // exponents, hexadecimal letters) Coin is given. Well above any real
    // number, far below what Coin's reader overruns on.
    static constexpr int maxNumberRun = 256;

    static bool acceptable(const QString& text);
};
