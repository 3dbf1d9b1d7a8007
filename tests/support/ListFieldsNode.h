#pragma once

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
#include <Inventor/nodes/SoSubNode.h>

// A node with a list field of every scalar, string, vector, plane,
// rotation, colour and matrix type the list editors handle, plus two the
// generic editor shows, and one list whose default is empty. A real node
// class, so that a fresh instance has real defaults.
class ListFieldsNode : public SoNode
{
    typedef SoNode inherited;
    SO_NODE_HEADER(ListFieldsNode);

public:
    static void initClass();
    ListFieldsNode();

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
    ~ListFieldsNode() override;
};
