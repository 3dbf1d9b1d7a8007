// Lists of a million values scrolled in their editors, each figure against a
// bare QTableWidget of the same size in the same dock, measured in the same
// run: a page of scrolling and a jump to the last row, with their paint.
#include "BareTable.h"
#include "BenchSupport.h"
#include "EventLoopPass.h"
#include "ListScene.h"

#include <QDockWidget>
#include <QScrollBar>
#include <QSpinBox>
#include <QTableWidget>

#include <benchmark/benchmark.h>

namespace {

constexpr int kRows = ListScene::kRows;

// A page down, or back to the top from the last page.
void pageDown(QScrollBar* bar)
{
    bar->setValue(bar->value() + bar->pageStep() > bar->maximum() ? 0 : bar->value() + bar->pageStep());
    eventLoopPass();
}

} // namespace

// The floor of scrolling: a page down the bare table and its paint, with as
// many columns as the list it is compared with. A page and a jump draw only
// what changed, as they do on a screen.
static void BM_BareTablePage(benchmark::State& state)
{
    BareTable bare(ListScene::instance().dock, int(state.range(0)));
    bare.table->setRowCount(kRows);
    eventLoopPass();
    QScrollBar* bar = bare.table->verticalScrollBar();
    for (auto _ : state)
        pageDown(bar);
}
BENCHMARK(BM_BareTablePage)->Arg(1)->Arg(3)->Arg(4)->Unit(benchmark::kMillisecond);

static void BM_ListPage(benchmark::State& state)
{
    ListScene& s = ListScene::instance();
    const int kind = int(state.range(0));
    state.SetLabel(ListScene::label(kind));
    selectFieldWithSensors(s.list(0, kind));
    QScrollBar* bar = s.shownTable()->verticalScrollBar();
    for (auto _ : state)
        pageDown(bar);
    if (kind == ListScene::kColorList && !s.topSwatchPainted(s.nodes[0]->mfColor))
        state.SkipWithError("the colour list showed no swatch");
    selectFieldWithSensors(nullptr);
}
BENCHMARK(BM_ListPage)->DenseRange(0, ListScene::kColorList)->Unit(benchmark::kMillisecond);

// The quick-access box to the last row and back to the top, one jump each
// iteration, with its paint.
static void BM_ListJumpToLast(benchmark::State& state)
{
    ListScene& s = ListScene::instance();
    const bool strings = state.range(0) == 1;
    state.SetLabel(strings ? "MFString" : "MFFloat");
    selectFieldWithSensors(s.list(0, strings));
    auto* box = s.dock->findChild<QSpinBox*>(QStringLiteral("m_accessBox"));
    bool last = false;
    for (auto _ : state) {
        last = !last;
        // The box's number shows the row below it: kRows - 1 shows the last.
        box->setValue(last ? kRows - 1 : 1);
        eventLoopPass();
    }
    if (s.shownTable()->currentRow() != (last ? kRows - 1 : 1))
        state.SkipWithError("the box did not reach the row");
    selectFieldWithSensors(nullptr);
}
BENCHMARK(BM_ListJumpToLast)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
