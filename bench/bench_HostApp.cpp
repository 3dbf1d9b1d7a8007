// The host application: from start to the first painted window, opening a
// scene of 100,000 nodes until the tree shows it, and selecting a field in
// that scene until its editor is shown.
#include "EventLoopPass.h"

#include <KalFieldSampler.h>
#include <KalHostWindow.h>
#include <KalPluginsManager.h>
#include <KalShell.h>
#include <SceneModel.h>

#include <Inventor/Qt/SoQt.h>

#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QMainWindow>
#include <QProcess>
#include <QTemporaryDir>
#include <QTreeView>

#include <benchmark/benchmark.h>

#include <memory>

namespace {

// 1,000 groups of 99 nodes each, plus the groups and the root.
QString hugeScenePath()
{
    static QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("huge.iv"));
    if (QFile::exists(path))
        return path;
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write("#Inventor V2.1 ascii\nSeparator {\n");
    for (int group = 0; group < 1000; ++group) {
        file.write("Separator {\n");
        for (int i = 0; i < 99; ++i)
            file.write((i % 2) ? "Cube { width 2 }\n" : "Material { diffuseColor 0.5 0.5 0.5 }\n");
        file.write("}\n");
    }
    file.write("}\n");
    return path;
}

KalHostWindow& host()
{
    static KalHostWindow* instance = [] {
        KalFieldSampler::initClass();
        SoQt::init(KalShell::getInstance()->getMainWindow());
        KalHostWindow::Options options;
        options.interactive = false;
        options.view = false;
        auto* window = new KalHostWindow(options);
        window->pluginLoaded(
            KalPluginsManager::getInstance()->loadPlugin(QStringLiteral(KALDEFAULTS_MODULE_PATH)));
        window->arrangeDocks();
        window->window()->show();
        return window;
    }();
    return *instance;
}

} // namespace

// A whole process: start, plug-in, sample scene, first paint, exit.
static void BM_StartToFirstPaint(benchmark::State& state)
{
    for (auto _ : state) {
        QProcess process;
        process.start(QStringLiteral(KALHOST_PATH), {QStringLiteral("--quit")});
        if (!process.waitForFinished(30000) || process.exitCode() != 0) {
            state.SkipWithError("kalhost did not start and quit cleanly");
            return;
        }
    }
}
BENCHMARK(BM_StartToFirstPaint)->Unit(benchmark::kMillisecond)->Iterations(5);

static void BM_OpenHugeScene(benchmark::State& state)
{
    KalHostWindow& window = host();
    const QString path = hugeScenePath();
    for (auto _ : state) {
        if (!window.openScene(path)) {
            state.SkipWithError("the scene did not open");
            return;
        }
        eventLoopPass();
        benchmark::DoNotOptimize(window.tree()->grab());
    }
}
BENCHMARK(BM_OpenHugeScene)->Unit(benchmark::kMillisecond)->Iterations(3);

static void BM_SelectFieldInHugeScene(benchmark::State& state)
{
    KalHostWindow& window = host();
    if (window.model()->rowCount(window.model()->index(0, 0)) < 1000 && !window.openScene(hugeScenePath())) {
        state.SkipWithError("the scene did not open");
        return;
    }
    QDockWidget* dock = window.window()->findChild<QDockWidget*>(QStringLiteral("KalFieldEditorDock"));
    int group = 0;
    for (auto _ : state) {
        group = (group + 37) % 1000;
        // A cube's width, far down the tree: its rows are made on the way.
        window.select(QStringLiteral("/%1/1.width").arg(group));
        eventLoopPass();
        benchmark::DoNotOptimize(dock->grab());
    }
}
BENCHMARK(BM_SelectFieldInHugeScene)->Unit(benchmark::kMillisecond);
