// The real plug-in's "Profile Selector" toolbar in the two states a real
// host can put it in and the stand-in host reaches only through its test
// interface: an active profile the host does not list, and an empty profile
// list while the plug-in is loaded.
#include <KalExtension.h>
#include <KalHostTesting.h>
#include <KalPlugin.h>
#include <KalPluginsManager.h>
#include <KalProfile.h>
#include <KalProfileSetting.h>
#include <KalServices.h>
#include <KalShell.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>

#include <QComboBox>
#include <QMainWindow>
#include <QToolBar>
#include <QtTest>

class tst_ProfileSelectorInHost : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void unlistedActiveProfileLeavesNoSelection();
    void emptyListWhileLoadedLeavesTheBoxEmpty();

private:
    // A listed profile that switches on nothing: the selector goes, and
    // comes back refilled when a profile that enables it is activated.
    KalProfile* addBareProfile();
    // A profile that switches on the selector alone.
    KalProfile* selectorProfile(const char* name) const;
    QComboBox* combo() const;
    // The toolbar is in the window while the selector is active.
    bool selectorShown() const;
    QStringList items() const;

    KalPlugin* m_plugin = nullptr;
    KalExtension* m_selector = nullptr;
};

void tst_ProfileSelectorInHost::initTestCase()
{
    SoDB::init();
    SoKalExtensions::init();
}

void tst_ProfileSelectorInHost::init()
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    m_plugin = manager->loadPlugin(QStringLiteral(KALDEFAULTS_MODULE_PATH));
    QVERIFY2(m_plugin, qPrintable(manager->lastError()));
    for (KalExtension* extension : m_plugin->getExtensions()) {
        if (QByteArray(extension->name.getString()) == "Profile Selector")
            m_selector = extension;
    }
    QVERIFY(m_selector);
    KalShell::getInstance()->getMainWindow()->show();
    QVERIFY(combo());
    QCOMPARE(items(), QStringList{QStringLiteral("Default")});
    QCOMPARE(combo()->currentIndex(), 0);
}

void tst_ProfileSelectorInHost::cleanup()
{
    KalPluginsManager::getInstance()->unloadAll();
    m_plugin = nullptr;
    m_selector = nullptr;
}

KalProfile* tst_ProfileSelectorInHost::addBareProfile()
{
    auto* bare = new KalProfile("Bare");
    KalPluginsManager::getInstance()->addProfile(bare);
    return bare;
}

KalProfile* tst_ProfileSelectorInHost::selectorProfile(const char* name) const
{
    auto* profile = new KalProfile(name);
    profile->getSetting()->setControlled(m_selector, new KalProfileSetting);
    return profile;
}

QComboBox* tst_ProfileSelectorInHost::combo() const
{
    auto* toolBar = KalShell::getInstance()->getMainWindow()->findChild<QToolBar*>(
        QStringLiteral("KalProfileSelectorToolBar"));
    return toolBar ? toolBar->findChild<QComboBox*>(QStringLiteral("m_profileComboBox")) : nullptr;
}

bool tst_ProfileSelectorInHost::selectorShown() const
{
    QMainWindow* window = KalShell::getInstance()->getMainWindow();
    auto* toolBar = window->findChild<QToolBar*>(QStringLiteral("KalProfileSelectorToolBar"));
    return toolBar && window->toolBarArea(toolBar) != Qt::NoToolBarArea;
}

QStringList tst_ProfileSelectorInHost::items() const
{
    QStringList texts;
    for (int i = 0; i < combo()->count(); ++i)
        texts << combo()->itemText(i);
    return texts;
}

void tst_ProfileSelectorInHost::unlistedActiveProfileLeavesNoSelection()
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    KalProfile* bare = addBareProfile();
    manager->setActiveProfile(bare);
    QVERIFY(!selectorShown());

    KalProfile* hidden = selectorProfile("Hidden");
    KalHostTesting::activateUnlistedProfile(hidden);
    QCOMPARE(manager->getActiveProfile(), hidden);
    QCOMPARE(int(manager->getProfilesList().size()), 2);
    QVERIFY(selectorShown());
    // Both listed profiles, neither selected: the active one is not among
    // them.
    QCOMPARE(items(), (QStringList{"Default", "Bare"}));
    QCOMPARE(combo()->currentIndex(), -1);
    QCOMPARE(combo()->currentText(), QString());

    // Choosing a listed one activates it, as any choice does.
    combo()->setCurrentIndex(0);
    QCOMPARE(manager->getActiveProfile(), manager->getProfilesList().front());
    QCOMPARE(items(), (QStringList{"Default", "Bare", "Default"}));
    // And the unlisted profile can be gone back to; it is the host's.
    manager->setActiveProfile(hidden);
    QCOMPARE(manager->getActiveProfile(), hidden);
}

void tst_ProfileSelectorInHost::emptyListWhileLoadedLeavesTheBoxEmpty()
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    KalProfile* defaults = manager->getProfilesList().front();
    manager->setActiveProfile(addBareProfile());
    QVERIFY(!selectorShown());

    KalHostTesting::emptyProfileList();
    QVERIFY(manager->getProfilesList().empty());
    // The host still holds its profiles; it activates one of them.
    manager->setActiveProfile(defaults);
    QCOMPARE(manager->getActiveProfile(), defaults);
    QVERIFY(selectorShown());
    QCOMPARE(combo()->count(), 0);
    QCOMPARE(combo()->currentIndex(), -1);

    // The choice slot finds nothing and only returns.
    QVERIFY(QMetaObject::invokeMethod(m_selector, "s_currentIndexChanged", Q_ARG(int, 0)));
    QVERIFY(QMetaObject::invokeMethod(m_selector, "s_currentIndexChanged", Q_ARG(int, -1)));
    QCOMPARE(combo()->count(), 0);
    QCOMPARE(manager->getActiveProfile(), defaults);
    // The field editing goes on under it.
    QVERIFY(
        KalShell::getInstance()->getMainWindow()->findChild<QObject*>(QStringLiteral("KalFieldEditorDock")));
}

QTEST_MAIN(tst_ProfileSelectorInHost)
#include "tst_ProfileSelectorInHost.moc"
