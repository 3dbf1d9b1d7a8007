#include "ConsoleInbox.h"

#include <QCoreApplication>

#include <utility>

ConsoleInbox::ConsoleInbox(QObject* receiver, std::size_t limit)
    : m_receiver(receiver)
    , m_limit(limit > 0 ? limit : 1)
{}

void ConsoleInbox::setLimit(std::size_t limit)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_limit = limit > 0 ? limit : 1;
    while (m_lines.size() > m_limit) {
        m_lines.pop_front();
        ++m_dropped;
    }
}

void ConsoleInbox::push(int kind, QString text)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_lines.size() >= m_limit) {
        m_lines.pop_front();
        ++m_dropped;
    }
    m_lines.push_back(Line{kind, std::move(text)});
    if (!m_wakeUpDue) {
        m_wakeUpDue = true;
        QCoreApplication::postEvent(m_receiver, new QEvent(WakeUpType));
    }
}

bool ConsoleInbox::take(std::vector<Line>& lines, std::size_t count, long long& dropped)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (; count > 0 && !m_lines.empty(); --count) {
        lines.push_back(std::move(m_lines.front()));
        m_lines.pop_front();
    }
    dropped += m_dropped;
    m_dropped = 0;
    m_wakeUpDue = !m_lines.empty();
    if (!m_wakeUpDue)
        m_lines.shrink_to_fit();
    return m_wakeUpDue;
}

void ConsoleInbox::postWakeUp()
{
    QCoreApplication::postEvent(m_receiver, new QEvent(WakeUpType));
}

void ConsoleInbox::receivePosted()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
}

void ConsoleInbox::discard()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_lines.clear();
    m_lines.shrink_to_fit();
    m_dropped = 0;
    // A wake-up still on its way finds nothing; one removed with the
    // console's posted events must not keep the next line from posting.
    m_wakeUpDue = false;
}
