#pragma once

#include "SceneSearch.h"

#include <QAbstractProxyModel>

#include <deque>
#include <vector>

class SceneModel;

// The scene tree as a filter leaves it: the rows a search kept, with their
// ancestors, and below a row that matched by itself everything it holds, as
// the scene model has it.
//
// Rows that are left out are not there at all, rather than hidden in a
// view: a text found in tens of thousands of places costs a view the rows it
// shows and nothing for those it leaves out. What a row's parent lists is
// worked out once per parent, for the parents the search opened when it is
// applied and for the others when a view first opens them.
class SceneFilterModel : public QAbstractProxyModel
{
    Q_OBJECT
    Q_DISABLE_COPY(SceneFilterModel)

public:
    explicit SceneFilterModel(SceneModel* scene, QObject* parent = nullptr);
    ~SceneFilterModel() override;

    // Shows what a search of the scene model's root found; an empty result
    // leaves no rows.
    void setFound(SceneSearch::Result found);
    // No rows, and nothing kept from the last search.
    void clear();
    // Where a row of the scene model is shown, adding it, with those of its
    // ancestors the filter left out, if the filter left it out. Selecting a
    // node in the 3D view while a filter is set shows it this way rather
    // than losing the filter or selecting nothing.
    QModelIndex reveal(const QModelIndex& sourceIndex);

    // The rows the search opened (something inside them matched), a parent
    // before its children.
    std::vector<QModelIndex> openedRows() const;

    QModelIndex mapToSource(const QModelIndex& proxyIndex) const override;
    QModelIndex mapFromSource(const QModelIndex& sourceIndex) const override;

    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    QModelIndex sibling(int row, int column, const QModelIndex& index) const override;
    // Those of the scene model, without mapping the row: a view asks them
    // of every row it opens, several times.
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    // The rows shown under one row of the scene model. A proxy index points
    // at the listing it is a row of.
    struct Listing
    {
        // Column 0; invalid for the top.
        QModelIndex sourceParent;
        // The listing that holds sourceParent, and its row there.
        Listing* holder = nullptr;
        int proxyRow = 0;
        // Narrowed: only these rows of the scene model's, in increasing
        // order. Otherwise every row, as the scene model has them.
        bool narrowed = false;
        std::vector<int> rows;
        // The listings of the rows it shows, by proxy row, as they are made:
        // a view asks for them once per row it lays out.
        std::vector<Listing*> under;
    };

    void forget();
    QModelIndex proxyIndexOf(const Listing* listing) const;
    // The listing of the rows shown under a row of the scene model, found
    // from the top down; null if the filter left a row on the way out, or,
    // unless make is set, if no view has opened one.
    Listing* listingOf(const QModelIndex& sourceParent, bool make) const;
    // Where the listing of a shown row is kept; null until one is made.
    Listing*& slotUnder(Listing* holder, int proxyRow) const;
    // The listing of the rows under a shown row, made if no one asked yet.
    Listing* listingUnder(Listing* holder, int proxyRow) const;
    int rowsOf(const Listing* listing) const;
    // The proxy row of a scene model row in its parent's listing; -1 if the
    // filter left it out.
    int proxyRowOf(const Listing* listing, int sourceRow) const;
    void sourceDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                           const QVector<int>& roles);

    SceneModel* m_scene;
    // The top's first. A listing is found through those above it rather
    // than by a table of every listing: tens of thousands are made at once.
    mutable std::deque<Listing> m_listings;
};
