// Console ingest: lines written to std::cout while the console captures
// them, against the same lines written to an uncaptured stream going to
// /dev/null and against a plain QTextEdit::append loop (the floor of the
// widget the console shows text in). Also the memory the console holds after
// 100,000 captured lines.
#include <KalConsole.h>
#include <KalShell.h>

#include <QApplication>
#include <QDockWidget>
#include <QFile>
#include <QMainWindow>
#include <QTextEdit>

#include <benchmark/benchmark.h>

#include <fstream>
#include <iostream>
#include <string>

namespace {

constexpr int kLines = 10000;

const std::string& line()
{
    static const std::string text = std::string(59, 'x') + '\n';
    return text;
}

long residentKilobytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& row : status.readAll().split('\n')) {
        if (row.startsWith("VmRSS:"))
            return row.mid(6).trimmed().split(' ').first().toLong();
    }
    return 0;
}

// Both the console and the floor's text edit sit in a dock of the shown main
// window, so that both pay for the same layout and painting.
QMainWindow* shownWindow()
{
    QMainWindow* window = KalShell::getInstance()->getMainWindow();
    window->resize(1000, 600);
    window->show();
    return window;
}

} // namespace

static void BM_ConsoleCapture(benchmark::State& state)
{
    shownWindow();
    KalConsole console;
    console.createWidget();
    console.activate();
    QApplication::processEvents();
    for (auto _ : state) {
        for (int i = 0; i < kLines; ++i)
            std::cout << line();
        QApplication::processEvents();
        state.PauseTiming();
        console.clear();
        state.ResumeTiming();
    }
    console.deactivate();
    console.destroyWidget();
    state.counters["lines_per_second"] =
        benchmark::Counter(double(kLines) * double(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_ConsoleCapture)->Unit(benchmark::kMillisecond);

static void BM_UncapturedToDevNull(benchmark::State& state)
{
    std::ofstream devNull("/dev/null");
    std::streambuf* previous = std::cout.rdbuf(devNull.rdbuf());
    for (auto _ : state) {
        for (int i = 0; i < kLines; ++i)
            std::cout << line();
        std::cout.flush();
    }
    std::cout.rdbuf(previous);
    state.counters["lines_per_second"] =
        benchmark::Counter(double(kLines) * double(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_UncapturedToDevNull)->Unit(benchmark::kMillisecond);

static void BM_PlainTextEditAppend(benchmark::State& state)
{
    QMainWindow* window = shownWindow();
    auto* dock = new QDockWidget;
    auto* edit = new QTextEdit(dock);
    edit->setReadOnly(true);
    dock->setWidget(edit);
    window->addDockWidget(Qt::BottomDockWidgetArea, dock);
    dock->show();
    QApplication::processEvents();
    const QString text = QString::fromStdString(line());
    for (auto _ : state) {
        for (int i = 0; i < kLines; ++i) {
            edit->setTextColor(Qt::darkGreen);
            edit->append(text);
        }
        QApplication::processEvents();
        state.PauseTiming();
        edit->clear();
        state.ResumeTiming();
    }
    window->removeDockWidget(dock);
    delete dock;
    state.counters["lines_per_second"] =
        benchmark::Counter(double(kLines) * double(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_PlainTextEditAppend)->Unit(benchmark::kMillisecond);

// Run once: the resident memory the console adds with 100,000 lines in it.
static void BM_MemoryAfter100kLines(benchmark::State& state)
{
    for (auto _ : state) {
        shownWindow();
        KalConsole console;
        console.createWidget();
        console.activate();
        QApplication::processEvents();
        const long before = residentKilobytes();
        for (int i = 0; i < 100000; ++i)
            std::cout << line();
        QApplication::processEvents();
        const long after = residentKilobytes();
        state.counters["resident_kib_added"] = double(after - before);
        console.deactivate();
        console.destroyWidget();
    }
}
BENCHMARK(BM_MemoryAfter100kLines)->Iterations(1)->Unit(benchmark::kMillisecond);
