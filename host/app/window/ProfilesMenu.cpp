#include "ProfilesMenu.h"

#include <KalPluginsManager.h>
#include <KalProfile.h>

#include <QAction>
#include <QActionGroup>
#include <QMenu>

ProfilesMenu::ProfilesMenu(QMenu* menu, QObject* parent)
    : QObject(parent)
    , m_menu(menu)
{
    m_menu->setObjectName(QStringLiteral("ProfilesMenu"));
    // The plug-in's selector may have switched the profile since.
    connect(m_menu, &QMenu::aboutToShow, this, &ProfilesMenu::refresh);
}

void ProfilesMenu::refresh()
{
    qDeleteAll(m_menu->findChildren<QActionGroup*>(QString(), Qt::FindDirectChildrenOnly));
    m_menu->clear();
    auto* group = new QActionGroup(m_menu);
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    for (KalProfile* profile : manager->getProfilesList()) {
        QAction* action = m_menu->addAction(QString::fromUtf8(profile->getName().getString()));
        action->setCheckable(true);
        action->setChecked(profile == manager->getActiveProfile());
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, profile] { switchTo(profile); });
    }
}

void ProfilesMenu::switchTo(KalProfile* profile)
{
    // Extensions both profiles enable would stay running and keep showing
    // the old profile; every extension starts again under the new one.
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    if (profile == manager->getActiveProfile())
        return;
    manager->setActiveProfile(nullptr);
    manager->setActiveProfile(profile);
    refresh();
    emit switched();
}

void ProfilesMenu::restartActive()
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    KalProfile* active = manager->getActiveProfile();
    if (!active) {
        refresh();
        return;
    }
    // Switching lists the profiles anew; a second listing would double the
    // start with a file of many profiles.
    manager->setActiveProfile(nullptr);
    switchTo(active);
}
