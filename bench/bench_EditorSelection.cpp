// Selecting a field until its editor is shown and filled, against a bare dock
// swap of a prebuilt frame with one line edit and one slider; and one slider
// step of the float editor from position to refreshed editor.
#include "BareDockSwap.h"
#include "EventLoopPass.h"
#include "PluginWindow.h"
#include <KalPluginsManager.h>
#include <KalServices.h>
#include <KalShell.h>

#include <Inventor/SoDB.h>
#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QSlider>

#include <benchmark/benchmark.h>

namespace {

// The plug-in loaded once for the whole program, with two float fields to
// select in turn so that every selection really swaps the shown field.
struct Scene
{
    Scene()
        : dock(loadPluginIntoShownWindow())
    {
        first = new SoComplexity;
        first->ref();
        second = new SoComplexity;
        second->ref();
    }
    QDockWidget* dock = nullptr;
    SoComplexity* first = nullptr;
    SoComplexity* second = nullptr;
};

Scene& scene()
{
    static Scene instance;
    return instance;
}

} // namespace

static void BM_SelectFieldUntilShown(benchmark::State& state)
{
    Scene& s = scene();
    if (!s.dock) {
        state.SkipWithError("the Field Editor dock is missing");
        return;
    }
    bool flip = false;
    for (auto _ : state) {
        flip = !flip;
        emit KalServices::getInstance()->selectedFieldChanged(flip ? &s.first->value : &s.second->value);
        eventLoopPass();
        benchmark::DoNotOptimize(s.dock->grab());
    }
    emit KalServices::getInstance()->selectedFieldChanged(nullptr);
}
BENCHMARK(BM_SelectFieldUntilShown)->Unit(benchmark::kMillisecond);

static void BM_BareDockSwap(benchmark::State& state)
{
    Scene& s = scene();
    emit KalServices::getInstance()->selectedFieldChanged(nullptr);
    runBareDockSwap(state, s.dock);
}
BENCHMARK(BM_BareDockSwap)->Unit(benchmark::kMillisecond);

static void BM_SliderStep(benchmark::State& state)
{
    Scene& s = scene();
    emit KalServices::getInstance()->selectedFieldChanged(&s.first->value);
    eventLoopPass();
    auto* slider = s.dock ? s.dock->findChild<QSlider*>(QStringLiteral("m_slider")) : nullptr;
    if (!slider) {
        state.SkipWithError("the float editor's slider is missing");
        return;
    }
    int position = 0;
    int pushed = 0;
    for (auto _ : state) {
        position = (position + 7) % 101;
        // A user's drag: the slider moves while held down.
        slider->setSliderDown(true);
        slider->setValue(position);
        SoDB::getSensorManager()->processDelayQueue(FALSE);
        if (++pushed == 5000) {
            state.PauseTiming();
            KalServices::getInstance()->clearHistory();
            pushed = 0;
            state.ResumeTiming();
        }
    }
    slider->setSliderDown(false);
    KalServices::getInstance()->clearHistory();
    emit KalServices::getInstance()->selectedFieldChanged(nullptr);
}
BENCHMARK(BM_SliderStep)->Unit(benchmark::kMicrosecond);
