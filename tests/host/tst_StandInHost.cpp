// The stand-in host on its own: loading plug-ins, the calling order it
// follows, profiles and the shell. Its undo history is tst_HostHistory's.
#include "CountingCommand.h"

#include <KalEditor.h>
#include <KalExtension.h>
#include <KalPlugin.h>
#include <KalPluginsManager.h>
#include <KalProfile.h>
#include <KalProfileSetting.h>
#include <KalServices.h>
#include <KalShell.h>

#include <QAction>
#include <QDockWidget>
#include <QLibrary>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QtTest>

#include <memory>

namespace {

const QString kFixtureDir = QStringLiteral(KAL_FIXTURE_DIR);

QString fixture(const char* name)
{
    return kFixtureDir + QLatin1String("/lib") + QLatin1String(name) + QLatin1String(".so");
}

} // namespace

class tst_StandInHost : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void loadFailure_data();
    void loadFailure();
    void loadFollowsCallingOrder();
    void loadMakesDefaultProfile();
    void loadSamePluginTwiceIsRefused();
    void shellPlacesDocksAndToolBars();
    void extensionsMenuShowsAndHides();
    void profileSwitchDeactivatesAndActivates();
    void unknownProfileIsIgnored();
    void unloadFollowsCallingOrder();
    void unloadEmptiesHistoryAndProfiles();

    void profileSettingOwnsChildren();

private:
    QStringList takeLog();

    QLibrary m_recorder;
    const char* (*m_log)() = nullptr;
    void (*m_clearLog)() = nullptr;
};

void tst_StandInHost::initTestCase()
{
    // The test keeps its own reference to the recorder, so its call log
    // survives the host unloading it.
    m_recorder.setFileName(fixture("KalFixtureRecorder"));
    QVERIFY2(m_recorder.load(), qPrintable(m_recorder.errorString()));
    m_log = reinterpret_cast<const char* (*)()>(m_recorder.resolve("kalFixtureLog"));
    m_clearLog = reinterpret_cast<void (*)()>(m_recorder.resolve("kalFixtureClearLog"));
    QVERIFY(m_log && m_clearLog);
}

void tst_StandInHost::cleanupTestCase()
{
    KalPluginsManager::getInstance()->unloadAll();
    m_recorder.unload();
}

void tst_StandInHost::init()
{
    m_clearLog();
}

void tst_StandInHost::cleanup()
{
    KalPluginsManager::getInstance()->unloadAll();
    KalServices::getInstance()->clearHistory();
    QVERIFY(KalPluginsManager::getInstance()->getProfilesList().empty());
}

QStringList tst_StandInHost::takeLog()
{
    QStringList lines = QString::fromUtf8(m_log()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    m_clearLog();
    return lines;
}

void tst_StandInHost::loadFailure_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("message");
    QTest::newRow("missing file") << QStringLiteral("/nonexistent/libNothing.so")
                                  << QStringLiteral(
                                         "The plug-in file \"/nonexistent/libNothing.so\" does not exist.");
    QTest::newRow("empty path") << QString() << QStringLiteral("The plug-in file \"\" does not exist.");
    QTest::newRow("directory") << kFixtureDir
                               << QStringLiteral("is not a plug-in library: it is not a file.");
    QTest::newRow("not a library") << QStringLiteral(KAL_TEST_DATA_DIR "/not-a-plugin.so")
                                   << QStringLiteral(
                                          "is not a plug-in library: the system could not load it");
    QTest::newRow("no entry points") << fixture("KalFixtureNoEntry")
                                     << QStringLiteral(
                                            "is a library but not a Kalibra plug-in: its entry point "
                                            "\"loadPlugin\" is missing.");
    QTest::newRow("no plug-in object")
        << fixture("KalFixtureNullPlugin") << QStringLiteral("could not create its plug-in object.");
}

void tst_StandInHost::loadFailure()
{
    QFETCH(QString, path);
    QFETCH(QString, message);
    KalPluginsManager* manager = KalPluginsManager::getInstance();

    QCOMPARE(manager->loadPlugin(path), nullptr);
    QVERIFY2(manager->lastError().contains(message), qPrintable(manager->lastError()));
    QVERIFY(manager->getProfilesList().empty());
    QCOMPARE(manager->getActiveProfile(), nullptr);

    // The host is still usable afterwards.
    KalPlugin* plugin = manager->loadPlugin(fixture("KalFixtureRecorder"));
    QVERIFY2(plugin, qPrintable(manager->lastError()));
    QVERIFY(manager->lastError().isEmpty());
    QCOMPARE(plugin->getExtensions().size(), size_t(3));
}

