#include "SceneModel.h"

#include "FieldMarks.h"
#include "LargeStack.h"
#include "RoundTripText.h"
#include "SceneRows.h"

#include <Inventor/SbName.h>
#include <Inventor/SbString.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoMField.h>
#include <Inventor/nodes/SoNode.h>
#include <Inventor/sensors/SoNodeSensor.h>

#include <QColor>
#include <QFont>

#include <utility>

namespace {

// A value text is a summary: long values are cut, and a list shows its size
// and its first values only, so that a field of a million values costs what
// a short one does.
constexpr int kMaxShownValues = 6;
constexpr int kMaxTextLength = 160;
constexpr int kMaxToolTipLength = 2000;

QString clipped(const QString& text, int maxLength = kMaxTextLength)
{
    QString shown = text.simplified();
    if (shown.size() > maxLength)
        shown = shown.left(maxLength - 1) + QChar(0x2026);
    return shown;
}

QString valueText(SoField* field, int maxLength = kMaxTextLength)
{
    const SoType type = field->getTypeId();
    if (field->isOfType(SoMField::getClassTypeId())) {
        auto* list = static_cast<SoMField*>(field);
        const int count = list->getNum();
        QStringList values;
        for (int i = 0; i < count && i < kMaxShownValues; ++i) {
            SbString value;
            list->get1(i, value);
            values << clipped(RoundTripText::shorten(QString::fromUtf8(value.getString()), type), maxLength);
        }
        QString text = QStringLiteral("[%1] %2").arg(count).arg(values.join(QStringLiteral(", ")));
        if (count > kMaxShownValues)
            text += QStringLiteral(", ") + QChar(0x2026);
        return clipped(text, maxLength);
    }
    return clipped(RoundTripText::of(field), maxLength);
}

} // namespace

struct SceneModel::Item
{
    Item* parent = nullptr;
    int row = 0;
    SoNode* node = nullptr;
    SoField* field = nullptr;
    // A node held by a field is referenced by its row: a new value may drop
    // the field's last reference to it before the row is gone.
    bool holdsReference = false;
    // A field row of an SFNode or MFNode: only those have rows under them,
    // and a view asks every field row it lays out.
    bool holdsNodes = false;
    // Made on demand; a null entry is a row no view has asked for yet.
    std::vector<std::unique_ptr<Item>> children;
    bool sized = false;
};

SceneModel::SceneModel(QObject* parent)
    : QAbstractItemModel(parent)
    , m_top(new Item)
    , m_sensor(new SoNodeSensor(&SceneModel::sceneChanged, this))
{
    // Immediate, so that the field that changed is known in the callback.
    m_sensor->setPriority(0);
}

SceneModel::~SceneModel()
{
    m_sensor->detach();
    freeRows(std::move(m_top));
    LargeStack::unref(m_root);
}

void SceneModel::freeRows(std::unique_ptr<Item> top)
{
    // Rows reach as deep as the scene does; freeing them through their
    // owners would recurse once per level.
    std::vector<std::unique_ptr<Item>> pending;
    pending.push_back(std::move(top));
    while (!pending.empty()) {
        std::unique_ptr<Item> item = std::move(pending.back());
        pending.pop_back();
        if (!item)
            continue;
        for (std::unique_ptr<Item>& child : item->children)
            pending.push_back(std::move(child));
        if (item->field)
            m_fieldRows.remove(item->field, item.get());
        if (item->holdsReference)
            LargeStack::unref(item->node);
    }
}

void SceneModel::refreshHeldRows(Item* item)
{
    // The rows under a field follow its value: the old ones go and the new
    // ones come, so that a view never reaches a node the field let go of.
    if (!item->sized)
        return;
    const int count = SceneRows::heldCount(item->field);
    bool same = size_t(count) == item->children.size();
    for (int i = 0; same && i < count; ++i) {
        const std::unique_ptr<Item>& child = item->children[size_t(i)];
        same = !child || child->node == SceneRows::heldAt(item->field, i);
    }
    if (same) {
        // Coin names the holding field as the one that changed when a
        // field of a node it holds did: the rows below show their values
        // again.
        refreshValuesBelow(item);
        return;
    }
    const QModelIndex at = createIndex(item->row, 0, item);
    if (!item->children.empty()) {
        beginRemoveRows(at, 0, int(item->children.size()) - 1);
        std::vector<std::unique_ptr<Item>> gone = std::move(item->children);
        item->children.clear();
        for (std::unique_ptr<Item>& child : gone)
            freeRows(std::move(child));
        endRemoveRows();
    }
    if (count > 0) {
        beginInsertRows(at, 0, count - 1);
        item->children.resize(size_t(count));
        endInsertRows();
    }
}

