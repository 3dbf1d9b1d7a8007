#include "KalMFSetValueCommand.h"

#include "FieldWrite.h"

#include <SbStringNull.h>

#include <Inventor/fields/SoMField.h>

namespace {
bool holds(const SoMField* field, int index)
{
    return field && index >= 0 && index < field->getNum();
}
} // namespace

KalMFSetValueCommand::KalMFSetValueCommand(SoMField* field, int index, SbString& previousText)
    : target(field)
    , index(index)
{
    if (!SbStringNull::isNullOrEmpty(previousText)) {
        oldText = previousText;
        SbStringNull::makeNull(previousText);
    } else if (holds(field, index)) {
        field->get1(index, oldText);
    }
}

KalMFSetValueCommand::~KalMFSetValueCommand() = default;

void KalMFSetValueCommand::execute()
{
    SoMField* field = target.get();
    if (holds(field, index))
        field->get1(index, newText);
}

void KalMFSetValueCommand::undo()
{
    SoMField* field = target.get();
    if (holds(field, index))
        FieldWrite::set1Text(field, index, oldText);
}

void KalMFSetValueCommand::redo()
{
    SoMField* field = target.get();
    if (holds(field, index))
        FieldWrite::set1Text(field, index, newText);
}
