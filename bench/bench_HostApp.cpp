// The host application: from start to the first painted window, opening a
// scene of 100,000 nodes until the tree shows it (and one whose shapes hold
// their vertices in a VertexProperty), and selecting a field in that scene
// until its editor is shown.
#include "BenchHost.h"
#include "EventLoopPass.h"

#include <KalPluginsManager.h>
#include <SceneModel.h>

#include <QDir>
#include <QDockWidget>
#include <QMainWindow>
#include <QProcess>
#include <QTreeView>

#include <benchmark/benchmark.h>

#include <memory>

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

// Opening a scene until its tree is drawn, once per iteration.
static void openUntilDrawn(benchmark::State& state, const QString& path)
{
    KalHostWindow& window = benchHost();
    for (auto _ : state) {
        if (!window.openScene(path)) {
            state.SkipWithError("the scene did not open");
            return;
        }
        eventLoopPass();
        benchmark::DoNotOptimize(window.tree()->grab());
    }
}

static void BM_OpenHugeScene(benchmark::State& state)
{
    openUntilDrawn(state, hugeScenePath());
}
BENCHMARK(BM_OpenHugeScene)->Unit(benchmark::kMillisecond)->Iterations(3);

// The same number of nodes, a third of them held in fields (nestedScenePath).
static void BM_OpenNestedScene(benchmark::State& state)
{
    openUntilDrawn(state, nestedScenePath());
}
BENCHMARK(BM_OpenNestedScene)->Unit(benchmark::kMillisecond)->Iterations(3);

static void BM_SelectFieldInHugeScene(benchmark::State& state)
{
    KalHostWindow& window = benchHost();
    if (window.sceneModel()->rowCount(window.sceneModel()->index(0, 0)) < 1000 &&
        !window.openScene(hugeScenePath())) {
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
