#pragma once

#include <QObject>
#include <QString>

class QMenu;

// File > Open Recent: the last scenes opened or saved, newest first, kept
// between runs.
class RecentFilesMenu : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(RecentFilesMenu)

public:
    RecentFilesMenu(QMenu* menu, QObject* parent = nullptr);

    void add(const QString& path);

    static constexpr int kMaxFiles = 8;

signals:
    void chosen(const QString& path);

private:
    void refresh();

    QMenu* m_menu;
};
