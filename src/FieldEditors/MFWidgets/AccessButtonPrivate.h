#pragma once

#include <QSpinBox>

// The list editors' quick-access box: shows the current row counted from 1.
// Enter says its value again, so that pressing it takes the table back to
// the row even when the number did not change.
class AccessButtonPrivate : public QSpinBox
{
    Q_OBJECT
    Q_DISABLE_COPY(AccessButtonPrivate)

public:
    AccessButtonPrivate(QWidget* parent, const char* name);
    AccessButtonPrivate(int minimum, int maximum, int step, QWidget* parent, const char* name);

public slots:
    // Takes a 0-based row and shows it 1-based.
    void setNewValue(int value);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};
