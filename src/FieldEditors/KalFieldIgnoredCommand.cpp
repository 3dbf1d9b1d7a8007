#include "KalFieldIgnoredCommand.h"

#include <Inventor/fields/SoField.h>

KalFieldIgnoredCommand::KalFieldIgnoredCommand(SoField* field, bool ignored)
    : target(field)
    , ignored(ignored)
{}

KalFieldIgnoredCommand::~KalFieldIgnoredCommand() = default;

void KalFieldIgnoredCommand::execute()
{
    SoField* field = target.get();
    if (field)
        field->setIgnored(ignored);
}

void KalFieldIgnoredCommand::undo()
{
    SoField* field = target.get();
    if (field)
        field->setIgnored(!ignored);
}

void KalFieldIgnoredCommand::redo()
{
    execute();
}
