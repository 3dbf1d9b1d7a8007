// Loading the plug-in module into the host and bringing every extension it
// registers to life (widgets made, docks and toolbars activated and shown),
// then unloading it again so that each iteration starts from scratch.
#include "EventLoopPass.h"
#include <KalPlugin.h>
#include <KalPluginsManager.h>

#include <QCoreApplication>

#include <benchmark/benchmark.h>

static void BM_LoadAndActivateAll(benchmark::State& state)
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    size_t extensions = 0;
    for (auto _ : state) {
        KalPlugin* plugin = manager->loadPlugin(QStringLiteral(KALDEFAULTS_MODULE_PATH));
        if (!plugin) {
            state.SkipWithError("the plug-in did not load");
            break;
        }
        extensions = plugin->getExtensions().size();
        state.PauseTiming();
        manager->unloadAll();
        eventLoopPass();
        state.ResumeTiming();
    }
    state.counters["extensions"] = double(extensions);
}
BENCHMARK(BM_LoadAndActivateAll)->Unit(benchmark::kMillisecond)->MinTime(0.5);
