#pragma once

#include <Inventor/sensors/SoFieldSensor.h>

#include <memory>

class SoField;
class SoSensor;

// Tells whether a field is still alive. Commands sit in the host's history
// long after the user moved on, and the node that owns their field may be
// deleted meanwhile; undoing such a command must find the field gone rather
// than write into freed memory.
//
// One lifeline per field, shared by every command that refers to it, so a
// long history costs one watching sensor per edited field, not one per
// command. The sensor is immediate and does nothing on a change: it is there
// only for its delete callback.
class FieldLifeline
{
public:
    static std::shared_ptr<FieldLifeline> of(SoField* field);
    ~FieldLifeline();

    // The field, or null once its container has been destroyed.
    SoField* field() const { return m_field; }

private:
    explicit FieldLifeline(SoField* field);
    FieldLifeline(const FieldLifeline&) = delete;
    FieldLifeline& operator=(const FieldLifeline&) = delete;

    static void changedCB(void* data, SoSensor* sensor);
    static void deletedCB(void* data, SoSensor* sensor);
    void forget();

    SoField* m_field;
    SoFieldSensor m_sensor;
};

// A command's reference to its field: null as soon as the field is gone.
template <class Field>
class FieldRef
{
public:
    explicit FieldRef(Field* field)
        : m_lifeline(field ? FieldLifeline::of(field) : nullptr)
    {}

    Field* get() const { return m_lifeline ? static_cast<Field*>(m_lifeline->field()) : nullptr; }

private:
    std::shared_ptr<FieldLifeline> m_lifeline;
};
