#include "SoGLError.h"

template class SoErrorClass<SoGLError>;

void SoGLError::initClass()
{
    initErrorClass("GLError");
}
