// Lists of a million values refreshed in their editors, each figure against
// a bare QTableWidget of the same size in the same dock, measured in the
// same run: a refresh after one value changed elsewhere, and row insertion
// and deletion with their undo and redo.
#include "BareTable.h"
#include "BenchSupport.h"
#include "EventLoopPass.h"
#include "ListScene.h"

#include <FieldTesting.h>
#include <KalServices.h>

#include <QDockWidget>
#include <QPushButton>
#include <QTableWidget>

#include <benchmark/benchmark.h>

namespace {

constexpr int kRows = ListScene::kRows;

} // namespace

// The floor of a refresh: one repaint of the bare table, as the event loop
// makes it after an update. A refresh draws only what changed, as it does
// on a screen.
static void BM_BareTableRepaint(benchmark::State& state)
{
    BareTable bare(ListScene::instance().dock);
    bare.table->setRowCount(kRows);
    eventLoopPass();
    for (auto _ : state) {
        bare.table->viewport()->update();
        eventLoopPass();
    }
}
BENCHMARK(BM_BareTableRepaint)->Unit(benchmark::kMillisecond);

// One value changed elsewhere: the sensor's refresh keeps the count and
// repaints.
static void BM_RefreshUnchangedCount(benchmark::State& state)
{
    ListScene& s = ListScene::instance();
    const bool strings = state.range(0) == 1;
    state.SetLabel(strings ? "MFString" : "MFFloat");
    selectFieldWithSensors(s.list(0, strings));
    int step = 0;
    for (auto _ : state) {
        ++step;
        if (strings)
            s.nodes[0]->mfString.set1Value(5, SbString(step));
        else
            s.nodes[0]->mfFloat.set1Value(5, float(step));
        processSensors();
        eventLoopPass();
    }
    selectFieldWithSensors(nullptr);
}
BENCHMARK(BM_RefreshUnchangedCount)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// Row operations in the middle of a million values: the command, the field's
// change and the editor's refresh. Manual timing keeps the setting up of
// each step (an undo that brings the list back) out of the figure.
enum RowStep
{
    Add,
    UndoAdd,
    RedoAdd,
    Delete,
    UndoDelete,
    RedoDelete
};

static void BM_RowInTheMiddle(benchmark::State& state)
{
    static const char* const names[] = {"add",    "undo add",    "redo add",
                                        "delete", "undo delete", "redo delete"};
    ListScene& s = ListScene::instance();
    const auto step = RowStep(state.range(0));
    const bool strings = state.range(1) == 1;
    state.SetLabel(QStringLiteral("%1, %2").arg(names[step], strings ? "MFString" : "MFFloat").toStdString());
    selectFieldWithSensors(s.list(0, strings));
    QTableWidget* table = s.shownTable();
    const bool adding = step <= RedoAdd;
    auto* button = s.dock->findChild<QPushButton*>(adding ? QStringLiteral("m_addButton")
                                                          : QStringLiteral("m_deleteButton"));
    KalServices* services = KalServices::getInstance();
    auto settle = [] {
        processSensors();
        eventLoopPass();
    };
    for (auto _ : state) {
        table->setCurrentCell(kRows / 2, 0);
        double seconds = 0;
        if (step == Add || step == Delete) {
            seconds = secondsOf([&] {
                button->click();
                settle();
            });
            services->undo();
            settle();
        } else {
            button->click();
            settle();
            const bool undoing = step == UndoAdd || step == UndoDelete;
            if (!undoing) {
                services->undo();
                settle();
            }
            seconds = secondsOf([&] {
                undoing ? services->undo() : services->redo();
                settle();
            });
            if (!undoing) {
                services->undo();
                settle();
            }
        }
        state.SetIterationTime(seconds);
    }
    if (s.list(0, strings)->getNum() != kRows)
        state.SkipWithError("the list did not come back to its size");
    services->clearHistory();
    selectFieldWithSensors(nullptr);
}
BENCHMARK(BM_RowInTheMiddle)
    ->ArgsProduct({{Add, UndoAdd, RedoAdd, Delete, UndoDelete, RedoDelete}, {0, 1}})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
