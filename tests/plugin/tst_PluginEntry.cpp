// The plug-in's entry points and its plug-in object, both linked directly and
// loaded as the real module through the stand-in host.
#include "RegistrationOrder.h"

#include <KalDefaults.h>
#include <KalEditor.h>
#include <KalExtension.h>
#include <KalPlugin.h>
#include <KalPluginsManager.h>
#include <KalProfile.h>
#include <KalProfileSetting.h>
#include <KalServices.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>
#include <Inventor/nodes/SoComplexity.h>

#include <QLibrary>
#include <QtTest>

namespace {

const QStringList kRegistrationOrder = RegistrationOrder::names();

QStringList extensionNames(const KalPlugin* plugin)
{
    QStringList names;
    for (KalExtension* extension : plugin->getExtensions())
        names << QString::fromUtf8(extension->name.getString());
    return names;
}

} // namespace

class tst_PluginEntry : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void descriptors();
    void destroyWithoutCreateIsHarmless();
    void createIsOnePerLibrary();
    void loadRegistersInOrder();
    void moduleEntryPointsThroughTheHost();
    void moduleUnloadWithoutLoadIsHarmless();
    void docksGoBeforeTheEditorsTheyShow();
};

void tst_PluginEntry::initTestCase()
{
    SoDB::init();
    SoKalExtensions::init();
    QCOMPARE(kRegistrationOrder.size(), 45);
    QCOMPARE(kRegistrationOrder.at(5), QStringLiteral("SFFilePathString"));
}

void tst_PluginEntry::cleanup()
{
    KalPluginsManager::getInstance()->unloadAll();
    KalDefaults::destroy();
}

void tst_PluginEntry::descriptors()
{
    KalDefaults plugin;
    QCOMPARE(QString::fromUtf8(plugin.name.getString()), QStringLiteral("KalDefaults"));
    QCOMPARE(QString::fromUtf8(plugin.author.getString()), QStringLiteral("Quelvo"));
    QCOMPARE(QString::fromUtf8(plugin.description.getString()),
             QStringLiteral("Plug-in which loads Kalibra default extensions."));
    QCOMPARE(QString::fromUtf8(plugin.version.getString()), QStringLiteral("1.0.0"));
    QVERIFY(plugin.getExtensions().empty());
}

void tst_PluginEntry::destroyWithoutCreateIsHarmless()
{
    QCOMPARE(KalDefaults::instance(), nullptr);
    KalDefaults::destroy();
    QCOMPARE(KalDefaults::instance(), nullptr);
    KalDefaults::destroy();
    QCOMPARE(KalDefaults::instance(), nullptr);
}

void tst_PluginEntry::createIsOnePerLibrary()
{
    KalDefaults* first = KalDefaults::create();
    QVERIFY(first);
    QCOMPARE(KalDefaults::instance(), first);
    QCOMPARE(KalDefaults::create(), first);
    KalDefaults::destroy();
    QCOMPARE(KalDefaults::instance(), nullptr);
}

void tst_PluginEntry::loadRegistersInOrder()
{
    KalDefaults* plugin = KalDefaults::create();
    plugin->load();
    QCOMPARE(extensionNames(plugin), kRegistrationOrder);
}

void tst_PluginEntry::moduleEntryPointsThroughTheHost()
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    KalPlugin* plugin = manager->loadPlugin(QStringLiteral(KALDEFAULTS_MODULE_PATH));
    QVERIFY2(plugin, qPrintable(manager->lastError()));
    QCOMPARE(QString::fromUtf8(plugin->name.getString()), QStringLiteral("KalDefaults"));
    QCOMPARE(extensionNames(plugin), kRegistrationOrder);
    QVERIFY(manager->getActiveProfile());
    QCOMPARE(QString::fromUtf8(manager->getActiveProfile()->getName().getString()),
             QStringLiteral("Default"));

    manager->unloadAll();
    QVERIFY(manager->getProfilesList().empty());

    // Loading again after an unload gives a fresh, working plug-in.
    plugin = manager->loadPlugin(QStringLiteral(KALDEFAULTS_MODULE_PATH));
    QVERIFY2(plugin, qPrintable(manager->lastError()));
}

void tst_PluginEntry::moduleUnloadWithoutLoadIsHarmless()
{
    QLibrary module(QStringLiteral(KALDEFAULTS_MODULE_PATH));
    QVERIFY2(module.load(), qPrintable(module.errorString()));
    auto unloadPlugin = reinterpret_cast<void (*)()>(module.resolve("unloadPlugin"));
    auto loadPlugin = reinterpret_cast<KalPlugin* (*)()>(module.resolve("loadPlugin"));
    QVERIFY(unloadPlugin && loadPlugin);

    unloadPlugin();
    unloadPlugin();
    KalPlugin* plugin = loadPlugin();
    QVERIFY(plugin);
    QCOMPARE(QString::fromUtf8(plugin->name.getString()), QStringLiteral("KalDefaults"));
    unloadPlugin();
    unloadPlugin();
    module.unload();
}

void tst_PluginEntry::docksGoBeforeTheEditorsTheyShow()
{
    // The plug-in object is deleted while the "Field Editor" dock still shows
    // an editor, with no deactivation first. The dock, a later member, goes
    // first and hands the editor's frame back while the editor still lives;
    // the other way round, the sanitizer run would see the dock touch a
    // destroyed editor.
    KalDefaults* plugin = KalDefaults::create();
    plugin->load();
    auto* profile = new KalProfile("Everything");
    KalPluginsManager::getInstance()->addProfile(profile);
    KalExtension* dock = nullptr;
    std::vector<KalExtension*> editors;
    for (KalExtension* extension : plugin->getExtensions()) {
        extension->createWidget();
        if (qobject_cast<KalEditor*>(extension))
            editors.push_back(extension);
        else if (QString::fromLatin1(extension->name.getString()) == QStringLiteral("Field Editor"))
            dock = extension;
    }
    QVERIFY(dock);
    QVERIFY(!editors.empty());
    auto* setting = new KalProfileSetting;
    for (KalExtension* editor : editors)
        setting->setControlled(editor, new KalProfileSetting);
    profile->getSetting()->setControlled(dock, setting);
    KalPluginsManager::getInstance()->setActiveProfile(profile);
    dock->activate();

    auto* complexity = new SoComplexity;
    complexity->ref();
    emit KalServices::getInstance()->selectedFieldChanged(&complexity->value);
    KalEditor* editor = nullptr;
    for (KalExtension* candidate : editors) {
        if (QString::fromLatin1(candidate->name.getString()) == QStringLiteral("SFFloat"))
            editor = qobject_cast<KalEditor*>(candidate);
    }
    QVERIFY(editor);
    QVERIFY(editor->getWidget()->parentWidget());

    KalDefaults::destroy();
    QCOMPARE(KalDefaults::instance(), nullptr);
    complexity->unref();
}

QTEST_MAIN(tst_PluginEntry)
#include "tst_PluginEntry.moc"
