#include "SoTypedObject.h"

SoTypedObject::SoTypedObject(SoField* field)
    : m_kind(field ? Kind::Field : Kind::None)
    , m_object(field)
{}

SoTypedObject::SoTypedObject(SoFieldContainer* container)
    : m_kind(container ? Kind::Container : Kind::None)
    , m_object(container)
{}

SoType SoTypedObject::getTypeId() const
{
    if (SoField* field = toField())
        return field->getTypeId();
    if (SoFieldContainer* container = toFieldContainer())
        return container->getTypeId();
    return SoType::badType();
}

bool SoTypedObject::isOfType(SoType type) const
{
    if (isNull() || type == SoType::badType())
        return false;
    return getTypeId().isDerivedFrom(type);
}
