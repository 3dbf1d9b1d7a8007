#include "KalFieldSampler.h"

#include <Inventor/SbMatrix.h>
#include <Inventor/lists/SoFieldList.h>

SO_NODE_SOURCE(KalFieldSampler)

void KalFieldSampler::initClass()
{
    if (getClassTypeId() != SoType::badType())
        return;
    SO_NODE_INIT_CLASS(KalFieldSampler, SoNode, "Node");
}

namespace {

// A 4 × 4 colour checker, so that the image editor has something to show.
const unsigned char* checker()
{
    static unsigned char pixels[4 * 4 * 3];
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 4; ++x) {
            unsigned char* pixel = pixels + (y * 4 + x) * 3;
            const bool dark = ((x + y) % 2) != 0;
            pixel[0] = dark ? 40 : 230;
            pixel[1] = dark ? 60 : 180;
            pixel[2] = dark ? 120 : 40;
        }
    }
    return pixels;
}

SbMatrix translation(float x, float y, float z)
{
    SbMatrix matrix;
    matrix.setTranslate(SbVec3f(x, y, z));
    return matrix;
}

} // namespace

KalFieldSampler::KalFieldSampler()
{
    SO_NODE_CONSTRUCTOR(KalFieldSampler);
    SO_NODE_ADD_FIELD(faces, (FRONT | EDGES));
    SO_NODE_ADD_FIELD(visible, (TRUE));
    SO_NODE_ADD_FIELD(voxelBounds, (SbVec3s(-8, -8, -8), SbVec3s(8, 8, 8)));
    SO_NODE_ADD_FIELD(tint, (SbColor(0.9f, 0.55f, 0.2f)));
    SO_NODE_ADD_FIELD(exposure, (1.25));
    SO_NODE_ADD_FIELD(quality, (NORMAL));
    SO_NODE_ADD_FIELD(texturePath, ("textures/oak.png"));
    SO_NODE_ADD_FIELD(opacity, (0.75f));
    SO_NODE_ADD_FIELD(thumbnail, (SbVec2s(4, 4), 3, checker()));
    SO_NODE_ADD_FIELD(seed, (1234));
    SO_NODE_ADD_FIELD(placement, (translation(1, 2, 3)));
    SO_NODE_ADD_FIELD(tag, ("showcase"));
    SO_NODE_ADD_FIELD(clipPlane, (SbPlane(SbVec3f(0, 1, 0), -0.5f)));
    SO_NODE_ADD_FIELD(orientation, (SbRotation(SbVec3f(0, 1, 0), 0.785398f)));
    SO_NODE_ADD_FIELD(layer, (3));
    SO_NODE_ADD_FIELD(caption, ("Every field type in one node"));
    SO_NODE_ADD_FIELD(duration, (SbTime(2.5)));
    SO_NODE_ADD_FIELD(flags, (0x00ff00ffu));
    SO_NODE_ADD_FIELD(samples, (16));
    SO_NODE_ADD_FIELD(uvScale, (SbVec2f(2, 0.5f)));
    SO_NODE_ADD_FIELD(resolution, (SbVec2i32(1920, 1080)));
    SO_NODE_ADD_FIELD(tileCount, (SbVec2s(4, 3)));
    SO_NODE_ADD_FIELD(offset, (SbVec3f(0.5f, -1, 2)));
    SO_NODE_ADD_FIELD(weights, (SbVec4f(0.1f, 0.2f, 0.3f, 0.4f)));

    SO_NODE_ADD_FIELD(palette, (SbColor(1, 0, 0)));
    palette.set1Value(1, SbColor(0, 0.6f, 0));
    palette.set1Value(2, SbColor(0.1f, 0.3f, 1));
    SO_NODE_ADD_FIELD(thresholds, (0.25));
    thresholds.set1Value(1, 0.5);
    thresholds.set1Value(2, 0.75);
    SO_NODE_ADD_FIELD(ramp, (0.0f));
    ramp.set1Value(1, 0.5f);
    ramp.set1Value(2, 1.0f);
    SO_NODE_ADD_FIELD(indices, (0));
    indices.set1Value(1, 1);
    indices.set1Value(2, 2);
    indices.set1Value(3, -1);
    SO_NODE_ADD_FIELD(instances, (SbMatrix::identity()));
    instances.set1Value(1, translation(0, 1, 0));
    SO_NODE_ADD_FIELD(keywords, ("sample"));
    keywords.set1Value(1, SbName("fields"));
    SO_NODE_ADD_FIELD(slabs, (SbPlane(SbVec3f(1, 0, 0), 1)));
    slabs.set1Value(1, SbPlane(SbVec3f(0, 0, 1), -1));
    SO_NODE_ADD_FIELD(keyRotations, (SbRotation::identity()));
    keyRotations.set1Value(1, SbRotation(SbVec3f(0, 0, 1), 1.570796f));
    SO_NODE_ADD_FIELD(levels, (1));
    levels.set1Value(1, 2);
    levels.set1Value(2, 4);
    SO_NODE_ADD_FIELD(lines, ("first line"));
    lines.set1Value(1, SbString("second line"));
    SO_NODE_ADD_FIELD(masks, (0xffu));
    masks.set1Value(1, 0xff00u);
    SO_NODE_ADD_FIELD(counts, (10));
    counts.set1Value(1, 20);
    SO_NODE_ADD_FIELD(uvs, (SbVec2f(0, 0)));
    uvs.set1Value(1, SbVec2f(1, 0));
    uvs.set1Value(2, SbVec2f(1, 1));
    SO_NODE_ADD_FIELD(cells, (SbVec2i32(0, 0)));
    cells.set1Value(1, SbVec2i32(64, 32));
    SO_NODE_ADD_FIELD(steps, (SbVec2s(1, 1)));
    steps.set1Value(1, SbVec2s(2, 3));
    SO_NODE_ADD_FIELD(points, (SbVec3f(0, 0, 0)));
    points.set1Value(1, SbVec3f(1, 0, 0));
    points.set1Value(2, SbVec3f(0, 1, 0));
    SO_NODE_ADD_FIELD(homogeneous, (SbVec4f(0, 0, 0, 1)));
    homogeneous.set1Value(1, SbVec4f(1, 1, 1, 1));

    SO_NODE_DEFINE_ENUM_VALUE(Quality, DRAFT);
    SO_NODE_DEFINE_ENUM_VALUE(Quality, NORMAL);
    SO_NODE_DEFINE_ENUM_VALUE(Quality, FINE);
    SO_NODE_SET_SF_ENUM_TYPE(quality, Quality);
    SO_NODE_DEFINE_ENUM_VALUE(Faces, NONE);
    SO_NODE_DEFINE_ENUM_VALUE(Faces, FRONT);
    SO_NODE_DEFINE_ENUM_VALUE(Faces, BACK);
    SO_NODE_DEFINE_ENUM_VALUE(Faces, EDGES);
    SO_NODE_DEFINE_ENUM_VALUE(Faces, ALL);
    SO_NODE_SET_SF_ENUM_TYPE(faces, Faces);

    // The lists got their further values after SO_NODE_ADD_FIELD, which
    // clears the default flag; all of these are the node's defaults, so a
    // scene file names only what was changed.
    SoFieldList fields;
    getFields(fields);
    for (int i = 0; i < fields.getLength(); ++i)
        fields[i]->setDefault(TRUE);
}

KalFieldSampler::~KalFieldSampler() = default;
