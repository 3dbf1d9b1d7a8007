// The "Console" dock kept to a number of lines: the oldest go, a first line
// says how many went, and the rest stay whole and in order, whether they come
// from the UI thread or flood in from other threads.
#include "ConsoleFixture.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QTextDocument>
#include <QTimer>
#include <QtTest>

#include <iostream>
#include <string>
#include <thread>
#include <vector>

using namespace ConsoleTesting;

namespace {

// The number the note gives, -1 when the text is not the note.
long long droppedInNote(const QString& note, int maxLines)
{
    static const QRegularExpression pattern(
        QStringLiteral("^(\\d+) earlier lines were dropped: the console keeps the last (\\d+)\\.$"));
    const QRegularExpressionMatch match = pattern.match(note);
    if (!match.hasMatch() || match.captured(2).toInt() != maxLines)
        return -1;
    return match.captured(1).toLongLong();
}

} // namespace

class tst_ConsoleCap : public ConsoleFixture
{
    Q_OBJECT

private slots:
    void defaultKeepsAHundredThousand();
    void oldestLinesGoWithANote();
    void clearForgetsTheNote();
    void unreadablePreferenceKeepsTheDefault();
    void floodFromEightThreadsKeepsEachThreadsTail();
    void floodIsShownInSlices();
    void floodSharesParagraphsAndKeepsEachLine();

private:
    // Checks the note and that the lines after it are "<prefix><n>" for the
    // last n of `written`, in order; returns how many were kept.
    int checkTail(const QString& prefix, int written, int maxLines);
};

int tst_ConsoleCap::checkTail(const QString& prefix, int written, int maxLines)
{
    const QList<Line> shown = lines(output());
    if (shown.isEmpty())
        return -1;
    const long long dropped = droppedInNote(shown.first().text, maxLines);
    const int kept = shown.size() - 1;
    if (dropped != written - kept || shown.first().colour != QColor(Qt::gray) || kept > maxLines)
        return -1;
    for (int i = 0; i < kept; ++i) {
        if (shown[i + 1].text != prefix + QString::number(written - kept + i))
            return -1;
    }
    return kept;
}

void tst_ConsoleCap::defaultKeepsAHundredThousand()
{
    // On the UI thread each block written is a line of its own. Well below
    // the default nothing is dropped and no note is written.
    for (int n = 0; n < 2000; ++n)
        std::cout << "line " + std::to_string(n);
    const QStringList shown = texts(output());
    QCOMPARE(shown.size(), 2000);
    QCOMPARE(shown.first(), QStringLiteral("line 0"));
    QCOMPARE(droppedInNote(shown.first(), 100000), -1LL);
}

void tst_ConsoleCap::oldestLinesGoWithANote()
{
    makeConsoleKeeping(100);
    for (int n = 0; n < 250; ++n)
        std::cout << "line " + std::to_string(n);
    const int kept = checkTail(QStringLiteral("line "), 250, 100);
    QVERIFY2(kept >= 90, qPrintable(texts(output()).mid(0, 3).join(QLatin1Char('|'))));
    // The kept lines keep their colours, and what comes next goes after them.
    QCOMPARE(lines(output()).last().colour, QColor(Qt::darkGreen));
    std::cerr << "last";
    QCOMPARE(lines(output()).last().text, QStringLiteral("last"));
    QCOMPARE(lines(output()).last().colour, QColor(Qt::darkRed));
    QVERIFY(m_out.str().empty());
}

void tst_ConsoleCap::clearForgetsTheNote()
{
    makeConsoleKeeping(10);
    for (int n = 0; n < 30; ++n)
        std::cout << "line " + std::to_string(n);
    QVERIFY(droppedInNote(texts(output()).first(), 10) > 0);
    QTest::mouseClick(qobject_cast<QPushButton*>(consoleWidget(QStringLiteral("m_clearButton"))),
                      Qt::LeftButton);
    QCOMPARE(texts(output()), QStringList());
    for (int n = 0; n < 5; ++n)
        std::cout << "again " + std::to_string(n);
    QCOMPARE(texts(output()), (QStringList{"again 0", "again 1", "again 2", "again 3", "again 4"}));
    // Filling it again counts from the clearing on.
    for (int n = 5; n < 40; ++n)
        std::cout << "again " + std::to_string(n);
    QVERIFY(checkTail(QStringLiteral("again "), 40, 10) > 0);
}

void tst_ConsoleCap::unreadablePreferenceKeepsTheDefault()
{
    for (const char* text : {"many", "0", "-5", "99999999999999", ""}) {
        m_console->deactivate();
        m_console->destroyWidget();
        m_console.reset();
        qputenv("KALIBRA_CONSOLE_MAX_LINES", text);
        makeConsole();
        qunsetenv("KALIBRA_CONSOLE_MAX_LINES");
        for (int n = 0; n < 300; ++n)
            std::cout << "line " + std::to_string(n);
        QVERIFY2(texts(output()).size() == 300, text);
    }
}