void SceneModel::refreshValuesBelow(Item* top)
{
    std::vector<Item*> pending{top};
    while (!pending.empty()) {
        Item* item = pending.back();
        pending.pop_back();
        for (const std::unique_ptr<Item>& child : item->children) {
            if (!child)
                continue;
            pending.push_back(child.get());
            if (child->field) {
                const QModelIndex value = createIndex(child->row, ValueColumn, child.get());
                emit dataChanged(value, value, {Qt::DisplayRole, Qt::ToolTipRole});
            }
        }
    }
}

void SceneModel::setRoot(SoNode* root)
{
    beginResetModel();
    m_sensor->detach();
    m_changed.clear();
    freeRows(std::exchange(m_top, std::make_unique<Item>()));
    m_fieldRows.clear();
    if (root)
        root->ref();
    // The last reference to a deep scene frees it level by level.
    LargeStack::unref(m_root);
    m_root = root;
    if (m_root)
        m_sensor->attach(m_root);
    endResetModel();
}

SoNode* SceneModel::root() const
{
    return m_root;
}

SceneModel::Item* SceneModel::itemOf(const QModelIndex& index) const
{
    return index.isValid() ? static_cast<Item*>(index.internalPointer()) : m_top.get();
}

SceneModel::Item* SceneModel::childOf(Item* parent, int row) const
{
    if (!parent->sized) {
        parent->sized = true;
        if (parent == m_top.get())
            parent->children.resize(m_root ? 1 : 0);
        else if (parent->holdsNodes)
            parent->children.resize(size_t(SceneRows::heldCount(parent->field)));
        else if (parent->node)
            parent->children.resize(size_t(SceneRows::count(parent->node)));
    }
    if (row < 0 || size_t(row) >= parent->children.size())
        return nullptr;
    std::unique_ptr<Item>& slot = parent->children[size_t(row)];
    if (!slot) {
        slot.reset(new Item);
        slot->parent = parent;
        slot->row = row;
        if (parent == m_top.get()) {
            slot->node = m_root;
        } else if (parent->field) {
            slot->node = SceneRows::heldAt(parent->field, row);
            slot->holdsReference = slot->node != nullptr;
            if (slot->holdsReference)
                slot->node->ref();
        } else {
            slot->field = SceneRows::fieldAt(parent->node, row);
            slot->holdsNodes = SceneRows::holdsNodes(slot->field);
            if (slot->field)
                m_fieldRows.insert(slot->field, slot.get());
            else
                slot->node = SceneRows::childAt(parent->node, row);
        }
    }
    return slot.get();
}

SoField* SceneModel::field(const QModelIndex& index) const
{
    Item* item = index.isValid() ? itemOf(index) : nullptr;
    return item ? item->field : nullptr;
}

SoFieldContainer* SceneModel::container(const QModelIndex& index) const
{
    Item* item = index.isValid() ? itemOf(index) : nullptr;
    if (!item)
        return nullptr;
    return item->field ? item->parent->node : item->node;
}

QModelIndex SceneModel::nodeIndex(const std::vector<int>& childPlaces) const
{
    QModelIndex current = index(0, 0);
    for (int place : childPlaces) {
        Item* item = itemOf(current);
        if (!current.isValid() || !item->node)
            return QModelIndex();
        current = index(SceneRows::rowOfChild(item->node, place), 0, current);
    }
    return current;
}

QModelIndex SceneModel::fieldIndex(const QModelIndex& nodeRow, SoField* wanted) const
{
    Item* item = nodeRow.isValid() ? itemOf(nodeRow) : nullptr;
    if (!item || !item->node || !wanted)
        return QModelIndex();
    const int row = SceneRows::rowOfField(item->node, wanted);
    return row < 0 ? QModelIndex() : index(row, 0, nodeRow);
}

QModelIndex SceneModel::index(int row, int column, const QModelIndex& parent) const
{
    if (column < 0 || column >= ColumnCount)
        return QModelIndex();
    Item* parentItem = itemOf(parent);
    Item* item = childOf(parentItem, row);
    return item ? createIndex(row, column, item) : QModelIndex();
}

QModelIndex SceneModel::parent(const QModelIndex& child) const
{
    Item* item = child.isValid() ? itemOf(child) : nullptr;
    if (!item || !item->parent || item->parent == m_top.get())
        return QModelIndex();
    return createIndex(item->parent->row, 0, item->parent);
}

