#include "FxMFMatrixWidget.h"

#include "FxMFieldTable.h"
#include "KalMFSetValueCommand.h"
#include "MatrixText.h"

#include <KalServices.h>
#include <SoTypedObject.h>

#include <Inventor/fields/SoMFMatrix.h>

FxMFMatrixWidget::FxMFMatrixWidget(const char* name)
    : FxTablePopupWidget(4, 4, name ? name : "FxMFMatrixWidget")
{
    handledType = SoMFMatrix::getClassTypeId();
    this->name = "MFMatrix";
}

// The cells show the whole field and are not edited in place: the popup is
// where a matrix is edited.
void FxMFMatrixWidget::createWidget()
{
    setTypeLabel(QStringLiteral("MFMatrix"));
    FxTablePopupWidget::createWidget();
    prepareSingleColumn();
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    setPopupValidators(3);
}

bool FxMFMatrixWidget::acceptField(SoField* field)
{
    return field && field->isOfType(SoMFMatrix::getClassTypeId());
}

int FxMFMatrixWidget::getValueAlignment()
{
    return Qt::AlignLeft;
}

void FxMFMatrixWidget::setField(SoField* field)
{
    m_fieldTextKnown = false;
    m_fieldText.clear();
    FxTablePopupWidget::setField(field);
}

void FxMFMatrixWidget::updateWidget()
{
    m_fieldTextKnown = false;
    FxTablePopupWidget::updateWidget();
}

QString FxMFMatrixWidget::getValueText(int row, int column)
{
    if (column != 0 || !holdsRow(row))
        return QString();
    if (!m_fieldTextKnown) {
        SbString text;
        getField()->get(text);
        m_fieldText = QString::fromUtf8(text.getString());
        m_fieldTextKnown = true;
    }
    return m_fieldText;
}

QString FxMFMatrixWidget::getComponentText(int row, int index)
{
    auto* matrices = SoTypedObject(getField()).cast<SoMFMatrix>();
    if (!matrices || !holdsRow(row))
        return QString();
    return MatrixText::showElement((*matrices)[row], index, m_shown);
}

// A line a float cannot hold leaves the matrix as it is; an unreadable or
// empty one (a "-" half typed) counts as 0, as in the single matrix editor.
// The lines nobody typed into keep the elements they were filled with, not
// the six digits they show.
void FxMFMatrixWidget::setValueFromText(int row, int index, QString)
{
    auto* matrices = SoTypedObject(getField()).cast<SoMFMatrix>();
    if (!matrices || !holdsRow(row) || index < 0 || index >= MatrixText::elements)
        return;
    SbMatrix matrix;
    if (!MatrixText::read(popupTexts(), m_shown, matrix) || (*matrices)[row] == matrix)
        return;
    matrices->set1Value(row, matrix);
    SbString none;
    KalServices::getInstance()->pushCommand(new KalMFSetValueCommand(matrices, row, none));
}
