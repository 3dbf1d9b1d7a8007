#include "SceneFilterBox.h"

#include "SceneFilterModel.h"
#include "SceneModel.h"
#include "ScenePath.h"
#include "SceneSearch.h"
#include "TreeSelection.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStackedWidget>
#include <QStyle>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

namespace {
// Long enough that a word typed at speed is searched once, short enough
// that the rows follow the typing.
constexpr int kTypingPauseMs = 80;
} // namespace

SceneFilterBox::SceneFilterBox(QTreeView* tree, SceneModel* model, QWidget* parent)
    : QWidget(parent)
    , m_tree(tree)
    , m_model(model)
    , m_edit(new QLineEdit(this))
    , m_pause(new QTimer(this))
    , m_trees(new QStackedWidget(this))
    , m_filtered(new SceneFilterModel(model, this))
    , m_filteredTree(new QTreeView)
{
    setObjectName(QStringLiteral("SceneFilterBox"));
    m_edit->setObjectName(QStringLiteral("SceneFilter"));
    m_edit->setPlaceholderText(tr("Filter by name, type or field"));
    // A clear button of our own: Qt's fades in and out with an animation
    // that is left allocated when the program ends while it runs.
    QAction* clearText =
        m_edit->addAction(style()->standardIcon(QStyle::SP_LineEditClearButton), QLineEdit::TrailingPosition);
    clearText->setObjectName(QStringLiteral("SceneFilterClear"));
    clearText->setToolTip(tr("Clear the filter"));
    clearText->setVisible(false);
    connect(clearText, &QAction::triggered, m_edit, &QLineEdit::clear);
    connect(m_edit, &QLineEdit::textChanged, clearText,
            [clearText](const QString& text) { clearText->setVisible(!text.isEmpty()); });
    m_edit->setToolTip(tr("Shows the nodes and fields whose name or type holds this text, over the whole "
                          "scene. Return filters at once, Escape clears."));
    auto* clear = new QAction(m_edit);
    clear->setShortcut(Qt::Key_Escape);
    clear->setShortcutContext(Qt::WidgetShortcut);
    m_edit->addAction(clear);
    connect(clear, &QAction::triggered, m_edit, &QLineEdit::clear);
    // Down goes on from the box to the rows it found.
    m_edit->installEventFilter(this);

    // The filtered tree looks and selects like the scene tree.
    m_filteredTree->setObjectName(QStringLiteral("SceneFilterTree"));
    m_filteredTree->setModel(m_filtered);
    m_filteredTree->setUniformRowHeights(m_tree->uniformRowHeights());
    m_filteredTree->setAlternatingRowColors(m_tree->alternatingRowColors());
    m_filteredTree->setSelectionMode(m_tree->selectionMode());
    m_filteredTree->setSelectionBehavior(m_tree->selectionBehavior());
    m_filteredTree->setTextElideMode(m_tree->textElideMode());
    m_filteredTree->header()->setStretchLastSection(m_tree->header()->stretchLastSection());
    matchHeader(m_tree, m_filteredTree);
    connect(m_filteredTree->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &SceneFilterBox::filteredSelectionChanged);
    connect(m_tree->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { followSceneSelection(true); });

    m_trees->addWidget(m_tree);
    m_trees->addWidget(m_filteredTree);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_edit);
    layout->addWidget(m_trees);

    m_pause->setSingleShot(true);
    m_pause->setInterval(kTypingPauseMs);
    connect(m_pause, &QTimer::timeout, this, &SceneFilterBox::apply);
    connect(m_edit, &QLineEdit::textChanged, m_pause, qOverload<>(&QTimer::start));
    connect(m_edit, &QLineEdit::returnPressed, this, &SceneFilterBox::apply);
    // A new scene is filtered by the same text (its filtered rows went with
    // the old scene's), and so are new nodes under a field.
    const auto filterAgain = [this] {
        m_matches = 0;
        if (!m_edit->text().trimmed().isEmpty())
            m_pause->start();
    };
    connect(m_model, &QAbstractItemModel::modelReset, this, filterAgain);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, filterAgain);
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, filterAgain);

    // The path a person can paste after --select, from either tree's rows.
    auto* copyPath = new QAction(tr("Copy Path"), this);
    copyPath->setObjectName(QStringLiteral("CopyPathAction"));
    copyPath->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
    copyPath->setShortcutContext(Qt::WidgetShortcut);
    copyPath->setToolTip(tr("Copies the selected row's path, as --select takes it"));
    connect(copyPath, &QAction::triggered, this, &SceneFilterBox::copySelectedPath);
    for (QTreeView* tree : {m_tree, m_filteredTree}) {
        tree->addAction(copyPath);
        tree->setContextMenuPolicy(Qt::ActionsContextMenu);
    }
}

