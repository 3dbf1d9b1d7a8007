#pragma once

class SbString;
class SoField;
class SoMField;

// A field that already holds a value is never set to it again: a write
// notifies, and some nodes act on any notification (a Texture2 whose
// filename is set reloads the file and drops its inline image). Every editor
// writes through here, so that a control the user did not change writes
// nothing that differs from the field.
class FieldWrite
{
public:
    // Sets the field from its own text syntax unless the text reads as the
    // value the field holds. True when the field was written.
    static bool setText(SoField* field, const SbString& text);
    static bool setText(SoField* field, const char* text);

    // The same for one value of a list.
    static bool set1Text(SoMField* field, int index, const SbString& text);
    static bool set1Text(SoMField* field, int index, const char* text);

    // Sets a typed field unless it already holds exactly this value.
    template <class Field, class Value>
    static bool setValue(Field* field, const Value& value)
    {
        if (!field || field->getValue() == value)
            return false;
        field->setValue(value);
        return true;
    }

    // The same for one value of a typed list.
    template <class Field, class Value>
    static bool set1Value(Field* field, int index, const Value& value)
    {
        if (!field || index < 0)
            return false;
        if (index < field->getNum() && (*field)[index] == value)
            return false;
        field->set1Value(index, value);
        return true;
    }
};
