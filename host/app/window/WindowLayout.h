#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>

class QDockWidget;
class QMainWindow;

// Where the window's docks go and how big the window is: one column beside
// the 3D view, from the top of the window to its bottom, holds the scene
// tree, the selection caption and the editor docks, at a stable width (so
// that showing or hiding an editor never resizes the view) that leaves the
// view at least half the window; the history and the console share a strip
// below the view. The window fits the screen
// it opens on; its shape is saved between runs and can be reset.
class WindowLayout : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(WindowLayout)

public:
    WindowLayout(QMainWindow* window, QDockWidget* tree, QDockWidget* caption, QDockWidget* history,
                 QObject* parent = nullptr);

    // The size the window opens with, within the available area of its
    // screen, centred on it: 1280x800, or the given share of a screen
    // larger than that.
    void fitToScreen();
    // The default arrangement, once the plug-ins' docks are in; it is also
    // what reset() returns to.
    void arrange();
    // The shape saved by the last run, if there is one the window can take.
    // Docks and toolbars of the plug-ins stay shown or hidden as their
    // plug-in left them: their visibility is theirs, not the saved run's.
    bool restore();
    void save() const;
    void reset();
    // An editor that may be shown in the right column needs this width;
    // the column is made as wide as the widest, so that showing it does not
    // push the column into the 3D view.
    void noteEditorWidth(int width);

    // States saved while the tree had a column of its own, left of the
    // view, or while the strip below ran under the column too, are not
    // restored.
    static constexpr int kStateVersion = 3;
    // The column's width on a screen wide enough for it.
    static constexpr int kColumnWidth = 460;
    // The tree's share of the column's height, in percent.
    static constexpr int kTreeSharePercent = 55;
    static constexpr int kConsoleHeight = 150;
    static constexpr int kHistoryWidth = 320;
    static constexpr int kScreenSharePercent = 80;
    // An editor shown in the column is given the height it asks for, and
    // one with a table room for this many of its rows, taken from the tree
    // as long as the tree keeps kTreeRows rows in sight.
    static constexpr int kEditorTableRows = 6;
    static constexpr int kTreeRows = 8;

private:
    // The column's width for a window this wide, once the widest editor is
    // known: no narrower than that editor, no wider than half the window.
    int columnWidth(int windowWidth) const;

    QList<QWidget*> pluginBars() const;
    // The plug-ins' docks and toolbars, shown or not, to be put back after
    // a saved or default state has had its say.
    QHash<QWidget*, bool> pluginVisibility() const;
    static void setVisibility(const QHash<QWidget*, bool>& shown);
    void applySizes();
    // Each editor dock of the column, watched once for being shown.
    void watchEditorDocks();
    void giveEditorRoom(QDockWidget* editor);
    // The height the editor dock asks for; the least the tree dock needs.
    static int wantedHeight(QDockWidget* editor);
    int treeFloor() const;

    QMainWindow* m_window;
    QDockWidget* m_tree;
    QDockWidget* m_caption;
    QDockWidget* m_history;
    QByteArray m_defaultState;
    int m_editorWidth = 0;
    QSet<QDockWidget*> m_watched;
};
