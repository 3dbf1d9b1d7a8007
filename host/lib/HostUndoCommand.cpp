#include "HostUndoCommand.h"

#include "KalCommand.h"

HostUndoCommand::HostUndoCommand(KalCommand* command)
    : m_command(command)
{}

HostUndoCommand::~HostUndoCommand() = default;

void HostUndoCommand::undo()
{
    m_command->undo();
}

void HostUndoCommand::redo()
{
    if (!m_executed) {
        m_executed = true;
        m_command->execute();
        return;
    }
    m_command->redo();
}
