#include "FieldState.h"

#include "ListMemory.h"

#include <Inventor/SbString.h>
#include <Inventor/fields/SoMField.h>

#include <cstring>

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
    if (!m_copy || m_copy->getTypeId() != field->getTypeId())
        m_copy.reset(static_cast<SoField*>(field->getTypeId().createInstance()));
    if (!m_copy)
        return;
    m_copy->copyFrom(*field);
    copyFlags(field, m_copy.get());
}

bool FieldState::matches(SoField* field) const
{
    if (!m_copy || !field || m_copy->getTypeId() != field->getTypeId())
        return false;
    return sameFlags(m_copy.get(), field) && sameValue(m_copy.get(), field);
}

void FieldState::writeInto(SoField* field) const
{
    if (!m_copy || !field || m_copy->getTypeId() != field->getTypeId())
        return;
    if (!sameValue(m_copy.get(), field))
        field->copyFrom(*m_copy);
    copyFlags(m_copy.get(), field);
}
