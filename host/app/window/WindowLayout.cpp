#include "WindowLayout.h"

#include <QDockWidget>
#include <QGuiApplication>
#include <QHash>
#include <QHeaderView>
#include <QLayout>
#include <QMainWindow>
#include <QPointer>
#include <QScreen>
#include <QSettings>
#include <QTableView>
#include <QTimer>
#include <QToolBar>
#include <QTreeView>

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
{
    // The column runs the window's whole height and the strip below stays
    // under the view: at 1280x800 a tree, a caption and a list editor need
    // more height than the view's.
    m_window->setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
}

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
    watchEditorDocks();
}

void WindowLayout::watchEditorDocks()
{
    for (QWidget* bar : pluginBars()) {
        auto* dock = qobject_cast<QDockWidget*>(bar);
        if (!dock || m_watched.contains(dock))
            continue;
        m_watched.insert(dock);
        connect(dock, &QObject::destroyed, this, [this, dock] { m_watched.remove(dock); });
        // Once the dock has laid its editor out: only then does its table
        // know how many rows it shows.
        connect(dock, &QDockWidget::visibilityChanged, this, [this, dock](bool visible) {
            if (visible)
                QTimer::singleShot(0, this, [this, dock = QPointer<QDockWidget>(dock)] {
                    if (dock)
                        giveEditorRoom(dock);
                });
        });
    }
}

int WindowLayout::wantedHeight(QDockWidget* editor)
{
    QWidget* widget = editor->widget();
    if (!widget)
        return 0;
    const int frame = editor->height() - widget->height();
    int wanted = frame + widget->sizeHint().height();
    // A list is read in its table: room for a few rows of it, whatever
    // the editor's own hint says.
    for (QTableView* table : widget->findChildren<QTableView*>()) {
        if (!table->isVisible())
            continue;
        const int rows = kEditorTableRows * table->verticalHeader()->defaultSectionSize();
        wanted = std::max(wanted, editor->height() + rows - table->viewport()->height());
    }
    return wanted;
}

int WindowLayout::treeFloor() const
{
    for (QTreeView* tree : m_tree->findChildren<QTreeView*>()) {
        if (!tree->isVisible())
            continue;
        // QTreeView hides its measure; the base class offers it to all.
        const QAbstractItemView* view = tree;
        const int row = std::max(view->sizeHintForRow(0), tree->fontMetrics().height());
        return m_tree->height() - tree->viewport()->height() + kTreeRows * row;
    }
    return m_tree->height();
}

void WindowLayout::giveEditorRoom(QDockWidget* editor)
{
    const auto inColumn = [this](QDockWidget* dock) {
        return dock && !dock->isHidden() && !dock->isFloating() &&
               m_window->dockWidgetArea(dock) == Qt::RightDockWidgetArea;
    };
    if (!inColumn(editor) || !inColumn(m_tree))
        return;
    m_window->layout()->activate();
    const int taken = std::min(wantedHeight(editor) - editor->height(), m_tree->height() - treeFloor());
    if (taken <= 0)
        return;
    m_window->resizeDocks({m_tree, editor}, {m_tree->height() - taken, editor->height() + taken},
                          Qt::Vertical);
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
        const int rest = (m_window->width() - column - kHistoryWidth) / (bottom.size() - 1);
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
