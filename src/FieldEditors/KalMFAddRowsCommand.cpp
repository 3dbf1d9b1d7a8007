#include "KalMFAddRowsCommand.h"

#include <SoMFieldNotify.h>

#include <Inventor/fields/SoMField.h>

#include <algorithm>

// Row commands keep indices as the table gave them, but a bad index or count
// must never reach the field: out of range, the command does nothing.
KalMFAddRowsCommand::KalMFAddRowsCommand(SoMField* field, int start, int count)
    : target(field)
    , start(start)
    , count(std::max(count, 0))
{}

KalMFAddRowsCommand::~KalMFAddRowsCommand() = default;

void KalMFAddRowsCommand::execute()
{
    SoMField* field = target.get();
    if (!field || count == 0 || start < 0 || start > field->getNum())
        return;
    // One notification for the whole insertion, not one per value.
    const SbBool notifying = field->enableNotify(FALSE);
    field->insertSpace(start, count);
    // An empty quoted string: a string field gets an empty string. Other
    // types would keep what insertSpace put there, which for Coin's value
    // types is memory nobody wrote: a plane made of it may not even read
    // back. A row of zeros says the same "nothing yet" for every numeric type
    // (Coin reads as many numbers as a value takes).
    for (int i = start; i < start + count; ++i) {
        if (!field->set1(i, "\"\""))
            field->set1(i, "0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0");
    }
    field->enableNotify(notifying);
    SoMFieldNotify::valueChanged(field);
}

void KalMFAddRowsCommand::undo()
{
    SoMField* field = target.get();
    if (!field || count == 0 || start < 0 || start + count > field->getNum())
        return;
    field->deleteValues(start, count);
}

void KalMFAddRowsCommand::redo()
{
    execute();
}
