#pragma once

class KalProfile;

// What a real host may do with its profiles that the stand-in host's own
// interface does not offer, so that tests can put the plug-in in those
// states: an active profile the host keeps out of its list, and an empty
// list while plug-ins are loaded.
class KalHostTesting
{
public:
    // Makes `profile` the active one without listing it. The manager owns it
    // from then on and deletes it with the listed ones.
    static void activateUnlistedProfile(KalProfile* profile);
    // Takes every profile out of the list while the plug-ins stay loaded.
    // The profiles live on, the active one stays active, until everything is
    // unloaded.
    static void emptyProfileList();
};
