#include "KalExtension.h"

#include "KalPluginsManager.h"
#include "KalProfile.h"
#include "KalProfileSetting.h"
#include "KalShell.h"

KalExtension::KalExtension() = default;

KalExtension::~KalExtension()
{
    // A plug-in may delete an extension the window still lists; the window
    // must not keep a way to reach it.
    KalShell::getInstance()->detachExtension(this);
}

// The host keeps the activation state itself; these are the places where a
// host with more to do on activation would do it.
void KalExtension::activate() {}

void KalExtension::deactivate() {}

void KalExtension::hide()
{
    KalShell::getInstance()->setExtensionShown(this, false);
}

void KalExtension::show()
{
    KalShell::getInstance()->setExtensionShown(this, true);
}

KalProfileSetting* KalExtension::getProfileSetting() const
{
    KalProfile* profile = KalPluginsManager::getInstance()->getActiveProfile();
    if (!profile || !profile->getSetting())
        return nullptr;
    const auto& controlled = profile->getSetting()->getControlledExtensions();
    auto it = controlled.find(const_cast<KalExtension*>(this));
    return it == controlled.end() ? nullptr : it->second;
}
