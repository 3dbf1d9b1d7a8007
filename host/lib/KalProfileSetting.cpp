#include "KalProfileSetting.h"

KalProfileSetting::KalProfileSetting() = default;

KalProfileSetting::~KalProfileSetting()
{
    for (auto& entry : m_controlled)
        delete entry.second;
}

const std::map<KalExtension*, KalProfileSetting*>& KalProfileSetting::getControlledExtensions() const
{
    return m_controlled;
}

void KalProfileSetting::setControlled(KalExtension* extension, KalProfileSetting* setting)
{
    if (!extension) {
        delete setting;
        return;
    }
    auto it = m_controlled.find(extension);
    if (it != m_controlled.end()) {
        if (it->second != setting)
            delete it->second;
        it->second = setting;
        return;
    }
    m_controlled.emplace(extension, setting);
}

void KalProfileSetting::removeControlled(KalExtension* extension)
{
    auto it = m_controlled.find(extension);
    if (it == m_controlled.end())
        return;
    delete it->second;
    m_controlled.erase(it);
}
