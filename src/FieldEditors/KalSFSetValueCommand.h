#pragma once

#include "FieldLifeline.h"

#include <KalCommand.h>

#include <Inventor/SbString.h>

class SoField;

// A value change of a field, carried as the field's text. The editor has
// written the new value already; execute() records it.
class KalSFSetValueCommand : public KalCommand
{
public:
    // A non-empty previousValue is the text from before the edit: the
    // command takes it over and leaves the caller's string null. Otherwise
    // the field's current text is the previous value.
    KalSFSetValueCommand(SoField* field, SbString& previousValue);
    ~KalSFSetValueCommand() override;

    void execute() override;
    void undo() override;
    void redo() override;

private:
    // Null once the field is gone with its node.
    FieldRef<SoField> target;
    SbString previousValue;
    SbString newValue;
};
