#include "SceneFilterBox.h"

#include "SceneModel.h"
#include "SceneSearch.h"

#include <QAction>
#include <QLineEdit>
#include <QStyle>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

#include <unordered_set>

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

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_edit);
    layout->addWidget(m_tree);

    m_pause->setSingleShot(true);
    m_pause->setInterval(kTypingPauseMs);
    connect(m_pause, &QTimer::timeout, this, &SceneFilterBox::apply);
    connect(m_edit, &QLineEdit::textChanged, m_pause, qOverload<>(&QTimer::start));
    connect(m_edit, &QLineEdit::returnPressed, this, &SceneFilterBox::apply);
    // A new scene is filtered by the same text; what was hidden in the old
    // one went with its rows.
    connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this, &SceneFilterBox::forgetRows);
    connect(m_model, &QAbstractItemModel::modelReset, this, [this] {
        m_matches = 0;
        if (!m_edit->text().trimmed().isEmpty())
            m_pause->start();
    });
}

SceneFilterBox::~SceneFilterBox() = default;

QLineEdit* SceneFilterBox::edit() const
{
    return m_edit;
}

int SceneFilterBox::matchCount() const
{
    return m_matches;
}

void SceneFilterBox::forgetRows()
{
    m_narrowed.clear();
    m_rootHidden = false;
}

template <typename Hidden>
void SceneFilterBox::forEachHidden(Hidden hidden) const
{
    if (m_rootHidden)
        hidden(0, QModelIndex());
    for (const Narrowed& narrowed : m_narrowed) {
        if (!narrowed.row.isValid())
            continue;
        const QModelIndex here = narrowed.row;
        const int count = m_model->rowCount(here);
        auto kept = narrowed.keptRows.begin();
        for (int row = 0; row < count; ++row) {
            if (kept != narrowed.keptRows.end() && *kept == row)
                ++kept;
            else
                hidden(row, here);
        }
    }
}

void SceneFilterBox::restore()
{
    // Shown again first: that puts off the tree's layout to one pass, and
    // the rows folded below only drop out of a list until then.
    forEachHidden([this](int row, const QModelIndex& parent) { m_tree->setRowHidden(row, parent, false); });
    // What the filter opened folds again, except the rows the current one
    // sits under: the row a person picked while filtering stays in sight.
    std::unordered_set<void*> holdingCurrent;
    for (QModelIndex up = m_tree->currentIndex(); up.isValid(); up = up.parent())
        holdingCurrent.insert(up.internalPointer());
    for (const Narrowed& narrowed : m_narrowed) {
        if (narrowed.opened && narrowed.row.isValid() &&
            !holdingCurrent.count(narrowed.row.internalPointer()))
            m_tree->collapse(narrowed.row);
    }
    forgetRows();
}

void SceneFilterBox::apply()
{
    m_pause->stop();
    const QString text = m_edit->text().trimmed();
    restore();
    m_matches = 0;
    if (text.isEmpty()) {
        if (m_tree->currentIndex().isValid())
            m_tree->scrollTo(m_tree->currentIndex());
        return;
    }
    SceneSearch::Result found = SceneSearch::run(m_model->root(), text);
    m_matches = found.matches;
    if (found.rows.empty()) {
        m_rootHidden = m_model->rowCount() > 0;
    } else {
        // Only rows with something matching inside are opened and thinned
        // out; a parent entry always comes before its children.
        std::vector<QModelIndex> indexes(found.rows.size());
        for (size_t i = 0; i < found.rows.size(); ++i) {
            SceneSearch::Row& entry = found.rows[i];
            if (!entry.narrowed)
                continue;
            const QModelIndex parent = entry.parent < 0 ? QModelIndex() : indexes[size_t(entry.parent)];
            indexes[i] = m_model->index(entry.row, 0, parent);
            m_narrowed.push_back({indexes[i], std::move(entry.keptRows), !m_tree->isExpanded(indexes[i])});
        }
    }
    forEachHidden([this](int row, const QModelIndex& parent) { m_tree->setRowHidden(row, parent, true); });
    for (const Narrowed& narrowed : m_narrowed) {
        if (narrowed.opened)
            m_tree->expand(narrowed.row);
    }
    m_tree->scrollToTop();
}
