#include "KalSFSetValueCommand.h"

#include "FieldWrite.h"

#include <SbStringNull.h>

#include <Inventor/fields/SoField.h>

KalSFSetValueCommand::KalSFSetValueCommand(SoField* field, SbString& previousValue)
    : target(field)
{
    if (!SbStringNull::isNullOrEmpty(previousValue)) {
        this->previousValue = previousValue;
        SbStringNull::makeNull(previousValue);
    } else if (field) {
        field->get(this->previousValue);
    }
}

KalSFSetValueCommand::~KalSFSetValueCommand() = default;

void KalSFSetValueCommand::execute()
{
    SoField* field = target.get();
    if (field)
        field->get(newValue);
}

void KalSFSetValueCommand::undo()
{
    SoField* field = target.get();
    if (field)
        FieldWrite::setText(field, previousValue);
}

void KalSFSetValueCommand::redo()
{
    SoField* field = target.get();
    if (field)
        FieldWrite::setText(field, newValue);
}
