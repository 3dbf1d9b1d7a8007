#pragma once

#include <QString>

#include <vector>

class SoNode;

// Finds the rows of the scene tree that a filter text names: nodes whose
// name or type holds the text, and fields whose name or type does, nodes
// held in fields included. It walks the scene graph itself, so that rows no
// view has asked for yet are found as well, and it walks without recursing,
// so that scenes tens of thousands of levels deep are searched like flat
// ones.
//
// A node used in several places is searched once, where the walk first
// meets it. Everywhere else it is kept whole and folded when something
// inside it matched, so that thirty groups each using the one below twice
// (a billion places) are searched in thirty-one steps.
class SceneSearch
{
public:
    // A node row, or the row of a field that holds nodes, that stays in
    // sight, in the order a walk from the root meets them (a parent before
    // its children).
    struct Row
    {
        // Index into the rows of its parent's entry; -1 for the root.
        int parent = -1;
        // Its row under its parent's row, as the scene tree counts them:
        // the parent's fields first, then its children.
        int row = 0;
        // Something inside it matched: only the rows below are shown, and it
        // is opened to show them. A row that matched by itself alone keeps
        // all of its rows, folded; so does a field that matched by its own
        // name, whatever the nodes it holds matched. The field is what the
        // text named, and its nodes are one click away: opening each would
        // put a node between every two fields found, a scene of shapes twice
        // as long to read, and tens of thousands of rows more to lay out.
        bool narrowed = false;
        // With narrowed, its rows that stay, in increasing order.
        std::vector<int> keptRows;
    };

    struct Result
    {
        std::vector<Row> rows;
        // Node and field rows whose text matched, a shared node's counted
        // where the walk first met it.
        int matches = 0;
    };

    // Case is ignored; an empty text finds nothing.
    static Result run(SoNode* root, const QString& text);
};