void tst_StandInHost::loadFollowsCallingOrder()
{
    KalPlugin* plugin = KalPluginsManager::getInstance()->loadPlugin(fixture("KalFixtureRecorder"));
    QVERIFY(plugin);
    QCOMPARE(QString::fromUtf8(plugin->name.getString()), QStringLiteral("Recorder"));

    // The editor only gets its widget: the docks activate editors, not the host.
    const QStringList expected = {
        "entry:loadPlugin",  "Recorder:load", "Alpha:createWidget", "Alpha:activate",     "Alpha:show",
        "Beta:createWidget", "Beta:activate", "Beta:show",          "Gamma:createWidget",
    };
    QCOMPARE(takeLog(), expected);

    QStringList names;
    for (KalExtension* extension : plugin->getExtensions())
        names << QString::fromUtf8(extension->name.getString());
    QCOMPARE(names, (QStringList{"Alpha", "Beta", "Gamma"}));
}

void tst_StandInHost::loadMakesDefaultProfile()
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    KalPlugin* plugin = manager->loadPlugin(fixture("KalFixtureRecorder"));
    QVERIFY(plugin);
    QCOMPARE(manager->getProfilesList().size(), size_t(1));
    KalProfile* profile = manager->getActiveProfile();
    QVERIFY(profile);
    QCOMPARE(profile, manager->getProfilesList().front());
    QCOMPARE(QString::fromUtf8(profile->getName().getString()), QStringLiteral("Default"));

    KalExtension* alpha = plugin->getExtensions().at(0);
    KalExtension* beta = plugin->getExtensions().at(1);
    KalExtension* gamma = plugin->getExtensions().at(2);
    const auto& enabled = profile->getSetting()->getControlledExtensions();
    QCOMPARE(enabled.size(), size_t(3));
    for (KalExtension* extension : {alpha, beta, gamma})
        QVERIFY(enabled.count(extension));

    // Every extension that may be a dock controls every editor; editors
    // control nothing.
    for (KalExtension* dock : {alpha, beta}) {
        KalProfileSetting* setting = dock->getProfileSetting();
        QVERIFY(setting);
        QCOMPARE(setting, enabled.at(dock));
        QCOMPARE(setting->getControlledExtensions().size(), size_t(1));
        QVERIFY(setting->getControlledExtensions().count(gamma));
    }
    QVERIFY(gamma->getProfileSetting());
    QVERIFY(gamma->getProfileSetting()->getControlledExtensions().empty());
}

void tst_StandInHost::loadSamePluginTwiceIsRefused()
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    QVERIFY(manager->loadPlugin(fixture("KalFixtureRecorder")));
    takeLog();
    QCOMPARE(manager->loadPlugin(fixture("KalFixtureRecorder")), nullptr);
    QVERIFY2(manager->lastError().contains(QStringLiteral("already loaded")),
             qPrintable(manager->lastError()));
    QVERIFY(takeLog().isEmpty());
}

void tst_StandInHost::shellPlacesDocksAndToolBars()
{
    QVERIFY(KalPluginsManager::getInstance()->loadPlugin(fixture("KalFixtureRecorder")));
    QMainWindow* window = KalShell::getInstance()->getMainWindow();
    QVERIFY(window);
    QCOMPARE(window, KalShell::getInstance()->getMainWindow());

    auto* dock = window->findChild<QDockWidget*>(QStringLiteral("AlphaDock"));
    QVERIFY(dock);
    QCOMPARE(window->dockWidgetArea(dock), Qt::RightDockWidgetArea);
    QVERIFY(!dock->isHidden());
    auto* toolBar = window->findChild<QToolBar*>(QStringLiteral("BetaToolBar"));
    QVERIFY(toolBar);
    QCOMPARE(window->toolBarArea(toolBar), Qt::TopToolBarArea);

    KalPluginsManager::getInstance()->unloadAll();
    // The extensions destroyed their widgets; nothing of them is left behind.
    QVERIFY(!window->findChild<QDockWidget*>(QStringLiteral("AlphaDock")));
    QVERIFY(!window->findChild<QToolBar*>(QStringLiteral("BetaToolBar")));
}

void tst_StandInHost::extensionsMenuShowsAndHides()
{
    QVERIFY(KalPluginsManager::getInstance()->loadPlugin(fixture("KalFixtureRecorder")));
    QMainWindow* window = KalShell::getInstance()->getMainWindow();
    auto* menu = window->menuBar()->findChild<QMenu*>(QStringLiteral("m_extensionsMenu"));
    QVERIFY(menu);
    QStringList attached;
    for (QAction* action : menu->actions())
        attached << action->text();
    QCOMPARE(attached, (QStringList{"Alpha", "Beta"}));

    QAction* alpha = menu->actions().at(0);
    QVERIFY(alpha->isChecked());
    takeLog();
    alpha->trigger();
    QCOMPARE(takeLog(), QStringList{"Alpha:hide"});
    QVERIFY(window->findChild<QDockWidget*>(QStringLiteral("AlphaDock"))->isHidden());
    QVERIFY(!alpha->isChecked());
    alpha->trigger();
    QCOMPARE(takeLog(), QStringList{"Alpha:show"});
    QVERIFY(alpha->isChecked());

    KalPluginsManager::getInstance()->unloadAll();
    QVERIFY(menu->actions().isEmpty());
}

