#include "FirstPaintWatcher.h"

#include <QEvent>
#include <QWidget>

FirstPaintWatcher::FirstPaintWatcher(QWidget* window)
    : QObject(window)
    , m_window(window)
{
    m_window->installEventFilter(this);
}

bool FirstPaintWatcher::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_window && event->type() == QEvent::Paint) {
        m_window->removeEventFilter(this);
        emit painted();
    }
    return QObject::eventFilter(watched, event);
}