void SceneFilterBox::copySelectedPath()
{
    const QString path = ScenePath::of(*m_model, TreeSelection::selectedRow(m_tree->selectionModel()));
    if (!path.isEmpty())
        QGuiApplication::clipboard()->setText(path);
}

SceneFilterBox::~SceneFilterBox()
{
    // The view goes before its model, and with it every index it holds.
    delete m_filteredTree;
}

QLineEdit* SceneFilterBox::edit() const
{
    return m_edit;
}

QTreeView* SceneFilterBox::filteredTree() const
{
    return m_filteredTree;
}

SceneFilterModel* SceneFilterBox::filteredModel() const
{
    return m_filtered;
}

int SceneFilterBox::matchCount() const
{
    return m_matches;
}

void SceneFilterBox::matchHeader(QTreeView* from, QTreeView* to)
{
    for (int column = 0; column < SceneModel::ColumnCount; ++column)
        to->setColumnWidth(column, from->columnWidth(column));
}

void SceneFilterBox::apply()
{
    m_pause->stop();
    const QString text = m_edit->text().trimmed();
    m_matches = 0;
    if (text.isEmpty()) {
        showScene();
        return;
    }
    SceneSearch::Result found = SceneSearch::run(m_model->root(), text);
    m_matches = found.matches;
    m_filtered->setFound(std::move(found));
    showFiltered();
}

void SceneFilterBox::showFiltered()
{
    if (m_trees->currentWidget() != m_filteredTree)
        matchHeader(m_tree, m_filteredTree);
    // Opened before the tree lays its rows out, which it then does once.
    for (const QModelIndex& row : m_filtered->openedRows())
        m_filteredTree->expand(row);
    m_trees->setCurrentWidget(m_filteredTree);
    m_filteredTree->scrollToTop();
    // The row selected before stays selected if the filter shows it.
    followSceneSelection(false);
}

void SceneFilterBox::showScene()
{
    if (m_trees->currentWidget() == m_tree)
        return;
    matchHeader(m_filteredTree, m_tree);
    const bool hadFocus = m_filteredTree->hasFocus();
    m_trees->setCurrentWidget(m_tree);
    // The filtered rows are let go of: a view of the scene keeps only what
    // a person opened in it.
    m_filtered->clear();
    if (hadFocus)
        m_tree->setFocus();
    // The row picked while filtering stays in sight, with what holds it
    // opened; the rest is as it was before the filter.
    const QModelIndex current = m_tree->currentIndex();
    if (!current.isValid())
        return;
    for (QModelIndex up = current.parent(); up.isValid(); up = up.parent())
        m_tree->expand(up);
    m_tree->scrollTo(current);
}

bool SceneFilterBox::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_edit && event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Down && key->modifiers() == Qt::NoModifier) {
            enterRows();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void SceneFilterBox::enterRows()
{
    if (m_pause->isActive())
        apply();
    auto* tree = static_cast<QTreeView*>(m_trees->currentWidget());
    tree->setFocus(Qt::TabFocusReason);
    if (!tree->currentIndex().isValid() && tree->model()->rowCount() > 0)
        tree->setCurrentIndex(tree->model()->index(0, 0));
}

void SceneFilterBox::filteredSelectionChanged()
{
    if (m_mirroring)
        return;
    const QModelIndex row =
        m_filtered->mapToSource(TreeSelection::selectedRow(m_filteredTree->selectionModel()));
    m_mirroring = true;
    TreeSelection::selectRow(m_tree->selectionModel(), row);
    m_mirroring = false;
}

void SceneFilterBox::followSceneSelection(bool reveal)
{
    if (m_mirroring || m_trees->currentWidget() != m_filteredTree)
        return;
    const QModelIndex selected = TreeSelection::selectedRow(m_tree->selectionModel());
    QModelIndex row;
    if (selected.isValid())
        row = reveal ? m_filtered->reveal(selected) : m_filtered->mapFromSource(selected);
    m_mirroring = true;
    TreeSelection::selectRow(m_filteredTree->selectionModel(), row);
    if (row.isValid())
        m_filteredTree->scrollTo(row);
    m_mirroring = false;
}
