#pragma once

#include <Inventor/SoType.h>

class SoField;
class SoFieldContainer;

// Where an editor finds a field's default: the same field of a freshly made
// container of the edited container's type. One such container per type is
// made on first use and kept, referenced, until clear(): resetting a field
// then costs no allocation, and no temporary node is left unowned.
class DefaultFieldValues
{
public:
    // The field of the default container that corresponds to `field`, or
    // null when the field has no container, the container's type cannot be
    // instantiated, or the field is not part of the type's own fields (a
    // field added to one instance only).
    static SoField* defaultFieldFor(SoField* field);

    // Releases every kept container; the plug-in does it when it goes away.
    static void clear();
};
