#include "FxSFMatrixWidget.h"

#include "FieldWrite.h"
#include "KalSFSetValueCommand.h"
#include "MatrixText.h"

#include <KalServices.h>
#include <SoTypedObject.h>

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
    shown.clear();
    for (int i = 0; i < MatrixText::elements && size_t(i) < cells.size(); ++i)
        cells[size_t(i)]->setText(MatrixText::showElement(matrix, i, shown));
    resetCellCursors();
    FxSFLineWidget::updateWidget();
}

// An unparsable or empty cell is written as 0. A cell a float cannot hold
// refuses the whole grid: Return in any other cell applies them all. A cell
// still showing what it was filled with keeps the field's element, not its
// six digits.
void FxSFMatrixWidget::applyChanges()
{
    auto* typed = SoTypedObject(field).cast<SoSFMatrix>();
    if (!typed || cells.empty())
        return;
    QStringList texts;
    for (QLineEdit* cell : cells)
        texts << cell->text();
    SbMatrix matrix;
    if (!MatrixText::read(texts, shown, matrix))
        return;
    FieldWrite::setValue(typed, matrix);
    for (QLineEdit* cell : cells)
        cell->setModified(false);
    SbString none;
    KalServices::getInstance()->pushCommand(new KalSFSetValueCommand(typed, none));
}
