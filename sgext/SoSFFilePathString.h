#pragma once

#include <Inventor/fields/SoSFString.h>
#include <Inventor/fields/SoSubField.h>

// A string field that holds a file path. It stores and reads exactly as a
// string field does; its own type tells editors to offer a file dialog.
// Scene files declare it as "SFFilePathString".
class SoSFFilePathString : public SoSFString
{
    typedef SoSFString inherited;
    // Reading and writing are the string field's own, so only the type
    // machinery is declared here.
    SO_SFIELD_CONSTRUCTOR_HEADER(SoSFFilePathString);
    SO_SFIELD_REQUIRED_HEADER(SoSFFilePathString);

public:
    const SbString& operator=(const SbString& value)
    {
        setValue(value);
        return getValue();
    }
    using SoSFString::setValue;

    static void initClass();
};
