#pragma once

#include <QLineEdit>

// Every line edit of the editors and their cells. QLineEdit cuts its text
// at 32,767 characters unless told otherwise, and a field's text can be
// megabytes (a node with its vertices); a control that held only the head of
// a value would write the head back.
class FieldLineEdit : public QLineEdit
{
    Q_OBJECT
    Q_DISABLE_COPY(FieldLineEdit)

public:
    explicit FieldLineEdit(QWidget* parent = nullptr);
    ~FieldLineEdit() override;
};
