// The "Console" dock fed from threads other than the UI thread: many writers
// at once, lines that come in pieces, two streams on one thread, and a writer
// that outlives the console.
#include "ConsoleFixture.h"
#include <KalConsole.h>
#include <KalPluginsManager.h>
#include <KalShell.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>

#include <QDockWidget>
#include <QMainWindow>
#include <QTextBlock>
#include <QTextEdit>
#include <QtTest>

#include <optional>

#include <atomic>
#include <iostream>
#include <memory>
#include <sstream>
#include <thread>
#include <vector>

using namespace ConsoleTesting;

namespace {

// Spins until another thread has set the flag; the writers below must stop at
// a given point without the test sleeping for a guessed time.
void waitFor(const std::atomic<bool>& flag)
{
    while (!flag.load())
        std::this_thread::yield();
}

} // namespace

class tst_ConsoleThreads : public ConsoleFixture
{
    Q_OBJECT

private slots:
    void eightWritersKeepTheirLinesWhole();
    void blockWithSeveralLinesIsSplit();
    void partLinesOfTwoStreamsStayApart();
    void unfinishedLineArrivesWhenTheWriterEnds();
    void writerOutlivingTheConsoleIsHarmless();
    void streamsOtherThreadsUsedKeepTheirBuffer();

private:
    // Lets everything the writers posted reach the console.
    void deliver(int expectedLines);
};

void tst_ConsoleThreads::deliver(int expectedLines)
{
    // The writers have been joined, so all they posted is queued already; the
    // wait only guards against an event loop that hands it out in parts.
    QCoreApplication::processEvents();
    QTRY_VERIFY_WITH_TIMEOUT(texts(output()).size() >= expectedLines, 20000);
    QCoreApplication::processEvents();
}

void tst_ConsoleThreads::eightWritersKeepTheirLinesWhole()
{
    constexpr int kThreads = 8;
    constexpr int kLines = 10000;
    std::atomic<int> ready{0};
    std::vector<std::thread> writers;
    for (int t = 0; t < kThreads; ++t) {
        writers.emplace_back([t, &ready] {
            // All start together, so that the writes really overlap.
            ++ready;
            while (ready.load() < kThreads)
                std::this_thread::yield();
            for (int n = 0; n < kLines; ++n) {
                // Each line goes to the stream in pieces; half end with the
                // line feed that comes alone, half with a block.
                std::cout << "t" << t << ' ' << n;
                if (n % 2)
                    std::cout << std::endl;
                else
                    std::cout << '\n';
            }
        });
    }
    for (std::thread& writer : writers)
        writer.join();
    deliver(kThreads * kLines);

    QVERIFY(std::cout.good());
    const QStringList shown = texts(output());
    std::vector<int> next(kThreads, 0);
    for (const QString& text : shown) {
        const QStringList parts = text.split(QLatin1Char(' '));
        QVERIFY2(parts.size() == 2 && parts[0].size() == 2 && parts[0].startsWith(QLatin1Char('t')),
                 qPrintable(QStringLiteral("torn or foreign line: \"%1\"").arg(text)));
        bool threadOk = false;
        bool numberOk = false;
        const int t = parts[0].mid(1).toInt(&threadOk);
        const int n = parts[1].toInt(&numberOk);
        QVERIFY2(threadOk && numberOk && t >= 0 && t < kThreads,
                 qPrintable(QStringLiteral("torn or foreign line: \"%1\"").arg(text)));
        QVERIFY2(
            n == next[size_t(t)],
            qPrintable(
                QStringLiteral("thread %1: line %2 where %3 was due").arg(t).arg(n).arg(next[size_t(t)])));
        ++next[size_t(t)];
    }
    for (int t = 0; t < kThreads; ++t)
        QCOMPARE(next[size_t(t)], kLines);
    QCOMPARE(shown.size(), kThreads * kLines);

    // The stream is still whole: what the UI thread writes next shows.
    std::cout << "after the writers";
    QVERIFY(std::cout.good());
    QCOMPARE(texts(output()).last(), QStringLiteral("after the writers"));
    QVERIFY(m_out.str().empty());
}

