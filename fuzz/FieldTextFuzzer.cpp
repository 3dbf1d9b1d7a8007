// The editors' text paths under libFuzzer: every input is a field, an
// editor, a route and a text (see FieldTextHarness), and an input that breaks
// what must hold of the field afterwards ends the run. The same entry points
// replay the corpus in the ordinary build (CorpusReplay.cpp).
#include "FieldTextHarness.h"

#include <AllFieldsNode.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>
#include <Inventor/errors/SoError.h>

#include <QApplication>

#include <cstddef>
#include <cstdint>

namespace {

FieldTextHarness* harness = nullptr;

// Coin reports every refused text and Qt every odd widget state on the
// error stream; at thousands of inputs a second that is most of the time.
void quietCoin(const SoError*, void*) {}

void quietQt(QtMsgType, const QMessageLogContext&, const QString&) {}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Made once and kept for the process: the editors are reused by every
    // input.
    static int argc = 1;
    static char name[] = "FieldTextFuzzer";
    static char* argv[] = {name, nullptr};
    new QApplication(argc, argv);
    qInstallMessageHandler(quietQt);
    SoDB::init();
    SoKalExtensions::init();
    SoError::setHandlerCallback(quietCoin, nullptr);
    AllFieldsNode::initClass();
    harness = new FieldTextHarness;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    harness->run(data, size);
    return 0;
}
