#include "KalMFSwapRowsCommand.h"

#include <Inventor/SbString.h>
#include <Inventor/fields/SoMField.h>

KalMFSwapRowsCommand::KalMFSwapRowsCommand(SoMField* field, int row1, int row2)
    : target(field)
    , row1(row1)
    , row2(row2)
{}

KalMFSwapRowsCommand::~KalMFSwapRowsCommand() = default;

void KalMFSwapRowsCommand::execute()
{
    exchange(target.get(), row1, row2);
}

void KalMFSwapRowsCommand::exchange(SoMField* field, int row1, int row2)
{
    if (!field || row1 < 0 || row2 < 0 || row1 >= field->getNum() || row2 >= field->getNum())
        return;
    SbString a;
    SbString b;
    field->get1(row1, a);
    field->get1(row2, b);
    field->set1(row1, b.getString());
    field->set1(row2, a.getString());
}

void KalMFSwapRowsCommand::undo()
{
    execute();
}

void KalMFSwapRowsCommand::redo()
{
    execute();
}
