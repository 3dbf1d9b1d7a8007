// Lists of a million values in their editors, each figure against a bare
// QTableWidget of the same size in the same dock, measured in the same run:
// selecting until shown and painted, a refresh after one value changed
// elsewhere, a page of scrolling, a jump to the last row, row insertion and
// deletion with their undo and redo, and the memory the editor holds while
// it shows the list and after it has moved on.
#include "BenchSupport.h"
#include "EventLoopPass.h"
#include "ListFieldsNode.h"

#include <KalServices.h>

#include <Inventor/SoDB.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QDockWidget>
#include <QImage>
#include <QPixmap>
#include <QPixmapCache>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTableWidget>

#include <benchmark/benchmark.h>

#include <chrono>
#include <malloc.h>
#include <sys/resource.h>

namespace {

constexpr int kRows = 1000000;

// glibc serves blocks above a threshold straight from the system and raises
// the threshold each time it gives such a block back, up to 32 MB: a host
// that has shown one long list serves the next from its heap. Fixed at
// that state from the start, no figure depends on which ran before it.
const bool kSteadyAllocator = [] {
    mallopt(M_MMAP_THRESHOLD, 32 * 1024 * 1024);
    mallopt(M_TRIM_THRESHOLD, 64 * 1024 * 1024);
    return true;
}();

void processSensors()
{
    SoDB::getSensorManager()->processDelayQueue(FALSE);
}

struct Scene
{
    Scene()
        : dock(loadPluginIntoShownWindow())
    {
        ListFieldsNode::initClass();
        for (ListFieldsNode*& node : nodes) {
            node = new ListFieldsNode;
            node->ref();
            node->mfFloat.setNum(kRows);
            float* floats = node->mfFloat.startEditing();
            for (int i = 0; i < kRows; ++i)
                floats[i] = float(i) * 0.5f;
            node->mfFloat.finishEditing();
            node->mfString.setNum(kRows);
            SbString* strings = node->mfString.startEditing();
            for (int i = 0; i < kRows; ++i)
                strings[i] = SbString(i);
            node->mfString.finishEditing();
            node->mfVec3f.setNum(kRows);
            SbVec3f* vectors = node->mfVec3f.startEditing();
            for (int i = 0; i < kRows; ++i)
                vectors[i].setValue(float(i), 0.5f, -float(i));
            node->mfVec3f.finishEditing();
            node->mfRotation.setNum(kRows);
            SbRotation* rotations = node->mfRotation.startEditing();
            for (int i = 0; i < kRows; ++i)
                rotations[i].setValue(SbVec3f(0, 1, 0), float(i) * 1e-6f);
            node->mfRotation.finishEditing();
            // Every colour is one the swatch can paint, and no two rows on
            // a page paint the same one.
            node->mfColor.setNum(kRows);
            SbColor* colors = node->mfColor.startEditing();
            for (int i = 0; i < kRows; ++i)
                colors[i].setValue(float(i % 1000) * 0.001f, 0.5f, 1.0f - float(i % 997) * 0.001f);
            node->mfColor.finishEditing();
        }
    }
    SoMField* list(int node, bool strings) const
    {
        return strings ? static_cast<SoMField*>(&nodes[node]->mfString) : &nodes[node]->mfFloat;
    }
    // The lists a selection is measured on, by the benchmark's argument.
    SoMField* list(int node, int which) const
    {
        SoMField* const lists[] = {&nodes[node]->mfFloat, &nodes[node]->mfString, &nodes[node]->mfVec3f,
                                   &nodes[node]->mfRotation, &nodes[node]->mfColor};
        return lists[which];
    }
    QDockWidget* dock = nullptr;
    ListFieldsNode* nodes[2] = {nullptr, nullptr};
};

Scene& scene()
{
    static Scene instance;
    return instance;
}

void select(SoField* field)
{
    emit KalServices::getInstance()->selectedFieldChanged(field);
    processSensors();
    eventLoopPass();
}

// The lists by the benchmarks' argument. Each is compared with a bare table
// of as many columns as it shows.
const char* const kListLabels[] = {"MFFloat", "MFString", "MFVec3f", "MFRotation", "MFColor"};
constexpr int kColorList = 4;

QTableWidget* shownTable()
{
    if (auto* table = scene().dock->findChild<QTableWidget*>(QStringLiteral("m_table")))
        return table;
    // The colour list's table goes by its class's name.
    return scene().dock->findChild<QTableWidget*>(QStringLiteral("FxMFieldTable"));
}

// A figure for the colour list counts only if the swatches were painted: the
// top row's swatch in the shown table must have the row's colour, as the
// delegate truncates it to 0..255.
bool topSwatchPainted(const SoMFColor& colors)
{
    QTableWidget* table = shownTable();
    if (!table || table->columnCount() != 4)
        return false;
    const int row = table->rowAt(0);
    const QRect cell = table->visualRect(table->model()->index(row, 0));
    if (row < 0 || cell.isEmpty())
        return false;
    const QImage image = table->viewport()->grab().toImage();
    const SbColor& color = colors[row];
    const QColor expected(int(color[0] * 255), int(color[1] * 255), int(color[2] * 255));
    return image.pixelColor(cell.center() * image.devicePixelRatio()) == expected;
}

// The bare table in the editors' dock, one column like theirs.
struct BareTable
{
    explicit BareTable(int columns = 1)
    {
        emit KalServices::getInstance()->selectedFieldChanged(nullptr);
        table->setColumnCount(columns);
        scene().dock->setWidget(table);
        scene().dock->show();
        table->show();
    }
    ~BareTable()
    {
        scene().dock->setWidget(nullptr);
        table->setParent(nullptr);
        delete table;
        scene().dock->hide();
    }
    QTableWidget* table = new QTableWidget;
};

// Large blocks (a million rows' bookkeeping) are mapped apart from the heap
// proper; both count.
double heapInUse()
{
    QPixmapCache::clear();
    malloc_trim(0);
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks + info.hblkhd);
}

