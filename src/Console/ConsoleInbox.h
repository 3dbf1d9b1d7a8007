#pragma once

#include <QEvent>
#include <QString>

#include <cstddef>
#include <deque>
#include <mutex>
#include <vector>

class QObject;

// Lines written on threads other than the console's, waiting to be shown.
// A writer only queues its line under a lock; the first line of a batch
// posts one wake-up event to the console, which then takes the lines in
// slices on its own thread. One event per line made a flood cost the user
// interface one event, one layout and one scroll per line, and a writer
// faster than the widget queued lines without end.
class ConsoleInbox
{
public:
    struct Line
    {
        int kind = 0;
        QString text;
    };

    static constexpr QEvent::Type WakeUpType = QEvent::Type(QEvent::User + 1);

    ConsoleInbox(QObject* receiver, std::size_t limit);
    ConsoleInbox(const ConsoleInbox&) = delete;
    ConsoleInbox& operator=(const ConsoleInbox&) = delete;

    // No more lines wait than the console keeps: past that the oldest go,
    // counted, since the console would drop them on arrival anyway.
    void setLimit(std::size_t limit);

    // Any thread.
    void push(int kind, QString text);

    // The receiver's thread: moves up to `count` of the oldest lines to the
    // end of `lines` and adds to `dropped` the lines dropped since the last
    // call. When lines remain it returns true and the wake-up stays due: the
    // caller posts it with postWakeUp().
    bool take(std::vector<Line>& lines, std::size_t count, long long& dropped);
    void postWakeUp();
    // The receiver's thread, before it reads a posted event: wake-ups from
    // other threads are posted under the inbox's lock, and taking it once
    // makes their hand-over one the thread sanitizer can follow (Qt's event
    // queue orders it with locks of its own, which it cannot see).
    void receivePosted();

    // Forgets what waits.
    void discard();

private:
    QObject* const m_receiver;
    std::mutex m_mutex;
    std::deque<Line> m_lines;
    std::size_t m_limit;
    long long m_dropped = 0;
    bool m_wakeUpDue = false;
};
