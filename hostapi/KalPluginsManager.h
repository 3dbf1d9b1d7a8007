#pragma once

#include <QString>

#include <list>
#include <memory>
#include <memory_resource>
#include <unordered_set>
#include <vector>

class KalExtension;
class KalHostTesting;
class KalPlugin;
class KalProfile;

// Loads plug-in libraries, holds the profiles and switches the active one.
class KalPluginsManager
{
public:
    static KalPluginsManager* getInstance();

    const std::list<KalProfile*>& getProfilesList() const;
    KalProfile* getActiveProfile() const;
    // Deactivates what the old profile enabled and the new one does not, then
    // activates what the new one enables and was not active yet.
    void setActiveProfile(KalProfile* profile);

    // Loads the library, calls its loadPlugin() and the plug-in's load(), and
    // activates the extensions the active profile enables (making a "Default"
    // profile first if there is none). Null on failure, see lastError().
    KalPlugin* loadPlugin(const QString& path);
    QString lastError() const;

    // Deactivates and destroys every extension, unloads every plug-in, empties
    // the undo history and forgets every profile.
    void unloadAll();

    // Takes ownership of the profile.
    void addProfile(KalProfile* profile);

    ~KalPluginsManager();

private:
    friend class KalHostTesting;

    KalPluginsManager();
    KalPluginsManager(const KalPluginsManager&) = delete;
    KalPluginsManager& operator=(const KalPluginsManager&) = delete;

    struct LoadedPlugin;
    std::vector<KalExtension*> allExtensions() const;
    void applyProfile(KalProfile* to);
    void activateExtension(KalExtension* extension);
    void deactivateExtension(KalExtension* extension);
    void makeDefaultProfile();
    void extendDefaultProfile();
    bool isKnownProfile(KalProfile* profile) const;

    std::vector<std::unique_ptr<LoadedPlugin>> m_plugins;
    std::list<KalProfile*> m_profiles;
    // Profiles that exist but are not listed; owned like the listed ones.
    std::list<KalProfile*> m_unlistedProfiles;
    // Every profile of both lists, so that adding one of tens of thousands
    // does not search the lists. Its nodes come from a pool: from the heap
    // one by one, tens of thousands of them scatter over more memory than the
    // cache holds, and walking them at unload cost more than the lists did.
    std::pmr::unsynchronized_pool_resource m_heldProfileNodes;
    std::pmr::unordered_set<KalProfile*> m_heldProfiles{&m_heldProfileNodes};
    KalProfile* m_activeProfile = nullptr;
    KalProfile* m_defaultProfile = nullptr;
    QString m_lastError;
};
