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
};
