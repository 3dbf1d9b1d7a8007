#include "AccessButtonPrivate.h"

#include <QKeyEvent>

AccessButtonPrivate::AccessButtonPrivate(QWidget* parent, const char* name)
    : QSpinBox(parent)
{
    if (name)
        setObjectName(QLatin1String(name));
}

AccessButtonPrivate::AccessButtonPrivate(int minimum, int maximum, int step, QWidget* parent,
                                         const char* name)
    : AccessButtonPrivate(parent, name)
{
    setRange(minimum, maximum);
    setSingleStep(step);
}

void AccessButtonPrivate::setNewValue(int value)
{
    setValue(value + 1);
}

void AccessButtonPrivate::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        // A typed number not yet taken is taken first, then said once more.
        interpretText();
        emit valueChanged(value());
        return;
    }
    QAbstractSpinBox::keyPressEvent(event);
}