void tst_ConsoleCap::floodFromEightThreadsKeepsEachThreadsTail()
{
    constexpr int kThreads = 8;
    constexpr int kLines = 5000;
    constexpr int kMax = 4000;
    makeConsoleKeeping(kMax);
    std::atomic<int> ready{0};
    std::vector<std::thread> writers;
    for (int t = 0; t < kThreads; ++t) {
        writers.emplace_back([t, &ready] {
            ++ready;
            while (ready.load() < kThreads)
                std::this_thread::yield();
            for (int n = 0; n < kLines; ++n)
                (t % 2 ? std::cout : std::cerr) << "t" << t << ' ' << n << '\n';
        });
    }
    for (std::thread& writer : writers)
        writer.join();
    // Everything written is either shown or counted in the note.
    QTRY_VERIFY_WITH_TIMEOUT(!texts(output()).isEmpty() &&
                                 droppedInNote(texts(output()).first(), kMax) + texts(output()).size() - 1 ==
                                     kThreads * kLines,
                             60000);
    const QList<Line> shown = lines(output());
    QVERIFY(shown.size() - 1 <= kMax);
    QVERIFY(shown.size() - 1 >= kMax - kMax / 16);
    // Each thread's lines that were kept are the last ones it wrote, each once,
    // whole, in its order and in its stream's colour.
    std::vector<int> first(kThreads, -1);
    std::vector<int> next(kThreads, -1);
    for (int i = 1; i < shown.size(); ++i) {
        const QStringList parts = shown[i].text.split(QLatin1Char(' '));
        bool numberOk = false;
        const int t = parts.size() == 2 && parts[0].size() == 2 ? parts[0].mid(1).toInt() : -1;
        const int n = parts.size() == 2 ? parts[1].toInt(&numberOk) : -1;
        QVERIFY2(numberOk && t >= 0 && t < kThreads && parts[0].startsWith(QLatin1Char('t')),
                 qPrintable(QStringLiteral("torn line: \"%1\"").arg(shown[i].text)));
        QCOMPARE(shown[i].colour, t % 2 ? QColor(Qt::darkGreen) : QColor(Qt::darkRed));
        if (first[size_t(t)] < 0)
            first[size_t(t)] = next[size_t(t)] = n;
        QVERIFY2(
            n == next[size_t(t)],
            qPrintable(QStringLiteral("thread %1: %2 where %3 was due").arg(t).arg(n).arg(next[size_t(t)])));
        ++next[size_t(t)];
    }
    for (int t = 0; t < kThreads; ++t) {
        if (first[size_t(t)] >= 0)
            QCOMPARE(next[size_t(t)], kLines);
    }
}

void tst_ConsoleCap::floodIsShownInSlices()
{
    constexpr int kLines = 10000;
    std::thread writer([] {
        for (int n = 0; n < kLines; ++n)
            std::cout << "line " << n << '\n';
    });
    writer.join();
    // A timer due at once runs while the flood is still being shown: the
    // console does not hold the event loop until it has shown everything.
    int shownWhenTimerRan = -1;
    QTimer::singleShot(0, [&] { shownWhenTimerRan = texts(output()).size(); });
    QTRY_VERIFY_WITH_TIMEOUT(texts(output()).size() == kLines, 60000);
    QVERIFY(shownWhenTimerRan >= 0);
    QVERIFY2(shownWhenTimerRan < kLines, qPrintable(QString::number(shownWhenTimerRan)));
    const QStringList shown = texts(output());
    for (int n = 0; n < kLines; ++n)
        QCOMPARE(shown[n], QStringLiteral("line %1").arg(n));
}

// Lines from another thread share paragraphs, which is what keeps a full
// console small; each is still a line of its own, in its stream's colour, and
// lines go past the limit whole.
void tst_ConsoleCap::floodSharesParagraphsAndKeepsEachLine()
{
    constexpr int kLines = 20000;
    constexpr int kMax = 8192;
    makeConsoleKeeping(kMax);
    const auto isError = [](int n) { return n % 7 == 3 || n % 7 == 4; };
    std::thread writer([&isError] {
        for (int n = 0; n < kLines; ++n)
            (isError(n) ? std::cerr : std::cout) << "line " << n << '\n';
    });
    writer.join();
    QTRY_VERIFY_WITH_TIMEOUT(
        !texts(output()).isEmpty() && texts(output()).last() == QStringLiteral("line 19999"), 60000);
    const int kept = checkTail(QStringLiteral("line "), kLines, kMax);
    QVERIFY2(kept >= kMax - kMax / 16, qPrintable(QString::number(kept)));
    const QList<Line> shown = lines(output());
    for (int i = 1; i < shown.size(); ++i) {
        const int n = kLines - kept + i - 1;
        QCOMPARE(shown[i].colour, isError(n) ? QColor(Qt::darkRed) : QColor(Qt::darkGreen));
    }
    QVERIFY2(output()->document()->blockCount() < kept / 2, qPrintable(QString::number(kept)));
    // What the UI thread writes next is a line of its own, in its colour.
    std::cerr << "after";
    QCOMPARE(lines(output()).last().text, QStringLiteral("after"));
    QCOMPARE(lines(output()).last().colour, QColor(Qt::darkRed));
    QCOMPARE(lines(output()).at(lines(output()).size() - 2).text, QStringLiteral("line 19999"));
}

QTEST_MAIN(tst_ConsoleCap)
#include "tst_ConsoleCap.moc"
