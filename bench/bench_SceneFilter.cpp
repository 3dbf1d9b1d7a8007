// The filter box above the host's scene tree on the 100,000-node scene: from
// the text to the filtered tree laid out and drawn, for a text that matches a
// few rows and for texts that match tens of thousands, and back again.
#include "BenchHost.h"
#include "EventLoopPass.h"

#include <SceneFilterBox.h>

#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTreeView>

#include <benchmark/benchmark.h>

namespace {

// The shared host window with this scene open.
KalHostWindow& host(const QString& scene = hugeScenePath())
{
    KalHostWindow& window = benchHost();
    if (window.scenePath() != scene) {
        window.openScene(scene);
        eventLoopPass();
    }
    return window;
}

// Thirty groups, each using the one below twice: a cube in 2^30 places.
QString doublingScenePath()
{
    static QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("doubling.iv"));
    if (QFile::exists(path))
        return path;
    QByteArray group = "DEF L0 Cube { }";
    for (int level = 1; level <= 30; ++level)
        group = "DEF L" + QByteArray::number(level) + " Group {\n" + group + "\nUSE L" +
                QByteArray::number(level - 1) + " }";
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write("#Inventor V2.1 ascii\nSeparator {\n" + group + "\n}\n");
    return path;
}

const char* const kTexts[] = {"Marker", "Cube", "width"};
// The same three kinds of text on the scene whose vertices are held in
// fields: a name, a node type (33,000 nodes, each in a field) and a field
// of each of those nodes.
const char* const kNestedTexts[] = {"Marker", "VertexProperty", "vertex"};

void setFilter(SceneFilterBox* box, const QString& text)
{
    box->edit()->setText(text);
    box->apply();
}

// The filter on a scene, timed from the text to the filtered tree drawn.
void filterScene(benchmark::State& state, KalHostWindow& window, const QString& text)
{
    auto* box = window.window()->findChild<SceneFilterBox*>();
    for (auto _ : state) {
        state.PauseTiming();
        setFilter(box, QString());
        eventLoopPass();
        benchmark::DoNotOptimize(box->grab());
        state.ResumeTiming();

        setFilter(box, text);
        eventLoopPass();
        benchmark::DoNotOptimize(box->grab());
    }
    state.counters["matches"] = box->matchCount();
    setFilter(box, QString());
}

} // namespace

// Arg: 0 "Marker" (4 cubes, by name), 1 "Cube" (49,000 cubes, by type),
// 2 "width" (a field of each of those cubes, by field name: every cube
// opened).
static void BM_FilterHugeScene(benchmark::State& state)
{
    filterScene(state, host(), QLatin1String(kTexts[state.range(0)]));
}
BENCHMARK(BM_FilterHugeScene)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

// Arg: 0 "Marker" (4 vertex lists, by name), 1 "VertexProperty" (33,000
// nodes held in fields, by type), 2 "vertex" (the vertexProperty field of
// each point set and the vertex field of each VertexProperty).
static void BM_FilterNestedScene(benchmark::State& state)
{
    filterScene(state, host(nestedScenePath()), QLatin1String(kNestedTexts[state.range(0)]));
}
BENCHMARK(BM_FilterNestedScene)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

// A cube found in 2^30 places: each of the 31 nodes is searched once.
static void BM_FilterDoublingScene(benchmark::State& state)
{
    filterScene(state, host(doublingScenePath()), QStringLiteral("width"));
}
BENCHMARK(BM_FilterDoublingScene)->Unit(benchmark::kMillisecond);

// Clearing the filter: the unfiltered tree laid out and drawn again.
static void BM_ClearFilterHugeScene(benchmark::State& state)
{
    KalHostWindow& window = host();
    auto* box = window.window()->findChild<SceneFilterBox*>();
    const QString text = QLatin1String(kTexts[state.range(0)]);
    for (auto _ : state) {
        state.PauseTiming();
        setFilter(box, text);
        eventLoopPass();
        benchmark::DoNotOptimize(box->grab());
        state.ResumeTiming();

        setFilter(box, QString());
        eventLoopPass();
        benchmark::DoNotOptimize(box->grab());
    }
}
BENCHMARK(BM_ClearFilterHugeScene)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);
