#include "SceneRows.h"

#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldData.h>
#include <Inventor/fields/SoMFNode.h>
#include <Inventor/fields/SoSFNode.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodekits/SoBaseKit.h>
#include <Inventor/nodekits/SoNodeKitListPart.h>
#include <Inventor/nodekits/SoNodekitCatalog.h>
#include <Inventor/nodes/SoNode.h>

#include <cstring>

namespace {

bool hasNodeFields(SoNode* node)
{
    const SoFieldData* data = node->getFieldData();
    for (int i = 0; data && i < data->getNumFields(); ++i) {
        if (SceneRows::holdsNodes(data->getField(node, i)))
            return true;
    }
    return false;
}

// Whether the node's child list is made from its own fields. A VRML Inline
// reads its children from a file and holds none in fields, so they stay
// children.
bool childrenLiveInFields(SoNode* node)
{
    if (node->isOfType(SoBaseKit::getClassTypeId()) || node->isOfType(SoNodeKitListPart::getClassTypeId()))
        return true;
    // VRML nodes have no common base class in Coin; their types are named
    // after the standard's.
    const char* type = node->getTypeId().getName().getString();
    return std::strncmp(type, "VRML", 4) == 0 && hasNodeFields(node);
}

// A kit's private parts are its own groups, which hold its public parts a
// second time: those are listed under their own fields only.
bool isPrivatePart(SoField* field)
{
    SoFieldContainer* container = field->getContainer();
    if (!container || !container->isOfType(SoBaseKit::getClassTypeId()))
        return false;
    SbName name;
    if (!container->getFieldName(field, name))
        return false;
    const SoNodekitCatalog* catalog = static_cast<SoBaseKit*>(container)->getNodekitCatalog();
    const int part = catalog ? catalog->getPartNumber(name) : SO_CATALOG_NAME_NOT_FOUND;
    return part != SO_CATALOG_NAME_NOT_FOUND && !catalog->isPublic(part);
}

} // namespace

int SceneRows::fieldCount(SoNode* node)
{
    const SoFieldData* data = node ? node->getFieldData() : nullptr;
    return data ? data->getNumFields() : 0;
}

int SceneRows::childCount(SoNode* node)
{
    SoChildList* children = node ? node->getChildren() : nullptr;
    if (!children || children->getLength() == 0 || childrenLiveInFields(node))
        return 0;
    return children->getLength();
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

bool SceneRows::holdsNodes(SoField* field)
{
    return field &&
           (field->isOfType(SoSFNode::getClassTypeId()) || field->isOfType(SoMFNode::getClassTypeId()));
}

int SceneRows::heldCount(SoField* field)
{
    if (!field)
        return 0;
    if (field->isOfType(SoSFNode::getClassTypeId()))
        return static_cast<SoSFNode*>(field)->getValue() && !isPrivatePart(field) ? 1 : 0;
    if (field->isOfType(SoMFNode::getClassTypeId()))
        return static_cast<SoMFNode*>(field)->getNum();
    return 0;
}

SoNode* SceneRows::heldAt(SoField* field, int row)
{
    if (row < 0 || row >= heldCount(field))
        return nullptr;
    if (field->isOfType(SoSFNode::getClassTypeId()))
        return static_cast<SoSFNode*>(field)->getValue();
    return (*static_cast<SoMFNode*>(field))[row];
}
