#pragma once

#include <QPersistentModelIndex>
#include <QWidget>

#include <vector>

class QLineEdit;
class QTimer;
class QTreeView;
class SceneModel;

// The scene tree with a filter box above it. A text shows the rows whose
// name, type or field name holds it, with their ancestors opened, over the
// whole scene; an empty one gives the tree back as it was.
//
// Rows are hidden in the tree rather than left out by a proxy model, so that
// the tree's indices stay the scene model's and selecting a row means what
// it did without a filter.
class SceneFilterBox : public QWidget
{
    Q_OBJECT

public:
    // The tree is placed below the box; its model is the scene model.
    SceneFilterBox(QTreeView* tree, SceneModel* model, QWidget* parent = nullptr);
    ~SceneFilterBox() override;

    QLineEdit* edit() const;
    // Rows whose text matched the filter applied last (0 without one).
    int matchCount() const;

public slots:
    // Filters by the box's text now, without waiting for typing to pause.
    void apply();

private:
    // Calls back for each row the filter hid.
    template <typename Hidden>
    void forEachHidden(Hidden hidden) const;
    void restore();
    void forgetRows();

    QTreeView* m_tree;
    SceneModel* m_model;
    QLineEdit* m_edit;
    QTimer* m_pause;
    int m_matches = 0;
    // What the filter thinned out and opened, to give back when it
    // changes: a row with the rows below it that stayed. Held per parent,
    // not per hidden row, since the tree holds an index of its own for each
    // of those.
    struct Narrowed
    {
        QPersistentModelIndex row;
        std::vector<int> keptRows;
        bool opened = false;
    };
    std::vector<Narrowed> m_narrowed;
    bool m_rootHidden = false;
};
