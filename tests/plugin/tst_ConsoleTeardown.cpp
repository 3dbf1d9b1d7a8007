// The "Console" dock taken down while other threads write to it: writers on
// std::cout and std::cerr while a profile switch deactivates and activates it,
// and threads posting scene-graph reports while its widget, and the console
// itself, go. Run under the address sanitizer these fail loudly when a writer
// reaches a freed redirector or a report a deleted console.
#include "ConsoleFixture.h"

#include <Inventor/errors/SoDebugError.h>

#include <QCoreApplication>
#include <QtTest>

#include <atomic>
#include <chrono>
#include <iostream>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

using namespace ConsoleTesting;

namespace {

// What the process had on its streams before the console: the real ones are
// safe to write from any thread, unlike a string stream, so the writers below
// go to one with a lock when the console lets go of the streams.
class LockedBuffer : public std::streambuf
{
public:
    std::string text()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_text;
    }

protected:
    int_type overflow(int_type c) override
    {
        if (!traits_type::eq_int_type(c, traits_type::eof())) {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_text += traits_type::to_char_type(c);
        }
        return traits_type::not_eof(c);
    }
    std::streamsize xsputn(const char* text, std::streamsize count) override
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_text.append(text, size_t(count));
        return count;
    }

private:
    std::mutex m_mutex;
    std::string m_text;
};

} // namespace

class tst_ConsoleTeardown : public ConsoleFixture
{
    Q_OBJECT

private slots:
    void writersDuringProfileSwitches();
    void postersWhileTheWidgetGoes();
};

void tst_ConsoleTeardown::writersDuringProfileSwitches()
{
    constexpr int kWriters = 4;
    LockedBuffer out;
    LockedBuffer err;
    m_console->deactivate();
    m_console->destroyWidget();
    m_console.reset();
    std::cout.rdbuf(&out);
    std::cerr.rdbuf(&err);
    // A small console, so that what floods in is shown quickly.
    makeConsoleKeeping(1000);
    // A page of long lines in one block keeps its writer inside the
    // redirector, gathering a line, handing it over, gathering the next, and
    // each deactivation waits until some writer has begun one. Single short
    // lines were inside it too briefly: a redirector freed under its writer
    // was caught in two runs of five; with pages and 400 rounds, in every
    // run (under the address sanitizer, where a freed one is seen).
    std::string page;
    for (int line = 0; line < 64; ++line)
        page += "page line " + std::string(240, '.') + '\n';
    std::atomic<bool> stop{false};
    std::atomic<int> started{0};
    std::atomic<int> paging{0};
    std::vector<std::thread> writers;
    for (int t = 0; t < kWriters; ++t) {
        writers.emplace_back([t, &page, &stop, &started, &paging] {
            ++started;
            for (long n = 0; !stop.load(); ++n) {
                // Pieces, whole lines and pages, so that writers are inside
                // every path of the redirector.
                (t % 2 ? std::cout : std::cerr) << "w" << t << ' ' << n << '\n';
                std::cout.put('x');
                std::cout << std::endl;
                ++paging;
                (t % 2 ? std::cerr : std::cout) << page;
                --paging;
                if (n % 16 == 0)
                    std::this_thread::sleep_for(std::chrono::microseconds(100));
            }
        });
    }
    while (started.load() < kWriters)
        std::this_thread::yield();
    for (int round = 0; round < 400; ++round) {
        // Bounded, so that a writer held up elsewhere cannot stall the test.
        for (int wait = 0; paging.load() == 0 && wait < 100000; ++wait)
            std::this_thread::yield();
        m_console->deactivate();
        QCoreApplication::processEvents();
        m_console->activate();
        QCoreApplication::processEvents();
    }
    stop = true;
    for (std::thread& writer : writers)
        writer.join();
    QCoreApplication::processEvents();

    // The streams are whole, and the console still captures: the UI thread's
    // text at once, another thread's through the event loop.
    std::cout.clear();
    std::cerr.clear();
    output()->clear();
    std::cout << "after the switches";
    QCOMPARE(texts(output()).last(), QStringLiteral("after the switches"));
    std::thread late([] { std::cerr << "late writer\n"; });
    late.join();
    QTRY_COMPARE(texts(output()).last(), QStringLiteral("late writer"));
    QCOMPARE(lines(output()).last().colour, QColor(Qt::darkRed));
    // While it was deactivated the writers' text went to the streams the
    // process had; none of it went anywhere else.
    QVERIFY(!out.text().empty());
    QVERIFY(!err.text().empty());
    m_console->deactivate();
    std::cout << "after deactivation";
    QVERIFY(QString::fromStdString(out.text()).endsWith(QStringLiteral("after deactivation")));
    QVERIFY(m_out.str().empty());
    // The fixture's own buffers again, before these go.
    m_console->destroyWidget();
    m_console.reset();
    std::cout.rdbuf(m_out.rdbuf());
    std::cerr.rdbuf(m_err.rdbuf());
}

void tst_ConsoleTeardown::postersWhileTheWidgetGoes()
{
    constexpr int kPosters = 4;
    std::atomic<bool> stop{false};
    std::atomic<int> started{0};
    std::vector<std::thread> posters;
    for (int t = 0; t < kPosters; ++t) {
        posters.emplace_back([t, &stop, &started] {
            ++started;
            for (int n = 0; !stop.load(); ++n) {
                SoDebugError::postWarning("tst_ConsoleTeardown", "poster %d report %d", t, n);
                std::this_thread::sleep_for(std::chrono::microseconds(100));
            }
        });
    }
    while (started.load() < kPosters)
        std::this_thread::yield();
    for (int round = 0; round < 60; ++round) {
        // Reports are on their way while the widget goes, and while the
        // console that had them posted goes too.
        QCoreApplication::processEvents();
        m_console->deactivate();
        m_console->destroyWidget();
        QCoreApplication::processEvents();
        if (round % 2)
            m_console.reset();
        QCoreApplication::processEvents();
        if (!m_console)
            m_console = std::make_unique<KalConsole>();
        m_console->createWidget();
        m_console->activate();
    }
    stop = true;
    for (std::thread& poster : posters)
        poster.join();
    QCoreApplication::processEvents();

    // The last console still shows reports, in the warning colour.
    output()->clear();
    SoDebugError::postWarning("tst_ConsoleTeardown", "the last one");
    QTRY_VERIFY(!texts(output()).isEmpty() &&
                texts(output()).last().contains(QStringLiteral("the last one")));
    QCOMPARE(lines(output()).last().colour, QColor(Qt::darkYellow));
}

QTEST_MAIN(tst_ConsoleTeardown)
#include "tst_ConsoleTeardown.moc"
