#include "FxTablePopupLineEdit.h"

#include "FxMFieldTable.h"
#include "FxTablePopupWidget.h"

FxTablePopupLineEdit::FxTablePopupLineEdit(FxTablePopupWidget* owner, int index, QWidget* parent)
    : FieldLineEdit(parent)
    , m_owner(owner)
    , m_index(index)
{}

void FxTablePopupLineEdit::setCurrentValue(const QString& text)
{
    if (m_owner && m_owner->getTable())
        m_owner->setValueFromText(m_owner->getTable()->currentRow(), m_index, text);
}
