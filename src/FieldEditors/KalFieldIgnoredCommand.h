#pragma once

#include "FieldLifeline.h"

#include <KalCommand.h>

class SoField;

// A change of a field's ignore flag; `ignored` is the state the edit set.
class KalFieldIgnoredCommand : public KalCommand
{
public:
    KalFieldIgnoredCommand(SoField* field, bool ignored);
    ~KalFieldIgnoredCommand() override;

    void execute() override;
    // Sets the opposite of the recorded state, whatever the flag is now.
    void undo() override;
    void redo() override;

private:
    // Null once the field is gone with its node.
    FieldRef<SoField> target;
    bool ignored;
};
