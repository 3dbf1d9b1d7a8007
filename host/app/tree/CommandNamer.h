#pragma once

#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>

class SoField;
class SoFieldContainer;
class QUndoCommand;
class QUndoStack;

// Gives each command an editor pushes a text that says what changed: the
// node, the field, and the old and new value where the host saw the old one
// (the fields of the selected node are noted when it is selected).
class CommandNamer : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(CommandNamer)

public:
    CommandNamer(QUndoStack* stack, QObject* parent = nullptr);

    // The scene is going away: forget every field.
    void reset();

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
    // Lists longer than this are not kept row by row: reading a long list
    // on every selection would cost more than the history's text is worth.
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

public slots:
    void noteSelection(SoFieldContainer* container);
    void noteChange(SoField* field);

private slots:
    void nameNewCommand();

private:
    QUndoStack* m_stack;
    const QUndoCommand* m_lastNamed = nullptr;
    SoField* m_changed = nullptr;
    QHash<SoField*, Seen> m_known;
};
