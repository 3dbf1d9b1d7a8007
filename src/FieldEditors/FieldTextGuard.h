#pragma once

#include <QString>

class SoField;

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

    // Coin writes a string value in quotes and escapes only the quotes: a
    // value ending in a backslash escapes its own closing quote, and the
    // field's text no longer reads back.
    static bool quotable(const QString& value);

    // An image text that declares more pixels than it holds numbers is
    // refused (SbImageSize has why). True for fields of other types.
    static bool imageFits(const SoField* field, const QString& text);

    // Coin keeps names in blocks of 64 KiB and writes a longer name past its
    // block, corrupting the heap. A text for a field that reads names (names,
    // enumerations, bit masks) is refused past this length; other fields are
    // not held to it. Far above any real name.
    static constexpr int maxNameText = 60000;
    static bool namesFit(const SoField* field, const QString& text);
};
