#pragma once

#include <QCoreApplication>
#include <QString>

#include <cstdint>

class SoNode;

// One walk over a scene graph that finds what every other walk needs to
// know before it starts: whether the scene contains itself, how deep it is
// nested, how many nodes it holds and how many nodes one traversal of it
// visits. Coin reads `DEF A Separator { USE A }` as a node that is its own
// child, and 31 groups that each use the one before twice make a billion
// paths: anything that walks such a scene path by path overflows the stack
// or runs for minutes. This walk visits each node once, without recursion,
// through its children, its node-valued fields (kit parts, a VRML group's
// children) and a File node's read scene (its children).
class SceneGraphSurvey
{
    Q_DECLARE_TR_FUNCTIONS(SceneGraphSurvey)

public:
    // Returned by traversalVisits() for counts that no longer fit.
    static constexpr std::uint64_t kTooMany = UINT64_MAX;

    explicit SceneGraphSurvey(SoNode* root);

    // A node that contains itself, directly or through others; null when
    // the scene is free of cycles. The figures below are 0 then.
    SoNode* cycle() const;
    // The node of cycle() in words: its type and name ("Separator A"), or
    // its type and its place from the root when it has no name
    // ("Separator at /0/2", "Group at /1.part").
    QString cycleText() const;

    // Levels from the root to the deepest node, the root counting one.
    int depth() const;
    int nodeCount() const;
    // Nodes one traversal of the children from the root visits, a shared
    // node once per path to it (what drawing or picking costs), kTooMany
    // past what 64 bits count.
    std::uint64_t traversalVisits() const;

    // Frees a scene that contains itself, which references alone never
    // free: every node lets go of its children and node-valued fields, then
    // of root's reference. The caller holds one reference on root, which
    // this takes.
    static void dismantle(SoNode* root);

private:
    SoNode* m_cycle = nullptr;
    QString m_cycleText;
    int m_depth = 0;
    int m_nodeCount = 0;
    std::uint64_t m_visits = 0;
};
