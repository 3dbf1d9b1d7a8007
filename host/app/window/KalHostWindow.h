#pragma once

#include <QList>
#include <QObject>
#include <QString>

#include <functional>

class CommandNamer;
class HostStatusBar;
class KalPlugin;
class KalProfile;
class RecentFilesMenu;
class SelectionCaption;
class WindowLayout;
class QAction;
class QDockWidget;
class QMainWindow;
class QMenu;
class QTreeView;
class QUndoView;
class QWidget;
class SceneModel;
class SoField;
class SoFieldContainer;
class SoNode;
class SoQtExaminerViewer;
class SoSeparator;
class ViewPicker;

// The host application's window: the scene tree, the 3D view, the undo
// history, and the File, Edit and Profiles menus, around the main window
// the plug-ins place their docks and toolbars in.
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

    explicit KalHostWindow(const Options& options, QObject* parent = nullptr);
    ~KalHostWindow() override;

    QMainWindow* window() const;
    SceneModel* sceneModel() const;
    QTreeView* tree() const;
    SoQtExaminerViewer* viewer() const;

    void openSample();
    bool openScene(const QString& path);
    bool saveScene(const QString& path);
    QString scenePath() const;
    bool hasUnsavedChanges() const;

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
    void saveLayout();
    void resetLayout();

    // A plug-in was loaded (or not, and why): the status bar says so, and
    // the right column is made wide enough for the widest of its editors.
    void pluginLoaded(KalPlugin* plugin, const QString& error = QString());

    // Adds the Profiles menu entries for the profiles the host holds.
    void refreshProfilesMenu();
    // The host's profiles changed (a profile file was read): the running
    // extensions start again under the active profile, so that those that
    // show the profiles (the plug-in's selector fills itself when it starts)
    // list them, and the editors show the selection again.
    void profilesChanged();

    QString lastError() const;

    // Asked before unsaved changes are dropped: true goes on. The default
    // asks the person in a message box.
    void setDiscardQuestion(std::function<bool()> question);

    // Asked for the file to open or to save the scene as; an empty answer
    // cancels. The default asks the person in a file dialog.
    enum class FileQuestion
    {
        Open,
        SaveAs
    };
    void setFileQuestion(std::function<QString(FileQuestion question, const QString& startPath)> question);

signals:
    void sceneReplaced();

public slots:
    bool save();
    bool saveAs();
    void open();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void currentRowChanged();
    void fieldChanged(SoField* field);

private:
    void buildMenus();
    void buildDocks();
    void buildCentre();
    void setScene(SoSeparator* root, const QString& path);
    bool mayDiscard();
    QString askForFile(FileQuestion question);
    void fail(const QString& message);
    void refreshTitle();
    void switchProfile(KalProfile* profile);
    QString startDirectory() const;
    void rememberDirectory(const QString& path);

    Options m_options;
    QMainWindow* m_window;
    SceneModel* m_model;
    CommandNamer* m_namer;
    QTreeView* m_tree = nullptr;
    QDockWidget* m_treeDock = nullptr;
    QDockWidget* m_historyDock = nullptr;
    QUndoView* m_history = nullptr;
    QWidget* m_centre = nullptr;
    SelectionCaption* m_caption = nullptr;
    WindowLayout* m_layout = nullptr;
    HostStatusBar* m_status = nullptr;
    SoQtExaminerViewer* m_viewer = nullptr;
    ViewPicker* m_picker = nullptr;
    QList<QMenu*> m_menus;
    RecentFilesMenu* m_recent = nullptr;
    QMenu* m_profilesMenu = nullptr;
    QString m_path;
    QString m_lastError;
    bool m_changedSinceSave = false;
    SoFieldContainer* m_selectedNode = nullptr;
    SoField* m_selectedField = nullptr;
    std::function<bool()> m_discardQuestion;
    std::function<QString(FileQuestion, const QString&)> m_fileQuestion;
};
