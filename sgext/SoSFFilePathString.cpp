#include "SoSFFilePathString.h"

SO_SFIELD_CONSTRUCTOR_SOURCE(SoSFFilePathString);
SO_SFIELD_REQUIRED_SOURCE(SoSFFilePathString);

void SoSFFilePathString::initClass()
{
    if (getClassTypeId() != SoType::badType())
        return;
    // Registered under the name scene files use for field types, without the
    // class prefix, as Coin's own field types are.
    PRIVATE_FIELD_INIT_CLASS(SoSFFilePathString, "SFFilePathString", inherited,
                             &SoSFFilePathString::createInstance);
}
