#pragma once

#include "FieldLifeline.h"

#include <KalCommand.h>

#include <Inventor/SbString.h>

class SoMField;

// One value of a multiple-value field, both texts read when the command is
// made. Made after the field changed, it undoes to the new value: that is
// what this command is for, and it must not start capturing the old one.
class KalMFSetFieldValueCommand : public KalCommand
{
public:
    KalMFSetFieldValueCommand(SoMField* field, int index);
    ~KalMFSetFieldValueCommand() override;

    void execute() override;
    void undo() override;
    void redo() override;

private:
    // Null once the field is gone with its node.
    FieldRef<SoMField> target;
    int index;
    SbString oldText;
    SbString newText;
};
