#include "SelectionCaption.h"

#include "FieldMarks.h"
#include "NodeSummary.h"
#include "SceneModel.h"
#include "ScenePath.h"

#include <Inventor/nodes/SoNode.h>

#include <QDockWidget>
#include <QResizeEvent>
#include <QShowEvent>
#include <QStringList>
#include <QVBoxLayout>

#include <algorithm>

SelectionCaption::SelectionCaption(QWidget* parent)
    : QLabel(parent)
    , m_summary(new NodeSummary(this))
{
    setObjectName(QStringLiteral("SelectionCaption"));
    setTextFormat(Qt::RichText);
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setMargin(6);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A strip above the editors, never a panel of its own: up to three lines
    // of a long path and a line on what drives the field, the rest of the
    // column for the editor under it.
    setMaximumHeight(fontMetrics().lineSpacing() * 4 + 2 * margin());
    // A name longer than the column is cut rather than let widen the column
    // into the 3D view; the tooltip holds the whole path.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    showRow(QModelIndex(), false);
}

QDockWidget* SelectionCaption::dock()
{
    if (!m_dock) {
        m_dock = new QDockWidget(tr("Selection"));
        m_dock->setObjectName(QStringLiteral("SelectionDock"));
        // The node's summary shows only while a node is selected, when the
        // field editors under the dock are hidden: the dock is as short as
        // the caption otherwise.
        auto* panel = new QWidget;
        panel->setObjectName(QStringLiteral("SelectionPanel"));
        auto* layout = new QVBoxLayout(panel);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        // The panel is no taller than what it shows, as the caption alone
        // was, so the editor docks keep the column's height.
        layout->setSizeConstraint(QLayout::SetMinAndMaxSize);
        layout->addWidget(this);
        layout->addWidget(m_summary);
        m_dock->setWidget(panel);
    }
    return m_dock;
}

NodeSummary* SelectionCaption::nodeSummary() const
{
    return m_summary;
}

QString SelectionCaption::pathOf(const QModelIndex& row)
{
    const auto* model = qobject_cast<const SceneModel*>(row.model());
    return model ? ScenePath::of(*model, row) : QString();
}

QString SelectionCaption::typeOf(const QModelIndex& row)
{
    return row.siblingAtColumn(SceneModel::TypeColumn).data().toString();
}

QString SelectionCaption::plainText() const
{
    return m_plain;
}

void SelectionCaption::showRow(const QModelIndex& row, bool fieldRow)
{
    const auto* model = qobject_cast<const SceneModel*>(row.model());
    SoFieldContainer* container = model ? model->container(row) : nullptr;
    const bool nodeRow = !fieldRow && container && container->isOfType(SoNode::getClassTypeId());
    m_summary->showNode(nodeRow ? static_cast<SoNode*>(container) : nullptr,
                        nodeRow ? pathOf(row) : QString());
    if (!row.isValid()) {
        m_plain = tr("Nothing selected");
        setText(tr("<i>Nothing selected.</i> Choose a field in the scene tree to edit it."));
        setToolTip(QString());
        fitHeight();
        return;
    }
    const QString path = pathOf(row);
    const QString type = typeOf(row);
    m_plain = tr("%1 (%2)").arg(path, type);
    QString text =
        tr("<b>%1</b> <span style=\"color:gray\">%2</span>").arg(path.toHtmlEscaped(), type.toHtmlEscaped());
    const QString driven = fieldRow && model ? FieldMarks::drivenNote(model->field(row)) : QString();
    if (!driven.isEmpty())
        text += QStringLiteral("<br><span style=\"color:#a05000\">%1</span>").arg(driven.toHtmlEscaped());
    setText(text);
    setToolTip(driven.isEmpty() ? m_plain : m_plain + QLatin1Char('\n') + driven);
    fitHeight();
}

void SelectionCaption::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    fitHeight();
}

void SelectionCaption::showEvent(QShowEvent* event)
{
    QLabel::showEvent(event);
    fitHeight();
}

QSize SelectionCaption::sizeHint() const
{
    // The fitted height is the minimum fitHeight sets; none before the
    // caption first showed.
    return QSize(0, minimumHeight() > 0 ? minimumHeight() : oneLineHeight());
}

QSize SelectionCaption::minimumSizeHint() const
{
    return QSize(0, oneLineHeight());
}

int SelectionCaption::oneLineHeight() const
{
    return fontMetrics().lineSpacing() + 2 * margin();
}

void SelectionCaption::fitHeight()
{
    if (!isVisible())
        return;
    // Asks the layouts again when the height changed, hints included.
    setMinimumHeight(std::min(heightForWidth(width()), maximumHeight()));
}
