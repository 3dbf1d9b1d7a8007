#pragma once
// The plug-in loaded into the host once per benchmark program, its main
// window shown at one size, so that every selection figure pays for the same
// layout.
#include <KalPluginsManager.h>
#include <KalShell.h>

#include <QDockWidget>
#include <QMainWindow>

// The "Field Editor" dock, or null if the plug-in did not load.
inline QDockWidget* loadPluginIntoShownWindow()
{
    KalPluginsManager::getInstance()->loadPlugin(QStringLiteral(KALDEFAULTS_MODULE_PATH));
    QMainWindow* window = KalShell::getInstance()->getMainWindow();
    window->resize(900, 600);
    window->show();
    return window->findChild<QDockWidget*>(QStringLiteral("KalFieldEditorDock"));
}
