#include "ListScene.h"

#include "BenchSupport.h"

#include <QDockWidget>
#include <QImage>
#include <QPixmap>
#include <QTableWidget>

namespace {

const bool kSteadyAllocator = steadyAllocator();

const char* const kListLabels[] = {"MFFloat", "MFString", "MFVec3f", "MFRotation", "MFColor"};

} // namespace

ListScene::ListScene()
    : dock(loadPluginIntoShownWindow())
{
    AllFieldsNode::initClass();
    for (AllFieldsNode*& node : nodes) {
        node = keptNode<AllFieldsNode>();
        node->mfFloat.setNum(kRows);
        float* floats = node->mfFloat.startEditing();
        for (int i = 0; i < kRows; ++i)
            floats[i] = float(i) * 0.5f;
        node->mfFloat.finishEditing();
        node->mfString.setNum(kRows);
        SbString* strings = node->mfString.startEditing();
        for (int i = 0; i < kRows; ++i)
            strings[i] = SbString(i);
        node->mfString.finishEditing();
        node->mfVec3f.setNum(kRows);
        SbVec3f* vectors = node->mfVec3f.startEditing();
        for (int i = 0; i < kRows; ++i)
            vectors[i].setValue(float(i), 0.5f, -float(i));
        node->mfVec3f.finishEditing();
        node->mfRotation.setNum(kRows);
        SbRotation* rotations = node->mfRotation.startEditing();
        for (int i = 0; i < kRows; ++i)
            rotations[i].setValue(SbVec3f(0, 1, 0), float(i) * 1e-6f);
        node->mfRotation.finishEditing();
        // Every colour is one the swatch can paint, and no two rows on
        // a page paint the same one.
        node->mfColor.setNum(kRows);
        SbColor* colors = node->mfColor.startEditing();
        for (int i = 0; i < kRows; ++i)
            colors[i].setValue(float(i % 1000) * 0.001f, 0.5f, 1.0f - float(i % 997) * 0.001f);
        node->mfColor.finishEditing();
    }
}

ListScene& ListScene::instance()
{
    static ListScene scene;
    return scene;
}

const char* ListScene::label(int which)
{
    return kListLabels[which];
}

SoMField* ListScene::list(int node, int which) const
{
    SoMField* const lists[] = {&nodes[node]->mfFloat, &nodes[node]->mfString, &nodes[node]->mfVec3f,
                               &nodes[node]->mfRotation, &nodes[node]->mfColor};
    return lists[which];
}

QTableWidget* ListScene::shownTable() const
{
    if (auto* table = dock->findChild<QTableWidget*>(QStringLiteral("m_table")))
        return table;
    // The colour list's table goes by its class's name.
    return dock->findChild<QTableWidget*>(QStringLiteral("FxMFieldTable"));
}

bool ListScene::topSwatchPainted(const SoMFColor& colors) const
{
    QTableWidget* table = shownTable();
    if (!table || table->columnCount() != 4)
        return false;
    const int row = table->rowAt(0);
    const QRect cell = table->visualRect(table->model()->index(row, 0));
    if (row < 0 || cell.isEmpty())
        return false;
    const QImage image = table->viewport()->grab().toImage();
    const SbColor& color = colors[row];
    const QColor expected(int(color[0] * 255), int(color[1] * 255), int(color[2] * 255));
    return image.pixelColor(cell.center() * image.devicePixelRatio()) == expected;
}
