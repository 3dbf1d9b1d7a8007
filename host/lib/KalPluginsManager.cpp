#include "KalPluginsManager.h"

#include "KalEditor.h"
#include "KalExtension.h"
#include "KalPlugin.h"
#include "KalProfile.h"
#include "KalProfileSetting.h"
#include "KalServices.h"
#include "KalShell.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>

#include <set>

namespace {

using LoadPluginFunction = KalPlugin* (*)();
using UnloadPluginFunction = void (*)();

// The manager's messages, translated in its own context. Its header is the
// host's API as plug-ins compile against it, so the context is declared
// here rather than there.
struct Messages
{
    Q_DECLARE_TR_FUNCTIONS(KalPluginsManager)
};

bool isEditor(KalExtension* extension)
{
    return qobject_cast<KalEditor*>(extension) != nullptr;
}

std::set<KalExtension*> enabledBy(KalProfile* profile)
{
    std::set<KalExtension*> enabled;
    if (profile && profile->getSetting()) {
        for (const auto& entry : profile->getSetting()->getControlledExtensions())
            enabled.insert(entry.first);
    }
    return enabled;
}

} // namespace

struct KalPluginsManager::LoadedPlugin
{
    QString path;
    std::unique_ptr<QLibrary> library;
    KalPlugin* plugin = nullptr;
    UnloadPluginFunction unloadEntry = nullptr;
};

KalPluginsManager* KalPluginsManager::getInstance()
{
    // Never destroyed, like the other host singletons (see KalShell).
    static KalPluginsManager* instance = new KalPluginsManager;
    return instance;
}

KalPluginsManager::KalPluginsManager() = default;

KalPluginsManager::~KalPluginsManager() = default;

const std::list<KalProfile*>& KalPluginsManager::getProfilesList() const
{
    return m_profiles;
}

KalProfile* KalPluginsManager::getActiveProfile() const
{
    return m_activeProfile;
}

bool KalPluginsManager::isKnownProfile(KalProfile* profile) const
{
    return m_heldProfiles.count(profile) != 0;
}

void KalPluginsManager::addProfile(KalProfile* profile)
{
    if (!profile || !m_heldProfiles.insert(profile).second)
        return;
    m_profiles.push_back(profile);
}

void KalPluginsManager::setActiveProfile(KalProfile* profile)
{
    // A profile the manager does not hold could be deleted under it.
    if (profile == m_activeProfile || (profile && !isKnownProfile(profile)))
        return;
    applyProfile(profile);
}

std::vector<KalExtension*> KalPluginsManager::allExtensions() const
{
    std::vector<KalExtension*> all;
    for (const auto& loaded : m_plugins) {
        const auto& extensions = loaded->plugin->getExtensions();
        all.insert(all.end(), extensions.begin(), extensions.end());
    }
    return all;
}

void KalPluginsManager::applyProfile(KalProfile* to)
{
    const std::set<KalExtension*> enabled = enabledBy(to);
    const std::vector<KalExtension*> all = allExtensions();

    // What the new profile no longer enables goes away while the old profile
    // is still the active one, so that the extension still sees its setting.
    for (auto it = all.rbegin(); it != all.rend(); ++it) {
        KalExtension* extension = *it;
        if (extension->m_active && !enabled.count(extension))
            deactivateExtension(extension);
    }
    m_activeProfile = to;
    for (KalExtension* extension : all) {
        if (enabled.count(extension))
            activateExtension(extension);
    }
}

void KalPluginsManager::activateExtension(KalExtension* extension)
{
    if (!extension->m_widgetCreated) {
        extension->m_widgetCreated = true;
        extension->createWidget();
    }
    // Editors are driven by the docks that show them; the host only makes and
    // destroys their widgets. Other extensions decide on activation whether
    // they are visible (a dock with nothing to show stays hidden), so the host
    // does not show them itself.
    if (isEditor(extension) || extension->m_active)
        return;
    extension->m_active = true;
    extension->activate();
}

void KalPluginsManager::deactivateExtension(KalExtension* extension)
{
    if (!extension->m_active)
        return;
    extension->m_active = false;
    extension->deactivate();
}

void KalPluginsManager::makeDefaultProfile()
{
    auto* profile = new KalProfile("Default");
    m_profiles.push_back(profile);
    m_heldProfiles.insert(profile);
    m_defaultProfile = profile;
}

