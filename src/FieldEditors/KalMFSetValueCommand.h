#pragma once

#include "FieldLifeline.h"

#include <KalCommand.h>

#include <Inventor/SbString.h>

class SoMField;

// One value of a multiple-value field changed by an editor, which has
// written it already; execute() records it. Editors pass an empty previous
// text, so the old text is read back after the write and equals the new one:
// undoing such a command leaves the value as it is. Kept that way on purpose.
class KalMFSetValueCommand : public KalCommand
{
public:
    KalMFSetValueCommand(SoMField* field, int index, SbString& previousText);
    ~KalMFSetValueCommand() override;

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
