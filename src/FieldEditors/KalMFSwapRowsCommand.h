#pragma once

#include "FieldLifeline.h"

#include <KalCommand.h>

class SoMField;

// Exchanging two values of a multiple-value field; an exchange is its own
// inverse, so undo and redo both exchange again.
class KalMFSwapRowsCommand : public KalCommand
{
public:
    KalMFSwapRowsCommand(SoMField* field, int row1, int row2);
    ~KalMFSwapRowsCommand() override;

    // Exchanges two values of a field through their texts; nothing when
    // either index is not one of the field's.
    static void exchange(SoMField* field, int row1, int row2);

    void execute() override;
    void undo() override;
    void redo() override;

private:
    // Null once the field is gone with its node.
    FieldRef<SoMField> target;
    int row1;
    int row2;
};
