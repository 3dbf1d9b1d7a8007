// The cost the undo history adds to a value edit of a float field, against
// the floor of Coin's own text round trip (one get and one set).
#include "BenchSupport.h"

#include <KalSFSetValueCommand.h>
#include <KalServices.h>

#include <Inventor/fields/SoSFFloat.h>
#include <Inventor/nodes/SoComplexity.h>

#include <benchmark/benchmark.h>

namespace {

// A node that stays alive for the whole program.
SoSFFloat& floatField()
{
    static SoComplexity* node = keptNode<SoComplexity>();
    return node->value;
}

void pushOneEdit(float value)
{
    SoSFFloat& field = floatField();
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
        services->undo();
        state.PauseTiming();
        services->redo();
        state.ResumeTiming();
    }
    services->clearHistory();
}
BENCHMARK(BM_UndoSetValueCommand)->Unit(benchmark::kMicrosecond);

static void BM_RedoSetValueCommand(benchmark::State& state)
{
    KalServices* services = KalServices::getInstance();
    services->clearHistory();
    pushOneEdit(0.75f);
    for (auto _ : state) {
        state.PauseTiming();
        services->undo();
        state.ResumeTiming();
        services->redo();
    }
    services->clearHistory();
}
BENCHMARK(BM_RedoSetValueCommand)->Unit(benchmark::kMicrosecond);
