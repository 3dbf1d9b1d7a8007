#include "KalMFSetFieldValueCommand.h"

#include <Inventor/fields/SoMField.h>

namespace {
bool holds(const SoMField* field, int index)
{
    return field && index >= 0 && index < field->getNum();
}
} // namespace

KalMFSetFieldValueCommand::KalMFSetFieldValueCommand(SoMField* field, int index)
    : target(field)
    , index(index)
{
    if (holds(field, index)) {
        field->get1(index, oldText);
        newText = oldText;
    }
}

KalMFSetFieldValueCommand::~KalMFSetFieldValueCommand() = default;

void KalMFSetFieldValueCommand::execute() {}

void KalMFSetFieldValueCommand::undo()
{
    SoMField* field = target.get();
    if (holds(field, index))
        field->set1(index, oldText.getString());
}

void KalMFSetFieldValueCommand::redo()
{
    SoMField* field = target.get();
    if (holds(field, index))
        field->set1(index, newText.getString());
}
