#include "SceneFilterModel.h"

#include "SceneModel.h"

#include <algorithm>
#include <utility>

SceneFilterModel::SceneFilterModel(SceneModel* scene, QObject* parent)
    : QAbstractProxyModel(parent)
    , m_scene(scene)
{
    QAbstractProxyModel::setSourceModel(scene);
    forget();
    // The scene model resets for a new scene, changes values in place, and
    // changes rows only under a field whose nodes changed; the filtered rows
    // go then, and the box filters again.
    const auto goAway = [this] {
        beginResetModel();
        forget();
    };
    connect(scene, &QAbstractItemModel::modelAboutToBeReset, this, goAway);
    connect(scene, &QAbstractItemModel::modelReset, this, &SceneFilterModel::endResetModel);
    connect(scene, &QAbstractItemModel::rowsAboutToBeRemoved, this, goAway);
    connect(scene, &QAbstractItemModel::rowsRemoved, this, &SceneFilterModel::endResetModel);
    connect(scene, &QAbstractItemModel::rowsAboutToBeInserted, this, goAway);
    connect(scene, &QAbstractItemModel::rowsInserted, this, &SceneFilterModel::endResetModel);
    connect(scene, &QAbstractItemModel::dataChanged, this, &SceneFilterModel::sourceDataChanged);
}

SceneFilterModel::~SceneFilterModel() = default;

void SceneFilterModel::forget()
{
    m_listings.clear();
    m_listings.emplace_back();
    m_listings.back().narrowed = true;
}

void SceneFilterModel::clear()
{
    beginResetModel();
    forget();
    endResetModel();
}

void SceneFilterModel::setFound(SceneSearch::Result found)
{
    beginResetModel();
    forget();
    Listing* top = &m_listings.front();
    if (!found.rows.empty())
        top->rows.push_back(0);
    // Entries come parent first, and only a narrowed entry holds others.
    std::vector<Listing*> listings(found.rows.size(), nullptr);
    for (size_t i = 0; i < found.rows.size(); ++i) {
        SceneSearch::Row& entry = found.rows[i];
        if (!entry.narrowed)
            continue;
        Listing* holder = entry.parent < 0 ? top : listings[size_t(entry.parent)];
        if (!holder)
            continue;
        Listing listing;
        listing.sourceParent = m_scene->index(entry.row, 0, holder->sourceParent);
        if (!listing.sourceParent.isValid())
            continue;
        listing.holder = holder;
        listing.proxyRow = proxyRowOf(holder, entry.row);
        listing.narrowed = true;
        listing.rows = std::move(entry.keptRows);
        m_listings.push_back(std::move(listing));
        listings[i] = &m_listings.back();
        if (listings[i]->proxyRow >= 0)
            slotUnder(holder, listings[i]->proxyRow) = listings[i];
    }
    endResetModel();
}

QModelIndex SceneFilterModel::reveal(const QModelIndex& sourceIndex)
{
    if (!sourceIndex.isValid() || sourceIndex.model() != m_scene)
        return QModelIndex();
    // The way down from the top, the row itself last; without recursing.
    std::vector<QModelIndex> path;
    for (QModelIndex row = sourceIndex.siblingAtColumn(0); row.isValid(); row = row.parent())
        path.push_back(row);
    std::reverse(path.begin(), path.end());
    // Down to the first row the filter left out, if any. Only a narrowed
    // listing leaves rows out, so that is where the row goes in.
    Listing* holder = &m_listings.front();
    size_t depth = 0;
    for (; depth < path.size(); ++depth) {
        const int proxyRow = proxyRowOf(holder, path[depth].row());
        if (proxyRow < 0)
            break;
        if (depth + 1 == path.size())
            return createIndex(proxyRow, sourceIndex.column(), holder);
        holder = listingUnder(holder, proxyRow);
        if (!holder)
            return QModelIndex();
    }
    if (depth == path.size() || !holder->narrowed)
        return QModelIndex();
    // The rows below it come in with it: each ancestor lists only the next
    // row on the way, as a search that found the row alone would have.
    const auto at = std::lower_bound(holder->rows.begin(), holder->rows.end(), path[depth].row());
    const int insertAt = int(at - holder->rows.begin());
    Listing* first = nullptr;
    Listing* above = nullptr;
    for (size_t level = depth; level + 1 < path.size(); ++level) {
        Listing listing;
        listing.sourceParent = path[level];
        listing.holder = above ? above : holder;
        listing.proxyRow = above ? 0 : insertAt;
        listing.narrowed = true;
        listing.rows.push_back(path[level + 1].row());
        m_listings.push_back(std::move(listing));
        Listing* made = &m_listings.back();
        if (above)
            above->under.assign(1, made);
        else
            first = made;
        above = made;
    }

    beginInsertRows(proxyIndexOf(holder), insertAt, insertAt);
    holder->rows.insert(at, path[depth].row());
    if (holder->under.size() >= size_t(insertAt)) {
        holder->under.insert(holder->under.begin() + insertAt, first);
        for (size_t later = size_t(insertAt) + 1; later < holder->under.size(); ++later) {
            if (holder->under[later])
                holder->under[later]->proxyRow = int(later);
        }
    } else if (first) {
        slotUnder(holder, insertAt) = first;
    }
    endInsertRows();
    return mapFromSource(sourceIndex);
}

