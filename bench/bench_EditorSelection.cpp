// Selecting a field until its editor is shown and filled, against a bare dock
// swap of a prebuilt frame with one line edit and one slider; and one slider
// step of the float editor from position to refreshed editor.
#include "BareDockSwap.h"
#include "BenchSupport.h"
#include "EventLoopPass.h"

#include <FieldTesting.h>
#include <KalServices.h>

#include <Inventor/nodes/SoComplexity.h>

#include <QDockWidget>
#include <QSlider>

#include <benchmark/benchmark.h>

namespace {

// The plug-in loaded once for the whole program, with two float fields to
// select in turn so that every selection really swaps the shown field.
struct Scene
{
    QDockWidget* dock = loadPluginIntoShownWindow();
    SoComplexity* first = keptNode<SoComplexity>();
    SoComplexity* second = keptNode<SoComplexity>();
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
        selectField(flip ? &s.first->value : &s.second->value);
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
    selectField(&s.first->value);
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
        processSensors();
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
