#include "HostUndoCommand.h"

#include "FieldChange.h"
#include "HistoryKeeper.h"
#include "KalCommand.h"

namespace {
// Entries that may join a burst of typing; any other answer means never.
constexpr int kTypingId = 0x4b61;
} // namespace

HostUndoCommand::HostUndoCommand(KalCommand* command, HistoryKeeper* keeper)
    : m_command(command)
    , m_keeper(keeper)
{}

HostUndoCommand::~HostUndoCommand() = default;

void HostUndoCommand::undo()
{
    if (m_keeper)
        m_keeper->beginRestore();
    for (auto joined = m_joined.rbegin(); joined != m_joined.rend(); ++joined)
        (*joined)->undo();
    if (m_command)
        m_command->undo();
    if (m_change && m_keeper->options().testFlag(KalServices::RestoreValues))
        m_change->writeBefore();
    if (m_keeper)
        m_keeper->endRestore(m_change ? m_change->field() : nullptr);
}

void HostUndoCommand::redo()
{
    if (!m_executed) {
        m_executed = true;
        if (m_command)
            m_command->execute();
        if (!m_keeper)
            return;
        m_change = m_keeper->takeChange();
        m_burst = m_keeper->burst();
        const auto options = m_keeper->options();
        if (!m_change && !m_keeper->otherFieldChanged() && options.testFlag(KalServices::HideNoOps))
            setObsolete(true);
        setText(m_keeper->nameOf(m_change.get(), m_change ? m_change->wholeBefore() : nullptr));
        return;
    }
    if (m_keeper)
        m_keeper->beginRestore();
    if (m_command)
        m_command->redo();
    for (const auto& joined : m_joined)
        joined->redo();
    if (m_change && m_keeper->options().testFlag(KalServices::RestoreValues))
        m_change->writeAfter();
    if (m_keeper)
        m_keeper->endRestore(m_change ? m_change->field() : nullptr);
}

int HostUndoCommand::id() const
{
    if (!m_keeper || m_burst < 0 || !m_keeper->options().testFlag(KalServices::MergeTyping))
        return -1;
    return kTypingId;
}

bool HostUndoCommand::mergeWith(const QUndoCommand* other)
{
    auto* later = dynamic_cast<HostUndoCommand*>(const_cast<QUndoCommand*>(other));
    if (!later || later->m_burst != m_burst || !m_change || m_keeper->otherFieldChanged())
        return false;
    // A keystroke that changed nothing (text that does not parse yet) is
    // part of the burst all the same.
    if (later->m_change) {
        if (!m_change->canJoin(*later->m_change))
            return false;
        if (!m_change->join(*later->m_change)) {
            setObsolete(true);
        } else if (m_keeper->isFilling() && m_change->onlyClearsDefault()) {
            m_keeper->beginRestore();
            m_change->writeBefore();
            m_keeper->endRestore(m_change->field());
            setObsolete(true);
        }
    }
    // The commands of the burst stay, in order, so that undo and redo still
    // run each one as pushed.
    if (later->m_command)
        m_joined.push_back(std::move(later->m_command));
    for (auto& joined : later->m_joined)
        m_joined.push_back(std::move(joined));
    setText(m_keeper->nameOf(m_change.get(), m_change->wholeBefore()));
    return true;
}
