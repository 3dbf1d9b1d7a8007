#pragma once

#include <QAbstractItemModel>
#include <QHash>
#include <QSet>

#include <memory>
#include <vector>

class SoField;
class SoFieldContainer;
class SoNode;
class SoNodeSensor;
class SoSensor;

// The scene graph as a tree: every node with its fields first, then its
// children, and under a field that holds nodes the nodes it holds, as
// SceneRows counts them. Rows are made when a view first asks for them, so
// that a scene of any size opens at once, and a node used in several places
// gets its rows in each place only when that place is opened; value texts
// follow the fields as they change, and the nodes under a field follow its
// value.
class SceneModel : public QAbstractItemModel
{
    Q_OBJECT
    Q_DISABLE_COPY(SceneModel)

public:
    enum Column
    {
        NameColumn,
        TypeColumn,
        ValueColumn,
        ColumnCount
    };

    explicit SceneModel(QObject* parent = nullptr);
    ~SceneModel() override;

    // Shows another scene (or none); the model holds a reference to it.
    void setRoot(SoNode* root);
    SoNode* root() const;

    // What a row stands for: a field row has a field and its container, a
    // node row a container only.
    SoField* field(const QModelIndex& index) const;
    SoFieldContainer* container(const QModelIndex& index) const;

    // The row of the node reached from the root through these child places
    // (empty: the root itself), or of one of its fields.
    QModelIndex nodeIndex(const std::vector<int>& childPlaces) const;
    QModelIndex fieldIndex(const QModelIndex& nodeRow, SoField* field) const;

    // Every row is selected and none is edited in place.
    static Qt::ItemFlags rowFlags();

    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

signals:
    // A field of the shown scene changed its value, through any path.
    void fieldChanged(SoField* field);

private:
    struct Item;

    Item* itemOf(const QModelIndex& index) const;
    Item* childOf(Item* parent, int row) const;
    QVariant fieldData(Item* item, int column, int role) const;
    void freeRows(std::unique_ptr<Item> top);
    void refreshHeldRows(Item* item);
    void refreshValuesBelow(Item* top);
    static void sceneChanged(void* data, SoSensor* sensor);
    void refreshChangedValues();

    std::unique_ptr<Item> m_top;
    SoNode* m_root = nullptr;
    std::unique_ptr<SoNodeSensor> m_sensor;
    // Only fields that have a row are followed; a field of a node used in
    // several places has a row in each.
    mutable QMultiHash<SoField*, Item*> m_fieldRows;
    QSet<SoField*> m_changed;
    bool m_refreshQueued = false;
};
