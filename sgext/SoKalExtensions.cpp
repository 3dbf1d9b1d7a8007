#include "SoKalExtensions.h"

#include "SoErrorStack.h"
#include "SoGLError.h"
#include "SoSFFilePathString.h"

namespace {
bool s_initialized = false;
}

void SoKalExtensions::init()
{
    if (s_initialized)
        return;
    s_initialized = true;
    SoSFFilePathString::initClass();
    SoGLError::initClass();
    SoErrorStack::initClass();
}

bool SoKalExtensions::isInitialized()
{
    return s_initialized;
}
