#include "DefaultFieldValues.h"

#include <Inventor/SbName.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/fields/SoFieldData.h>

#include <cstring>
#include <map>

namespace {

std::map<SoType, SoFieldContainer*>& prototypes()
{
    static std::map<SoType, SoFieldContainer*> map;
    return map;
}

SoFieldContainer* prototypeOf(SoType type)
{
    auto& map = prototypes();
    auto it = map.find(type);
    if (it != map.end())
        return it->second;
    SoFieldContainer* prototype = nullptr;
    if (type.canCreateInstance() && type.isDerivedFrom(SoFieldContainer::getClassTypeId())) {
        prototype = static_cast<SoFieldContainer*>(type.createInstance());
        if (prototype)
            prototype->ref();
    }
    map.emplace(type, prototype);
    return prototype;
}

} // namespace

SoField* DefaultFieldValues::defaultFieldFor(SoField* field)
{
    if (!field)
        return nullptr;
    SoFieldContainer* container = field->getContainer();
    if (!container || !container->getFieldData())
        return nullptr;
    const int index = container->getFieldData()->getIndex(container, field);
    if (index < 0)
        return nullptr;
    SoFieldContainer* prototype = prototypeOf(container->getTypeId());
    if (!prototype || !prototype->getFieldData())
        return nullptr;
    const SoFieldData* data = prototype->getFieldData();
    if (index >= data->getNumFields())
        return nullptr;
    SoField* defaultField = data->getField(prototype, index);
    // The same place in another field list may hold another field: only a
    // field of the same name and type is the default.
    if (!defaultField || defaultField->getTypeId() != field->getTypeId() ||
        std::strcmp(data->getFieldName(index).getString(),
                    container->getFieldData()->getFieldName(index).getString()) != 0)
        return nullptr;
    return defaultField;
}

void DefaultFieldValues::clear()
{
    auto& map = prototypes();
    for (auto& entry : map) {
        if (entry.second)
            entry.second->unref();
    }
    map.clear();
}
