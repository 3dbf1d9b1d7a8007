#pragma once

#include <QString>
#include <QStringList>

class SbMatrix;
class ShownComponents;

// A matrix as the sixteen texts of the popup grids that edit one, element i
// in row i / 4 and column i % 4, in both directions.
class MatrixText
{
public:
    static constexpr int elements = 16;

    // Element `index` as the grids show it: 'g', six digits.
    static QString elementText(const SbMatrix& matrix, int index);
    // Element `index` as the grids show it, remembered in `shown` with the
    // element's own number.
    static QString showElement(const SbMatrix& matrix, int index, ShownComponents& shown);
    // The matrix of sixteen texts: an unreadable or empty text is 0, and a
    // text still as `shown` showed it is the element it was shown for. False,
    // and `matrix` unchanged, when there are not sixteen texts or one names
    // a number a float cannot hold.
    static bool read(const QStringList& texts, const ShownComponents& shown, SbMatrix& matrix);
};
