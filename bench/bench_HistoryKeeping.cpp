// What kalhost's history adds to a cell edit of a list of a million values,
// and to its undo and redo: it finds the rows that changed and keeps only
// those. Each figure against its floor, the same command pushed to a history
// that only runs it, with the same field selected.
#include "BenchSupport.h"

#include <KalMFSetValueCommand.h>
#include <KalServices.h>

#include <Inventor/SbString.h>
#include <Inventor/fields/SoMFVec3f.h>
#include <Inventor/nodes/SoCoordinate3.h>

#include <QUndoStack>

#include <benchmark/benchmark.h>

namespace {
constexpr int kRows = 1000000;
constexpr int kEditedRow = kRows / 2;
constexpr int kEditsBeforeClearing = 200;

const KalServices::HistoryOptions kKalhostHistory = KalServices::RestoreValues | KalServices::MergeTyping |
                                                    KalServices::HideNoOps | KalServices::RecordUnreported;

SoMFVec3f& points()
{
    static SoCoordinate3* node = [] {
        auto* kept = keptNode<SoCoordinate3>();
        kept->point.setNum(kRows);
        SbVec3f* values = kept->point.startEditing();
        for (int i = 0; i < kRows; ++i)
            values[i].setValue(float(i), float(i % 7), -float(i % 11));
        kept->point.finishEditing();
        return kept;
    }();
    return node->point;
}

// The history as kalhost has it (or the library's plain one), the list
// selected and an empty history.
void useHistory(KalServices::HistoryOptions options)
{
    KalServices* services = KalServices::getInstance();
    services->setHistoryOptions(options);
    emit services->selectedFieldChanged(nullptr);
    emit services->selectedFieldChanged(&points());
    services->clearHistory();
}

// As a list editor does it: the cell is written, then the command pushed.
// Every edit writes a value the cell has not held, so none is a no-op.
void editCell()
{
    static float x = 0.5f;
    x += 1.0f;
    SoMFVec3f& field = points();
    field.set1Value(kEditedRow, x, 1.0f, 2.0f);
    SbString none;
    KalServices::getInstance()->pushCommand(new KalMFSetValueCommand(&field, kEditedRow, none));
}

void measureEdits(benchmark::State& state)
{
    int pushed = 0;
    for (auto _ : state) {
        editCell();
        if (++pushed == kEditsBeforeClearing) {
            state.PauseTiming();
            KalServices::getInstance()->clearHistory();
            pushed = 0;
            state.ResumeTiming();
        }
    }
}

void measureUndo(benchmark::State& state)
{
    KalServices* services = KalServices::getInstance();
    editCell();
    if (!services->undoStack()->canUndo())
        state.SkipWithError("the edit left no entry to undo");
    for (auto _ : state) {
        services->undo();
        state.PauseTiming();
        services->redo();
        state.ResumeTiming();
    }
}

void measureRedo(benchmark::State& state)
{
    KalServices* services = KalServices::getInstance();
    editCell();
    if (!services->undoStack()->canUndo())
        state.SkipWithError("the edit left no entry to undo");
    for (auto _ : state) {
        state.PauseTiming();
        services->undo();
        state.ResumeTiming();
        services->redo();
    }
}
} // namespace

static void BM_FloorCellEdit(benchmark::State& state)
{
    useHistory({});
    measureEdits(state);
    useHistory({});
}
BENCHMARK(BM_FloorCellEdit)->Unit(benchmark::kMillisecond);

static void BM_KeptCellEdit(benchmark::State& state)
{
    useHistory(kKalhostHistory);
    measureEdits(state);
    useHistory({});
}
BENCHMARK(BM_KeptCellEdit)->Unit(benchmark::kMillisecond);

static void BM_FloorCellUndo(benchmark::State& state)
{
    useHistory({});
    measureUndo(state);
    useHistory({});
}
BENCHMARK(BM_FloorCellUndo)->Unit(benchmark::kMillisecond);

static void BM_KeptCellUndo(benchmark::State& state)
{
    useHistory(kKalhostHistory);
    measureUndo(state);
    useHistory({});
}
BENCHMARK(BM_KeptCellUndo)->Unit(benchmark::kMillisecond);

static void BM_FloorCellRedo(benchmark::State& state)
{
    useHistory({});
    measureRedo(state);
    useHistory({});
}
BENCHMARK(BM_FloorCellRedo)->Unit(benchmark::kMillisecond);

static void BM_KeptCellRedo(benchmark::State& state)
{
    useHistory(kKalhostHistory);
    measureRedo(state);
    useHistory({});
}
BENCHMARK(BM_KeptCellRedo)->Unit(benchmark::kMillisecond);

// Selecting the list: kalhost's history copies it once, to know later
// which rows an edit changed. The floor is the selection without it.
static void measureSelection(benchmark::State& state, KalServices::HistoryOptions options)
{
    KalServices* services = KalServices::getInstance();
    services->setHistoryOptions(options);
    for (auto _ : state) {
        emit services->selectedFieldChanged(nullptr);
        emit services->selectedFieldChanged(&points());
    }
    services->setHistoryOptions({});
}

static void BM_FloorSelectList(benchmark::State& state)
{
    measureSelection(state, {});
}
BENCHMARK(BM_FloorSelectList)->Unit(benchmark::kMillisecond);

static void BM_KeptSelectList(benchmark::State& state)
{
    measureSelection(state, kKalhostHistory);
}
BENCHMARK(BM_KeptSelectList)->Unit(benchmark::kMillisecond);