// A table keeps one pointer per cell in one block. A million rows of one
// column (8 MB) are served again from the heap; of three or four columns (24
// and 32 MB) they come as new pages, each faulted in and zeroed at every
// show. What those cost moves with the machine's state more than anything
// else measured here, so they are counted.
double minorFaults()
{
    struct rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_minflt);
}

template <class Action>
double secondsOf(Action action)
{
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

} // namespace

// The heap a shown list takes, against a bare table of the same size; and
// what is left after 100 selections that alternate the list with another
// field. It runs first, before any other figure has shown a long list.
static void BM_Memory(benchmark::State& state)
{
    Scene& s = scene();
    for (auto _ : state) {
        double bareGrowth = 0;
        {
            BareTable bare;
            eventLoopPass();
            const double before = heapInUse();
            bare.table->setRowCount(kRows);
            eventLoopPass();
            benchmark::DoNotOptimize(s.dock->grab());
            bareGrowth = heapInUse() - before;
            bare.table->setRowCount(0);
            eventLoopPass();
            state.counters["bare_emptied_kib"] = (heapInUse() - before) / 1024.0;
        }
        select(&s.nodes[1]->mfDouble);
        const double before = heapInUse();
        select(&s.nodes[0]->mfFloat);
        benchmark::DoNotOptimize(s.dock->grab());
        const double shownGrowth = heapInUse() - before;
        select(&s.nodes[1]->mfDouble);
        const double afterOne = heapInUse();
        for (int i = 0; i < 50; ++i) {
            select(&s.nodes[i % 2]->mfFloat);
            select(&s.nodes[1]->mfDouble);
        }
        KalServices::getInstance()->clearHistory();
        const double afterHundred = heapInUse();
        state.counters["bare_table_kib"] = bareGrowth / 1024.0;
        state.counters["shown_list_kib"] = shownGrowth / 1024.0;
        state.counters["shown_over_bare"] = shownGrowth / bareGrowth;
        state.counters["after_one_kib"] = (afterOne - before) / 1024.0;
        state.counters["after_100_kib"] = (afterHundred - before) / 1024.0;
    }
    select(nullptr);
}
BENCHMARK(BM_Memory)->Iterations(1)->Unit(benchmark::kMillisecond);

