#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

class SoField;

// Gives each entry of the history a text that says what changed: the node,
// the field, and the old and new value, read from the field and from the
// history's copy of it as it was before the entry.
class CommandNamer
{
    Q_DECLARE_TR_FUNCTIONS(CommandNamer)

public:
    // The text of an entry that took `field` from the state `before` holds.
    static QString nameEntry(SoField* field, SoField* before);

    // What was seen of a field: its short text, its ignore flag and, for a
    // list, its count and, for a list short enough to keep, each value's
    // text as Coin wrote it, so that a change can be told by its rows.
    struct Seen
    {
        QString text;
        int count = -1;
        bool ignored = false;
        QStringList rows;
    };
    // Lists longer than this are not read row by row: reading a long list
    // twice for every entry would cost more than the history's text is worth.
    static constexpr int kMaxRowsNoted = 4096;

    static QString describe(SoField* field, const QString& before, const QString& after);
    // As above; for a list whose count changed, the rows added or deleted
    // rather than two texts that say little; for a list of the same count,
    // the row that changed (numbered from 1, as its editor's table shows
    // them), the two rows exchanged, or how many rows changed; for a flipped
    // ignore flag on an unchanged value, "Ignore ..." or "Stop ignoring ...".
    static QString describe(SoField* field, const Seen& before, const Seen& after);
    static QString shortText(SoField* field);
    static Seen seen(SoField* field);
};
