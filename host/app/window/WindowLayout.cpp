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

WindowLayout::WindowLayout(QMainWindow* window, QList<QDockWidget*> left, QDockWidget* right, QObject* parent)
    : QObject(parent)
    , m_window(window)
    , m_left(std::move(left))
    , m_right(right)
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
        if (dock->parentWidget() == m_window && dock != m_right && !m_left.contains(dock))
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

void WindowLayout::applySizes()
{
    // The right column takes the widest editor whole, up to half the window;
    // the left column gives way first on narrow screens, down to what
    // still shows the tree's names.
    const int width = m_window->width();
    const int right = std::min(
        std::max(std::min(kRightWidth, width * 34 / 100), m_editorWidth + kDockAllowance), width / 2);
    const int left = std::max(kMinLeftWidth, std::min(kLeftWidth, width - right - kMinViewWidth));

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
    if (!m_left.isEmpty())
        m_window->resizeDocks({m_left.first()}, {left}, Qt::Horizontal);
    if (!rightColumn.isEmpty())
        m_window->resizeDocks(rightColumn, QVector<int>(rightColumn.size(), right).toList(), Qt::Horizontal);
    if (!bottom.isEmpty()) {
        int height = kConsoleHeight;
        for (QDockWidget* dock : bottom)
            height = std::max(height, dock->minimumSizeHint().height());
        m_window->resizeDocks(bottom, QVector<int>(bottom.size(), height).toList(), Qt::Vertical);
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
    for (QDockWidget* dock : m_left)
        dock->show();
    if (m_right)
        m_right->show();
    setVisibility(shown);
    fitToScreen();
    applySizes();
}
