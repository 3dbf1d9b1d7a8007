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

// The host's own node with one field of every type the field editors know,
// each with a value that shows off its editor. A real node class: a fresh
// instance has these values as its defaults, and scene files name it
// "KalFieldSampler".
class KalFieldSampler : public SoNode
{
    typedef SoNode inherited;
    SO_NODE_HEADER(KalFieldSampler);

public:
    enum Quality
    {
        DRAFT,
        NORMAL,
        FINE
    };
    enum Faces
    {
        NONE = 0,
        FRONT = 1,
        BACK = 2,
        EDGES = 4,
        ALL = 7
    };

    static void initClass();
    KalFieldSampler();

    SoSFBitMask faces;
    SoSFBool visible;
    SoSFBox3s voxelBounds;
    SoSFColor tint;
    SoSFDouble exposure;
    SoSFEnum quality;
    SoSFFilePathString texturePath;
    SoSFFloat opacity;
    SoSFImage thumbnail;
    SoSFInt32 seed;
    SoSFMatrix placement;
    SoSFName tag;
    SoSFPlane clipPlane;
    SoSFRotation orientation;
    SoSFShort layer;
    SoSFString caption;
    SoSFTime duration;
    SoSFUInt32 flags;
    SoSFUShort samples;
    SoSFVec2f uvScale;
    SoSFVec2i32 resolution;
    SoSFVec2s tileCount;
    SoSFVec3f offset;
    SoSFVec4f weights;

    SoMFColor palette;
    SoMFDouble thresholds;
    SoMFFloat ramp;
    SoMFInt32 indices;
    SoMFMatrix instances;
    SoMFName keywords;
    SoMFPlane slabs;
    SoMFRotation keyRotations;
    SoMFShort levels;
    SoMFString lines;
    SoMFUInt32 masks;
    SoMFUShort counts;
    SoMFVec2f uvs;
    SoMFVec2i32 cells;
    SoMFVec2s steps;
    SoMFVec3f points;
    SoMFVec4f homogeneous;

protected:
    ~KalFieldSampler() override;
};
