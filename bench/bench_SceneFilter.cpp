// The filter box above the host's scene tree on the 100,000-node scene: from
// the text to the filtered tree laid out and drawn, for a text that matches a
// few rows and for texts that match tens of thousands, and back again.
#include "BenchHost.h"
#include "EventLoopPass.h"

#include <SceneFilterBox.h>

#include <QLineEdit>
#include <QTreeView>

#include <benchmark/benchmark.h>

namespace {

// The shared host window with the scene open, once.
KalHostWindow& host()
{
    static KalHostWindow& window = []() -> KalHostWindow& {
        KalHostWindow& shared = benchHost();
        shared.openScene(hugeScenePath());
        eventLoopPass();
        return shared;
    }();
    return window;
}

const char* const kTexts[] = {"Marker", "Cube", "width"};

void setFilter(SceneFilterBox* box, const QString& text)
{
    box->edit()->setText(text);
    box->apply();
}

} // namespace

// Arg: 0 "Marker" (4 cubes, by name), 1 "Cube" (49,000 cubes, by type),
// 2 "width" (a field of each of those cubes, by field name: every cube
// opened).
static void BM_FilterHugeScene(benchmark::State& state)
{
    KalHostWindow& window = host();
    auto* box = window.window()->findChild<SceneFilterBox*>();
    const QString text = QLatin1String(kTexts[state.range(0)]);
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
}
BENCHMARK(BM_FilterHugeScene)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

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
