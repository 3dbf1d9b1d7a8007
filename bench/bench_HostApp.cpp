// The host application: from start to the first painted window, opening a
// scene of 100,000 nodes until the tree shows it (and one whose shapes hold
// their vertices in a VertexProperty), and selecting a field in that scene
// until its editor is shown.
#include "BenchHost.h"
#include "EventLoopPass.h"

#include <KalPluginsManager.h>
#include <LargeStack.h>
#include <SceneModel.h>

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QDir>
#include <QDockWidget>
#include <QFile>
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

// The floor of an open: Coin reading the same text from memory on a thread
// with a large stack, as the host hands it over, and the scene read before
// freed the same way. That is most of what an open costs, and it grows with
// the file, not with the host.
static void readAndFree(benchmark::State& state, const QString& path)
{
    SoSeparator* previous = nullptr;
    for (auto _ : state) {
        QFile file(path);
        const QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        SoInput input;
        input.setBuffer(text.constData(), size_t(text.size()));
        SoSeparator* root = nullptr;
        LargeStack::run([&input, &root] { root = SoDB::readAll(&input); });
        if (!root) {
            state.SkipWithError("Coin did not read the scene");
            break;
        }
        root->ref();
        LargeStack::unref(previous);
        previous = root;
    }
    LargeStack::unref(previous);
}

static void BM_ReadHugeScene(benchmark::State& state)
{
    readAndFree(state, hugeScenePath());
}
BENCHMARK(BM_ReadHugeScene)->Unit(benchmark::kMillisecond)->Iterations(5);

static void BM_OpenHugeScene(benchmark::State& state)
{
    openUntilDrawn(state, hugeScenePath());
}
BENCHMARK(BM_OpenHugeScene)->Unit(benchmark::kMillisecond)->Iterations(5);

// The same number of nodes, a third of them held in fields (nestedScenePath).
static void BM_ReadNestedScene(benchmark::State& state)
{
    readAndFree(state, nestedScenePath());
}
BENCHMARK(BM_ReadNestedScene)->Unit(benchmark::kMillisecond)->Iterations(5);

static void BM_OpenNestedScene(benchmark::State& state)
{
    openUntilDrawn(state, nestedScenePath());
}
BENCHMARK(BM_OpenNestedScene)->Unit(benchmark::kMillisecond)->Iterations(5);

static void BM_SelectFieldInHugeScene(benchmark::State& state)
{
    KalHostWindow& window = benchHost();
    // Opened here whatever ran before: the nested scene has as many groups.
    if (!window.openScene(hugeScenePath())) {
        state.SkipWithError("the scene did not open");
        return;
    }
    QDockWidget* dock = window.window()->findChild<QDockWidget*>(QStringLiteral("KalFieldEditorDock"));
    int group = 0;
    for (auto _ : state) {
        group = (group + 37) % 1000;
        // A cube's width, far down the tree: its rows are made on the way.
        if (!window.select(QStringLiteral("/%1/1.width").arg(group))) {
            state.SkipWithError("the field was not found");
            return;
        }
        eventLoopPass();
        benchmark::DoNotOptimize(dock->grab());
    }
}
BENCHMARK(BM_SelectFieldInHugeScene)->Unit(benchmark::kMillisecond);
