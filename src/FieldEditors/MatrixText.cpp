#include "MatrixText.h"

#include "ShownComponents.h"

#include <Inventor/SbMatrix.h>

QString MatrixText::elementText(const SbMatrix& matrix, int index)
{
    if (index < 0 || index >= elements)
        return QString();
    return QString::number(double(matrix[index / 4][index % 4]), 'g', 6);
}

QString MatrixText::showElement(const SbMatrix& matrix, int index, ShownComponents& shown)
{
    const QString text = elementText(matrix, index);
    if (!text.isNull())
        shown.show(index, matrix[index / 4][index % 4], text);
    return text;
}

bool MatrixText::read(const QStringList& texts, const ShownComponents& shown, SbMatrix& matrix)
{
    if (texts.size() != elements)
        return false;
    float values[elements];
    for (int i = 0; i < elements; ++i) {
        if (!shown.read(i, texts.at(i), values[i]))
            return false;
    }
    matrix = SbMatrix(values[0], values[1], values[2], values[3], values[4], values[5], values[6], values[7],
                      values[8], values[9], values[10], values[11], values[12], values[13], values[14],
                      values[15]);
    return true;
}
