#include "SelectionCaption.h"

#include "SceneModel.h"
#include "ScenePath.h"

#include <QDockWidget>
#include <QStringList>

SelectionCaption::SelectionCaption(QWidget* parent)
    : QLabel(parent)
{
    setObjectName(QStringLiteral("SelectionCaption"));
    setTextFormat(Qt::RichText);
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setMargin(6);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A strip above the editors, never a panel of its own: up to three lines
    // of a long path, the rest of the column for the editor under it.
    setMaximumHeight(fontMetrics().lineSpacing() * 3 + 2 * margin());
    showRow(QModelIndex(), false);
}

QDockWidget* SelectionCaption::dock()
{
    if (!m_dock) {
        m_dock = new QDockWidget(tr("Selection"));
        m_dock->setObjectName(QStringLiteral("SelectionDock"));
        m_dock->setWidget(this);
    }
    return m_dock;
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
    // The path itself says whether it ends at a field.
    Q_UNUSED(fieldRow)
    if (!row.isValid()) {
        m_plain = tr("Nothing selected");
        setText(tr("<i>Nothing selected.</i> Choose a field in the scene tree to edit it."));
        setToolTip(QString());
        return;
    }
    const QString path = pathOf(row);
    const QString type = typeOf(row);
    m_plain = tr("%1 (%2)").arg(path, type);
    setText(
        tr("<b>%1</b> <span style=\"color:gray\">%2</span>").arg(path.toHtmlEscaped(), type.toHtmlEscaped()));
    setToolTip(m_plain);
}
