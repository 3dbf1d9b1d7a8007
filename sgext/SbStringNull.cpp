#include "SbStringNull.h"

void SbStringNull::makeNull(SbString& string)
{
    string.makeEmpty(TRUE);
}

bool SbStringNull::isNullOrEmpty(const SbString& string)
{
    return string.getLength() == 0;
}
