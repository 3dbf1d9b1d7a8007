// Loading the plug-in module into the host and bringing every extension it
// registers to life (widgets made, docks and toolbars activated and shown),
// then unloading it again so that each iteration starts from scratch.
#include "EventLoopPass.h"
#include <KalEditor.h>
#include <KalExtension.h>
#include <KalPlugin.h>
#include <KalPluginsManager.h>

#include <QCoreApplication>
#include <QLayout>
#include <QWidget>

#include <benchmark/benchmark.h>

namespace {

// The figure recorded in docs/performance.md is for this many; a plug-in
// that registers more or fewer makes it another measurement.
constexpr size_t kExtensions = 45;
constexpr size_t kFieldEditors = 41;

// The host makes the widget of every extension its active profile switches
// on; an editor that was made has laid its widget out. Counted rather than
// assumed, so that a load that skipped some does not pass for a quick one.
struct Made
{
    size_t switchedOn = 0;
    size_t editorsLaidOut = 0;
};

Made madeExtensions(const KalPlugin* plugin)
{
    Made made;
    for (KalExtension* extension : plugin->getExtensions()) {
        if (extension->getProfileSetting())
            ++made.switchedOn;
        auto* editor = qobject_cast<KalEditor*>(extension);
        if (editor && editor->getWidget() && editor->getWidget()->layout())
            ++made.editorsLaidOut;
    }
    return made;
}

} // namespace

static void BM_LoadAndActivateAll(benchmark::State& state)
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    size_t extensions = 0;
    Made made;
    for (auto _ : state) {
        KalPlugin* plugin = manager->loadPlugin(QStringLiteral(KALDEFAULTS_MODULE_PATH));
        if (!plugin) {
            state.SkipWithError("the plug-in did not load");
            break;
        }
        state.PauseTiming();
        extensions = plugin->getExtensions().size();
        made = madeExtensions(plugin);
        manager->unloadAll();
        eventLoopPass();
        state.ResumeTiming();
    }
    state.counters["extensions"] = double(extensions);
    state.counters["made"] = double(made.switchedOn);
    state.counters["editors_laid_out"] = double(made.editorsLaidOut);
    if (extensions != kExtensions || made.switchedOn != kExtensions || made.editorsLaidOut != kFieldEditors)
        state.SkipWithError("the plug-in did not make all of its 45 extensions and 41 field editors");
}
BENCHMARK(BM_LoadAndActivateAll)->Unit(benchmark::kMillisecond)->MinTime(0.5);
