#pragma once

#include <QUndoCommand>

#include <memory>

class KalCommand;

// Carries a plug-in's command in the host's undo stack. The stack calls
// redo() once when the command is pushed: that first call is the command's
// execute(), every later one its redo().
class HostUndoCommand : public QUndoCommand
{
public:
    explicit HostUndoCommand(KalCommand* command);
    ~HostUndoCommand() override;

    void undo() override;
    void redo() override;

    KalCommand* kalCommand() const { return m_command.get(); }

private:
    std::unique_ptr<KalCommand> m_command;
    bool m_executed = false;
};
