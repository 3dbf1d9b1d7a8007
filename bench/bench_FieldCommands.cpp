// The cost the undo history adds to a value edit of a float field, against
// the floor of Coin's own text round trip (one get and one set). Each step
// is timed alone (secondsOf), with the floor timed beside it in the same
// iteration. Pausing the benchmark's timers around the untimed steps instead
// cost more than an undo: two readings of the thread's CPU clock each way,
// which on this machine take microseconds and varied by a third between
// runs.
#include "BenchSupport.h"

#include <KalSFSetValueCommand.h>
#include <KalServices.h>

#include <Inventor/fields/SoSFFloat.h>
#include <Inventor/nodes/SoComplexity.h>

#include <benchmark/benchmark.h>

namespace {

// Nodes that stay alive for the whole program: the one the commands edit,
// and the one the floor reads and writes.
SoSFFloat& floatField()
{
    static SoComplexity* node = keptNode<SoComplexity>();
    return node->value;
}

SoSFFloat& floorField()
{
    static SoComplexity* node = keptNode<SoComplexity>();
    return node->value;
}

void getAndSet(SoSFFloat& field, SbString& text)
{
    field.get(text);
    field.set(text.getString());
}

// The floor, timed in the same iterations as the step it is the floor of: a
// slow spell of the shared machine falls on both alike, where two
// benchmarks of a few seconds each, run apart, could each catch one or not.
class FloorBeside
{
public:
    void measure()
    {
        m_seconds += secondsOf([this] { getAndSet(floorField(), m_text); });
        ++m_count;
    }
    // The counter "floor_ns", the mean time of one floor in nanoseconds.
    void report(benchmark::State& state) const
    {
        state.counters["floor_ns"] = m_count > 0 ? m_seconds / double(m_count) * 1e9 : 0.0;
    }

private:
    SbString m_text;
    double m_seconds = 0;
    long long m_count = 0;
};

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
    SoSFFloat& field = floorField();
    SbString text;
    for (auto _ : state)
        getAndSet(field, text);
}
BENCHMARK(BM_FloorGetSet)->Unit(benchmark::kMicrosecond);

// The editor's side is not measured: only handing the command over, which
// includes the history running execute() once.
static void BM_PushSetValueCommand(benchmark::State& state)
{
    KalServices* services = KalServices::getInstance();
    services->clearHistory();
    SoSFFloat& field = floatField();
    FloorBeside floor;
    int pushed = 0;
    for (auto _ : state) {
        state.SetIterationTime(secondsOf([services, &field] {
            SbString before("0.25");
            services->pushCommand(new KalSFSetValueCommand(&field, before));
        }));
        floor.measure();
        if (++pushed == 10000) {
            services->clearHistory();
            pushed = 0;
        }
    }
    services->clearHistory();
    floor.report(state);
}
BENCHMARK(BM_PushSetValueCommand)->UseManualTime()->Unit(benchmark::kMicrosecond);

static void BM_UndoSetValueCommand(benchmark::State& state)
{
    KalServices* services = KalServices::getInstance();
    services->clearHistory();
    pushOneEdit(0.5f);
    FloorBeside floor;
    for (auto _ : state) {
        state.SetIterationTime(secondsOf([services] { services->undo(); }));
        services->redo();
        floor.measure();
    }
    services->clearHistory();
    floor.report(state);
}
BENCHMARK(BM_UndoSetValueCommand)->UseManualTime()->Unit(benchmark::kMicrosecond);

static void BM_RedoSetValueCommand(benchmark::State& state)
{
    KalServices* services = KalServices::getInstance();
    services->clearHistory();
    pushOneEdit(0.75f);
    FloorBeside floor;
    for (auto _ : state) {
        services->undo();
        state.SetIterationTime(secondsOf([services] { services->redo(); }));
        floor.measure();
    }
    services->clearHistory();
    floor.report(state);
}
BENCHMARK(BM_RedoSetValueCommand)->UseManualTime()->Unit(benchmark::kMicrosecond);
