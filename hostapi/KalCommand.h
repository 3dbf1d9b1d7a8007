#pragma once

// An undoable change. The plug-in has usually applied the change already when
// it hands the command to KalServices::pushCommand; the host's history then
// calls execute() once, and undo()/redo() as the user asks. The history owns
// the command and deletes it.
class KalCommand
{
public:
    virtual void execute() = 0;
    virtual void undo() = 0;
    virtual void redo() = 0;
    virtual ~KalCommand();

protected:
    KalCommand();
};
