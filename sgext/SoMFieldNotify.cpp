#include "SoMFieldNotify.h"

#include <Inventor/fields/SoMField.h>

void SoMFieldNotify::valueChanged(SoMField* field)
{
    if (!field)
        return;
    field->setDefault(FALSE);
    field->touch();
}
