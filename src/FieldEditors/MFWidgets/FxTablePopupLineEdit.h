#pragma once

#include "FieldLineEdit.h"

class FxTablePopupWidget;

// One number of a list editor's popup grid. Every change of its text is
// written at once into the value of the table's current row.
class FxTablePopupLineEdit : public FieldLineEdit
{
    Q_OBJECT
    Q_DISABLE_COPY(FxTablePopupLineEdit)

public:
    FxTablePopupLineEdit(FxTablePopupWidget* owner, int index, QWidget* parent);

    int getIndex() const { return m_index; }

public slots:
    void setCurrentValue(const QString& text);

private:
    FxTablePopupWidget* m_owner;
    int m_index;
};
