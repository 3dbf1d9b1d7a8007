#include "SceneSearch.h"

#include "FieldMarks.h"
#include "SceneRows.h"

#include <Inventor/SbName.h>
#include <Inventor/SoType.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldData.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoNode.h>

#include <algorithm>
#include <unordered_map>

namespace {

// Scenes repeat a few node types and names many times over: each distinct
// text is compared once, and what a type's fields gave is kept for every
// node of that type.
class Matcher
{
public:
    explicit Matcher(const QString& text)
        : m_text(text)
        , m_unknown(SoType::fromName("UnknownNode"))
    {}

    bool nodeMatches(SoNode* node)
    {
        const SbName& name = node->getName();
        if (name.getLength() > 0) {
            auto known = m_names.find(name.getString());
            if (known == m_names.end())
                known = m_names.emplace(name.getString(), holds(QString::fromUtf8(name.getString()))).first;
            if (known->second)
                return true;
        }
        const SoType type = node->getTypeId();
        // A node of a type Coin did not know goes by the name its file gave
        // it, each its own, as the tree shows it.
        if (type == m_unknown)
            return holds(FieldMarks::typeName(node));
        auto known = m_types.find(type.getKey());
        if (known == m_types.end())
            known = m_types.emplace(type.getKey(), holds(QLatin1String(type.getName().getString()))).first;
        return known->second;
    }

    // The rows of the node's fields whose name or type matches: a field's
    // row is its index among the fields (see SceneRows).
    const std::vector<int>& fieldMatches(SoNode* node) { return fieldsOf(node).matching; }
    // The rows of the node's fields that hold nodes.
    const std::vector<int>& nodeFields(SoNode* node) { return fieldsOf(node).holding; }

private:
    bool holds(const QString& text) const { return text.contains(m_text, Qt::CaseInsensitive); }
    bool holds(QLatin1String text) const { return text.contains(m_text, Qt::CaseInsensitive); }

    QString m_text;
    SoType m_unknown;
    std::unordered_map<const char*, bool> m_names;
    std::unordered_map<int, bool> m_types;
    struct Fields
    {
        std::vector<int> matching;
        std::vector<int> holding;
    };

    const Fields& fieldsOf(SoNode* node)
    {
        const SoFieldData* data = node->getFieldData();
        auto known = m_fields.find(data);
        if (known != m_fields.end())
            return known->second;
        Fields fields;
        for (int i = 0; data && i < data->getNumFields(); ++i) {
            SoField* field = data->getField(node, i);
            const char* type = field->getTypeId().getName().getString();
            if (holds(QLatin1String(data->getFieldName(i).getString())) || holds(QLatin1String(type)))
                fields.matching.push_back(i);
            if (SceneRows::holdsNodes(field))
                fields.holding.push_back(i);
        }
        return m_fields.emplace(data, std::move(fields)).first->second;
    }

    std::unordered_map<const SoFieldData*, Fields> m_fields;
};

// A node or a field that holds nodes, on the way down, with its entry among
// the rows. A node goes through its node-holding fields first, then its
// children; a field through the nodes it holds. How many there are is asked
// of Coin once per frame rather than once per step: asking a node what its
// children are takes a few type checks, and a group has thousands.
struct Frame
{
    SoNode* node;
    SoField* field;
    int entry;
    int next;
    // A node by its name or type; a field by its own name or type.
    bool matched;
    // A field's nodes, or a node's children shown as rows of their own.
    int count;
    // A node's fields that hold nodes.
    const std::vector<int>* holding;
};

// What the walk knows of a node that may be met again: only a node with
// more than one reference can be.
enum class Seen
{
    Inside,
    NoMatch,
    Match
};

void keepRow(std::vector<int>& rows, int row)
{
    const auto at = std::lower_bound(rows.begin(), rows.end(), row);
    if (at == rows.end() || *at != row)
        rows.insert(at, row);
}

} // namespace

SceneSearch::Result SceneSearch::run(SoNode* root, const QString& text)
{
    Result result;
    if (!root || text.isEmpty())
        return result;
    Matcher matcher(text);
    std::vector<Frame> stack;
    std::unordered_map<SoNode*, Seen> seen;

    // Every node gets an entry on the way down; on the way up, one that
    // neither matched nor holds anything that did is the last entry (its
    // descendants were all dropped before it) and is dropped in turn.
    const auto enter = [&](SoNode* node, int parent, int row) {
        Row entry;
        entry.parent = parent;
        entry.row = row;
        if (node->getRefCount() > 1) {
            const auto met = seen.emplace(node, Seen::Inside);
            if (!met.second) {
                // Met before: kept whole and folded if anything in it
                // matched there; a node met again inside itself is not
                // gone into a second time.
                if (met.first->second == Seen::Match) {
                    result.rows.push_back(std::move(entry));
                    keepRow(result.rows[size_t(parent)].keptRows, row);
                }
                return;
            }
        }
        const bool matched = matcher.nodeMatches(node);
        entry.keptRows = matcher.fieldMatches(node);
        result.matches += int(matched) + int(entry.keptRows.size());
        result.rows.push_back(std::move(entry));
        stack.push_back({node, nullptr, int(result.rows.size()) - 1, 0, matched, SceneRows::childCount(node),
                         &matcher.nodeFields(node)});
    };

    enter(root, -1, 0);
    while (!stack.empty()) {
        Frame& top = stack.back();
        if (top.field) {
            if (top.next < top.count) {
                const int row = top.next++;
                if (SoNode* held = SceneRows::heldAt(top.field, row))
                    enter(held, top.entry, row);
                continue;
            }
        } else {
            const std::vector<int>& holding = *top.holding;
            if (top.next < int(holding.size())) {
                const int row = holding[size_t(top.next++)];
                SoField* field = SceneRows::fieldAt(top.node, row);
                const int held = SceneRows::heldCount(field);
                if (held > 0) {
                    const std::vector<int>& matching = matcher.fieldMatches(top.node);
                    Row entry;
                    entry.parent = top.entry;
                    entry.row = row;
                    result.rows.push_back(std::move(entry));
                    stack.push_back({top.node, field, int(result.rows.size()) - 1, 0,
                                     std::binary_search(matching.begin(), matching.end(), row), held,
                                     nullptr});
                }
                continue;
            }
            const int place = top.next - int(holding.size());
            if (place < top.count) {
                ++top.next;
                const int parent = top.entry;
                const int row = SceneRows::rowOfChild(top.node, place);
                enter((*top.node->getChildren())[place], parent, row);
                continue;
            }
        }
        const Frame done = stack.back();
        stack.pop_back();
        if (done.field && done.matched) {
            // Matched by its own name: kept whole, its row among its node's
            // already. What matched inside it was counted on the way.
            result.rows.resize(size_t(done.entry));
            continue;
        }
        Row& entry = result.rows[size_t(done.entry)];
        const bool kept = !entry.keptRows.empty() || done.matched;
        if (!done.field && done.node->getRefCount() > 1) {
            const auto met = seen.find(done.node);
            if (met != seen.end())
                met->second = kept ? Seen::Match : Seen::NoMatch;
        }
        if (!kept) {
            result.rows.pop_back();
            continue;
        }
        entry.narrowed = !entry.keptRows.empty();
        // A field's own match is among its node's rows already.
        if (entry.parent >= 0)
            keepRow(result.rows[size_t(entry.parent)].keptRows, entry.row);
    }
    return result;
}
