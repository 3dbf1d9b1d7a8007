#pragma once

#include "FieldLifeline.h"

#include <KalCommand.h>

#include <Inventor/SbString.h>

class SoField;

// A reset of a field to its default. Both texts are read when the command is
// made: an editor that writes the default first records the default as the
// previous value too, so undoing such a reset keeps the default.
class KalFieldSetDefaultCommand : public KalCommand
{
public:
    KalFieldSetDefaultCommand(SoField* field, SoField* defaultField);
    ~KalFieldSetDefaultCommand() override;

    void execute() override;
    void undo() override;
    void redo() override;

private:
    // Null once the field is gone with its node.
    FieldRef<SoField> target;
    bool isMultiple;
    SbString defaultValue;
    SbString previousValue;
};
