// Selecting a field of every single-value type until its editor is shown
// and filled, each against the bare dock swap of the same run; and memory
// over 1,000 selections cycling through all those types on one node.
#include "AllFieldsNode.h"
#include "BareDockSwap.h"
#include "BenchSupport.h"
#include "EventLoopPass.h"

#include <KalServices.h>

#include <QDockWidget>
#include <QPixmapCache>

#include <benchmark/benchmark.h>

namespace {

// The field of each single-value editor, by the editor's name.
const std::pair<const char*, const char*> kFields[] = {
    {"SFBitMask", "sfBitMask"},
    {"SFBool", "sfBool"},
    {"SFBox3s", "sfBox3s"},
    {"SFColor", "sfColor"},
    {"SFDouble", "sfDouble"},
    {"SFEnum", "sfEnum"},
    {"SFFilePathString", "sfFilePath"},
    {"SFFloat", "sfFloat"},
    {"SFImage", "sfImage"},
    {"SFInt32", "sfInt32"},
    {"SField", "sfTime"},
    {"SFMatrix", "sfMatrix"},
    {"SFName", "sfName"},
    {"SFPlane", "sfPlane"},
    {"SFRotation", "sfRotation"},
    {"SFShort", "sfShort"},
    {"SFString", "sfString"},
    {"SFUInt32", "sfUInt32"},
    {"SFUShort", "sfUShort"},
    {"SFVec2f", "sfVec2f"},
    {"SFVec2i32", "sfVec2i32"},
    {"SFVec2s", "sfVec2s"},
    {"SFVec3f", "sfVec3f"},
    {"SFVec4f", "sfVec4f"},
};

struct Scene
{
    Scene()
        : dock(loadPluginIntoShownWindow())
    {
        AllFieldsNode::initClass();
        for (AllFieldsNode*& node : nodes)
            node = keptNode<AllFieldsNode>();
    }
    QDockWidget* dock = nullptr;
    AllFieldsNode* nodes[2] = {nullptr, nullptr};
};

Scene& scene()
{
    static Scene instance;
    return instance;
}

} // namespace

// The floor, measured before the editors and again after them: a program
// that runs long drifts, and the editors are compared with the two.
static void BM_BareDockSwap(benchmark::State& state)
{
    Scene& s = scene();
    emit KalServices::getInstance()->selectedFieldChanged(nullptr);
    runBareDockSwap(state, s.dock);
    state.counters["dock_w"] = s.dock->width();
    state.counters["dock_h"] = s.dock->height();
}
BENCHMARK(BM_BareDockSwap)->Name("BM_BareDockSwapBefore")->Unit(benchmark::kMillisecond);

// Two nodes' fields of one type in turn, so that every selection tears the
// editor down and builds it up with another field.
static void BM_SelectEditor(benchmark::State& state)
{
    Scene& s = scene();
    const char* fieldName = kFields[state.range(0)].second;
    state.SetLabel(kFields[state.range(0)].first);
    SoField* fields[2] = {s.nodes[0]->getField(fieldName), s.nodes[1]->getField(fieldName)};
    if (!s.dock || !fields[0]) {
        state.SkipWithError("no dock or no field");
        return;
    }
    int which = 0;
    for (auto _ : state) {
        which = 1 - which;
        selectField(fields[which]);
        benchmark::DoNotOptimize(s.dock->grab());
    }
    state.counters["dock_w"] = s.dock->width();
    state.counters["dock_h"] = s.dock->height();
    emit KalServices::getInstance()->selectedFieldChanged(nullptr);
    KalServices::getInstance()->clearHistory();
}
BENCHMARK(BM_SelectEditor)->DenseRange(0, int(std::size(kFields)) - 1)->Unit(benchmark::kMillisecond);

BENCHMARK(BM_BareDockSwap)->Name("BM_BareDockSwapAfter")->Unit(benchmark::kMillisecond);

// 1,000 selections cycling through every type, measured twice: the heap in
// use after the first cycle and after the last must not grow. Qt's pixmap
// cache is emptied before each reading: it keeps the renderings of icons
// (the colour swatch gets a new one per colour) up to its own bound, 10 MB,
// and would hide a leak of ours as well as show one that is not.
static void BM_ThousandSelectionsMemory(benchmark::State& state)
{
    Scene& s = scene();
    auto cycle = [&s](int selections) {
        for (int i = 0; i < selections; ++i) {
            const char* fieldName = kFields[size_t(i) % std::size(kFields)].second;
            selectField(s.nodes[i % 2]->getField(fieldName));
        }
        emit KalServices::getInstance()->selectedFieldChanged(nullptr);
        KalServices::getInstance()->clearHistory();
        eventLoopPass();
    };
    auto heapInUse = [] {
        QPixmapCache::clear();
        return heapBytesInUse();
    };
    for (auto _ : state) {
        cycle(int(std::size(kFields)) * 2);
        const double afterFirstCycle = heapInUse();
        cycle(1000);
        const double afterThousand = heapInUse();
        state.counters["heap_kib_growth"] = (afterThousand - afterFirstCycle) / 1024.0;
        state.counters["bytes_per_selection"] = (afterThousand - afterFirstCycle) / 1000.0;
    }
}
BENCHMARK(BM_ThousandSelectionsMemory)->Iterations(1)->Unit(benchmark::kMillisecond);
