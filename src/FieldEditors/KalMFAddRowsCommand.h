#pragma once

#include "FieldLifeline.h"

#include <KalCommand.h>

class SoMField;

// Inserting `count` values at `start` of a multiple-value field. The table
// pushes it without touching the field: execute() makes the change.
class KalMFAddRowsCommand : public KalCommand
{
public:
    KalMFAddRowsCommand(SoMField* field, int start, int count);
    ~KalMFAddRowsCommand() override;

    void execute() override;
    void undo() override;
    void redo() override;

private:
    // Null once the field is gone with its node.
    FieldRef<SoMField> target;
    int start;
    int count;
};
