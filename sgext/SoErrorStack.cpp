#include "SoErrorStack.h"

template class SoErrorClass<SoErrorStack>;

void SoErrorStack::initClass()
{
    initErrorClass("ErrorStack");
}
