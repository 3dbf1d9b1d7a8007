#include "KalFieldSetDefaultCommand.h"

#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoMField.h>

KalFieldSetDefaultCommand::KalFieldSetDefaultCommand(SoField* field, SoField* defaultField)
    : target(field)
    , isMultiple(field && field->isOfType(SoMField::getClassTypeId()))
{
    if (field)
        field->get(previousValue);
    if (defaultField)
        defaultField->get(defaultValue);
}

KalFieldSetDefaultCommand::~KalFieldSetDefaultCommand() = default;

void KalFieldSetDefaultCommand::execute()
{
    SoField* field = target.get();
    // Without a default field there is no text to write: every field's text
    // form, even an empty string's, has at least its quotes.
    if (field && defaultValue.getLength() > 0)
        field->set(defaultValue.getString());
}

void KalFieldSetDefaultCommand::undo()
{
    SoField* field = target.get();
    if (field)
        field->set(previousValue.getString());
}

void KalFieldSetDefaultCommand::redo()
{
    execute();
}