QModelIndex SceneFilterModel::proxyIndexOf(const Listing* listing) const
{
    return listing->holder ? createIndex(listing->proxyRow, 0, listing->holder) : QModelIndex();
}

std::vector<QModelIndex> SceneFilterModel::openedRows() const
{
    std::vector<QModelIndex> rows;
    for (const Listing& listing : m_listings) {
        if (listing.narrowed && listing.holder && listing.proxyRow >= 0)
            rows.push_back(createIndex(listing.proxyRow, 0, listing.holder));
    }
    return rows;
}

SceneFilterModel::Listing* SceneFilterModel::listingOf(const QModelIndex& sourceParent, bool make) const
{
    // The way down from the top, without recursing: scenes go tens of
    // thousands of levels deep.
    std::vector<QModelIndex> path;
    for (QModelIndex row = sourceParent.siblingAtColumn(0); row.isValid(); row = row.parent())
        path.push_back(row);
    Listing* holder = &m_listings.front();
    for (auto row = path.rbegin(); holder && row != path.rend(); ++row) {
        const int proxyRow = proxyRowOf(holder, row->row());
        if (proxyRow < 0)
            return nullptr;
        if (make)
            holder = listingUnder(holder, proxyRow);
        else
            holder = size_t(proxyRow) < holder->under.size() ? holder->under[size_t(proxyRow)] : nullptr;
    }
    return holder;
}

SceneFilterModel::Listing*& SceneFilterModel::slotUnder(Listing* holder, int proxyRow) const
{
    if (holder->under.empty())
        holder->under.resize(size_t(rowsOf(holder)), nullptr);
    if (size_t(proxyRow) >= holder->under.size())
        holder->under.resize(size_t(proxyRow) + 1, nullptr);
    return holder->under[size_t(proxyRow)];
}

SceneFilterModel::Listing* SceneFilterModel::listingUnder(Listing* holder, int proxyRow) const
{
    Listing*& slot = slotUnder(holder, proxyRow);
    if (slot)
        return slot;
    const int sourceRow = holder->narrowed ? holder->rows[size_t(proxyRow)] : proxyRow;
    const QModelIndex sourceParent = m_scene->index(sourceRow, 0, holder->sourceParent);
    if (!sourceParent.isValid())
        return nullptr;
    Listing listing;
    listing.sourceParent = sourceParent;
    listing.holder = holder;
    listing.proxyRow = proxyRow;
    m_listings.push_back(std::move(listing));
    slot = &m_listings.back();
    return slot;
}

int SceneFilterModel::rowsOf(const Listing* listing) const
{
    return listing->narrowed ? int(listing->rows.size()) : m_scene->rowCount(listing->sourceParent);
}

int SceneFilterModel::proxyRowOf(const Listing* listing, int sourceRow) const
{
    if (!listing->narrowed)
        return sourceRow >= 0 && sourceRow < m_scene->rowCount(listing->sourceParent) ? sourceRow : -1;
    const auto at = std::lower_bound(listing->rows.begin(), listing->rows.end(), sourceRow);
    return at != listing->rows.end() && *at == sourceRow ? int(at - listing->rows.begin()) : -1;
}

