#include "KalMFDeleteRowsCommand.h"

#include <Inventor/fields/SoMField.h>

#include <algorithm>

// A range reaching past the end is cut to the values that exist; a start
// outside the field deletes nothing.
KalMFDeleteRowsCommand::KalMFDeleteRowsCommand(SoMField* field, int start, int count)
    : target(field)
    , start(start)
    , count(0)
{
    if (!field || start < 0 || start >= field->getNum())
        return;
    this->count = std::clamp(count, 0, field->getNum() - start);
    saved.resize(size_t(this->count));
    for (int i = 0; i < this->count; ++i)
        field->get1(start + i, saved[size_t(i)]);
}

KalMFDeleteRowsCommand::~KalMFDeleteRowsCommand() = default;

void KalMFDeleteRowsCommand::execute()
{
    SoMField* field = target.get();
    if (!field || count == 0 || start + count > field->getNum())
        return;
    field->deleteValues(start, count);
}

void KalMFDeleteRowsCommand::undo()
{
    SoMField* field = target.get();
    if (!field || count == 0 || start > field->getNum())
        return;
    field->insertSpace(start, count);
    for (int i = 0; i < count; ++i)
        field->set1(start + i, saved[size_t(i)].getString());
}

void KalMFDeleteRowsCommand::redo()
{
    execute();
}
