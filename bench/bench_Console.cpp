// Console ingest: lines written to std::cout while the console captures
// them, against the same lines written to an uncaptured stream going to
// /dev/null and against a plain QTextEdit::append loop (the floor of the
// widget the console shows text in). Also the memory the console holds after
// 100,000 and after a million captured lines, floods from other threads with
// the lateness of a timer on the UI thread meanwhile, and find in 100,000
// lines.
#include "BenchSupport.h"
#include "EventLoopPass.h"

#include <KalConsole.h>
#include <KalShell.h>

#include <QApplication>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

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

QTextEdit* consoleOutput()
{
    auto* dock =
        KalShell::getInstance()->getMainWindow()->findChild<QDockWidget*>(QStringLiteral("KalConsoleDock"));
    return dock ? dock->findChild<QTextEdit*>(QStringLiteral("m_consoleOutput")) : nullptr;
}

// `threads` writers of `linesEach` lines each, then one last line; the event
// loop runs until that last line is shown, with a timer ticking every 10 ms
// on the UI thread whose worst lateness is returned.
double flood(int threads, int linesEach)
{
    QTextEdit* output = consoleOutput();
    double worstLateMs = 0;
    QElapsedTimer sinceTick;
    QTimer ticker;
    ticker.setTimerType(Qt::PreciseTimer);
    ticker.setInterval(10);
    QObject::connect(&ticker, &QTimer::timeout, [&] {
        worstLateMs = std::max(worstLateMs, double(sinceTick.nsecsElapsed()) / 1e6 - 10.0);
        sinceTick.start();
    });
    sinceTick.start();
    ticker.start();
    std::vector<std::thread> writers;
    for (int t = 0; t < threads; ++t) {
        writers.emplace_back([linesEach] {
            for (int i = 0; i < linesEach; ++i)
                std::cout << line();
        });
    }
    std::thread last([&writers] {
        for (std::thread& writer : writers)
            writer.join();
        std::cout << "the end\n";
    });
    // Lines from other threads share paragraphs, broken by line separators.
    while (output->document()->lastBlock().text().section(QChar::LineSeparator, -1) !=
           QLatin1String("the end"))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
    last.join();
    ticker.stop();
    return worstLateMs;
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

// The heap a capturing console holds after `write` ran, above what it held
// empty: the blocks glibc maps apart count too, since the text of 100,000
// lines is one block of megabytes.
template <class Write>
static void heapAddedBy(benchmark::State& state, Write write)
{
    for (auto _ : state) {
        shownWindow();
        KalConsole console;
        activateCapturing(console);
        eventLoopPass();
        const double before = trimmedHeapBytes() / 1024.0;
        write();
        eventLoopPass();
        const double after = trimmedHeapBytes() / 1024.0;
        state.counters["heap_kib_added"] = after - before;
        console.deactivate();
        console.destroyWidget();
    }
}

// The heap the console holds with 100,000 captured lines in it.
static void BM_MemoryAfter100kLines(benchmark::State& state)
{
    heapAddedBy(state, [] {
        for (int i = 0; i < 100000; ++i)
            std::cout << line();
    });
}
BENCHMARK(BM_MemoryAfter100kLines)->Iterations(1)->Unit(benchmark::kMillisecond);

// The heap the console holds with a million captured lines written to it
// from another thread: no more than it keeps.
static void BM_MemoryAfterMillionLines(benchmark::State& state)
{
    heapAddedBy(state, [] { flood(1, 1000000); });
}
BENCHMARK(BM_MemoryAfterMillionLines)->Iterations(1)->Unit(benchmark::kMillisecond);

// Floods from other threads, from the first line written to the last one
// shown: one thread (arg 1) or eight (arg 8), writing a total of
// state.range(1) lines. Past the console's 100,000 lines the oldest are
// dropped; up to it each is shown.
static void BM_ConsoleFlood(benchmark::State& state)
{
    const int threads = int(state.range(0));
    const int total = int(state.range(1));
    shownWindow();
    KalConsole console;
    activateCapturing(console);
    eventLoopPass();
    double worstLateMs = 0;
    for (auto _ : state) {
        worstLateMs = std::max(worstLateMs, flood(threads, total / threads));
        state.PauseTiming();
        console.clear();
        eventLoopPass();
        state.ResumeTiming();
    }
    console.deactivate();
    console.destroyWidget();
    state.counters["timer_late_max_ms"] = worstLateMs;
    state.counters["lines_per_second"] =
        benchmark::Counter(double(total) * double(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_ConsoleFlood)
    ->Args({1, 100000})
    ->Args({1, 1000000})
    ->Args({8, 800000})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

// Find in 100,000 kept lines: the text typed into the find bar until every
// match is counted and those around the first are highlighted.
static void BM_ConsoleFind(benchmark::State& state)
{
    shownWindow();
    KalConsole console;
    activateCapturing(console);
    eventLoopPass();
    // On the UI thread each block written is one line.
    for (int i = 0; i < 100000; ++i)
        std::cout << ("line " + std::to_string(i) + (i % 100 == 0 ? " needle " : " hay ") +
                      std::string(40, 'x'));
    eventLoopPass();
    auto* dock =
        KalShell::getInstance()->getMainWindow()->findChild<QDockWidget*>(QStringLiteral("KalConsoleDock"));
    auto* findEdit = dock->findChild<QLineEdit*>(QStringLiteral("m_findEdit"));
    auto* count = dock->findChild<QLabel*>(QStringLiteral("m_findCount"));
    bool allFound = true;
    for (auto _ : state) {
        findEdit->setText(QStringLiteral("needle"));
        state.PauseTiming();
        allFound = allFound && count->text() == QLatin1String("1 of 1000");
        findEdit->clear();
        state.ResumeTiming();
    }
    console.deactivate();
    console.destroyWidget();
    if (!allFound)
        state.SkipWithError("the matches were not all found");
}
BENCHMARK(BM_ConsoleFind)->Unit(benchmark::kMillisecond);
