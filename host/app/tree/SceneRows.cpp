#include "SceneRows.h"

#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldData.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoNode.h>

int SceneRows::fieldCount(SoNode* node)
{
    const SoFieldData* data = node ? node->getFieldData() : nullptr;
    return data ? data->getNumFields() : 0;
}

int SceneRows::childCount(SoNode* node)
{
    SoChildList* children = node ? node->getChildren() : nullptr;
    return children ? children->getLength() : 0;
}

int SceneRows::count(SoNode* node)
{
    return fieldCount(node) + childCount(node);
}

int SceneRows::rowOfChild(SoNode* node, int place)
{
    return fieldCount(node) + place;
}

int SceneRows::childPlace(SoNode* node, int row)
{
    return row - fieldCount(node);
}

int SceneRows::rowOfField(SoNode* node, SoField* field)
{
    const SoFieldData* data = node && field ? node->getFieldData() : nullptr;
    for (int i = 0; data && i < data->getNumFields(); ++i) {
        if (data->getField(node, i) == field)
            return i;
    }
    return -1;
}

SoField* SceneRows::fieldAt(SoNode* node, int row)
{
    if (row < 0 || row >= fieldCount(node))
        return nullptr;
    return node->getFieldData()->getField(node, row);
}

SoNode* SceneRows::childAt(SoNode* node, int row)
{
    const int place = childPlace(node, row);
    if (place < 0 || place >= childCount(node))
        return nullptr;
    return (*node->getChildren())[place];
}
