#pragma once

#include <QUndoCommand>

#include <memory>
#include <vector>

class FieldChange;
class HistoryKeeper;
class KalCommand;

// Carries a plug-in's command in the host's undo stack. The stack calls
// redo() once when the command is pushed: that first call is the command's
// execute(), every later one its redo(). With a keeper, the entry also
// knows what its first run changed and puts exactly that back after the
// command's own undo and redo; an entry without a command stands for a
// change no command reported.
class HostUndoCommand : public QUndoCommand
{
public:
    explicit HostUndoCommand(KalCommand* command, HistoryKeeper* keeper = nullptr);
    ~HostUndoCommand() override;

    void undo() override;
    void redo() override;
    int id() const override;
    bool mergeWith(const QUndoCommand* other) override;

    KalCommand* kalCommand() const { return m_command.get(); }

private:
    std::unique_ptr<KalCommand> m_command;
    HistoryKeeper* m_keeper;
    // The commands of a burst of typing that joined this entry, in order.
    std::vector<std::unique_ptr<KalCommand>> m_joined;
    std::unique_ptr<FieldChange> m_change;
    int m_burst = -1;
    bool m_executed = false;
};
