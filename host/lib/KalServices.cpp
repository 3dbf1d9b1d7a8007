#include "KalServices.h"

#include "HostUndoCommand.h"
#include "KalCommand.h"

#include <QUndoStack>

KalServices* KalServices::getInstance()
{
    // Never destroyed, like the other host singletons (see KalShell).
    static KalServices* instance = new KalServices;
    return instance;
}

KalServices::KalServices()
    : m_stack(new QUndoStack(this))
{
    setObjectName(QStringLiteral("KalServices"));
    m_stack->setObjectName(QStringLiteral("KalUndoStack"));
}

KalServices::~KalServices() = default;

void KalServices::pushCommand(KalCommand* command)
{
    if (!command)
        return;
    auto* entry = new HostUndoCommand(command);
    entry->setText(tr("Edit %1").arg(m_stack->index() + 1));
    m_stack->push(entry);
}

int KalServices::commandCount() const
{
    return m_stack->count();
}

KalCommand* KalServices::command(int index) const
{
    if (index < 0 || index >= m_stack->count())
        return nullptr;
    // The host application may push commands of its own on the same stack.
    const auto* entry = dynamic_cast<const HostUndoCommand*>(m_stack->command(index));
    return entry ? entry->kalCommand() : nullptr;
}

bool KalServices::undo()
{
    if (!m_stack->canUndo())
        return false;
    m_stack->undo();
    return true;
}

bool KalServices::redo()
{
    if (!m_stack->canRedo())
        return false;
    m_stack->redo();
    return true;
}

void KalServices::clearHistory()
{
    m_stack->clear();
}

QUndoStack* KalServices::undoStack()
{
    return m_stack;
}