// The floor of a selection: a bare table made, given a million rows and
// painted in the dock, the previous one deleted, as a list editor that
// gives its rows back does at every selection.
static void BM_BareTableShow(benchmark::State& state)
{
    emit KalServices::getInstance()->selectedFieldChanged(nullptr);
    QDockWidget* dock = scene().dock;
    dock->show();
    QTableWidget* previous = nullptr;
    const int columns = int(state.range(0));
    const double faultsBefore = minorFaults();
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
        benchmark::Counter(minorFaults() - faultsBefore, benchmark::Counter::kAvgIterations);
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
    Scene& s = scene();
    const int kind = int(state.range(0));
    state.SetLabel(kListLabels[kind]);
    int which = 0;
    const double faultsBefore = minorFaults();
    for (auto _ : state) {
        which = 1 - which;
        select(s.list(which, kind));
        benchmark::DoNotOptimize(s.dock->grab());
    }
    state.counters["page_faults"] =
        benchmark::Counter(minorFaults() - faultsBefore, benchmark::Counter::kAvgIterations);
    if (!shownTable() || shownTable()->rowCount() != kRows) {
        state.SkipWithError("the list was not shown");
    } else if (kind == kColorList && !topSwatchPainted(s.nodes[which]->mfColor)) {
        state.SkipWithError("the colour list showed no swatch");
    } else {
        state.counters["table_w"] = shownTable()->width();
        state.counters["table_h"] = shownTable()->height();
    }
    select(nullptr);
}
BENCHMARK(BM_SelectList)->DenseRange(0, kColorList)->Unit(benchmark::kMillisecond);

// The floor of a refresh: one repaint of the bare table, as the event loop
// makes it after an update. Selections are grabbed whole (the dock must be
// drawn once, for both); a repaint, a page and a jump draw only what
// changed, as they do on a screen.
static void BM_BareTableRepaint(benchmark::State& state)
{
    BareTable bare;
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
    Scene& s = scene();
    const bool strings = state.range(0) == 1;
    state.SetLabel(strings ? "MFString" : "MFFloat");
    select(s.list(0, strings));
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
    select(nullptr);
}
BENCHMARK(BM_RefreshUnchangedCount)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// The floor of scrolling: a page down the bare table and its paint, with as
// many columns as the list it is compared with.
static void BM_BareTablePage(benchmark::State& state)
{
    BareTable bare(int(state.range(0)));
    bare.table->setRowCount(kRows);
    eventLoopPass();
    QScrollBar* bar = bare.table->verticalScrollBar();
    for (auto _ : state) {
        bar->setValue(bar->value() + bar->pageStep() > bar->maximum() ? 0 : bar->value() + bar->pageStep());
        eventLoopPass();
    }
}
BENCHMARK(BM_BareTablePage)->Arg(1)->Arg(3)->Arg(4)->Unit(benchmark::kMillisecond);

static void BM_ListPage(benchmark::State& state)
{
    Scene& s = scene();
    const int kind = int(state.range(0));
    state.SetLabel(kListLabels[kind]);
    select(s.list(0, kind));
    QScrollBar* bar = shownTable()->verticalScrollBar();
    for (auto _ : state) {
        bar->setValue(bar->value() + bar->pageStep() > bar->maximum() ? 0 : bar->value() + bar->pageStep());
        eventLoopPass();
    }
    if (kind == kColorList && !topSwatchPainted(s.nodes[0]->mfColor))
        state.SkipWithError("the colour list showed no swatch");
    select(nullptr);
}
BENCHMARK(BM_ListPage)->DenseRange(0, kColorList)->Unit(benchmark::kMillisecond);

// The quick-access box to the last row and back to the top, one jump each
// iteration, with its paint.
static void BM_ListJumpToLast(benchmark::State& state)
{
    Scene& s = scene();
    const bool strings = state.range(0) == 1;
    state.SetLabel(strings ? "MFString" : "MFFloat");
    select(s.list(0, strings));
    auto* box = s.dock->findChild<QSpinBox*>(QStringLiteral("m_accessBox"));
    bool last = false;
    for (auto _ : state) {
        last = !last;
        // The box's number shows the row below it: kRows - 1 shows the last.
        box->setValue(last ? kRows - 1 : 1);
        eventLoopPass();
    }
    if (shownTable()->currentRow() != (last ? kRows - 1 : 1))
        state.SkipWithError("the box did not reach the row");
    select(nullptr);
}
BENCHMARK(BM_ListJumpToLast)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

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
    Scene& s = scene();
    const auto step = RowStep(state.range(0));
    const bool strings = state.range(1) == 1;
    state.SetLabel(QStringLiteral("%1, %2").arg(names[step], strings ? "MFString" : "MFFloat").toStdString());
    select(s.list(0, strings));
    QTableWidget* table = shownTable();
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
    select(nullptr);
}
BENCHMARK(BM_RowInTheMiddle)
    ->ArgsProduct({{Add, UndoAdd, RedoAdd, Delete, UndoDelete, RedoDelete}, {0, 1}})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
