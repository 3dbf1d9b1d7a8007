#pragma once
// What the tests of kalhost's window share: the scene graph and the host's
// node classes set up once, and a window on the sample scene with the real
// plug-in loaded.
#include <KalFieldSampler.h>
#include <KalHostWindow.h>
#include <KalPluginsManager.h>
#include <KalShell.h>
#include <SoKalExtensions.h>

#include <Inventor/Qt/SoQt.h>
#include <Inventor/Qt/viewers/SoQtExaminerViewer.h>
#include <Inventor/SoDB.h>

#include <QGuiApplication>
#include <QImage>
#include <QMainWindow>
#include <QScreen>
#include <QStandardPaths>
#include <QtTest>

#include <algorithm>
#include <memory>

namespace HostWindowTesting {

// Once per test program, before any window.
inline void setUpScene()
{
    QStandardPaths::setTestModeEnabled(true);
    SoDB::init();
    SoKalExtensions::init();
    KalFieldSampler::initClass();
    SoQt::init(KalShell::getInstance()->getMainWindow());
}

// A window on the sample scene, without the plug-in, the 3D view or a
// person: what tests of opening and saving scene files need.
inline std::unique_ptr<KalHostWindow> headlessSample()
{
    KalHostWindow::Options options;
    options.interactive = false;
    options.view = false;
    std::unique_ptr<KalHostWindow> host(new KalHostWindow(options));
    host->openSample();
    return host;
}

// A window on the sample scene with the plug-in loaded, shown; the 3D view
// only where asked for. Null when the plug-in did not load.
inline std::unique_ptr<KalHostWindow> sampleWithPlugin(bool view)
{
    KalHostWindow::Options options;
    options.interactive = false;
    options.view = view;
    std::unique_ptr<KalHostWindow> host(new KalHostWindow(options));
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    KalPlugin* plugin = manager->loadPlugin(QStringLiteral(KALDEFAULTS_MODULE_PATH));
    if (!plugin) {
        qWarning() << manager->lastError();
        return nullptr;
    }
    host->pluginLoaded(plugin);
    host->arrangeDocks();
    host->openSample();
    host->window()->show();
    if (!QTest::qWaitForWindowExposed(host->window()))
        return nullptr;
    return host;
}

// What the 3D view shows, as the screen has it, once it has had time to
// redraw.
inline QImage viewFrame(const KalHostWindow& host)
{
    QWidget* view = host.viewer()->getWidget();
    QTest::qWait(200);
    return QGuiApplication::primaryScreen()
        ->grabWindow(host.window()->winId())
        .copy(QRect(view->mapTo(host.window(), QPoint()), view->size()))
        .toImage();
}

// Pixels that differ between two pictures of the 3D view, every second one
// in each direction.
inline int changedPixels(const QImage& before, const QImage& after)
{
    int changed = 0;
    for (int y = 0; y < std::min(before.height(), after.height()); y += 2) {
        for (int x = 0; x < std::min(before.width(), after.width()); x += 2) {
            if (before.pixel(x, y) != after.pixel(x, y))
                ++changed;
        }
    }
    return changed;
}

} // namespace HostWindowTesting
