#include "CommandNamer.h"

#include <Inventor/SbName.h>
#include <Inventor/SbString.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/fields/SoFieldData.h>
#include <Inventor/fields/SoMField.h>

#include <QUndoStack>

namespace {
constexpr int kMaxValueLength = 40;
constexpr int kMaxKnownFields = 4096;
} // namespace

CommandNamer::CommandNamer(QUndoStack* stack, QObject* parent)
    : QObject(parent)
    , m_stack(stack)
{
    connect(m_stack, &QUndoStack::indexChanged, this, &CommandNamer::nameNewCommand);
}

void CommandNamer::reset()
{
    m_known.clear();
    m_changed = nullptr;
    m_lastNamed = nullptr;
}

QString CommandNamer::shortText(SoField* field)
{
    SbString text;
    if (field->isOfType(SoMField::getClassTypeId()) && static_cast<SoMField*>(field)->getNum() > 4)
        return QObject::tr("%1 values").arg(static_cast<SoMField*>(field)->getNum());
    field->get(text);
    QString shown = QString::fromUtf8(text.getString()).simplified();
    if (shown.size() > kMaxValueLength)
        shown = shown.left(kMaxValueLength - 1) + QChar(0x2026);
    return shown;
}

QString CommandNamer::describe(SoField* field, const QString& before, const QString& after)
{
    SoFieldContainer* container = field->getContainer();
    QString owner;
    SbName fieldName;
    if (container) {
        owner = QString::fromUtf8(container->getName().getString());
        if (owner.isEmpty())
            owner = QString::fromLatin1(container->getTypeId().getName().getString());
        container->getFieldName(field, fieldName);
    }
    const QString where = QStringLiteral("%1.%2").arg(owner, QString::fromLatin1(fieldName.getString()));
    if (before.isNull() || before == after)
        return tr("Set %1 to %2").arg(where, after);
    return tr("Set %1: %2 \u2192 %3").arg(where, before, after);
}

void CommandNamer::noteSelection(SoFieldContainer* container)
{
    const SoFieldData* data = container ? container->getFieldData() : nullptr;
    if (!data)
        return;
    if (m_known.size() > kMaxKnownFields)
        m_known.clear();
    for (int i = 0; i < data->getNumFields(); ++i) {
        SoField* field = data->getField(container, i);
        m_known.insert(field, shortText(field));
    }
}

void CommandNamer::noteChange(SoField* field)
{
    m_changed = field;
}

void CommandNamer::nameNewCommand()
{
    // A push leaves the history at its top with a command not seen there
    // before; undo and redo move the index only.
    SoField* field = m_changed;
    m_changed = nullptr;
    const int count = m_stack->count();
    const QUndoCommand* top = count > 0 ? m_stack->command(count - 1) : nullptr;
    if (!top || m_stack->index() != count || top == m_lastNamed)
        return;
    m_lastNamed = top;
    if (!field)
        return;
    const QString after = shortText(field);
    const QString text = describe(field, m_known.value(field), after);
    m_known.insert(field, after);
    // The stack owns its commands; only their text changes here.
    const_cast<QUndoCommand*>(top)->setText(text);
}
