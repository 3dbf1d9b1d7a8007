#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QObject>

class QDockWidget;
class QMainWindow;

// Where the window's docks go and how big the window is: the host's docks on
// the left, a right column of stable width that the editor docks share with
// the selection caption (so that showing or hiding an editor never resizes
// the 3D view), the console in a strip below. The window fits the screen it
// opens on; its shape is saved between runs and can be reset.
class WindowLayout : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(WindowLayout)

public:
    WindowLayout(QMainWindow* window, QList<QDockWidget*> left, QDockWidget* right,
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

    static constexpr int kStateVersion = 1;
    // The widths the columns get on a screen wide enough for them.
    static constexpr int kLeftWidth = 440;
    static constexpr int kRightWidth = 460;
    static constexpr int kConsoleHeight = 150;
    static constexpr int kMinLeftWidth = 200;
    static constexpr int kMinViewWidth = 320;
    static constexpr int kScreenSharePercent = 80;

private:
    QList<QWidget*> pluginBars() const;
    // The plug-ins' docks and toolbars, shown or not, to be put back after
    // a saved or default state has had its say.
    QHash<QWidget*, bool> pluginVisibility() const;
    static void setVisibility(const QHash<QWidget*, bool>& shown);
    void applySizes();

    QMainWindow* m_window;
    QList<QDockWidget*> m_left;
    QDockWidget* m_right;
    QByteArray m_defaultState;
    int m_editorWidth = 0;
};