void tst_ConsoleThreads::blockWithSeveralLinesIsSplit()
{
    std::thread writer([] {
        std::cout << "one\ntwo\nthr";
        std::cout.put('e');
        std::cout << "e\n\nfour\n";
    });
    writer.join();
    deliver(5);
    QCOMPARE(texts(output()), (QStringList{"one", "two", "three", "", "four"}));
}

void tst_ConsoleThreads::partLinesOfTwoStreamsStayApart()
{
    std::thread writer([] {
        std::cout << "in"
                  << "fo";
        std::cerr << "err"
                  << "or" << std::endl;
        std::cout << "rmation\n";
    });
    writer.join();
    deliver(2);
    const QList<Line> shown = lines(output());
    QCOMPARE(shown.size(), 2);
    QCOMPARE(shown[0].text, QStringLiteral("error"));
    QCOMPARE(shown[0].colour, QColor(Qt::darkRed));
    QCOMPARE(shown[1].text, QStringLiteral("information"));
    QCOMPARE(shown[1].colour, QColor(Qt::darkGreen));
}

void tst_ConsoleThreads::unfinishedLineArrivesWhenTheWriterEnds()
{
    std::atomic<bool> written{false};
    std::atomic<bool> mayEnd{false};
    std::thread writer([&] {
        std::cout << "no line feed" << ' ' << 1;
        written = true;
        waitFor(mayEnd);
    });
    waitFor(written);
    // A line still being written is not shown in parts. (Checked after the
    // join, so that a failure does not leave the writer running.)
    QCoreApplication::processEvents();
    const QStringList whileWriting = texts(output());
    mayEnd = true;
    writer.join();
    QCOMPARE(whileWriting, QStringList());
    deliver(1);
    QCOMPARE(texts(output()), QStringList{"no line feed 1"});
}

void tst_ConsoleThreads::writerOutlivingTheConsoleIsHarmless()
{
    std::atomic<bool> written{false};
    std::atomic<bool> mayEnd{false};
    std::thread writer([&] {
        std::cout << "left over";
        written = true;
        waitFor(mayEnd);
    });
    waitFor(written);
    m_console->deactivate();
    m_console->destroyWidget();
    m_console.reset();
    mayEnd = true;
    writer.join();
    QCoreApplication::processEvents();
    // The streams are the test's own again and work.
    std::cout << "after";
    QCOMPARE(QString::fromStdString(m_out.str()), QStringLiteral("after"));

    // A new console is not sent what was meant for the old one.
    makeConsole();
    std::thread second([] { std::cout << "fresh\n"; });
    second.join();
    deliver(1);
    QCOMPARE(texts(output()), QStringList{"fresh"});
}

void tst_ConsoleThreads::streamsOtherThreadsUsedKeepTheirBuffer()
{
    // Once another thread has written through the console, a deactivation
    // must not swap the stream's buffer under writers that may still be
    // there: the stream keeps the buffer it had, which passes text on.
    std::thread writer([] { std::cout << "from a thread\n"; });
    writer.join();
    deliver(1);
    std::streambuf* const capturing = std::cout.rdbuf();
    QVERIFY(capturing != static_cast<std::streambuf*>(m_out.rdbuf()));
    m_console->deactivate();
    QCOMPARE(std::cout.rdbuf(), capturing);
    std::cout << "passed on";
    std::thread later([] { std::cout << " and on\n"; });
    later.join();
    QCOMPARE(QString::fromStdString(m_out.str()), QStringLiteral("passed on and on\n"));

    // Activated again, the same buffer captures again.
    m_console->activate();
    QCOMPARE(std::cout.rdbuf(), capturing);
    output()->clear();
    std::cout << "captured again";
    QCOMPARE(texts(output()), QStringList{"captured again"});
    QCOMPARE(QString::fromStdString(m_out.str()), QStringLiteral("passed on and on\n"));

    // The console's end gives the stream its own buffer back.
    m_console->deactivate();
    m_console->destroyWidget();
    m_console.reset();
    QCOMPARE(std::cout.rdbuf(), static_cast<std::streambuf*>(m_out.rdbuf()));
    // std::cerr, never written by another thread, got its buffer back at once.
    QCOMPARE(std::cerr.rdbuf(), static_cast<std::streambuf*>(m_err.rdbuf()));
}

QTEST_MAIN(tst_ConsoleThreads)
#include "tst_ConsoleThreads.moc"
