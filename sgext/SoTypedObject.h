#pragma once

#include <Inventor/SoType.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>

#include <cstddef>
#include <type_traits>

// The object an editor edits is either a field or a field container (a node,
// an engine...). Coin declares SoTypedObject but gives SoField and
// SoFieldContainer no common base, so a plain pointer to "some typed object"
// cannot be cast back safely. This handle remembers which of the two it holds
// and offers the checked conversions every dock and editor relies on: a
// conversion to the wrong kind or to a class the object is not of yields null,
// never a reinterpreted pointer.
//
// The handle does not own the object and does not keep it alive; whoever
// keeps a handle around must learn of the object's death another way (the
// editors do it with a field sensor's delete callback).
class SoTypedObject
{
public:
    SoTypedObject() = default;
    SoTypedObject(std::nullptr_t) {}
    SoTypedObject(SoField* field);
    SoTypedObject(SoFieldContainer* container);

    bool isNull() const { return m_object == nullptr; }
    explicit operator bool() const { return m_object != nullptr; }

    // SoType::badType() for a null handle.
    SoType getTypeId() const;
    bool isOfType(SoType type) const;

    bool isField() const { return m_kind == Kind::Field; }
    bool isFieldContainer() const { return m_kind == Kind::Container; }

    SoField* toField() const { return m_kind == Kind::Field ? static_cast<SoField*>(m_object) : nullptr; }
    SoFieldContainer* toFieldContainer() const
    {
        return m_kind == Kind::Container ? static_cast<SoFieldContainer*>(m_object) : nullptr;
    }

    // Checked downcast to a concrete field or container class, for example
    // cast<SoSFFloat>() or cast<SoMaterial>(): null unless the object is of
    // that class or derived from it.
    template <class T>
    T* cast() const
    {
        static_assert(std::is_base_of<SoField, T>::value || std::is_base_of<SoFieldContainer, T>::value,
                      "SoTypedObject converts only to fields and field containers");
        if constexpr (std::is_base_of<SoField, T>::value) {
            SoField* field = toField();
            return field && field->isOfType(T::getClassTypeId()) ? static_cast<T*>(field) : nullptr;
        } else {
            SoFieldContainer* container = toFieldContainer();
            return container && container->isOfType(T::getClassTypeId()) ? static_cast<T*>(container)
                                                                         : nullptr;
        }
    }

    bool operator==(const SoTypedObject& other) const { return m_object == other.m_object; }
    bool operator!=(const SoTypedObject& other) const { return m_object != other.m_object; }

private:
    enum class Kind
    {
        None,
        Field,
        Container
    };
    Kind m_kind = Kind::None;
    void* m_object = nullptr;
};