QModelIndex SceneFilterModel::mapToSource(const QModelIndex& proxyIndex) const
{
    if (!proxyIndex.isValid() || proxyIndex.model() != this)
        return QModelIndex();
    const auto* holder = static_cast<const Listing*>(proxyIndex.internalPointer());
    const int sourceRow = holder->narrowed ? holder->rows[size_t(proxyIndex.row())] : proxyIndex.row();
    return m_scene->index(sourceRow, proxyIndex.column(), holder->sourceParent);
}

QModelIndex SceneFilterModel::mapFromSource(const QModelIndex& sourceIndex) const
{
    if (!sourceIndex.isValid() || sourceIndex.model() != m_scene)
        return QModelIndex();
    // Each row on the way must be shown, and the listing under it is made
    // as a view would make it.
    Listing* holder = listingOf(sourceIndex.parent(), true);
    const int proxyRow = holder ? proxyRowOf(holder, sourceIndex.row()) : -1;
    return proxyRow < 0 ? QModelIndex() : createIndex(proxyRow, sourceIndex.column(), holder);
}

QModelIndex SceneFilterModel::index(int row, int column, const QModelIndex& parent) const
{
    if (row < 0 || column < 0 || column >= SceneModel::ColumnCount)
        return QModelIndex();
    Listing* holder = &m_listings.front();
    if (parent.isValid()) {
        if (parent.model() != this || parent.column() != 0)
            return QModelIndex();
        holder = listingUnder(static_cast<Listing*>(parent.internalPointer()), parent.row());
    }
    if (!holder || row >= rowsOf(holder))
        return QModelIndex();
    return createIndex(row, column, holder);
}

QModelIndex SceneFilterModel::parent(const QModelIndex& child) const
{
    if (!child.isValid())
        return QModelIndex();
    const auto* holder = static_cast<const Listing*>(child.internalPointer());
    return proxyIndexOf(holder);
}

QModelIndex SceneFilterModel::sibling(int row, int column, const QModelIndex& index) const
{
    if (!index.isValid() || row < 0 || column < 0 || column >= SceneModel::ColumnCount)
        return QModelIndex();
    auto* holder = static_cast<Listing*>(index.internalPointer());
    return row < rowsOf(holder) ? createIndex(row, column, holder) : QModelIndex();
}

int SceneFilterModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return rowsOf(&m_listings.front());
    if (parent.column() != 0)
        return 0;
    // Asked of every row a view lays out: a listing is made only when a
    // view opens the row.
    auto* holder = static_cast<Listing*>(parent.internalPointer());
    if (size_t(parent.row()) < holder->under.size() && holder->under[size_t(parent.row())])
        return rowsOf(holder->under[size_t(parent.row())]);
    return m_scene->rowCount(mapToSource(parent));
}

Qt::ItemFlags SceneFilterModel::flags(const QModelIndex& index) const
{
    return index.isValid() && index.model() == this ? SceneModel::rowFlags() : Qt::NoItemFlags;
}

int SceneFilterModel::columnCount(const QModelIndex&) const
{
    return SceneModel::ColumnCount;
}

bool SceneFilterModel::hasChildren(const QModelIndex& parent) const
{
    return rowCount(parent) > 0;
}

QVariant SceneFilterModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    // Straight through: the headers stay when the filter leaves no rows.
    return m_scene->headerData(section, orientation, role);
}

void SceneFilterModel::sourceDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                         const QVector<int>& roles)
{
    // A row no view has asked for has no listing above it, and nothing to
    // repaint.
    const Listing* holder = listingOf(topLeft.parent(), false);
    if (!holder)
        return;
    const int first = proxyRowOf(holder, topLeft.row());
    const int last = proxyRowOf(holder, bottomRight.row());
    if (first < 0 || last < 0)
        return;
    emit dataChanged(createIndex(first, topLeft.column(), const_cast<Listing*>(holder)),
                     createIndex(last, bottomRight.column(), const_cast<Listing*>(holder)), roles);
}
