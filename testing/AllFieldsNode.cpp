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
    SO_NODE_ADD_FIELD(mfFloat, (1.5f));
    mfFloat.set1Value(1, 2.5f);
    mfFloat.set1Value(2, 3.5f);
    SO_NODE_ADD_FIELD(mfDouble, (0.25));
    mfDouble.set1Value(1, 0.5);
    SO_NODE_ADD_FIELD(mfInt32, (10));
    mfInt32.set1Value(1, -20);
    mfInt32.set1Value(2, 30);
    SO_NODE_ADD_FIELD(mfShort, (1));
    mfShort.set1Value(1, 2);
    SO_NODE_ADD_FIELD(mfUInt32, (7u));
    mfUInt32.set1Value(1, 4000000000u);
    SO_NODE_ADD_FIELD(mfUShort, (5));
    mfUShort.set1Value(1, 65535);
    SO_NODE_ADD_FIELD(mfString, ("alpha"));
    mfString.set1Value(1, "beta");
    mfString.set1Value(2, "gamma");
    SO_NODE_ADD_FIELD(mfName, ("one"));
    mfName.set1Value(1, "two");
    SO_NODE_ADD_FIELD(mfTime, (1.5));
    SO_NODE_ADD_FIELD(emptyStrings, (""));
    emptyStrings.setNum(0);
    emptyStrings.setDefault(TRUE);
    SO_NODE_ADD_FIELD(mfVec2f, (SbVec2f(1, 2)));
    mfVec2f.set1Value(1, SbVec2f(3, 4));
    SO_NODE_ADD_FIELD(mfVec2i32, (SbVec2i32(1, -2)));
    mfVec2i32.set1Value(1, SbVec2i32(300000, 4));
    SO_NODE_ADD_FIELD(mfVec2s, (SbVec2s(1, 2)));
    mfVec2s.set1Value(1, SbVec2s(-3, 4));
    SO_NODE_ADD_FIELD(mfVec3f, (SbVec3f(1, 2, 3)));
    mfVec3f.set1Value(1, SbVec3f(4, 5, 6));
    SO_NODE_ADD_FIELD(mfVec4f, (SbVec4f(1, 2, 3, 4)));
    SO_NODE_ADD_FIELD(mfPlane, (SbPlane(SbVec3f(0, 0, 1), 2.0f)));
    SO_NODE_ADD_FIELD(mfRotation, (SbRotation(SbVec3f(0, 1, 0), 0.5f)));
    SO_NODE_ADD_FIELD(mfColor, (SbColor(1.0f, 0.5f, 0.25f)));
    mfColor.set1Value(1, SbColor(0.2f, 0.4f, 0.6f));
    SO_NODE_ADD_FIELD(mfMatrix, (SbMatrix::identity()));
    SbMatrix translation;
    translation.setTranslate(SbVec3f(1, 2, 3));
    mfMatrix.set1Value(1, translation);
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
