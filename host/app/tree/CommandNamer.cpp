#include "CommandNamer.h"

#include "RoundTripText.h"

#include <Inventor/SbName.h>
#include <Inventor/SbString.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/fields/SoFieldData.h>
#include <Inventor/fields/SoMField.h>

#include <QVector>

namespace {
constexpr int kMaxValueLength = 40;

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

QString clipped(QString shown)
{
    shown = shown.simplified();
    if (shown.size() > kMaxValueLength)
        shown = shown.left(kMaxValueLength - 1) + QChar(0x2026);
    return shown;
}

QString rowText(SoField* field, const QString& coinText)
{
    return clipped(RoundTripText::shorten(coinText, field->getTypeId()));
}

// Where the rows of two sightings of one list differ: the first two places,
// since a name tells at most two rows apart, and how many there are.
QVector<int> changedRows(const QStringList& before, const QStringList& after, int* count)
{
    QVector<int> changed;
    *count = 0;
    for (int i = 0; i < before.size(); ++i) {
        if (before.at(i) == after.at(i))
            continue;
        ++*count;
        if (changed.size() < 2)
            changed << i;
    }
    return changed;
}
} // namespace

QString CommandNamer::nameEntry(SoField* field, SoField* before)
{
    if (!field || !before)
        return QString();
    return describe(field, seen(before), seen(field));
}

QString CommandNamer::shortText(SoField* field)
{
    if (field->isOfType(SoMField::getClassTypeId()) && static_cast<SoMField*>(field)->getNum() > 4)
        return QObject::tr("%1 values").arg(static_cast<SoMField*>(field)->getNum());
    return clipped(RoundTripText::of(field));
}

CommandNamer::Seen CommandNamer::seen(SoField* field)
{
    Seen result;
    result.text = shortText(field);
    result.ignored = field->isIgnored();
    if (!field->isOfType(SoMField::getClassTypeId()))
        return result;
    auto* list = static_cast<SoMField*>(field);
    result.count = list->getNum();
    if (result.count <= kMaxRowsNoted) {
        result.rows.reserve(result.count);
        SbString text;
        for (int i = 0; i < result.count; ++i) {
            list->get1(i, text);
            result.rows << QString::fromUtf8(text.getString());
        }
    }
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
    const bool sameList = before.count >= 0 && before.count == after.count;
    const bool rowsKnown = sameList && before.rows.size() == before.count && after.rows.size() == after.count;
    const bool sameValue = rowsKnown ? before.rows == after.rows : before.text == after.text;
    if (!before.text.isNull() && sameValue && before.ignored != after.ignored)
        return after.ignored ? tr("Ignore %1").arg(placeOf(field))
                             : tr("Stop ignoring %1").arg(placeOf(field));
    if (sameList) {
        const QString where = placeOf(field);
        if (!rowsKnown)
            return tr("Set %1 (%2 values)").arg(where).arg(after.count);
        int count = 0;
        const QVector<int> changed = changedRows(before.rows, after.rows, &count);
        if (count == 1) {
            const int row = changed.first();
            return tr("Set row %1 of %2: %3 \u2192 %4")
                .arg(row + 1)
                .arg(where, rowText(field, before.rows.at(row)), rowText(field, after.rows.at(row)));
        }
        if (count == 2 && before.rows.at(changed[0]) == after.rows.at(changed[1]) &&
            before.rows.at(changed[1]) == after.rows.at(changed[0]))
            return tr("Swap rows %1 and %2 of %3").arg(changed[0] + 1).arg(changed[1] + 1).arg(where);
        if (count > 1)
            return tr("Set %1 rows of %2").arg(count).arg(where);
    }
    return describe(field, before.text, after.text);
}

QString CommandNamer::describe(SoField* field, const QString& before, const QString& after)
{
    const QString where = placeOf(field);
    if (before.isNull() || before == after)
        return tr("Set %1 to %2").arg(where, after);
    return tr("Set %1: %2 \u2192 %3").arg(where, before, after);
}
