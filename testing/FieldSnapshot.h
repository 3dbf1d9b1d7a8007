#pragma once
// Everything a node's fields hold, to tell whether anything changed: each
// field's bytes as Coin writes them, whether it is at its default (what Coin
// saves) and whether it is ignored. Taken before a step and compared after.
#include <QByteArray>
#include <QList>
#include <QString>

class SoFieldContainer;

class FieldSnapshot
{
public:
    explicit FieldSnapshot(SoFieldContainer* container);

    // The first field that differs from `other`, with what it held in each,
    // or an empty text when none does.
    QString differenceFrom(const FieldSnapshot& other) const;

    bool operator==(const FieldSnapshot& other) const { return differenceFrom(other).isEmpty(); }
    bool operator!=(const FieldSnapshot& other) const { return !(*this == other); }

private:
    struct Entry
    {
        QByteArray name;
        QByteArray text;
        bool isDefault;
        bool ignored;
    };
    QList<Entry> m_entries;
};
