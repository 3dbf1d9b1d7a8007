#pragma once

#include "SceneSession.h"

#include <QList>
#include <QObject>
#include <QString>

#include <functional>

class HostStatusBar;
class KalPlugin;
class ProfilesMenu;
class QDockWidget;
class QLabel;
class QMainWindow;
class QMenu;
class QTreeView;
class QUndoView;
class QWidget;
class RecentFilesMenu;
class SceneModel;
class SelectionCaption;
class SoQtExaminerViewer;
class ViewCamera;
class ViewPicker;
class WindowLayout;

// The host application's window: the scene tree, the 3D view, the undo
// history, and the File, Edit, Profiles and View menus, around the main
// window the plug-ins place their docks and toolbars in. The scene it shows
// is a SceneSession's; its methods are what a script or a test does through
// the menus.
class KalHostWindow : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(KalHostWindow)

public:
    struct Options
    {
        // Messages in boxes (a person is there) or only on stderr (tests,
        // scripted runs).
        bool interactive = true;
        // The 3D view needs OpenGL; without it the centre shows a note.
        bool view = true;
    };
    using FileQuestion = SceneSession::FileQuestion;

    explicit KalHostWindow(const Options& options, QObject* parent = nullptr);
    ~KalHostWindow() override;

    QMainWindow* window() const;
    SceneModel* sceneModel() const;
    QTreeView* tree() const;
    SoQtExaminerViewer* viewer() const;
    // The view's own camera and the scene camera it stands in for; null
    // without a 3D view.
    ViewCamera* viewCamera() const;

    void openSample();
    bool openScene(const QString& path);
    bool saveScene(const QString& path);
    bool saveScene(const QString& path, SceneDocument::Format format);
    SceneDocument::Format sceneFormat() const;
    QString scenePath() const;
    bool hasUnsavedChanges() const;
    void setDiscardQuestion(std::function<bool()> question);
    void setFileQuestion(std::function<QString(FileQuestion question, const QString& startPath)> question);

    // Selects a row of the tree as a person would, from a path text (see
    // ScenePath).
    bool select(const QString& path);
    bool writeScreenshot(const QString& path);

    // Gives the plug-ins' docks sizes that leave the 3D view room; called
    // once the plug-ins are loaded. The arrangement is also what the View
    // menu's "Reset Layout" returns to.
    void arrangeDocks();
    // The window's shape as the last run left it, if it was saved; saved
    // again when the window closes.
    bool restoreLayout();

    // A plug-in was loaded (or not, and why): the status bar says so, and
    // the right column is made wide enough for the widest of its editors.
    void pluginLoaded(KalPlugin* plugin, const QString& error = QString());

    // Adds the Profiles menu entries for the profiles the host holds.
    void refreshProfilesMenu();
    // The host's profiles changed (a profile file was read): the extensions
    // start again under the active profile and see the selection again.
    void profilesChanged();

    // What went wrong last, as the person was told.
    QString lastError() const;

signals:
    void sceneReplaced();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildMenus();
    void buildDocks();
    void buildCentre();
    void connectSession();
    void currentRowChanged();
    void sceneShown();
    void fail(const QString& message);
    void refreshTitle();

    Options m_options;
    QMainWindow* m_window;
    SceneModel* m_model;
    SceneSession* m_session;
    QTreeView* m_tree = nullptr;
    QDockWidget* m_treeDock = nullptr;
    QDockWidget* m_historyDock = nullptr;
    QUndoView* m_history = nullptr;
    QWidget* m_centre = nullptr;
    // Says why the 3D view leaves a scene out, above the view.
    QLabel* m_viewNote = nullptr;
    SelectionCaption* m_caption = nullptr;
    WindowLayout* m_layout = nullptr;
    HostStatusBar* m_status = nullptr;
    SoQtExaminerViewer* m_viewer = nullptr;
    ViewPicker* m_picker = nullptr;
    ViewCamera* m_viewCamera = nullptr;
    // Whether the view has drawn since the window was last shown.
    bool m_viewDrawn = false;
    QList<QMenu*> m_menus;
    RecentFilesMenu* m_recent = nullptr;
    ProfilesMenu* m_profiles = nullptr;
    QString m_lastError;
};