void tst_StandInHost::profileSwitchDeactivatesAndActivates()
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    KalPlugin* plugin = manager->loadPlugin(fixture("KalFixtureRecorder"));
    QVERIFY(plugin);
    KalProfile* defaultProfile = manager->getActiveProfile();
    KalExtension* alpha = plugin->getExtensions().at(0);
    KalExtension* beta = plugin->getExtensions().at(1);

    auto* onlyAlpha = new KalProfile("Only Alpha");
    onlyAlpha->getSetting()->setControlled(alpha, new KalProfileSetting);
    manager->addProfile(onlyAlpha);
    QCOMPARE(manager->getProfilesList().size(), size_t(2));
    QCOMPARE(manager->getActiveProfile(), defaultProfile);
    takeLog();

    manager->setActiveProfile(onlyAlpha);
    QCOMPARE(manager->getActiveProfile(), onlyAlpha);
    QCOMPARE(takeLog(), (QStringList{"Beta:deactivate"}));
    QVERIFY(beta->getProfileSetting() == nullptr);
    QVERIFY(alpha->getProfileSetting());
    QMainWindow* window = KalShell::getInstance()->getMainWindow();
    QCOMPARE(window->findChild<QToolBar*>(QStringLiteral("BetaToolBar"))->isHidden(), true);

    // Switching back activates again without making the widget a second time.
    manager->setActiveProfile(defaultProfile);
    QCOMPARE(takeLog(), (QStringList{"Beta:activate", "Beta:show"}));

    // Selecting the active profile again changes nothing.
    manager->setActiveProfile(defaultProfile);
    QVERIFY(takeLog().isEmpty());

    // No profile at all: everything goes quiet.
    manager->setActiveProfile(nullptr);
    QCOMPARE(takeLog(), (QStringList{"Beta:deactivate", "Alpha:deactivate"}));
    QCOMPARE(alpha->getProfileSetting(), nullptr);
}

void tst_StandInHost::unknownProfileIsIgnored()
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    QVERIFY(manager->loadPlugin(fixture("KalFixtureRecorder")));
    KalProfile* active = manager->getActiveProfile();
    takeLog();
    KalProfile stranger("Stranger");
    manager->setActiveProfile(&stranger);
    QCOMPARE(manager->getActiveProfile(), active);
    QVERIFY(takeLog().isEmpty());
}

void tst_StandInHost::unloadFollowsCallingOrder()
{
    QVERIFY(KalPluginsManager::getInstance()->loadPlugin(fixture("KalFixtureRecorder")));
    takeLog();
    KalPluginsManager::getInstance()->unloadAll();
    const QStringList expected = {
        "Beta:deactivate",     "Alpha:deactivate", "Gamma:destroyWidget", "Beta:destroyWidget",
        "Alpha:destroyWidget", "Recorder:unload",  "entry:unloadPlugin",  "Recorder:destroyed",
        "Gamma:destroyed",     "Beta:destroyed",   "Alpha:destroyed",
    };
    QCOMPARE(takeLog(), expected);

    // A second unload has nothing left to do.
    KalPluginsManager::getInstance()->unloadAll();
    QVERIFY(takeLog().isEmpty());
}

void tst_StandInHost::unloadEmptiesHistoryAndProfiles()
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    QVERIFY(manager->loadPlugin(fixture("KalFixtureRecorder")));
    auto counters = std::make_shared<Counters>();
    KalServices::getInstance()->pushCommand(new CountingCommand(counters));
    QCOMPARE(KalServices::getInstance()->commandCount(), 1);

    manager->unloadAll();
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    QCOMPARE(counters->deleted, 1);
    QVERIFY(manager->getProfilesList().empty());
    QCOMPARE(manager->getActiveProfile(), nullptr);

    // And the host can load again from there.
    QVERIFY(manager->loadPlugin(fixture("KalFixtureRecorder")));
    QVERIFY(manager->getActiveProfile());
}

void tst_StandInHost::profileSettingOwnsChildren()
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    KalPlugin* plugin = manager->loadPlugin(fixture("KalFixtureRecorder"));
    QVERIFY(plugin);
    KalExtension* alpha = plugin->getExtensions().at(0);
    KalExtension* gamma = plugin->getExtensions().at(2);

    KalProfileSetting setting;
    auto* child = new KalProfileSetting;
    setting.setControlled(alpha, child);
    QCOMPARE(setting.getControlledExtensions().at(alpha), child);
    // Setting the same child again keeps it.
    setting.setControlled(alpha, child);
    QCOMPARE(setting.getControlledExtensions().at(alpha), child);
    setting.setControlled(gamma, nullptr);
    QCOMPARE(setting.getControlledExtensions().size(), size_t(2));
    QCOMPARE(setting.getControlledExtensions().at(gamma), nullptr);
    setting.setControlled(nullptr, new KalProfileSetting);
    QCOMPARE(setting.getControlledExtensions().size(), size_t(2));
    setting.removeControlled(alpha);
    setting.removeControlled(alpha);
    QCOMPARE(setting.getControlledExtensions().size(), size_t(1));
    QVERIFY(!setting.getControlledExtensions().count(alpha));
}

QTEST_MAIN(tst_StandInHost)
#include "tst_StandInHost.moc"
