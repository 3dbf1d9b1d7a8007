#pragma once
// One pass of a running event loop, as the host's would make it between two
// user actions. processEvents() alone, called outside exec(), leaves
// deleteLater() requests pending for ever: the main window's dock animations
// are deleted that way, and without this every dock swap would leave one
// behind and each benchmark would run slower than the one before.
#include <QCoreApplication>
#include <QEvent>

inline void eventLoopPass()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
