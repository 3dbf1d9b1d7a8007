// The cost the undo history adds to a value edit of a float field, against
// the floor of Coin's own text round trip (one get and one set).
#include "BenchSupport.h"

#include <KalSFSetValueCommand.h>
#include <KalServices.h>

#include <Inventor/fields/SoSFFloat.h>
#include <Inventor/nodes/SoComplexity.h>

#include <benchmark/benchmark.h>

#include <chrono>

namespace {

// A node that stays alive for the whole program.
SoSFFloat& floatField()
{
    static SoComplexity* node = keptNode<SoComplexity>();
    return node->value;
}

// Undo and redo are timed alone, the step back or forth that sets up the
// next one left out. Pausing the benchmark's timers for it instead cost
// more than an undo: two readings of the thread's CPU clock each way, which
// on this machine take microseconds and varied by a third between runs.
template <class Step>
double timed(Step step)
{
    const auto start = std::chrono::steady_clock::now();
    step();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// An edit from 0.125 to `value`, whatever the benchmark before left in the
// field: undo and redo then always change the value.
void pushOneEdit(float value)
{
    SoSFFloat& field = floatField();
    field.setValue(0.125f);
    SbString before;
    field.get(before);
    field.setValue(value);
    KalServices::getInstance()->pushCommand(new KalSFSetValueCommand(&field, before));
}

} // namespace

static void BM_FloorGetSet(benchmark::State& state)
{
    SoSFFloat& field = floatField();
    SbString text;
    for (auto _ : state) {
        field.get(text);
        field.set(text.getString());
    }
}
BENCHMARK(BM_FloorGetSet)->Unit(benchmark::kMicrosecond);

// The editor's side is not measured: only handing the command over, which
// includes the history running execute() once.
static void BM_PushSetValueCommand(benchmark::State& state)
{
    KalServices* services = KalServices::getInstance();
    services->clearHistory();
    SoSFFloat& field = floatField();
    int pushed = 0;
    for (auto _ : state) {
        SbString before("0.25");
        services->pushCommand(new KalSFSetValueCommand(&field, before));
        if (++pushed == 10000) {
            state.PauseTiming();
            services->clearHistory();
            pushed = 0;
            state.ResumeTiming();
        }
    }
    services->clearHistory();
}
BENCHMARK(BM_PushSetValueCommand)->Unit(benchmark::kMicrosecond);

static void BM_UndoSetValueCommand(benchmark::State& state)
{
    KalServices* services = KalServices::getInstance();
    services->clearHistory();
    pushOneEdit(0.5f);
    for (auto _ : state) {
        const double seconds = timed([services] { services->undo(); });
        services->redo();
        state.SetIterationTime(seconds);
    }
    services->clearHistory();
}
BENCHMARK(BM_UndoSetValueCommand)->UseManualTime()->Unit(benchmark::kMicrosecond);

static void BM_RedoSetValueCommand(benchmark::State& state)
{
    KalServices* services = KalServices::getInstance();
    services->clearHistory();
    pushOneEdit(0.75f);
    for (auto _ : state) {
        services->undo();
        state.SetIterationTime(timed([services] { services->redo(); }));
    }
    services->clearHistory();
}
BENCHMARK(BM_RedoSetValueCommand)->UseManualTime()->Unit(benchmark::kMicrosecond);
