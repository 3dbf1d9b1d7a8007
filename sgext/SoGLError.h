#pragma once

#include "SoErrorClass.h"

// Errors reported by the rendering back end (OpenGL state, contexts,
// extensions), apart from the scene graph's other errors so that a console
// can tell them apart.
class SoGLError : public SoErrorClass<SoGLError>
{
public:
    static void initClass();
};

// One copy of the class's type and handler for the whole process: every
// library that includes this header uses the one defined in this library.
extern template class SoErrorClass<SoGLError>;
