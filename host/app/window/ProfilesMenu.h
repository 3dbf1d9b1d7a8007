#pragma once

#include <QObject>

class KalProfile;
class QMenu;

// The Profiles menu: the host's profiles, the active one checked; choosing
// one makes it active. The plug-in's selector may switch the profile too, so
// the entries are made again each time the menu opens.
class ProfilesMenu : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(ProfilesMenu)

public:
    explicit ProfilesMenu(QMenu* menu, QObject* parent = nullptr);

    // Makes the entries for the profiles the host holds.
    void refresh();
    // The host's profiles changed (a profile file was read): the running
    // extensions start again under the active profile, so that those that
    // show the profiles (the plug-in's selector fills itself when it starts)
    // list them.
    void restartActive();

signals:
    // Another profile is active; its extensions have not seen the selection
    // yet.
    void switched();

private:
    void switchTo(KalProfile* profile);

    QMenu* m_menu;
};
