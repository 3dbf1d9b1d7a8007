#pragma once

class SoField;
class SoNode;

// The rows the scene tree gives a node: its fields first, in the order of
// its field data (a field's row is its index there), then its children.
// The model, the search and the view's picker all count rows through here,
// so that the order is decided in one place. A null node has no rows.
class SceneRows
{
public:
    static int fieldCount(SoNode* node);
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
};
