#include "TreeSight.h"

#include "TreeSelection.h"

#include <QAbstractItemModel>
#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QTreeView>

TreeSight::TreeSight(QTreeView* tree, QList<int> columns)
    : QObject(tree)
    , m_tree(tree)
    , m_treeObject(tree)
    , m_viewport(tree->viewport())
    , m_columns(std::move(columns))
{
    // Only the rows in the viewport are measured.
    m_tree->header()->setResizeContentsPrecision(0);
    m_widen.setSingleShot(true);
    m_widen.setInterval(0);
    connect(&m_widen, &QTimer::timeout, this, &TreeSight::widen);
    const auto later = [this] { m_widen.start(); };
    connect(m_tree, &QTreeView::expanded, this, later);
    connect(m_tree->verticalScrollBar(), &QScrollBar::valueChanged, this, later);
    if (QAbstractItemModel* model = m_tree->model()) {
        connect(model, &QAbstractItemModel::rowsInserted, this, later);
        connect(model, &QAbstractItemModel::modelReset, this, later);
        connect(model, &QAbstractItemModel::layoutChanged, this, later);
        connect(model, &QAbstractItemModel::dataChanged, this, later);
    }
    m_viewport->installEventFilter(this);
}

bool TreeSight::eventFilter(QObject* watched, QEvent* event)
{
    // The viewport still hears of resizes while the tree is taken down.
    if (watched == m_viewport && event->type() == QEvent::Resize && qobject_cast<QTreeView*>(m_treeObject)) {
        m_widen.start();
        keepSelectedRow();
    }
    return QObject::eventFilter(watched, event);
}

void TreeSight::widen()
{
    // QTreeView hides its measure; the base class offers it to all.
    const QAbstractItemView* view = m_tree;
    for (int column : m_columns) {
        const int needed = view->sizeHintForColumn(column);
        if (needed > m_tree->columnWidth(column))
            m_tree->setColumnWidth(column, needed);
    }
}

void TreeSight::keepSelectedRow()
{
    const QPersistentModelIndex row = TreeSelection::selectedRow(m_tree->selectionModel());
    if (!row.isValid())
        return;
    // Only a row out of sight is scrolled to, once the resize is over.
    QTimer::singleShot(0, this, [this, row] {
        if (row.isValid() && !m_tree->viewport()->rect().contains(m_tree->visualRect(row)))
            m_tree->scrollTo(row);
    });
}
