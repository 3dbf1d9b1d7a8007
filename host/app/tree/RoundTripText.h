#pragma once

#include <QString>

class SoField;
class SoType;

// Coin writes a float with eight significant digits, so a colour a person
// set to 0.6 reads "0.60000002". The host's own views show each number in
// the shortest form that reads back to the same stored value instead:
// "0.6" for a float field, all the digits a double needs for a double one.
class RoundTripText
{
public:
    // The field's text as Coin writes it, its numbers shortened.
    static QString of(SoField* field);
    // Shortens the numbers of a text Coin wrote for a field of this type.
    // Quoted strings, names and hexadecimal image data are left as written.
    static QString shorten(const QString& coinText, const SoType& fieldType);
    // True when the type's numbers are single-precision floats; other
    // types, and types this table does not know, keep double precision.
    static bool holdsFloats(const SoType& fieldType);
    static QString shortestFloat(float value);
    static QString shortestDouble(double value);
};
