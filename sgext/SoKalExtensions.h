#pragma once

// Registers what this library adds to the scene graph: the field types and
// the error classes. The host calls init() once after SoDB::init(); calling
// it again does nothing.
class SoKalExtensions
{
public:
    static void init();
    static bool isInitialized();
};
