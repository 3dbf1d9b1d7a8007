#pragma once

#include <QObject>

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

signals:
    void selectedNodeChanged(SoFieldContainer* container);
    void selectedFieldChanged(SoField* field);

private:
    KalServices();

    QUndoStack* m_stack;
};
