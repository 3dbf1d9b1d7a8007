// Selecting a node field of two megabytes of text (a terrain's vertices)
// until the generic editor shows all of it, against the floor of the same
// run: one QLineEdit::setText of the same text in a shown line edit that
// takes it whole, an event-loop pass and a grab.
#include "BenchSupport.h"
#include "EventLoopPass.h"

#include <FieldLineEdit.h>
#include <KalServices.h>

#include <Inventor/SbString.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoVertexProperty.h>

#include <QDockWidget>
#include <QLineEdit>

#include <benchmark/benchmark.h>

#include <vector>

namespace {

// Some 55,000 vertices with eight digits each: 2.1 MB of text. The two
// nodes differ, so that every selection fills the line edit anew.
SoIndexedFaceSet* terrain(float offset)
{
    auto* shape = keptNode<SoIndexedFaceSet>();
    auto* vertices = new SoVertexProperty;
    std::vector<SbVec3f> points;
    for (int i = 0; i < 55000; ++i)
        points.emplace_back(0.12345678f * float(i % 997) + offset, -1.2345678f * float(i % 89),
                            12.345678f + float(i));
    vertices->vertex.setValues(0, int(points.size()), points.data());
    shape->vertexProperty.setValue(vertices);
    return shape;
}

QString textOf(SoField* field)
{
    SbString text;
    field->get(text);
    return QString::fromLatin1(text.getString());
}

struct Scene
{
    Scene()
        : dock(loadPluginIntoShownWindow())
    {
        shapes[0] = terrain(0.0f);
        shapes[1] = terrain(0.5f);
        for (int i = 0; i < 2; ++i)
            texts[i] = textOf(&shapes[i]->vertexProperty);
    }
    QDockWidget* dock = nullptr;
    SoIndexedFaceSet* shapes[2] = {nullptr, nullptr};
    QString texts[2];
};

Scene& scene()
{
    static Scene instance;
    return instance;
}

} // namespace

// The floor: the same two texts set in turn into a line edit as wide as the
// dock, shown in a window of its own.
static void BM_LineEditSetText(benchmark::State& state)
{
    Scene& s = scene();
    if (!s.dock) {
        state.SkipWithError("no dock");
        return;
    }
    FieldLineEdit line;
    line.resize(s.dock->width(), line.sizeHint().height());
    line.show();
    eventLoopPass();
    int which = 0;
    for (auto _ : state) {
        which = 1 - which;
        line.setText(s.texts[which]);
        eventLoopPass();
        benchmark::DoNotOptimize(line.grab());
    }
    state.counters["text_chars"] = double(line.text().size());
}
BENCHMARK(BM_LineEditSetText)->Name("BM_LineEditSetTextBefore")->Unit(benchmark::kMillisecond);

// One node's vertices, then the other's, selected until the dock shows the
// generic editor with the whole text: teardown, choice, the field's text
// from Coin, its conversion, setText, one event-loop pass and a grab.
static void BM_SelectWholeNodeText(benchmark::State& state)
{
    Scene& s = scene();
    if (!s.dock) {
        state.SkipWithError("no dock");
        return;
    }
    int which = 0;
    for (auto _ : state) {
        which = 1 - which;
        selectField(&s.shapes[which]->vertexProperty);
        benchmark::DoNotOptimize(s.dock->grab());
    }
    auto* line = s.dock->findChild<QLineEdit*>(QStringLiteral("lineEdit"));
    if (!line || line->text() != s.texts[which]) {
        state.SkipWithError("the editor does not hold the whole text");
        return;
    }
    state.counters["text_chars"] = double(line->text().size());
    emit KalServices::getInstance()->selectedFieldChanged(nullptr);
    KalServices::getInstance()->clearHistory();
}
BENCHMARK(BM_SelectWholeNodeText)->Unit(benchmark::kMillisecond);

BENCHMARK(BM_LineEditSetText)->Name("BM_LineEditSetTextAfter")->Unit(benchmark::kMillisecond);
