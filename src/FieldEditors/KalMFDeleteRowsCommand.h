#pragma once

#include "FieldLifeline.h"

#include <KalCommand.h>

#include <Inventor/SbString.h>

#include <vector>

class SoMField;

// Removing `count` values from `start` of a multiple-value field. The texts
// of the values are saved when the command is made, before the rows go.
class KalMFDeleteRowsCommand : public KalCommand
{
public:
    KalMFDeleteRowsCommand(SoMField* field, int start, int count);
    ~KalMFDeleteRowsCommand() override;

    void execute() override;
    void undo() override;
    void redo() override;

private:
    // Null once the field is gone with its node.
    FieldRef<SoMField> target;
    std::vector<SbString> saved;
    int start;
    int count;
};
