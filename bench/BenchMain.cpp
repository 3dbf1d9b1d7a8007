// Shared main of the benchmark programs: a real application object on the
// offscreen platform and an initialised scene graph, as in the host.
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>

#include <QApplication>

#include <benchmark/benchmark.h>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Benchmarks that load the plug-in would otherwise have its console
    // swallow the report Google Benchmark writes to std::cout.
    if (qEnvironmentVariableIsEmpty("KALIBRA_STDOUT_CAPTURE"))
        qputenv("KALIBRA_STDOUT_CAPTURE", "false");
    QApplication app(argc, argv);
    SoDB::init();
    SoKalExtensions::init();

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
