// The "Profile Selector" toolbar against the stand-in host's profiles.
#include <KalPluginsManager.h>
#include <KalProfile.h>
#include <KalProfileSelectorExtension.h>
#include <KalShell.h>

#include <QComboBox>
#include <QMainWindow>
#include <QToolBar>
#include <QtTest>

#include <memory>

class tst_ProfileSelector : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void descriptorsAndWidgets();
    void activationListsProfilesWithTheActiveSelected();
    void choosingAppendsAndActivates();
    void choosingAnAppendedEntryActivatesNothing();
    void emptyProfileList();
    void activeProfileNotInTheList();
    void deactivationStopsListening();

private:
    KalProfile* addProfile(const char* name);
    QStringList items() const;
    void activate();

    std::unique_ptr<KalProfileSelectorExtension> m_selector;
    QComboBox* m_combo = nullptr;
};

void tst_ProfileSelector::init()
{
    m_selector = std::make_unique<KalProfileSelectorExtension>();
    m_selector->createWidget();
}

void tst_ProfileSelector::cleanup()
{
    m_selector->deactivate();
    m_selector->destroyWidget();
    m_selector.reset();
    m_combo = nullptr;
    KalPluginsManager::getInstance()->unloadAll();
}

KalProfile* tst_ProfileSelector::addProfile(const char* name)
{
    auto* profile = new KalProfile(name);
    KalPluginsManager::getInstance()->addProfile(profile);
    return profile;
}

QStringList tst_ProfileSelector::items() const
{
    QStringList texts;
    for (int i = 0; i < m_combo->count(); ++i)
        texts << m_combo->itemText(i);
    return texts;
}

void tst_ProfileSelector::activate()
{
    m_selector->activate();
    auto* toolBar = KalShell::getInstance()->getMainWindow()->findChild<QToolBar*>(
        QStringLiteral("KalProfileSelectorToolBar"));
    QVERIFY(toolBar);
    m_combo = toolBar->findChild<QComboBox*>(QStringLiteral("m_profileComboBox"));
    QVERIFY(m_combo);
}

void tst_ProfileSelector::descriptorsAndWidgets()
{
    QCOMPARE(QString::fromLatin1(m_selector->name.getString()), QStringLiteral("Profile Selector"));
    QCOMPARE(QString::fromLatin1(m_selector->description.getString()),
             QStringLiteral("A toolbar to select the active profile."));
    QCOMPARE(QString::fromLatin1(m_selector->author.getString()), QStringLiteral("Quelvo"));
    QCOMPARE(QString::fromLatin1(m_selector->version.getString()), QStringLiteral("1.0.0"));
    activate();
    auto* toolBar = qobject_cast<QToolBar*>(m_combo->parent());
    QVERIFY(toolBar);
    QCOMPARE(toolBar->windowTitle(), QStringLiteral("Profile Selector"));
    QCOMPARE(m_combo->toolTip(), QStringLiteral("Select the active profile."));
    QCOMPARE(KalShell::getInstance()->getMainWindow()->toolBarArea(toolBar), Qt::TopToolBarArea);
    QVERIFY(!toolBar->isHidden());
}

void tst_ProfileSelector::activationListsProfilesWithTheActiveSelected()
{
    addProfile("A");
    KalProfile* b = addProfile("B");
    addProfile("C");
    KalPluginsManager::getInstance()->setActiveProfile(b);
    activate();
    QCOMPARE(items(), (QStringList{"A", "B", "C"}));
    QCOMPARE(m_combo->currentIndex(), 1);
    // Filling did not activate anything.
    QCOMPARE(KalPluginsManager::getInstance()->getActiveProfile(), b);
    for (int i = 0; i < m_combo->count(); ++i)
        QVERIFY(!m_combo->itemData(i).isValid());
}

void tst_ProfileSelector::choosingAppendsAndActivates()
{
    addProfile("A");
    KalProfile* b = addProfile("B");
    KalProfile* c = addProfile("C");
    KalPluginsManager::getInstance()->setActiveProfile(b);
    activate();
    m_combo->setCurrentIndex(2);
    QCOMPARE(KalPluginsManager::getInstance()->getActiveProfile(), c);
    QCOMPARE(items(), (QStringList{"A", "B", "C", "A", "B", "C"}));

    // Activating again refills the list from scratch.
    m_selector->deactivate();
    activate();
    QCOMPARE(items(), (QStringList{"A", "B", "C"}));
    QCOMPARE(m_combo->currentIndex(), 2);
}

void tst_ProfileSelector::choosingAnAppendedEntryActivatesNothing()
{
    addProfile("A");
    KalProfile* b = addProfile("B");
    KalProfile* c = addProfile("C");
    KalPluginsManager::getInstance()->setActiveProfile(b);
    activate();
    m_combo->setCurrentIndex(2);
    QCOMPARE(KalPluginsManager::getInstance()->getActiveProfile(), c);
    m_combo->setCurrentIndex(4);
    QCOMPARE(KalPluginsManager::getInstance()->getActiveProfile(), c);
    QCOMPARE(items(), (QStringList{"A", "B", "C", "A", "B", "C", "A", "B", "C"}));
}

void tst_ProfileSelector::emptyProfileList()
{
    activate();
    QCOMPARE(m_combo->count(), 0);
    QCOMPARE(m_combo->currentIndex(), -1);
    m_selector->s_currentIndexChanged(0);
    m_selector->s_currentIndexChanged(-1);
    QCOMPARE(m_combo->count(), 0);
    QCOMPARE(KalPluginsManager::getInstance()->getActiveProfile(), nullptr);
}

void tst_ProfileSelector::activeProfileNotInTheList()
{
    addProfile("A");
    addProfile("B");
    activate();
    QCOMPARE(KalPluginsManager::getInstance()->getActiveProfile(), nullptr);
    QCOMPARE(items(), (QStringList{"A", "B"}));
    QCOMPARE(m_combo->currentIndex(), -1);
}

void tst_ProfileSelector::deactivationStopsListening()
{
    KalProfile* a = addProfile("A");
    addProfile("B");
    KalPluginsManager::getInstance()->setActiveProfile(a);
    activate();
    m_selector->deactivate();
    m_combo->setCurrentIndex(1);
    QCOMPARE(KalPluginsManager::getInstance()->getActiveProfile(), a);
    QCOMPARE(m_combo->count(), 2);
    QCOMPARE(
        KalShell::getInstance()->getMainWindow()->toolBarArea(qobject_cast<QToolBar*>(m_combo->parent())),
        Qt::NoToolBarArea);
    activate();
}

QTEST_MAIN(tst_ProfileSelector)
#include "tst_ProfileSelector.moc"
