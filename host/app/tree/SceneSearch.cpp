#include "SceneSearch.h"

#include "SceneRows.h"

#include <Inventor/SbName.h>
#include <Inventor/SoType.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldData.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoNode.h>

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
        auto known = m_types.find(type.getKey());
        if (known == m_types.end())
            known = m_types.emplace(type.getKey(), holds(QLatin1String(type.getName().getString()))).first;
        return known->second;
    }

    // The rows of the node's fields whose name or type matches: a field's
    // row is its index among the fields (see SceneRows).
    const std::vector<int>& fieldMatches(SoNode* node)
    {
        const SoFieldData* data = node->getFieldData();
        auto known = m_fields.find(data);
        if (known != m_fields.end())
            return known->second;
        std::vector<int> matching;
        for (int i = 0; data && i < data->getNumFields(); ++i) {
            const char* type = data->getField(node, i)->getTypeId().getName().getString();
            if (holds(QLatin1String(data->getFieldName(i).getString())) || holds(QLatin1String(type)))
                matching.push_back(i);
        }
        return m_fields.emplace(data, std::move(matching)).first->second;
    }

private:
    bool holds(const QString& text) const { return text.contains(m_text, Qt::CaseInsensitive); }
    bool holds(QLatin1String text) const { return text.contains(m_text, Qt::CaseInsensitive); }

    QString m_text;
    std::unordered_map<const char*, bool> m_names;
    std::unordered_map<int, bool> m_types;
    std::unordered_map<const SoFieldData*, std::vector<int>> m_fields;
};

// A node on the way down, with its entry among the rows.
struct Frame
{
    SoNode* node;
    int entry;
    int nextChild;
    bool matched;
};

} // namespace

SceneSearch::Result SceneSearch::run(SoNode* root, const QString& text)
{
    Result result;
    if (!root || text.isEmpty())
        return result;
    Matcher matcher(text);
    std::vector<Frame> stack;

    // Every node gets an entry on the way down; on the way up, one that
    // neither matched nor holds anything that did is the last entry (its
    // descendants were all dropped before it) and is dropped in turn.
    const auto enter = [&](SoNode* node, int parent, int row) {
        Row entry;
        entry.parent = parent;
        entry.row = row;
        const bool matched = matcher.nodeMatches(node);
        entry.keptRows = matcher.fieldMatches(node);
        result.matches += int(matched) + int(entry.keptRows.size());
        result.rows.push_back(std::move(entry));
        stack.push_back({node, int(result.rows.size()) - 1, 0, matched});
    };

    enter(root, -1, 0);
    while (!stack.empty()) {
        Frame& top = stack.back();
        SoChildList* children = top.node->getChildren();
        if (children && top.nextChild < children->getLength()) {
            const int place = top.nextChild++;
            const int parent = top.entry;
            const int row = SceneRows::rowOfChild(top.node, place);
            enter((*children)[place], parent, row);
            continue;
        }
        const Frame done = top;
        stack.pop_back();
        Row& entry = result.rows[size_t(done.entry)];
        if (entry.keptRows.empty() && !done.matched) {
            result.rows.pop_back();
            continue;
        }
        entry.narrowed = !entry.keptRows.empty();
        if (entry.parent >= 0)
            result.rows[size_t(entry.parent)].keptRows.push_back(entry.row);
    }
    return result;
}
