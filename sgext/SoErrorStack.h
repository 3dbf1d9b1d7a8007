#pragma once

#include "SoErrorClass.h"

// Errors that report a chain of failures at once (one error causing the
// next), posted as one message.
class SoErrorStack : public SoErrorClass<SoErrorStack>
{
public:
    static void initClass();
};

// One copy of the class's type and handler for the whole process: every
// library that includes this header uses the one defined in this library.
extern template class SoErrorClass<SoErrorStack>;
