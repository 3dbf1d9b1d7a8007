#include "FxSFMatrixWidget.h"

#include "KalSFSetValueCommand.h"
#include "NumberInput.h"

#include <KalServices.h>
#include <SoTypedObject.h>

#include <Inventor/SbBox3s.h>
#include <Inventor/SbMatrix.h>

#include <QLineEdit>

FxSFMatrixWidget::FxSFMatrixWidget(const char* name)
    : FxPopupWidget(4, 4, name ? name : "FxSFMatrixWidget")
{
    handledType = SoSFMatrix::getClassTypeId();
    this->name = "SFMatrix";
}

void FxSFMatrixWidget::createWidget()
{
    setFieldLabel(QStringLiteral("SFMatrix"));
    FxPopupWidget::createWidget();
    setCellValidator(3);
}

void FxSFMatrixWidget::updateWidget()
{
    auto* typed = SoTypedObject(field).cast<SoSFMatrix>();
    if (!typed || cells.empty())
        return;
    const SbMatrix& matrix = typed->getValue();
    for (int j = 0; j < 4; ++j) {
        for (int i = 0; i < 4; ++i) {
            QString text;
            text.setNum(matrix[j][i], 'g', 6);
            cells[size_t(4 * j + i)]->setText(text);
        }
    }
    resetCellCursors();
    FxSFLineWidget::updateWidget();
}

// An unparsable or empty cell is written as 0. A cell a float cannot hold
// refuses the whole grid: Return in any other cell applies them all.
void FxSFMatrixWidget::applyChanges()
{
    auto* typed = SoTypedObject(field).cast<SoSFMatrix>();
    if (!typed || cells.empty())
        return;
    float values[16];
    for (int i = 0; i < 16; ++i) {
        if (!NumberInput::read(cells[size_t(i)]->text(), values[i]))
            return;
    }
    typed->setValue(SbMatrix(values[0], values[1], values[2], values[3], values[4], values[5], values[6],
                             values[7], values[8], values[9], values[10], values[11], values[12], values[13],
                             values[14], values[15]));
    for (QLineEdit* cell : cells)
        cell->setModified(false);
    SbString none;
    KalServices::getInstance()->pushCommand(new KalSFSetValueCommand(typed, none));
}
