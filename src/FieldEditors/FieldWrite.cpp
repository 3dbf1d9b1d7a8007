#include "FieldWrite.h"

#include <Inventor/SbString.h>
#include <Inventor/fields/SoMField.h>

#include <cstring>
#include <memory>

namespace {

// A scratch field of the same type, to tell whether a text differs from the
// field in value rather than in spelling ("1" and "1.0", extra blanks).
std::unique_ptr<SoField> scratchOf(const SoField* field)
{
    const SoType type = field->getTypeId();
    if (!type.canCreateInstance())
        return nullptr;
    return std::unique_ptr<SoField>(static_cast<SoField*>(type.createInstance()));
}

} // namespace

bool FieldWrite::setText(SoField* field, const SbString& text)
{
    return setText(field, text.getString());
}

bool FieldWrite::setText(SoField* field, const char* text)
{
    if (!field || !text)
        return false;
    SbString current;
    field->get(current);
    if (std::strcmp(current.getString(), text) == 0)
        return false;
    if (auto scratch = scratchOf(field)) {
        if (scratch->set(text) && scratch->isSame(*field))
            return false;
    }
    return field->set(text) != 0;
}

bool FieldWrite::set1Text(SoMField* field, int index, const SbString& text)
{
    return set1Text(field, index, text.getString());
}

bool FieldWrite::set1Text(SoMField* field, int index, const char* text)
{
    if (!field || !text || index < 0)
        return false;
    if (index < field->getNum()) {
        SbString current;
        field->get1(index, current);
        if (std::strcmp(current.getString(), text) == 0)
            return false;
        if (auto scratch = scratchOf(field)) {
            auto* list = static_cast<SoMField*>(scratch.get());
            SbString other;
            const bool read = list->set1(0, text) != 0;
            if (read)
                list->get1(0, other);
            // A value that does not read leaves Coin's array allocated but
            // uncounted, and a list frees only the values it counts.
            list->setNum(1);
            if (read && std::strcmp(current.getString(), other.getString()) == 0)
                return false;
        }
    }
    return field->set1(index, text) != 0;
}
