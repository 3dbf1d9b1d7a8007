// The filter box above the host's scene tree on the 100,000-node scene: from
// the text to the filtered tree laid out and drawn, for a text that matches a
// few rows and for texts that match tens of thousands, and back again.
#include "EventLoopPass.h"

#include <KalFieldSampler.h>
#include <KalHostWindow.h>
#include <KalPluginsManager.h>
#include <KalShell.h>
#include <SceneFilterBox.h>

#include <Inventor/Qt/SoQt.h>

#include <QFile>
#include <QLineEdit>
#include <QMainWindow>
#include <QTemporaryDir>
#include <QTreeView>

#include <benchmark/benchmark.h>

namespace {

// bench_HostApp's scene, 1,000 groups of 99 nodes each, plus the groups and
// the root, with four of its cubes named so that a name matches a few rows.
QString hugeScenePath()
{
    static QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("huge.iv"));
    if (QFile::exists(path))
        return path;
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write("#Inventor V2.1 ascii\nSeparator {\n");
    for (int group = 0; group < 1000; ++group) {
        file.write("Separator {\n");
        for (int i = 0; i < 99; ++i) {
            if (i == 49 && group % 333 == 0)
                file.write(QStringLiteral("DEF Marker%1 Cube { width 2 }\n").arg(group).toUtf8());
            else
                file.write((i % 2) ? "Cube { width 2 }\n" : "Material { diffuseColor 0.5 0.5 0.5 }\n");
        }
        file.write("}\n");
    }
    file.write("}\n");
    return path;
}

KalHostWindow& host()
{
    static KalHostWindow* instance = [] {
        KalFieldSampler::initClass();
        SoQt::init(KalShell::getInstance()->getMainWindow());
        KalHostWindow::Options options;
        options.interactive = false;
        options.view = false;
        auto* window = new KalHostWindow(options);
        KalPluginsManager::getInstance()->loadPlugin(QStringLiteral(KALDEFAULTS_MODULE_PATH));
        window->arrangeDocks();
        window->window()->show();
        window->openScene(hugeScenePath());
        eventLoopPass();
        return window;
    }();
    return *instance;
}

const char* const kTexts[] = {"Marker", "Cube", "width"};

void setFilter(SceneFilterBox* box, const QString& text)
{
    box->edit()->setText(text);
    box->apply();
}

} // namespace

// Arg: 0 "Marker" (4 cubes, by name), 1 "Cube" (49,000 cubes, by type),
// 2 "width" (a field of each of those cubes, by field name: every cube
// opened).
static void BM_FilterHugeScene(benchmark::State& state)
{
    KalHostWindow& window = host();
    auto* box = window.window()->findChild<SceneFilterBox*>();
    const QString text = QLatin1String(kTexts[state.range(0)]);
    for (auto _ : state) {
        state.PauseTiming();
        setFilter(box, QString());
        eventLoopPass();
        benchmark::DoNotOptimize(box->grab());
        state.ResumeTiming();

        setFilter(box, text);
        eventLoopPass();
        benchmark::DoNotOptimize(box->grab());
    }
    state.counters["matches"] = box->matchCount();
}
BENCHMARK(BM_FilterHugeScene)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

// Clearing the filter: the unfiltered tree laid out and drawn again.
static void BM_ClearFilterHugeScene(benchmark::State& state)
{
    KalHostWindow& window = host();
    auto* box = window.window()->findChild<SceneFilterBox*>();
    const QString text = QLatin1String(kTexts[state.range(0)]);
    for (auto _ : state) {
        state.PauseTiming();
        setFilter(box, text);
        eventLoopPass();
        benchmark::DoNotOptimize(box->grab());
        state.ResumeTiming();

        setFilter(box, QString());
        eventLoopPass();
        benchmark::DoNotOptimize(box->grab());
    }
}
BENCHMARK(BM_ClearFilterHugeScene)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);
