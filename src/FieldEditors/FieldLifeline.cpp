#include "FieldLifeline.h"

#include <Inventor/fields/SoField.h>

#include <unordered_map>

namespace {

// Everything here runs on the user-interface thread, as the scene graph does.
std::unordered_map<SoField*, std::weak_ptr<FieldLifeline>>& lifelines()
{
    static auto* map = new std::unordered_map<SoField*, std::weak_ptr<FieldLifeline>>;
    return *map;
}

} // namespace

std::shared_ptr<FieldLifeline> FieldLifeline::of(SoField* field)
{
    if (!field)
        return nullptr;
    std::weak_ptr<FieldLifeline>& slot = lifelines()[field];
    if (std::shared_ptr<FieldLifeline> alive = slot.lock())
        return alive;
    std::shared_ptr<FieldLifeline> made(new FieldLifeline(field));
    slot = made;
    return made;
}

FieldLifeline::FieldLifeline(SoField* field)
    : m_field(field)
    , m_sensor(&FieldLifeline::changedCB, this)
{
    m_sensor.setPriority(0);
    m_sensor.setDeleteCallback(&FieldLifeline::deletedCB, this);
    m_sensor.attach(field);
}

FieldLifeline::~FieldLifeline()
{
    forget();
}

void FieldLifeline::changedCB(void*, SoSensor*) {}

void FieldLifeline::deletedCB(void* data, SoSensor*)
{
    if (auto* lifeline = static_cast<FieldLifeline*>(data))
        lifeline->forget();
}

void FieldLifeline::forget()
{
    if (!m_field)
        return;
    // A new field may be born at the same address: it gets a lifeline of
    // its own.
    auto found = lifelines().find(m_field);
    if (found != lifelines().end() && (found->second.expired() || found->second.lock().get() == this))
        lifelines().erase(found);
    m_field = nullptr;
    m_sensor.detach();
}
