#include "HostLifetime.h"

#include "KalPluginsManager.h"
#include "KalShell.h"

#include <QCoreApplication>
#include <QMainWindow>

namespace {
bool& registered()
{
    static bool value = false;
    return value;
}
} // namespace

void HostLifetime::ensureShutdownHook()
{
    if (registered() || !QCoreApplication::instance())
        return;
    registered() = true;
    qAddPostRoutine(&HostLifetime::shutdown);
}

void HostLifetime::shutdown()
{
    registered() = false;
    // Extensions hold their docks and toolbars inside the main window, so
    // they go first.
    KalPluginsManager::getInstance()->unloadAll();
    delete KalShell::getInstance()->getMainWindowIfAny();
}
