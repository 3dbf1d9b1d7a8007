#pragma once

#include <QString>

// A number in the text form Coin gives it in a field (what SoMField::get1
// writes): single precision with 8 significant digits, double with 16, the
// exponent with at least three digits ("1e+022"), always with a point,
// whatever the locale. Made without Coin's output stream, which costs
// microseconds per value: a table paints dozens of them at every refresh.
class CoinNumberText
{
public:
    static QString of(float value);
    static QString of(double value);
};
