#include "SceneGraphSurvey.h"

#include <Inventor/fields/SoFieldData.h>
#include <Inventor/fields/SoMFNode.h>
#include <Inventor/fields/SoSFNode.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoNode.h>

#include <QHash>
#include <QSet>

#include <algorithm>
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

// A node's children first, then the nodes its fields hold: the children
// are what a traversal goes through, the fields what Coin writes nested
// and what a kit's parts or a VRML group's children live in.
void edgesOf(SoNode* node, std::vector<Edge>* edges, int* childCount)
{
    edges->clear();
    if (SoChildList* children = node->getChildren()) {
        for (int i = 0; i < children->getLength(); ++i)
            edges->push_back({(*children)[i], i, nullptr});
    }
    *childCount = int(edges->size());
    const SoFieldData* fields = node->getFieldData();
    for (int i = 0; fields && i < fields->getNumFields(); ++i) {
        SoField* field = fields->getField(node, i);
        if (field->isOfType(SoSFNode::getClassTypeId())) {
            edges->push_back({static_cast<SoSFNode*>(field)->getValue(), 0, field});
        } else if (field->isOfType(SoMFNode::getClassTypeId())) {
            auto* list = static_cast<SoMFNode*>(field);
            for (int j = 0; j < list->getNum(); ++j)
                edges->push_back({(*list)[j], j, field});
        }
    }
    edges->erase(std::remove_if(edges->begin(), edges->end(), [](const Edge& edge) { return !edge.to; }),
                 edges->end());
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
    struct Frame
    {
        SoNode* node;
        std::vector<Edge> edges;
        int childCount;
        size_t next;
    };
    QHash<SoNode*, Figures> figures;
    std::vector<Frame> pending;
    const auto enter = [&figures, &pending](SoNode* node) {
        figures.insert(node, Figures());
        pending.push_back({node, {}, 0, 0});
        edgesOf(node, &pending.back().edges, &pending.back().childCount);
    };
    enter(root);
    while (!pending.empty()) {
        Frame& frame = pending.back();
        if (frame.next < frame.edges.size()) {
            SoNode* const to = frame.edges[frame.next++].to;
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
        for (size_t i = 0; i < frame.edges.size(); ++i) {
            const Figures& next = figures[frame.edges[i].to];
            done.depth = std::max(done.depth, next.depth);
            if (int(i) < frame.childCount)
                done.visits = addSaturating(done.visits, next.visits);
        }
        ++done.depth;
        figures.insert(frame.node, done);
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
                place += placeOf(pending[i].node, pending[i].edges[pending[i].next - 1]);
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
    int childCount = 0;
    for (size_t i = 0; i < nodes.size(); ++i) {
        edgesOf(nodes[i], &edges, &childCount);
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
        for (int i = 0; fields && i < fields->getNumFields(); ++i) {
            SoField* field = fields->getField(node, i);
            if (field->isOfType(SoSFNode::getClassTypeId()))
                static_cast<SoSFNode*>(field)->setValue(nullptr);
            else if (field->isOfType(SoMFNode::getClassTypeId()))
                static_cast<SoMFNode*>(field)->setNum(0);
        }
        if (SoChildList* children = node->getChildren())
            children->truncate(0);
    }
    root->unref();
    for (SoNode* node : nodes)
        node->unref();
}
