#pragma once

#include <Inventor/SbBasic.h>

// Preference lookup. A preference is read from the environment variable of
// the same name, so a user sets it per session without a settings file.
class SoPreferences
{
public:
    // true/false, 1/0, yes/no and on/off in any case, surrounding blanks
    // ignored; an unset variable, an empty one or any other text gives the
    // default.
    static SbBool getBool(const char* name, SbBool defaultValue);
    // A whole number in base 10, surrounding blanks ignored, at least
    // minimum; an unset variable, an empty one, any other text or a number
    // out of range gives the default.
    static int getInt(const char* name, int defaultValue, int minimum);
};
