#pragma once

#include <QPixmap>

class QMainWindow;
class SoQtExaminerViewer;

// A picture of the main window as a person sees it.
class WindowScreenshot
{
public:
    // The screen's own pixels where there is one, so that the 3D view's
    // OpenGL drawing is in the picture; the widgets' rendering otherwise.
    // Null when neither gave a picture.
    static QPixmap take(QMainWindow* window, SoQtExaminerViewer* viewer);
};
