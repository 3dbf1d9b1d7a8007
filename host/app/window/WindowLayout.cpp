#include "WindowLayout.h"

#include <QDockWidget>
#include <QGuiApplication>
#include <QHash>
#include <QMainWindow>
#include <QScreen>
#include <QSettings>
#include <QToolBar>

#include <algorithm>

namespace {
const char* const kGeometryKey = "window/geometry";
const char* const kStateKey = "window/state";
const QSize kPreferredSize(1280, 800);
// Room left for the window manager's frame and panels.
const QSize kFrameAllowance(24, 64);
// A dock's frame around the editor it holds.
constexpr int kDockAllowance = 8;

QScreen* screenOf(QMainWindow* window)
{
    QScreen* screen = window->screen();
    return screen ? screen : QGuiApplication::primaryScreen();
}
} // namespace

WindowLayout::WindowLayout(QMainWindow* window, QDockWidget* tree, QDockWidget* caption, QDockWidget* history,
                           QObject* parent)
    : QObject(parent)
    , m_window(window)
    , m_tree(tree)
    , m_caption(caption)
    , m_history(history)
{}

void WindowLayout::fitToScreen()
{
    QScreen* screen = screenOf(m_window);
    if (!screen) {
        m_window->resize(kPreferredSize);
        return;
    }
    const QRect available = screen->availableGeometry();
    // A large screen gets a window in proportion, and the growth goes to
    // the 3D view: the columns beside it keep the widths they need.
    const QSize share(available.width() * kScreenSharePercent / 100,
                      available.height() * kScreenSharePercent / 100);
    const QSize size = kPreferredSize.expandedTo(share).boundedTo(available.size() - kFrameAllowance);
    m_window->resize(size);
    QRect placed(QPoint(), size);
    placed.moveCenter(available.center());
    m_window->move(placed.topLeft());
}

QList<QWidget*> WindowLayout::pluginBars() const
{
    QList<QWidget*> bars;
    for (QDockWidget* dock : m_window->findChildren<QDockWidget*>()) {
        if (dock->parentWidget() == m_window && dock != m_tree && dock != m_caption && dock != m_history)
            bars << dock;
    }
    for (QToolBar* bar : m_window->findChildren<QToolBar*>()) {
        if (bar->parentWidget() == m_window)
            bars << bar;
    }
    return bars;
}

QHash<QWidget*, bool> WindowLayout::pluginVisibility() const
{
    QHash<QWidget*, bool> shown;
    for (QWidget* bar : pluginBars())
        shown.insert(bar, !bar->isHidden());
    return shown;
}

void WindowLayout::setVisibility(const QHash<QWidget*, bool>& shown)
{
    for (auto it = shown.cbegin(); it != shown.cend(); ++it)
        it.key()->setVisible(it.value());
}

void WindowLayout::arrange()
{
    applySizes();
    m_defaultState = m_window->saveState(kStateVersion);
}

int WindowLayout::columnWidth(int windowWidth) const
{
    return std::min(std::max(kColumnWidth, m_editorWidth + kDockAllowance), windowWidth / 2);
}

void WindowLayout::applySizes()
{
    const int column = columnWidth(m_window->width());
    QList<QDockWidget*> rightColumn;
    QList<QDockWidget*> bottom;
    for (QDockWidget* dock : m_window->findChildren<QDockWidget*>()) {
        if (dock->parentWidget() != m_window)
            continue;
        if (m_window->dockWidgetArea(dock) == Qt::RightDockWidgetArea)
            rightColumn << dock;
        else if (m_window->dockWidgetArea(dock) == Qt::BottomDockWidgetArea)
            bottom << dock;
    }
    if (!rightColumn.isEmpty())
        m_window->resizeDocks(rightColumn, QVector<int>(rightColumn.size(), column).toList(), Qt::Horizontal);
    if (!bottom.isEmpty()) {
        int height = kConsoleHeight;
        for (QDockWidget* dock : bottom)
            height = std::max(height, dock->minimumSizeHint().height());
        m_window->resizeDocks(bottom, QVector<int>(bottom.size(), height).toList(), Qt::Vertical);
    }
    if (m_history && bottom.contains(m_history) && bottom.size() > 1) {
        // The history's entries are short; the console's lines are long.
        QVector<int> widths;
        const int rest = (m_window->width() - kHistoryWidth) / (bottom.size() - 1);
        for (QDockWidget* dock : bottom)
            widths << (dock == m_history ? kHistoryWidth : rest);
        m_window->resizeDocks(bottom, widths.toList(), Qt::Horizontal);
    }
    if (m_tree && m_caption && rightColumn.contains(m_tree)) {
        const int height = m_tree->height() + m_caption->height();
        const int tree = height * kTreeSharePercent / 100;
        m_window->resizeDocks({m_tree, m_caption}, {tree, height - tree}, Qt::Vertical);
    }
}

bool WindowLayout::restore()
{
    QSettings settings;
    const QByteArray geometry = settings.value(QLatin1String(kGeometryKey)).toByteArray();
    const QByteArray state = settings.value(QLatin1String(kStateKey)).toByteArray();
    if (geometry.isEmpty() && state.isEmpty())
        return false;

    const QHash<QWidget*, bool> shown = pluginVisibility();
    // Qt keeps a restored window on a screen that is there.
    const bool placed = !geometry.isEmpty() && m_window->restoreGeometry(geometry);
    const bool arranged = !state.isEmpty() && m_window->restoreState(state, kStateVersion);
    setVisibility(shown);
    if (!placed)
        fitToScreen();
    return placed || arranged;
}

void WindowLayout::save() const
{
    QSettings settings;
    settings.setValue(QLatin1String(kGeometryKey), m_window->saveGeometry());
    settings.setValue(QLatin1String(kStateKey), m_window->saveState(kStateVersion));
}

void WindowLayout::noteEditorWidth(int width)
{
    m_editorWidth = std::max(m_editorWidth, width);
}

void WindowLayout::reset()
{
    const QHash<QWidget*, bool> shown = pluginVisibility();
    if (!m_defaultState.isEmpty())
        m_window->restoreState(m_defaultState, kStateVersion);
    for (QDockWidget* dock : {m_tree, m_caption, m_history}) {
        if (dock)
            dock->show();
    }
    setVisibility(shown);
    fitToScreen();
    applySizes();
}
