#pragma once

#include <QAction>
#include <QMainWindow>
#include <QPointer>

#include <map>

class KalExtension;
class QDockWidget;
class QMenu;
class QToolBar;

// The host's main window service: where extensions put their docks and
// toolbars and how they become known to the window's user interface.
class KalShell
{
public:
    static KalShell* getInstance();

    virtual void addDockWidget(QDockWidget* dock, int area);
    virtual void removeDockWidget(QDockWidget* dock);
    virtual void setStatusMessage(const QString& message);
    virtual void attachExtension(KalExtension* extension, int mode);
    virtual void detachExtension(KalExtension* extension);
    virtual void addToolBar(QToolBar* toolBar, int area);
    virtual void removeToolBar(QToolBar* toolBar);

    virtual ~KalShell();

    // Made on first use.
    QMainWindow* getMainWindow();

private:
    friend class KalExtension;

    KalShell();
    KalShell(const KalShell&) = delete;
    KalShell& operator=(const KalShell&) = delete;

    QMenu* extensionsMenu();
    void setExtensionShown(KalExtension* extension, bool shown);

    QPointer<QMainWindow> m_mainWindow;
    struct Attachment
    {
        int mode;
        QPointer<QAction> action;
    };
    std::map<KalExtension*, Attachment> m_attached;
};
