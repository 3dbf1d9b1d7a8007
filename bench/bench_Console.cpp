// Console ingest: lines written to std::cout while the console captures
// them, against the same lines written to an uncaptured stream going to
// /dev/null and against a plain QTextEdit::append loop (the floor of the
// widget the console shows text in). Also the memory the console holds after
// 100,000 captured lines.
#include "BenchSupport.h"
#include "EventLoopPass.h"

#include <KalConsole.h>
#include <KalShell.h>

#include <QApplication>
#include <QDockWidget>
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

// Both the console and the floor's text edit sit in a dock of the shown main
// window, so that both pay for the same layout and painting.
QMainWindow* shownWindow()
{
    QMainWindow* window = KalShell::getInstance()->getMainWindow();
    window->resize(1000, 600);
    window->show();
    return window;
}

// The console captures only when the setting allows it at activation; the
// benchmark programs switch capture off by default.
void activateCapturing(KalConsole& console)
{
    const QByteArray previous = qgetenv("KALIBRA_STDOUT_CAPTURE");
    qputenv("KALIBRA_STDOUT_CAPTURE", "true");
    console.createWidget();
    console.activate();
    qputenv("KALIBRA_STDOUT_CAPTURE", previous);
}

} // namespace

static void BM_ConsoleCapture(benchmark::State& state)
{
    shownWindow();
    KalConsole console;
    activateCapturing(console);
    eventLoopPass();
    for (auto _ : state) {
        for (int i = 0; i < kLines; ++i)
            std::cout << line();
        eventLoopPass();
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
    eventLoopPass();
    const QString text = QString::fromStdString(line());
    for (auto _ : state) {
        for (int i = 0; i < kLines; ++i) {
            edit->setTextColor(Qt::darkGreen);
            edit->append(text);
        }
        eventLoopPass();
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

// The heap the console holds with 100,000 captured lines in it.
static void BM_MemoryAfter100kLines(benchmark::State& state)
{
    for (auto _ : state) {
        shownWindow();
        KalConsole console;
        activateCapturing(console);
        eventLoopPass();
        const double before = heapBytesInUse() / 1024.0;
        for (int i = 0; i < 100000; ++i)
            std::cout << line();
        eventLoopPass();
        const double after = heapBytesInUse() / 1024.0;
        state.counters["heap_kib_added"] = after - before;
        console.deactivate();
        console.destroyWidget();
    }
}
BENCHMARK(BM_MemoryAfter100kLines)->Iterations(1)->Unit(benchmark::kMillisecond);