void KalPluginsManager::extendDefaultProfile()
{
    if (!m_defaultProfile)
        return;
    // "Default" switches on everything loaded so far, and every extension
    // that is not an editor gets a setting controlling every editor, so that
    // whichever of them is a dock may show any editor.
    const std::vector<KalExtension*> all = allExtensions();
    KalProfileSetting* root = m_defaultProfile->getSetting();
    for (KalExtension* extension : all) {
        if (isEditor(extension)) {
            root->setControlled(extension, new KalProfileSetting);
            continue;
        }
        auto* setting = new KalProfileSetting;
        for (KalExtension* candidate : all) {
            if (isEditor(candidate))
                setting->setControlled(candidate, new KalProfileSetting);
        }
        root->setControlled(extension, setting);
    }
}

KalPlugin* KalPluginsManager::loadPlugin(const QString& path)
{
    m_lastError.clear();

    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists()) {
        m_lastError = Messages::tr("The plug-in file \"%1\" does not exist.").arg(path);
        return nullptr;
    }
    if (!info.isFile()) {
        m_lastError = Messages::tr("\"%1\" is not a plug-in library: it is not a file.").arg(path);
        return nullptr;
    }
    const QString canonical = info.canonicalFilePath();
    for (const auto& loaded : m_plugins) {
        if (loaded->path == canonical) {
            m_lastError = Messages::tr("The plug-in \"%1\" is already loaded.").arg(path);
            return nullptr;
        }
    }

    auto library = std::make_unique<QLibrary>(canonical);
    // A plug-in's code stays mapped after it is unloaded: Qt keeps data that
    // may point into it (the text of a QStringLiteral the plug-in gave a
    // dock as its name outlives the dock in the main window's layout), as
    // Qt does for its own plug-ins.
    library->setLoadHints(QLibrary::PreventUnloadHint);
    if (!library->load()) {
        m_lastError = Messages::tr("\"%1\" is not a plug-in library: the system could not load it (%2).")
                          .arg(path, library->errorString());
        return nullptr;
    }
    auto loadEntry = reinterpret_cast<LoadPluginFunction>(library->resolve("loadPlugin"));
    auto unloadEntry = reinterpret_cast<UnloadPluginFunction>(library->resolve("unloadPlugin"));
    if (!loadEntry || !unloadEntry) {
        m_lastError =
            Messages::tr("\"%1\" is a library but not a Kalibra plug-in: its entry point \"%2\" is missing.")
                .arg(path, QLatin1String(loadEntry ? "unloadPlugin" : "loadPlugin"));
        library->unload();
        return nullptr;
    }
    KalPlugin* plugin = loadEntry();
    if (!plugin) {
        m_lastError = Messages::tr("The plug-in \"%1\" could not create its plug-in object.").arg(path);
        unloadEntry();
        library->unload();
        return nullptr;
    }
    plugin->load();

    auto loaded = std::make_unique<LoadedPlugin>();
    loaded->path = canonical;
    loaded->library = std::move(library);
    loaded->plugin = plugin;
    loaded->unloadEntry = unloadEntry;
    m_plugins.push_back(std::move(loaded));

    if (m_profiles.empty())
        makeDefaultProfile();
    extendDefaultProfile();
    if (!m_activeProfile && m_defaultProfile)
        applyProfile(m_defaultProfile);
    else if (m_activeProfile)
        applyProfile(m_activeProfile);
    return plugin;
}

QString KalPluginsManager::lastError() const
{
    return m_lastError;
}

void KalPluginsManager::unloadAll()
{
    // Commands in the history may belong to a plug-in's code; they go before
    // the code does.
    KalServices::getInstance()->clearHistory();

    // Docks are registered last and hold editors' widgets, so everything is
    // taken down in the reverse of registration order.
    const std::vector<KalExtension*> all = allExtensions();
    for (auto it = all.rbegin(); it != all.rend(); ++it)
        deactivateExtension(*it);
    for (auto it = all.rbegin(); it != all.rend(); ++it) {
        KalExtension* extension = *it;
        if (extension->m_widgetCreated) {
            extension->m_widgetCreated = false;
            extension->destroyWidget();
        }
    }
    while (!m_plugins.empty()) {
        std::unique_ptr<LoadedPlugin> loaded = std::move(m_plugins.back());
        m_plugins.pop_back();
        loaded->plugin->unload();
        loaded->unloadEntry();
        loaded->library->unload();
    }

    m_activeProfile = nullptr;
    m_defaultProfile = nullptr;
    // One walk over each list, each profile deleted with its node: with tens
    // of thousands of profiles every walk is a cache miss a node.
    const auto deleted = [](KalProfile* profile) {
        delete profile;
        return true;
    };
    m_profiles.remove_if(deleted);
    m_unlistedProfiles.remove_if(deleted);
    m_heldProfiles.clear();
}
