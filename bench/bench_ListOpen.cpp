// Lists of a million values shown in their editors, each figure against a
// bare QTableWidget of the same size in the same dock, measured in the same
// run: the memory the editor holds while it shows the list and after it has
// moved on, and selecting until shown and painted.
#include "BareTable.h"
#include "BenchSupport.h"
#include "EventLoopPass.h"
#include "ListScene.h"

#include <KalServices.h>

#include <QDockWidget>
#include <QPixmap>
#include <QTableWidget>

#include <benchmark/benchmark.h>

namespace {

constexpr int kRows = ListScene::kRows;

} // namespace

// The heap a shown list takes, against a bare table of the same size; and
// what is left after 100 selections that alternate the list with another
// field. It runs first, before any other figure has shown a long list.
static void BM_Memory(benchmark::State& state)
{
    ListScene& s = ListScene::instance();
    for (auto _ : state) {
        double bareGrowth = 0;
        {
            BareTable bare(s.dock);
            eventLoopPass();
            const double before = trimmedHeapBytes();
            bare.table->setRowCount(kRows);
            eventLoopPass();
            benchmark::DoNotOptimize(s.dock->grab());
            bareGrowth = trimmedHeapBytes() - before;
            bare.table->setRowCount(0);
            eventLoopPass();
            state.counters["bare_emptied_kib"] = (trimmedHeapBytes() - before) / 1024.0;
        }
        selectFieldWithSensors(&s.nodes[1]->mfDouble);
        const double before = trimmedHeapBytes();
        selectFieldWithSensors(&s.nodes[0]->mfFloat);
        benchmark::DoNotOptimize(s.dock->grab());
        const double shownGrowth = trimmedHeapBytes() - before;
        selectFieldWithSensors(&s.nodes[1]->mfDouble);
        const double afterOne = trimmedHeapBytes();
        for (int i = 0; i < 50; ++i) {
            selectFieldWithSensors(&s.nodes[i % 2]->mfFloat);
            selectFieldWithSensors(&s.nodes[1]->mfDouble);
        }
        KalServices::getInstance()->clearHistory();
        const double afterHundred = trimmedHeapBytes();
        state.counters["bare_table_kib"] = bareGrowth / 1024.0;
        state.counters["shown_list_kib"] = shownGrowth / 1024.0;
        state.counters["shown_over_bare"] = shownGrowth / bareGrowth;
        state.counters["after_one_kib"] = (afterOne - before) / 1024.0;
        state.counters["after_100_kib"] = (afterHundred - before) / 1024.0;
    }
    selectFieldWithSensors(nullptr);
}
BENCHMARK(BM_Memory)->Iterations(1)->Unit(benchmark::kMillisecond);

// A table keeps one pointer per cell in one block. A million rows of one
// column (8 MB) are served again from the heap; of three or four columns (24
// and 32 MB) they come as new pages, each faulted in and zeroed at every
// show. What those cost moves with the machine's state more than anything
// else measured here, so the selections below count them.

// The floor of a selection: a bare table made, given a million rows and
// painted in the dock, the previous one deleted, as a list editor that
// gives its rows back does at every selection. A selection is grabbed
// whole: the dock must be drawn once, for both.
static void BM_BareTableShow(benchmark::State& state)
{
    emit KalServices::getInstance()->selectedFieldChanged(nullptr);
    QDockWidget* dock = ListScene::instance().dock;
    dock->show();
    QTableWidget* previous = nullptr;
    const int columns = int(state.range(0));
    const double faultsBefore = minorPageFaults();
    for (auto _ : state) {
        auto* table = new QTableWidget;
        table->setColumnCount(columns);
        dock->setWidget(table);
        delete previous;
        table->setRowCount(kRows);
        eventLoopPass();
        benchmark::DoNotOptimize(dock->grab());
        previous = table;
    }
    state.counters["page_faults"] =
        benchmark::Counter(minorPageFaults() - faultsBefore, benchmark::Counter::kAvgIterations);
    state.counters["table_w"] = previous->width();
    state.counters["table_h"] = previous->height();
    dock->setWidget(nullptr);
    delete previous;
    dock->hide();
}
// One column like the scalar lists, three like a vector, four like a
// rotation or a colour list (a swatch and three components).
BENCHMARK(BM_BareTableShow)->Arg(1)->Arg(3)->Arg(4)->Unit(benchmark::kMillisecond);

// Two nodes' lists in turn: each selection tears the editor down and shows
// the other node's million values.
static void BM_SelectList(benchmark::State& state)
{
    ListScene& s = ListScene::instance();
    const int kind = int(state.range(0));
    state.SetLabel(ListScene::label(kind));
    int which = 0;
    const double faultsBefore = minorPageFaults();
    for (auto _ : state) {
        which = 1 - which;
        selectFieldWithSensors(s.list(which, kind));
        benchmark::DoNotOptimize(s.dock->grab());
    }
    state.counters["page_faults"] =
        benchmark::Counter(minorPageFaults() - faultsBefore, benchmark::Counter::kAvgIterations);
    if (!s.shownTable() || s.shownTable()->rowCount() != kRows) {
        state.SkipWithError("the list was not shown");
    } else if (kind == ListScene::kColorList && !s.topSwatchPainted(s.nodes[which]->mfColor)) {
        state.SkipWithError("the colour list showed no swatch");
    } else {
        state.counters["table_w"] = s.shownTable()->width();
        state.counters["table_h"] = s.shownTable()->height();
    }
    selectFieldWithSensors(nullptr);
}
BENCHMARK(BM_SelectList)->DenseRange(0, ListScene::kColorList)->Unit(benchmark::kMillisecond);
