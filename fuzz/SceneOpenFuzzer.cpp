// kalhost's scene opening under libFuzzer: every input is a scene file and
// the files beside it (see SceneOpenHarness). The same entry points replay
// the corpus in the ordinary build (CorpusReplay.cpp).
#include "SceneOpenHarness.h"

#include <KalFieldSampler.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/errors/SoError.h>
#include <Inventor/errors/SoReadError.h>

#include <QCoreApplication>

#include <cstddef>
#include <cstdint>

namespace {

SceneOpenHarness* harness = nullptr;

// Coin reports every fault it finds in a scene; at thousands of inputs a
// second, printing them is most of the time.
void quietCoin(const SoError*, void*) {}

void quietQt(QtMsgType, const QMessageLogContext&, const QString&) {}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    // What kalhost sets up before it opens a scene, without a window.
    static int argc = 1;
    static char name[] = "SceneOpenFuzzer";
    static char* argv[] = {name, nullptr};
    new QCoreApplication(argc, argv);
    qInstallMessageHandler(quietQt);
    SoDB::init();
    SoKalExtensions::init();
    KalFieldSampler::initClass();
    SoError::setHandlerCallback(quietCoin, nullptr);
    SoReadError::setHandlerCallback(quietCoin, nullptr);
    SoDebugError::setHandlerCallback(quietCoin, nullptr);
    harness = new SceneOpenHarness;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    harness->run(data, size);
    return 0;
}
