#include "KalShell.h"

#include "KalExtension.h"

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

namespace {

bool isDockArea(int area)
{
    switch (area) {
    case Qt::LeftDockWidgetArea:
    case Qt::RightDockWidgetArea:
    case Qt::TopDockWidgetArea:
    case Qt::BottomDockWidgetArea:
        return true;
    default:
        return false;
    }
}

bool isToolBarArea(int area)
{
    switch (area) {
    case Qt::LeftToolBarArea:
    case Qt::RightToolBarArea:
    case Qt::TopToolBarArea:
    case Qt::BottomToolBarArea:
        return true;
    default:
        return false;
    }
}

} // namespace

// The host's singletons live until the process ends and are never destroyed:
// by the time static destructors run the application object is gone, and
// widgets can no longer be deleted safely. The host application unloads its
// plug-ins before it leaves main().
KalShell* KalShell::getInstance()
{
    static KalShell* instance = new KalShell;
    return instance;
}

KalShell::KalShell() = default;

KalShell::~KalShell() = default;

QMainWindow* KalShell::getMainWindow()
{
    if (!m_mainWindow) {
        m_mainWindow = new QMainWindow;
        m_mainWindow->setObjectName(QStringLiteral("KalibraMainWindow"));
        m_mainWindow->setWindowTitle(QObject::tr("Kalibra"));
        // Docks nest and tab the way a scene inspector's panels are used.
        m_mainWindow->setDockOptions(QMainWindow::AnimatedDocks | QMainWindow::AllowNestedDocks |
                                     QMainWindow::AllowTabbedDocks);
        m_attached.clear();
    }
    return m_mainWindow;
}

QMenu* KalShell::extensionsMenu()
{
    QMainWindow* window = getMainWindow();
    auto* menu = window->menuBar()->findChild<QMenu*>(QStringLiteral("m_extensionsMenu"));
    if (!menu) {
        menu = window->menuBar()->addMenu(QObject::tr("E&xtensions"));
        menu->setObjectName(QStringLiteral("m_extensionsMenu"));
    }
    return menu;
}

void KalShell::addDockWidget(QDockWidget* dock, int area)
{
    if (!dock)
        return;
    // An unknown area would only make Qt refuse the dock; the right side is
    // where a host puts panels it knows nothing about.
    getMainWindow()->addDockWidget(isDockArea(area) ? Qt::DockWidgetArea(area) : Qt::RightDockWidgetArea,
                                   dock);
}

void KalShell::removeDockWidget(QDockWidget* dock)
{
    if (!dock || !m_mainWindow)
        return;
    m_mainWindow->removeDockWidget(dock);
}

void KalShell::setStatusMessage(const QString& message)
{
    getMainWindow()->statusBar()->showMessage(message, 5000);
}

void KalShell::attachExtension(KalExtension* extension, int mode)
{
    if (!extension)
        return;
    detachExtension(extension);
    // Each attached extension gets a checkable entry that shows or hides it.
    QAction* action = extensionsMenu()->addAction(QString::fromUtf8(extension->name.getString()));
    action->setObjectName(QStringLiteral("m_extensionAction"));
    action->setCheckable(true);
    action->setChecked(true);
    QObject::connect(action, &QAction::triggered, extension, [extension](bool checked) {
        if (checked)
            extension->show();
        else
            extension->hide();
    });
    m_attached[extension] = Attachment{mode, action};
}

void KalShell::detachExtension(KalExtension* extension)
{
    auto it = m_attached.find(extension);
    if (it == m_attached.end())
        return;
    delete it->second.action.data();
    m_attached.erase(it);
}

void KalShell::setExtensionShown(KalExtension* extension, bool shown)
{
    auto it = m_attached.find(extension);
    if (it == m_attached.end() || !it->second.action)
        return;
    it->second.action->setChecked(shown);
}

void KalShell::addToolBar(QToolBar* toolBar, int area)
{
    if (!toolBar)
        return;
    getMainWindow()->addToolBar(isToolBarArea(area) ? Qt::ToolBarArea(area) : Qt::TopToolBarArea, toolBar);
}

void KalShell::removeToolBar(QToolBar* toolBar)
{
    if (!toolBar || !m_mainWindow)
        return;
    m_mainWindow->removeToolBar(toolBar);
}