int SceneModel::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid() && parent.column() != 0)
        return 0;
    Item* item = itemOf(parent);
    // Once made, the rows are what the model has told the views.
    if (item->sized)
        return int(item->children.size());
    if (item == m_top.get())
        return m_root ? 1 : 0;
    if (item->field)
        return item->holdsNodes ? SceneRows::heldCount(item->field) : 0;
    return SceneRows::count(item->node);
}

Qt::ItemFlags SceneModel::rowFlags()
{
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled;
}

Qt::ItemFlags SceneModel::flags(const QModelIndex& index) const
{
    return index.isValid() ? rowFlags() : Qt::NoItemFlags;
}

int SceneModel::columnCount(const QModelIndex&) const
{
    return ColumnCount;
}

bool SceneModel::hasChildren(const QModelIndex& parent) const
{
    return rowCount(parent) > 0;
}

QVariant SceneModel::data(const QModelIndex& index, int role) const
{
    Item* item = index.isValid() ? itemOf(index) : nullptr;
    if (!item)
        return QVariant();
    if (!item->node && !item->field)
        return role == Qt::DisplayRole && index.column() == NameColumn ? QStringLiteral("NULL") : QVariant();
    if (item->field)
        return fieldData(item, index.column(), role);
    if (role == Qt::FontRole && index.column() == NameColumn) {
        QFont font;
        font.setBold(true);
        return font;
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return QVariant();
    switch (index.column()) {
    case NameColumn:
        return FieldMarks::displayName(item->node);
    case TypeColumn:
        return FieldMarks::typeName(item->node);
    default:
        return QVariant();
    }
}

QVariant SceneModel::fieldData(Item* item, int column, int role) const
{
    switch (role) {
    case Qt::FontRole: {
        // The name stands out; the value only leans with an ignored field,
        // so that values stay easy to read side by side.
        if (column == NameColumn)
            return FieldMarks::font(item->field, QFont());
        if (column == ValueColumn && item->field->isIgnored()) {
            QFont font;
            font.setItalic(true);
            return font;
        }
        return QVariant();
    }
    case Qt::ForegroundRole:
        // An ignored field has no say in what is drawn: it is greyed.
        return item->field->isIgnored() ? QVariant(QColor(Qt::gray)) : QVariant();
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        break;
    default:
        return QVariant();
    }
    switch (column) {
    case NameColumn: {
        if (role == Qt::ToolTipRole)
            return FieldMarks::stateText(item->field);
        SbName name;
        item->parent->node->getFieldName(item->field, name);
        return QString::fromLatin1(name.getString());
    }
    case TypeColumn:
        return QString::fromLatin1(item->field->getTypeId().getName().getString());
    default: {
        // The tooltip shows what the cell cuts, up to a size a tooltip can
        // hold. A driven field says first where its value comes from.
        const QString value =
            valueText(item->field, role == Qt::ToolTipRole ? kMaxToolTipLength : kMaxTextLength);
        const QString source = FieldMarks::sourceMark(item->field);
        return source.isEmpty() ? value : source + QStringLiteral(": ") + value;
    }
    }
}

QVariant SceneModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    switch (section) {
    case NameColumn:
        return tr("Name");
    case TypeColumn:
        return tr("Type");
    case ValueColumn:
        return tr("Value");
    default:
        return QVariant();
    }
}

void SceneModel::sceneChanged(void* data, SoSensor* sensor)
{
    auto* model = static_cast<SceneModel*>(data);
    SoField* field = static_cast<SoNodeSensor*>(sensor)->getTriggerField();
    if (!field)
        return;
    emit model->fieldChanged(field);
    if (!model->m_fieldRows.contains(field))
        return;
    // A field's rows, or the nodes under them, are never changed while Coin
    // is in the middle of a notification.
    // Many writes in a row (a slider drag) refresh the row once.
    model->m_changed.insert(field);
    if (!model->m_refreshQueued) {
        model->m_refreshQueued = true;
        QMetaObject::invokeMethod(
            model, [model] { model->refreshChangedValues(); }, Qt::QueuedConnection);
    }
}

void SceneModel::refreshChangedValues()
{
    m_refreshQueued = false;
    const QSet<SoField*> changed = std::move(m_changed);
    m_changed.clear();
    for (SoField* field : changed) {
        for (Item* item : m_fieldRows.values(field)) {
            if (SceneRows::holdsNodes(field))
                refreshHeldRows(item);
            // The whole row: the name's mark follows the field's state too.
            emit dataChanged(createIndex(item->row, NameColumn, item),
                             createIndex(item->row, ValueColumn, item),
                             {Qt::DisplayRole, Qt::ToolTipRole, Qt::FontRole, Qt::ForegroundRole});
        }
    }
}
