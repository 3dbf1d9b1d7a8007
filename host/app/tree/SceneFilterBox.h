#pragma once

#include <QWidget>

class QItemSelection;
class QLineEdit;
class QStackedWidget;
class QTimer;
class QTreeView;
class SceneFilterModel;
class SceneModel;

// The scene tree with a filter box above it. A text shows the rows whose
// name, type or field name holds it, with their ancestors opened, over the
// whole scene; an empty one gives the tree back as it was.
//
// While a text is set, a second tree over the filtered rows takes the scene
// tree's place. The scene tree itself is left as it was, so that its indices
// stay the scene model's and its open rows need no putting back; a row
// selected in either tree is selected in the other.
class SceneFilterBox : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(SceneFilterBox)

public:
    // The tree is placed below the box; its model is the scene model.
    SceneFilterBox(QTreeView* tree, SceneModel* model, QWidget* parent = nullptr);
    ~SceneFilterBox() override;

    QLineEdit* edit() const;
    // The tree of the filtered rows, in sight while a text is set.
    QTreeView* filteredTree() const;
    SceneFilterModel* filteredModel() const;
    // Rows whose text matched the filter applied last (0 without one).
    int matchCount() const;

public slots:
    // Filters by the box's text now, without waiting for typing to pause.
    void apply();
    // Puts the selected row's path on the clipboard ("Copy Path" on the
    // trees' rows).
    void copySelectedPath();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showScene();
    void enterRows();
    void showFiltered();
    void filteredSelectionChanged();
    // Selects in the filtered tree what the scene tree has selected. A row
    // selected elsewhere (the 3D view, a script) that the filter left out
    // is added to the filtered rows when reveal is set; after a new text,
    // a selection the text does not match is not.
    void followSceneSelection(bool reveal);
    void matchHeader(QTreeView* from, QTreeView* to);

    QTreeView* m_tree;
    SceneModel* m_model;
    QLineEdit* m_edit;
    QTimer* m_pause;
    QStackedWidget* m_trees;
    SceneFilterModel* m_filtered;
    QTreeView* m_filteredTree;
    int m_matches = 0;
    // Set while one tree's selection is passed to the other.
    bool m_mirroring = false;
};
