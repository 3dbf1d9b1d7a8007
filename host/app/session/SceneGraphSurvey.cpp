#include "SceneGraphSurvey.h"

#include <Inventor/fields/SoFieldData.h>
#include <Inventor/fields/SoMFNode.h>
#include <Inventor/fields/SoSFNode.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoNode.h>

#include <QHash>
#include <QSet>

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace {

// One way from a node to another: a child at its place, or a node-valued
// field (and the value's place in a list field).
struct Edge
{
    SoNode* to;
    int index;
    SoField* field;
};

// Where the fields of one layout hold nodes. Every node of a class shares
// its class's field data, so its fields are asked their type once per class
// (or once per node that has fields of its own) rather than once per node.
class NodeFieldPlaces
{
public:
    struct Place
    {
        int index;
        bool list;
    };

    // `fields` is the node's field data; a node without any has no places.
    const std::vector<Place>& of(SoNode* node, const SoFieldData* fields)
    {
        static const std::vector<Place> none;
        if (!fields)
            return none;
        auto known = m_places.find(fields);
        if (known != m_places.end())
            return known->second;
        std::vector<Place> places;
        for (int i = 0; i < fields->getNumFields(); ++i) {
            SoField* field = fields->getField(node, i);
            if (field->isOfType(SoSFNode::getClassTypeId()))
                places.push_back({i, false});
            else if (field->isOfType(SoMFNode::getClassTypeId()))
                places.push_back({i, true});
        }
        return m_places.emplace(fields, std::move(places)).first->second;
    }

private:
    std::unordered_map<const SoFieldData*, std::vector<Place>> m_places;
};

// Appends a node's children first, then the nodes its fields hold: the
// children are what a traversal goes through, the fields what Coin writes
// nested and what a kit's parts or a VRML group's children live in. The
// edges of every node on the way down share one vector, which saves a
// block a node.
void appendEdgesOf(SoNode* node, NodeFieldPlaces* places, std::vector<Edge>* edges, int* childCount)
{
    *childCount = 0;
    if (SoChildList* children = node->getChildren()) {
        for (int i = 0; i < children->getLength(); ++i) {
            if (SoNode* child = (*children)[i]) {
                edges->push_back({child, i, nullptr});
                ++*childCount;
            }
        }
    }
    const SoFieldData* fields = node->getFieldData();
    for (const NodeFieldPlaces::Place& place : places->of(node, fields)) {
        SoField* field = fields->getField(node, place.index);
        if (!place.list) {
            if (SoNode* value = static_cast<SoSFNode*>(field)->getValue())
                edges->push_back({value, 0, field});
            continue;
        }
        auto* list = static_cast<SoMFNode*>(field);
        for (int j = 0; j < list->getNum(); ++j) {
            if (SoNode* value = (*list)[j])
                edges->push_back({value, j, field});
        }
    }
}

QString placeOf(SoNode* from, const Edge& edge)
{
    if (!edge.field)
        return QStringLiteral("/%1").arg(edge.index);
    SbName name;
    from->getFieldName(edge.field, name);
    QString place = QLatin1Char('.') + QString::fromUtf8(name.getString());
    if (edge.field->isOfType(SoMFNode::getClassTypeId()))
        place += QStringLiteral("[%1]").arg(edge.index);
    return place;
}

std::uint64_t addSaturating(std::uint64_t a, std::uint64_t b)
{
    return a > SceneGraphSurvey::kTooMany - b ? SceneGraphSurvey::kTooMany : a + b;
}

} // namespace

