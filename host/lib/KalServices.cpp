#include "KalServices.h"

#include "HistoryKeeper.h"
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
    , m_keeper(new HistoryKeeper(this, m_stack))
{
    setObjectName(QStringLiteral("KalServices"));
    m_stack->setObjectName(QStringLiteral("KalUndoStack"));
}

KalServices::~KalServices() = default;

void KalServices::pushCommand(KalCommand* command)
{
    if (!command)
        return;
    if (m_keeper->options()) {
        m_keeper->push(new HostUndoCommand(command, m_keeper));
        return;
    }
    auto* entry = new HostUndoCommand(command);
    entry->setText(m_keeper->fallbackName());
    m_stack->push(entry);
}

void KalServices::setHistoryOptions(HistoryOptions options)
{
    m_keeper->setOptions(options);
}

KalServices::HistoryOptions KalServices::historyOptions() const
{
    return m_keeper->options();
}

void KalServices::setEntryNamer(EntryNamer namer)
{
    m_keeper->setNamer(std::move(namer));
}

void KalServices::noteFieldChange(SoField* field)
{
    m_keeper->noteFieldChange(field);
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
    m_keeper->endBurst();
    m_stack->clear();
}

QUndoStack* KalServices::undoStack()
{
    return m_stack;
}
