#include "AllFieldsNode.h"

SO_NODE_SOURCE(AllFieldsNode)

void AllFieldsNode::initClass()
{
    if (getClassTypeId() != SoType::badType())
        return;
    SO_NODE_INIT_CLASS(AllFieldsNode, SoNode, "Node");
}

AllFieldsNode::AllFieldsNode()
{
    SO_NODE_CONSTRUCTOR(AllFieldsNode);
    SO_NODE_ADD_FIELD(sfBool, (TRUE));
    SO_NODE_ADD_FIELD(sfBitMask, (TOP | BOTTOM));
    SO_NODE_ADD_FIELD(sfBox3s, (SbVec3s(-1, -2, -3), SbVec3s(4, 5, 6)));
    SO_NODE_ADD_FIELD(sfColor, (SbColor(0.8f, 0.4f, 0.1f)));
    SO_NODE_ADD_FIELD(sfDouble, (2.5));
    SO_NODE_ADD_FIELD(sfEnum, (MEDIUM));
    SO_NODE_ADD_FIELD(sfFilePath, ("textures/wood.png"));
    SO_NODE_ADD_FIELD(sfFloat, (3.5f));
    SO_NODE_ADD_FIELD(sfImage, (SbVec2s(0, 0), 0, nullptr));
    SO_NODE_ADD_FIELD(sfInt32, (42));
    SO_NODE_ADD_FIELD(sfMatrix, (SbMatrix::identity()));
    SO_NODE_ADD_FIELD(sfName, ("hello"));
    SO_NODE_ADD_FIELD(sfPlane, (SbPlane(SbVec3f(0, 1, 0), 2.0f)));
    SO_NODE_ADD_FIELD(sfRotation, (SbRotation(SbVec3f(0, 0, 1), 0.5f)));
    SO_NODE_ADD_FIELD(sfShort, (-7));
    SO_NODE_ADD_FIELD(sfString, ("a string"));
    SO_NODE_ADD_FIELD(sfTime, (SbTime(1.5)));
    SO_NODE_ADD_FIELD(sfUInt32, (7u));
    SO_NODE_ADD_FIELD(sfUShort, (9));
    SO_NODE_ADD_FIELD(sfVec2f, (SbVec2f(1, 2)));
    SO_NODE_ADD_FIELD(sfVec2i32, (SbVec2i32(3, 4)));
    SO_NODE_ADD_FIELD(sfVec2s, (SbVec2s(5, 6)));
    SO_NODE_ADD_FIELD(sfVec3f, (SbVec3f(1, 2, 3)));
    SO_NODE_ADD_FIELD(sfVec4f, (SbVec4f(1, 2, 3, 4)));
    SO_NODE_DEFINE_ENUM_VALUE(Shade, LIGHT);
    SO_NODE_DEFINE_ENUM_VALUE(Shade, MEDIUM);
    SO_NODE_DEFINE_ENUM_VALUE(Shade, DARK);
    SO_NODE_SET_SF_ENUM_TYPE(sfEnum, Shade);
    SO_NODE_DEFINE_ENUM_VALUE(Part, NOTHING);
    SO_NODE_DEFINE_ENUM_VALUE(Part, TOP);
    SO_NODE_DEFINE_ENUM_VALUE(Part, SIDES);
    SO_NODE_DEFINE_ENUM_VALUE(Part, BOTTOM);
    SO_NODE_DEFINE_ENUM_VALUE(Part, LOWER);
    SO_NODE_SET_SF_ENUM_TYPE(sfBitMask, Part);
}

AllFieldsNode::~AllFieldsNode() = default;
