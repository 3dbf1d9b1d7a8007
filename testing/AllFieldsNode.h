#pragma once

#include <SoSFFilePathString.h>

#include <Inventor/fields/SoMFColor.h>
#include <Inventor/fields/SoMFDouble.h>
#include <Inventor/fields/SoMFFloat.h>
#include <Inventor/fields/SoMFInt32.h>
#include <Inventor/fields/SoMFMatrix.h>
#include <Inventor/fields/SoMFName.h>
#include <Inventor/fields/SoMFPlane.h>
#include <Inventor/fields/SoMFRotation.h>
#include <Inventor/fields/SoMFShort.h>
#include <Inventor/fields/SoMFString.h>
#include <Inventor/fields/SoMFTime.h>
#include <Inventor/fields/SoMFUInt32.h>
#include <Inventor/fields/SoMFUShort.h>
#include <Inventor/fields/SoMFVec2f.h>
#include <Inventor/fields/SoMFVec2i32.h>
#include <Inventor/fields/SoMFVec2s.h>
#include <Inventor/fields/SoMFVec3f.h>
#include <Inventor/fields/SoMFVec4f.h>
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

// A node with a field of every type the editors handle, for the tests,
// benchmarks and fuzz target: one of every single-value type, and a list of
// every scalar, string, vector, plane, rotation, colour and matrix type the
// list editors handle, plus two the generic list editor shows and one list
// whose default is empty. A real node class, so that a fresh instance has
// real defaults.
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

    SoMFFloat mfFloat;       // 1.5 2.5 3.5
    SoMFDouble mfDouble;     // 0.25 0.5
    SoMFInt32 mfInt32;       // 10 -20 30
    SoMFShort mfShort;       // 1 2
    SoMFUInt32 mfUInt32;     // 7 4000000000
    SoMFUShort mfUShort;     // 5 65535
    SoMFString mfString;     // "alpha" "beta" "gamma"
    SoMFName mfName;         // one two
    SoMFTime mfTime;         // 1.5
    SoMFString emptyStrings; // default: no values
    SoMFVec2f mfVec2f;       // (1 2) (3 4)
    SoMFVec2i32 mfVec2i32;   // (1 -2) (300000 4)
    SoMFVec2s mfVec2s;       // (1 2) (-3 4)
    SoMFVec3f mfVec3f;       // (1 2 3) (4 5 6)
    SoMFVec4f mfVec4f;       // (1 2 3 4)
    SoMFPlane mfPlane;       // normal (0 0 1), distance 2
    SoMFRotation mfRotation; // axis (0 1 0), angle 0.5
    SoMFColor mfColor;       // (1 0.5 0.25) (0.2 0.4 0.6)
    SoMFMatrix mfMatrix;     // identity, then a translation by (1 2 3)

protected:
    ~AllFieldsNode() override;
};
