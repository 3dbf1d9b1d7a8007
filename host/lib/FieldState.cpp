#include "FieldState.h"

#include "ListMemory.h"

#include <Inventor/SbName.h>
#include <Inventor/SbString.h>
#include <Inventor/fields/SoMFEnum.h>
#include <Inventor/fields/SoMField.h>
#include <Inventor/fields/SoSFEnum.h>

#include <cstring>
#include <vector>

namespace {
bool sameFlags(SoField* a, SoField* b)
{
    return a->isIgnored() == b->isIgnored() && a->isDefault() == b->isDefault();
}

bool sameValue(SoField* kept, SoField* field)
{
    if (ListMemory::isPlain(field)) {
        auto* a = static_cast<SoMField*>(kept);
        auto* b = static_cast<SoMField*>(field);
        if (a->getNum() != b->getNum())
            return false;
        const std::size_t bytes = std::size_t(a->getNum()) * std::size_t(ListMemory::valueSize(a));
        return bytes == 0 || std::memcmp(ListMemory::values(a), ListMemory::values(b), bytes) == 0;
    }
    if (!kept->isSame(*field))
        return false;
    if (field->isOfType(SoMField::getClassTypeId()))
        return true;
    // Coin calls 0 and -0 the same value; their texts tell them apart.
    SbString a;
    SbString b;
    kept->get(a);
    field->get(b);
    return a == b;
}

// An enumeration's names belong to the field, not to its type: a copy
// without them would write its value as an empty set of names.
template <class Enum>
void copyNames(SoField* from, SoField* to)
{
    if (!from->isOfType(Enum::getClassTypeId()))
        return;
    const auto* source = static_cast<Enum*>(from);
    const int count = source->getNumEnums();
    std::vector<int> values(std::size_t(count > 0 ? count : 0));
    std::vector<SbName> names(values.size());
    for (int i = 0; i < count; ++i)
        values[std::size_t(i)] = source->getEnum(i, names[std::size_t(i)]);
    static_cast<Enum*>(to)->setEnums(count, values.data(), names.data());
}

void copyFlags(SoField* from, SoField* to)
{
    to->setIgnored(from->isIgnored());
    to->setDefault(from->isDefault());
}
} // namespace

FieldState::FieldState() = default;

FieldState::FieldState(SoField* field)
{
    refresh(field);
}

FieldState::~FieldState() = default;

FieldState::FieldState(FieldState&& other) noexcept = default;

FieldState& FieldState::operator=(FieldState&& other) noexcept = default;

void FieldState::refresh(SoField* field)
{
    if (!field) {
        m_copy.reset();
        return;
    }
    if (!m_copy || m_copy->getTypeId() != field->getTypeId()) {
        m_copy.reset(static_cast<SoField*>(field->getTypeId().createInstance()));
        if (!m_copy)
            return;
    }
    copyNames<SoSFEnum>(field, m_copy.get());
    copyNames<SoMFEnum>(field, m_copy.get());
    m_copy->copyFrom(*field);
    copyFlags(field, m_copy.get());
}

bool FieldState::matches(SoField* field) const
{
    if (!m_copy || !field || m_copy->getTypeId() != field->getTypeId())
        return false;
    return sameFlags(m_copy.get(), field) && sameValue(m_copy.get(), field);
}

bool FieldState::holdsValueOf(SoField* field) const
{
    return m_copy && field && m_copy->getTypeId() == field->getTypeId() && sameValue(m_copy.get(), field);
}

void FieldState::writeInto(SoField* field) const
{
    if (!m_copy || !field || m_copy->getTypeId() != field->getTypeId())
        return;
    if (!sameValue(m_copy.get(), field))
        field->copyFrom(*m_copy);
    copyFlags(m_copy.get(), field);
}
