#include "KalProfile.h"

KalProfile::KalProfile(const SbString& name)
    : m_name(name)
{}

KalProfile::~KalProfile() = default;

SbString KalProfile::getName() const
{
    return m_name;
}

KalProfileSetting* KalProfile::getSetting()
{
    return &m_setting;
}
