#include "CommandNamer.h"

#include "RoundTripText.h"

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

// "Node.field", the node by its name, or by its type when it has none.
QString placeOf(SoField* field)
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
    return QStringLiteral("%1.%2").arg(owner, QString::fromLatin1(fieldName.getString()));
}
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
    if (field->isOfType(SoMField::getClassTypeId()) && static_cast<SoMField*>(field)->getNum() > 4)
        return QObject::tr("%1 values").arg(static_cast<SoMField*>(field)->getNum());
    QString shown = RoundTripText::of(field).simplified();
    if (shown.size() > kMaxValueLength)
        shown = shown.left(kMaxValueLength - 1) + QChar(0x2026);
    return shown;
}

CommandNamer::Seen CommandNamer::seen(SoField* field)
{
    Seen result;
    result.text = shortText(field);
    result.ignored = field->isIgnored();
    if (field->isOfType(SoMField::getClassTypeId()))
        result.count = static_cast<SoMField*>(field)->getNum();
    return result;
}

QString CommandNamer::describe(SoField* field, const Seen& before, const Seen& after)
{
    if (before.count >= 0 && after.count >= 0 && before.count != after.count) {
        const QString where = placeOf(field);
        const int rows = after.count - before.count;
        if (rows == 1)
            return tr("Add a row to %1").arg(where);
        if (rows == -1)
            return tr("Delete a row from %1").arg(where);
        return rows > 0 ? tr("Add %1 rows to %2").arg(rows).arg(where)
                        : tr("Delete %1 rows from %2").arg(-rows).arg(where);
    }
    if (!before.text.isNull() && before.text == after.text && before.ignored != after.ignored)
        return after.ignored ? tr("Ignore %1").arg(placeOf(field))
                             : tr("Stop ignoring %1").arg(placeOf(field));
    return describe(field, before.text, after.text);
}

QString CommandNamer::describe(SoField* field, const QString& before, const QString& after)
{
    const QString where = placeOf(field);
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
        m_known.insert(field, seen(field));
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
    const Seen after = seen(field);
    const QString text = describe(field, m_known.value(field), after);
    m_known.insert(field, after);
    // The stack owns its commands; only their text changes here.
    const_cast<QUndoCommand*>(top)->setText(text);
}
