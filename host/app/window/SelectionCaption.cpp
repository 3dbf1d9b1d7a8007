#include "SelectionCaption.h"

#include "SceneModel.h"

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

QString SelectionCaption::pathOf(const QModelIndex& row, bool fieldRow)
{
    QStringList names;
    for (QModelIndex at = row.siblingAtColumn(SceneModel::NameColumn); at.isValid(); at = at.parent())
        names.prepend(at.data().toString());
    if (names.isEmpty())
        return QString();
    if (fieldRow && names.size() > 1) {
        const QString field = names.takeLast();
        return names.join(QLatin1Char('/')) + QLatin1Char('.') + field;
    }
    return names.join(QLatin1Char('/'));
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
    if (!row.isValid()) {
        m_plain = tr("Nothing selected");
        setText(tr("<i>Nothing selected.</i> Choose a field in the scene tree to edit it."));
        setToolTip(QString());
        return;
    }
    const QString path = pathOf(row, fieldRow);
    const QString type = typeOf(row);
    m_plain = tr("%1 (%2)").arg(path, type);
    setText(
        tr("<b>%1</b> <span style=\"color:gray\">%2</span>").arg(path.toHtmlEscaped(), type.toHtmlEscaped()));
    setToolTip(m_plain);
}
