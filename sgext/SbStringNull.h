#pragma once

#include <Inventor/SbString.h>

// Coin's SbString has no null state apart from the empty one. Where a string
// is "made null" to say that its text was handed over, the text is dropped
// and the buffer freed; a null string and an empty one test the same.
class SbStringNull
{
public:
    static void makeNull(SbString& string);
    static bool isNullOrEmpty(const SbString& string);
};
