// The memory the host holds after 1,000 selections that cycle through a
// field of every type the plug-in has an editor for, single values and lists
// alike, with the plug-in loaded into the host and its window shown.
#include "AllFieldsNode.h"
#include "BenchSupport.h"
#include "EventLoopPass.h"

#include <KalServices.h>

#include <QDockWidget>
#include <QSet>

#include <benchmark/benchmark.h>

#include <iterator>
#include <vector>

namespace {

// One field for each of the 41 field editors. The generic editors are shown
// a time, which no other editor takes.
const char* const kSingleFields[] = {
    "sfBitMask", "sfBool",   "sfBox3s",  "sfColor",  "sfDouble",  "sfEnum",  "sfFilePath", "sfFloat",
    "sfImage",   "sfInt32",  "sfTime",   "sfMatrix", "sfName",    "sfPlane", "sfRotation", "sfShort",
    "sfString",  "sfUInt32", "sfUShort", "sfVec2f",  "sfVec2i32", "sfVec2s", "sfVec3f",    "sfVec4f",
};
const char* const kListFields[] = {
    "mfColor",    "mfDouble", "mfFloat",  "mfInt32",  "mfMatrix", "mfPlane",
    "mfRotation", "mfShort",  "mfString", "mfUInt32", "mfUShort", "mfVec2f",
    "mfVec2i32",  "mfVec2s",  "mfVec3f",  "mfVec4f",  "mfTime",
};
constexpr int kFieldEditors = int(std::size(kSingleFields) + std::size(kListFields));

// Two nodes, so that consecutive selections of one type (once
// per cycle, with 41 fields in it) hand its editor another node's field.
struct Scene
{
    Scene()
        : dock(loadPluginIntoShownWindow())
    {
        AllFieldsNode::initClass();
        for (int node = 0; node < 2; ++node) {
            nodes[node] = keptNode<AllFieldsNode>();
            for (const char* name : kSingleFields)
                fields[node].push_back(nodes[node]->getField(name));
            for (const char* name : kListFields)
                fields[node].push_back(nodes[node]->getField(name));
        }
    }
    bool complete() const
    {
        for (const std::vector<SoField*>& ofNode : fields) {
            for (SoField* field : ofNode) {
                if (!field)
                    return false;
            }
        }
        return dock != nullptr;
    }
    QDockWidget* dock = nullptr;
    AllFieldsNode* nodes[2] = {nullptr, nullptr};
    std::vector<SoField*> fields[2];
};

Scene& scene()
{
    static Scene instance;
    return instance;
}

// Selection i shows field i % 41 of node i % 2: as 41 is odd, every field is
// shown on both nodes in turn.
void select(int i)
{
    Scene& s = scene();
    selectFieldWithSensors(s.fields[i % 2][size_t(i % kFieldEditors)]);
}

void endRound()
{
    emit KalServices::getInstance()->selectedFieldChanged(nullptr);
    KalServices::getInstance()->clearHistory();
    eventLoopPass();
}

// The heap read as trimmedHeapBytes() reads it, then the resident size.
struct Reading
{
    double heapKib = 0;
    double residentKib = 0;
};

Reading read()
{
    const double heapKib = trimmedHeapBytes() / 1024.0;
    return {heapKib, residentKib()};
}

} // namespace

// Two warm-up rounds that show every field on both nodes; the difference
// between them is the noise of a reading with nothing left to warm. Then
// 1,000 selections, and 1,000 more: a leak grows again in the second
// thousand by as much as in the first; noise does not.
static void BM_ThousandSelectionsAllEditors(benchmark::State& state)
{
    Scene& s = scene();
    if (!s.complete()) {
        state.SkipWithError("no dock, or a field is missing");
        return;
    }
    QSet<QString> shownEditors;
    auto warmRound = [&] {
        for (int i = 0; i < 2 * kFieldEditors; ++i) {
            select(i);
            if (QWidget* shown = s.dock->widget())
                shownEditors.insert(shown->objectName());
        }
        endRound();
        return read();
    };
    auto thousand = [] {
        for (int i = 0; i < 1000; ++i)
            select(i);
        endRound();
        return read();
    };
    for (auto _ : state) {
        const Reading firstWarm = warmRound();
        const Reading secondWarm = warmRound();
        const Reading afterThousand = thousand();
        const Reading afterTwoThousand = thousand();
        state.counters["heap_noise_kib"] = secondWarm.heapKib - firstWarm.heapKib;
        state.counters["rss_noise_kib"] = secondWarm.residentKib - firstWarm.residentKib;
        state.counters["heap_growth_kib"] = afterThousand.heapKib - secondWarm.heapKib;
        state.counters["rss_growth_kib"] = afterThousand.residentKib - secondWarm.residentKib;
        state.counters["heap_growth_2nd_kib"] = afterTwoThousand.heapKib - afterThousand.heapKib;
        state.counters["rss_growth_2nd_kib"] = afterTwoThousand.residentKib - afterThousand.residentKib;
        state.counters["heap_kib"] = afterThousand.heapKib;
        state.counters["rss_kib"] = afterThousand.residentKib;
    }
    state.counters["editors_shown"] = shownEditors.size();
    if (shownEditors.size() != kFieldEditors)
        state.SkipWithError("not every field editor was shown");
}
BENCHMARK(BM_ThousandSelectionsAllEditors)->Iterations(1)->Unit(benchmark::kMillisecond);
