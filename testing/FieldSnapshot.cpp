#include "FieldSnapshot.h"

#include <Inventor/SbName.h>
#include <Inventor/SbString.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/lists/SoFieldList.h>

namespace {

// A field's text can be megabytes: a difference names its place and shows
// a little around it.
QString around(const QByteArray& text, int at)
{
    const int from = qMax(0, at - 20);
    return QString::fromLatin1(text.mid(from, 60).toPercentEncoding(" \"[],.-_"));
}

int firstDifference(const QByteArray& one, const QByteArray& other)
{
    const int length = qMin(one.size(), other.size());
    for (int i = 0; i < length; ++i) {
        if (one.at(i) != other.at(i))
            return i;
    }
    return length;
}

} // namespace

FieldSnapshot::FieldSnapshot(SoFieldContainer* container)
{
    if (!container)
        return;
    SoFieldList fields;
    container->getFields(fields);
    for (int i = 0; i < fields.getLength(); ++i) {
        SoField* field = fields[i];
        SbName name;
        container->getFieldName(field, name);
        SbString text;
        field->get(text);
        m_entries.append({QByteArray(name.getString()), QByteArray(text.getString(), text.getLength()),
                          field->isDefault() != 0, field->isIgnored() != 0});
    }
}

QString FieldSnapshot::differenceFrom(const FieldSnapshot& other) const
{
    if (m_entries.size() != other.m_entries.size())
        return QStringLiteral("the number of fields differs");
    for (int i = 0; i < m_entries.size(); ++i) {
        const Entry& mine = m_entries.at(i);
        const Entry& theirs = other.m_entries.at(i);
        const QString name = QString::fromLatin1(mine.name);
        if (mine.text != theirs.text) {
            const int at = firstDifference(mine.text, theirs.text);
            return QStringLiteral("%1 differs at byte %2 of %3/%4: \"%5\" / \"%6\"")
                .arg(name)
                .arg(at)
                .arg(mine.text.size())
                .arg(theirs.text.size())
                .arg(around(mine.text, at), around(theirs.text, at));
        }
        if (mine.isDefault != theirs.isDefault)
            return QStringLiteral("%1 is%2 at its default now").arg(name, theirs.isDefault ? "" : " not");
        if (mine.ignored != theirs.ignored)
            return QStringLiteral("%1 is%2 ignored now").arg(name, theirs.ignored ? "" : " not");
    }
    return QString();
}