SceneGraphSurvey::SceneGraphSurvey(SoNode* root)
{
    if (!root)
        return;
    struct Figures
    {
        bool finished = false;
        int depth = 0;
        std::uint64_t visits = 0;
    };
    // A node on the way down, its edges at [first, end) of the shared
    // edges, the one to follow next at next.
    struct Frame
    {
        SoNode* node;
        size_t first;
        size_t end;
        size_t next;
        int childCount;
    };
    QHash<SoNode*, Figures> figures;
    std::vector<Frame> pending;
    std::vector<Edge> edges;
    NodeFieldPlaces places;
    const auto enter = [&](SoNode* node) {
        figures.insert(node, Figures());
        const size_t first = edges.size();
        int childCount = 0;
        appendEdgesOf(node, &places, &edges, &childCount);
        pending.push_back({node, first, edges.size(), first, childCount});
    };
    enter(root);
    while (!pending.empty()) {
        Frame& frame = pending.back();
        if (frame.next < frame.end) {
            SoNode* const to = edges[frame.next++].to;
            const auto known = figures.constFind(to);
            if (known == figures.constEnd()) {
                enter(to);
            } else if (!known->finished) {
                m_cycle = to;
                break;
            }
            continue;
        }
        Figures done;
        done.finished = true;
        done.visits = 1;
        for (size_t i = frame.first; i < frame.end; ++i) {
            const Figures& next = figures[edges[i].to];
            done.depth = std::max(done.depth, next.depth);
            if (i < frame.first + size_t(frame.childCount))
                done.visits = addSaturating(done.visits, next.visits);
        }
        ++done.depth;
        figures.insert(frame.node, done);
        edges.resize(frame.first);
        pending.pop_back();
    }
    if (m_cycle) {
        const QString type = QString::fromUtf8(m_cycle->getTypeId().getName().getString());
        const QString name = QString::fromUtf8(m_cycle->getName().getString());
        if (!name.isEmpty()) {
            m_cycleText = type + QLatin1Char(' ') + name;
        } else {
            // The frames still on the stack are the way down to it.
            QString place;
            for (size_t i = 0; i + 1 < pending.size() && pending[i].node != m_cycle; ++i)
                place += placeOf(pending[i].node, edges[pending[i].next - 1]);
            m_cycleText = tr("%1 at %2").arg(type, place.isEmpty() ? QStringLiteral("/") : place);
        }
        return;
    }
    const Figures& top = figures[root];
    m_depth = top.depth;
    m_visits = top.visits;
    m_nodeCount = figures.size();
}

SoNode* SceneGraphSurvey::cycle() const
{
    return m_cycle;
}

QString SceneGraphSurvey::cycleText() const
{
    return m_cycleText;
}

int SceneGraphSurvey::depth() const
{
    return m_depth;
}

int SceneGraphSurvey::nodeCount() const
{
    return m_nodeCount;
}

std::uint64_t SceneGraphSurvey::traversalVisits() const
{
    return m_visits;
}

void SceneGraphSurvey::dismantle(SoNode* root)
{
    if (!root)
        return;
    // Every node is held here while the ties between them are cut, so that
    // none is freed half-way, and then freed on its own: no destructor is
    // left with children to recurse into.
    QSet<SoNode*> seen{root};
    std::vector<SoNode*> nodes{root};
    std::vector<Edge> edges;
    NodeFieldPlaces places;
    int childCount = 0;
    for (size_t i = 0; i < nodes.size(); ++i) {
        edges.clear();
        appendEdgesOf(nodes[i], &places, &edges, &childCount);
        for (const Edge& edge : edges) {
            if (!seen.contains(edge.to)) {
                seen.insert(edge.to);
                nodes.push_back(edge.to);
            }
        }
    }
    for (SoNode* node : nodes) {
        node->ref();
        node->enableNotify(FALSE);
    }
    for (SoNode* node : nodes) {
        const SoFieldData* fields = node->getFieldData();
        for (const NodeFieldPlaces::Place& place : places.of(node, fields)) {
            SoField* field = fields->getField(node, place.index);
            if (place.list)
                static_cast<SoMFNode*>(field)->setNum(0);
            else
                static_cast<SoSFNode*>(field)->setValue(nullptr);
        }
        if (SoChildList* children = node->getChildren())
            children->truncate(0);
    }
    root->unref();
    for (SoNode* node : nodes)
        node->unref();
}
