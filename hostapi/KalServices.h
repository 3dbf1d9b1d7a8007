#pragma once

#include <QFlags>
#include <QObject>
#include <QString>

#include <functional>

class HistoryKeeper;
class KalCommand;
class QUndoStack;
class SoField;
class SoFieldContainer;

// The host's selection and undo history.
class KalServices : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(KalServices)

public:
    static KalServices* getInstance();

    // Takes ownership; the history runs the command's execute() once now.
    virtual void pushCommand(KalCommand* command);

    ~KalServices() override;

    int commandCount() const;
    // The command at a place of the history (0 is the oldest), or null.
    KalCommand* command(int index) const;
    bool undo();
    bool redo();
    void clearHistory();
    QUndoStack* undoStack();

    // What a host's history may add to running each command as pushed. None
    // is on by default: then every command's execute(), undo() and redo()
    // run exactly as the plug-in wrote them, and nothing else happens.
    enum HistoryOption
    {
        // Undo and redo put back the selected field's value and flags as
        // they were before and after the entry, whatever the command does.
        RestoreValues = 0x1,
        // A burst of typing into one single-value field is one entry; it
        // ends with Return, a change of focus or selection, undo or redo.
        MergeTyping = 0x2,
        // An entry that left the selected field bit for bit as it was, and
        // changed no other field the host reported, is not kept.
        HideNoOps = 0x4,
        // A change of the selected field that no command reported gets an
        // entry of its own once the event loop runs.
        RecordUnreported = 0x8
    };
    Q_DECLARE_FLAGS(HistoryOptions, HistoryOption)
    void setHistoryOptions(HistoryOptions options);
    HistoryOptions historyOptions() const;
    // Names an entry (made, or grown by typing) from the field it changed and
    // a copy of the field as it was before the entry; an empty text leaves
    // the history's own "Edit N".
    using EntryNamer = std::function<QString(SoField* field, SoField* before)>;
    void setEntryNamer(EntryNamer namer);
    // The host reports every field change it sees, so that an entry that
    // changed a field other than the selected one is never taken for a no-op.
    void noteFieldChange(SoField* field);

signals:
    void selectedNodeChanged(SoFieldContainer* container);
    void selectedFieldChanged(SoField* field);

private:
    KalServices();

    QUndoStack* m_stack;
    HistoryKeeper* m_keeper;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(KalServices::HistoryOptions)
