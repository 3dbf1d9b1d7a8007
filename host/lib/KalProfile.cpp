#include "KalProfile.h"

#include "KalProfileSetting.h"

KalProfile::KalProfile(const SbString& name)
    : m_name(name)
    , m_setting(std::make_unique<KalProfileSetting>())
{}

KalProfile::~KalProfile() = default;

SbString KalProfile::getName() const
{
    return m_name;
}

KalProfileSetting* KalProfile::getSetting()
{
    return m_setting.get();
}
