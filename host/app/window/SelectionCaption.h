#pragma once

#include <QLabel>
#include <QModelIndex>
#include <QString>

class NodeSummary;
class QDockWidget;

// Says which node and field the editors below it are editing. It sits at the
// top of the window's right column, which it also holds open when the
// plug-in hides its docks, so that the 3D view keeps its width.
class SelectionCaption : public QLabel
{
    Q_OBJECT
    Q_DISABLE_COPY(SelectionCaption)

public:
    explicit SelectionCaption(QWidget* parent = nullptr);

    // The dock the caption lives in, made on first call ("SelectionDock"),
    // with the summary of a selected node under the caption.
    QDockWidget* dock();
    NodeSummary* nodeSummary() const;

    // A row of the scene tree (invalid: nothing selected), a field's row or
    // a node's.
    void showRow(const QModelIndex& row, bool fieldRow);
    QString plainText() const;

    // The path --select takes back to the row: "Sampler.orientation",
    // "Ornament/Gold", "/1/3/1.vertexProperty" (see ScenePath).
    static QString pathOf(const QModelIndex& row);
    // The type name shown in the tree's type column.
    static QString typeOf(const QModelIndex& row);

    // The layouts ask for both at every new text; QLabel answers by laying
    // the rich text out at several widths, none of them the one it has. The
    // width is never asked for (the caption's is ignored), the height is the
    // one fitted at the caption's own width.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    // The main window's docks know nothing of a height that follows the
    // width: the caption asks for the height its wrapped text takes at the
    // width it has, so that no line of it is cut. Laying rich text out is
    // not free: a hidden caption waits until it shows.
    void fitHeight();

    int oneLineHeight() const;

    QDockWidget* m_dock = nullptr;
    NodeSummary* m_summary;
    QString m_plain;
};
