#pragma once

#include <QList>
#include <QObject>
#include <QTimer>

class QTreeView;
class QWidget;

// What the scene tree keeps in sight. Its name and type columns widen to
// what the rows in sight hold, measured once the tree settles after a
// scroll, an expansion or new rows (rows are made lazily, so only what is
// shown is measured); they never narrow under the reader's eyes. And the
// selected row stays in sight when the tree gets shorter: an editor shown
// under it, a dragged dock edge or the horizontal scroll bar coming.
class TreeSight : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(TreeSight)

public:
    TreeSight(QTreeView* tree, QList<int> columns);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void widen();
    void keepSelectedRow();

    QTreeView* m_tree;
    // The same tree and its viewport, to be told apart from the tree while
    // it is being taken down, when it is a tree no more.
    QObject* m_treeObject;
    QWidget* m_viewport;
    QList<int> m_columns;
    QTimer m_widen;
};
