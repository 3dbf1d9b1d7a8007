#pragma once

class SoField;
class SoNode;

// The rows the scene tree gives a node: its fields first, in the order of
// its field data (a field's row is its index there), then its children.
// A field that holds nodes (SFNode, MFNode) has a row under it for each
// value, in the value's place, so that a shape's vertexProperty, a kit's
// parts and a VRML group's children are nodes of the tree like any other.
// The model, the search, the paths and the view's picker all count rows
// through here, so that the order is decided in one place. A null node or
// field has no rows.
class SceneRows
{
public:
    static int fieldCount(SoNode* node);
    // The children shown as rows of their own. A kit, a nodekit list and a
    // VRML node keep their children in fields as well (the child list is
    // made from them), so there they are shown under those fields only.
    static int childCount(SoNode* node);
    static int count(SoNode* node);

    // The row of the child at this place among the node's children.
    static int rowOfChild(SoNode* node, int place);
    // The place among the node's children of the child on this row;
    // negative for a field's row.
    static int childPlace(SoNode* node, int row);
    // The row of one of the node's fields; -1 if it has no such field.
    static int rowOfField(SoNode* node, SoField* field);

    // What a row holds: a field (null on a child's row) or a child (null on
    // a field's row).
    static SoField* fieldAt(SoNode* node, int row);
    static SoNode* childAt(SoNode* node, int row);

    // The rows under a field's row: one per node the field holds. An MFNode
    // keeps a row for a NULL value, with no node on it, so that a row is
    // the value's place; an empty SFNode has none, and neither has a kit's
    // private part (its own groups, holding its public parts again).
    static bool holdsNodes(SoField* field);
    static int heldCount(SoField* field);
    static SoNode* heldAt(SoField* field, int row);
};
