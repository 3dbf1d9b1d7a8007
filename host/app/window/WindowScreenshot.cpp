#include "WindowScreenshot.h"

#include <Inventor/Qt/viewers/SoQtExaminerViewer.h>

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <QWindow>

QPixmap WindowScreenshot::take(QMainWindow* window, SoQtExaminerViewer* viewer)
{
    QPixmap picture;
    if (viewer)
        viewer->render();
    QScreen* screen = window->screen();
    if (viewer && screen && window->windowHandle() && QGuiApplication::platformName() == QLatin1String("xcb"))
        picture = screen->grabWindow(window->winId());
    if (picture.isNull())
        picture = window->grab();
    return picture;
}
