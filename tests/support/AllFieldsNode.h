#pragma once

#include <SoSFFilePathString.h>

#include <Inventor/fields/SoSFBitMask.h>
#include <Inventor/fields/SoSFBool.h>
#include <Inventor/fields/SoSFBox3s.h>
#include <Inventor/fields/SoSFColor.h>
#include <Inventor/fields/SoSFDouble.h>
#include <Inventor/fields/SoSFEnum.h>
#include <Inventor/fields/SoSFFloat.h>
#include <Inventor/fields/SoSFImage.h>
#include <Inventor/fields/SoSFInt32.h>
#include <Inventor/fields/SoSFMatrix.h>
#include <Inventor/fields/SoSFName.h>
#include <Inventor/fields/SoSFPlane.h>
#include <Inventor/fields/SoSFRotation.h>
#include <Inventor/fields/SoSFShort.h>
#include <Inventor/fields/SoSFString.h>
#include <Inventor/fields/SoSFTime.h>
#include <Inventor/fields/SoSFUInt32.h>
#include <Inventor/fields/SoSFUShort.h>
#include <Inventor/fields/SoSFVec2f.h>
#include <Inventor/fields/SoSFVec2i32.h>
#include <Inventor/fields/SoSFVec2s.h>
#include <Inventor/fields/SoSFVec3f.h>
#include <Inventor/fields/SoSFVec4f.h>
#include <Inventor/nodes/SoSubNode.h>

// A node with one field of every single-value type the editors handle, for
// the tests: a real node class, so that a fresh instance has real defaults.
class AllFieldsNode : public SoNode
{
    typedef SoNode inherited;
    SO_NODE_HEADER(AllFieldsNode);

public:
    enum Shade
    {
        LIGHT,
        MEDIUM,
        DARK
    };
    enum Part
    {
        NOTHING = 0,
        TOP = 1,
        SIDES = 2,
        BOTTOM = 4,
        LOWER = 6
    };

    static void initClass();
    AllFieldsNode();

    SoSFBool sfBool;
    SoSFBitMask sfBitMask;
    SoSFBox3s sfBox3s;
    SoSFColor sfColor;
    SoSFDouble sfDouble;
    SoSFEnum sfEnum;
    SoSFFilePathString sfFilePath;
    SoSFFloat sfFloat;
    SoSFImage sfImage;
    SoSFInt32 sfInt32;
    SoSFMatrix sfMatrix;
    SoSFName sfName;
    SoSFPlane sfPlane;
    SoSFRotation sfRotation;
    SoSFShort sfShort;
    SoSFString sfString;
    SoSFTime sfTime;
    SoSFUInt32 sfUInt32;
    SoSFUShort sfUShort;
    SoSFVec2f sfVec2f;
    SoSFVec2i32 sfVec2i32;
    SoSFVec2s sfVec2s;
    SoSFVec3f sfVec3f;
    SoSFVec4f sfVec4f;

protected:
    ~AllFieldsNode() override;
};
