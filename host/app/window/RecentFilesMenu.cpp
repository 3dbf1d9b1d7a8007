#include "RecentFilesMenu.h"

#include <QAction>
#include <QFileInfo>
#include <QMenu>
#include <QSettings>
#include <QStringList>

namespace {
const char* const kRecentKey = "recentFiles";
} // namespace

RecentFilesMenu::RecentFilesMenu(QMenu* menu, QObject* parent)
    : QObject(parent)
    , m_menu(menu)
{
    m_menu->setObjectName(QStringLiteral("RecentMenu"));
    refresh();
}

void RecentFilesMenu::refresh()
{
    m_menu->clear();
    const QStringList recent = QSettings().value(QLatin1String(kRecentKey)).toStringList();
    for (const QString& path : recent) {
        QAction* action = m_menu->addAction(QFileInfo(path).fileName());
        action->setData(path);
        action->setToolTip(path);
        connect(action, &QAction::triggered, this, [this, path] { emit chosen(path); });
    }
    m_menu->setEnabled(!recent.isEmpty());
}

void RecentFilesMenu::add(const QString& path)
{
    QSettings settings;
    QStringList recent = settings.value(QLatin1String(kRecentKey)).toStringList();
    const QString absolute = QFileInfo(path).absoluteFilePath();
    recent.removeAll(absolute);
    recent.prepend(absolute);
    while (recent.size() > kMaxFiles)
        recent.removeLast();
    settings.setValue(QLatin1String(kRecentKey), recent);
    refresh();
}
