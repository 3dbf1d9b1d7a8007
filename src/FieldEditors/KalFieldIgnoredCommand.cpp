#include "KalFieldIgnoredCommand.h"

#include <Inventor/fields/SoField.h>

KalFieldIgnoredCommand::KalFieldIgnoredCommand(SoField* field, bool ignored)
    : field(field)
    , ignored(ignored)
{}

KalFieldIgnoredCommand::~KalFieldIgnoredCommand() = default;

void KalFieldIgnoredCommand::execute()
{
    if (field)
        field->setIgnored(ignored);
}

void KalFieldIgnoredCommand::undo()
{
    if (field)
        field->setIgnored(!ignored);
}

void KalFieldIgnoredCommand::redo()
{
    execute();
}
