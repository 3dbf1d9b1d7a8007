#include "KalHostTesting.h"

#include "KalPluginsManager.h"
#include "KalProfile.h"

void KalHostTesting::activateUnlistedProfile(KalProfile* profile)
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    if (!profile || manager->isKnownProfile(profile))
        return;
    manager->m_unlistedProfiles.push_back(profile);
    manager->m_heldProfiles.insert(profile);
    manager->applyProfile(profile);
}

void KalHostTesting::emptyProfileList()
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    manager->m_unlistedProfiles.splice(manager->m_unlistedProfiles.end(), manager->m_profiles);
}
