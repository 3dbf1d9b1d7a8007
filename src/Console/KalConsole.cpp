#include "KalConsole.h"

#include "ConsoleDocument.h"
#include "ConsoleFinder.h"
#include "ModalDialogs.h"

#include <KalShell.h>
#include <SoErrorStack.h>
#include <SoGLError.h>
#include <SoPreferences.h>

#include <Inventor/errors/SoDebugError.h>
#include <Inventor/errors/SoMemoryError.h>
#include <Inventor/errors/SoReadError.h>

#include <QCoreApplication>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QFile>
#include <QFrame>
#include <QThread>

#include <algorithm>
#include <iostream>
#include <mutex>
#include <vector>

namespace {

// The six error classes of the scene graph, with their handler accessors.
struct ErrorClass
{
    void (*set)(SoErrorCB*, void*);
    SoErrorCB* (*callback)();
    void* (*data)();
};

const ErrorClass kErrorClasses[] = {
    {&SoDebugError::setHandlerCallback, &SoDebugError::getHandlerCallback, &SoDebugError::getHandlerData},
    {&SoError::setHandlerCallback, &SoError::getHandlerCallback, &SoError::getHandlerData},
    {&SoErrorStack::setHandlerCallback, &SoErrorStack::getHandlerCallback, &SoErrorStack::getHandlerData},
    {&SoGLError::setHandlerCallback, &SoGLError::getHandlerCallback, &SoGLError::getHandlerData},
    {&SoMemoryError::setHandlerCallback, &SoMemoryError::getHandlerCallback, &SoMemoryError::getHandlerData},
    {&SoReadError::setHandlerCallback, &SoReadError::getHandlerCallback, &SoReadError::getHandlerData},
};

// The consoles whose widgets exist, that is that handle the error classes.
// An error class hands its handler's data to whichever thread posts a
// report, and that thread may still be on its way when the console's widget,
// or the console, goes: a report is posted only to a console still listed,
// under the same lock that takes it off the list, so none reaches a console
// that is gone. The list is never freed, for reports posted at exit.
std::mutex& listMutex()
{
    static auto* mutex = new std::mutex;
    return *mutex;
}

std::vector<const QObject*>& listedConsoles()
{
    static auto* consoles = new std::vector<const QObject*>;
    return *consoles;
}

void listConsole(const QObject* console)
{
    const std::lock_guard<std::mutex> lock(listMutex());
    listedConsoles().push_back(console);
}

void unlistConsole(const QObject* console)
{
    const std::lock_guard<std::mutex> lock(listMutex());
    auto& consoles = listedConsoles();
    consoles.erase(std::remove(consoles.begin(), consoles.end(), console), consoles.end());
}

void postToListedConsole(QObject* console, QEvent* event)
{
    const std::lock_guard<std::mutex> lock(listMutex());
    const auto& consoles = listedConsoles();
    if (std::find(consoles.begin(), consoles.end(), console) == consoles.end()) {
        delete event;
        return;
    }
    QCoreApplication::postEvent(console, event);
}

// A report is made on the thread that raised it and read, then freed, on the
// console's. Qt's event queue orders the two with locks of its own, which
// the thread sanitizer cannot see; the list's lock, under which every report
// is posted, is taken here before a report is read, so the hand-over is one
// any tool can follow. Uncontended it costs a few nanoseconds an event.
void takeOverPostedReports()
{
    const std::lock_guard<std::mutex> lock(listMutex());
}

// Lines from other threads are shown in slices, so that the user interface
// handles its other events in between however fast they come: taken 256 at
// a time for at most 15 ms, and no more than 1,024 a slice, since the slice's
// lines are laid out together at its end (some 30 ms for 1,024 lines).
constexpr qint64 kSliceMs = 15;
constexpr std::size_t kTakenLines = 256;
constexpr int kTakesPerSlice = 4;

} // namespace

KalConsole::ConsoleEvent::ConsoleEvent(QString text)
    : QEvent(TypeId)
    , text(std::move(text))
{}

KalConsole::KalConsole()
    : inbox(this, ConsoleDocument::kDefaultMaxLines)
{
    name = "Console";
    author = "Quelvo";
    description = "A console which prints the standard output and error.";
    version = "1.0.0";
}

KalConsole::~KalConsole()
{
    // The streams and the error classes must not keep pointing at a console
    // that is gone, whatever the host did or did not call.
    errRedirector.reset();
    outRedirector.reset();
    destroyWidget();
}

void KalConsole::createWidget()
{
    if (dock)
        return;
    dock = new QDockWidget;
    dock->setObjectName(QStringLiteral("KalConsoleDock"));
    frame = new QFrame(dock);
    setupUi(frame);
    keepButtonsInSight();
    document = std::make_unique<ConsoleDocument>(m_consoleOutput, ConsoleDocument::maxLinesPreference());
    inbox.setLimit(std::size_t(document->maxLines()));
    finder = new ConsoleFinder(m_consoleOutput, frame, verticalLayout);
    showErrors = showInfos = showWarnings = true;
    connect(m_clearButton, SIGNAL(clicked()), this, SLOT(clear()));
    connect(m_errorsButton, SIGNAL(toggled(bool)), this, SLOT(outputErrors()));
    connect(m_infosButton, SIGNAL(toggled(bool)), this, SLOT(outputInfos()));
    connect(m_saveButton, SIGNAL(clicked()), this, SLOT(save()));
    connect(m_warningsButton, SIGNAL(toggled(bool)), this, SLOT(outputWarnings()));
    installErrorHandlers();
}

void KalConsole::keepButtonsInSight()
{
    // With the style's default margins the column of five buttons is taller
    // than a console strip, and the scroll area around it hid the last
    // three. Tighter margins let the column fit, and the scroll area is never
    // allowed to be shorter than what it holds, so no button is out of sight
    // at any height the dock can take.
    const int margin = 2;
    verticalLayout->setContentsMargins(margin, margin, margin, margin);
    horizontalLayout->setContentsMargins(margin, margin, margin, margin);
    m_buttonsLayout->setSpacing(margin);
    m_consoleScrollArea->setMinimumHeight(m_scrollAreaContents->minimumSizeHint().height() +
                                          2 * m_consoleScrollArea->frameWidth());
}

void KalConsole::destroyWidget()
{
    if (!dock)
        return;
    // Off the list first, so that no report is posted to the console while
    // its widgets go; what was posted before finds them gone and is dropped.
    restoreErrorHandlers();
    finder = nullptr;
    document.reset();
    inbox.discard();
    delete frame;
    frame = nullptr;
    m_consoleOutput = nullptr;
    delete dock;
    dock = nullptr;
}

void KalConsole::activate()
{
    KalShell::getInstance()->attachExtension(this, 1);
    KalExtension::activate();
    if (!dock)
        return;
    dock->setWidget(frame);
    dock->setWindowTitle(tr("Console"));
    if (SoPreferences::getBool("KALIBRA_STDOUT_CAPTURE", TRUE)) {
        // A redirector left in its stream by the last deactivation captures
        // again without touching the stream other threads write to. Any
        // other is let go first: letting go gives the stream back the buffer
        // it had before it.
        capture(errRedirector, std::cerr, &KalConsole::stdErrCallback);
        capture(outRedirector, std::cout, &KalConsole::stdOutCallback);
    }
    KalShell::getInstance()->addDockWidget(dock, 8);
    show();
}

void KalConsole::capture(Redirector& redirector, std::ostream& stream,
                         StdStreamRedirector<char>::Callback callback)
{
    if (redirector && redirector->resume())
        return;
    redirector.reset();
    redirector.reset(new StdStreamRedirector<char>(stream, callback, this));
}

void KalConsole::deactivate()
{
    KalExtension::deactivate();
    if (dock && frame) {
        dock->setWidget(nullptr);
        frame->setParent(dock);
        frame->hide();
    }
    // The streams get their buffers back, except where another thread has
    // written through a redirector: that one stays in the stream, passing
    // text on to the buffer the stream had, until the console goes.
    if (errRedirector && !errRedirector->pause())
        errRedirector.reset();
    if (outRedirector && !outRedirector->pause())
        outRedirector.reset();
    KalShell::getInstance()->removeDockWidget(dock);
    hide();
    KalShell::getInstance()->detachExtension(this);
}

void KalConsole::hide()
{
    KalExtension::hide();
    if (dock)
        dock->hide();
    if (frame)
        frame->hide();
}

void KalConsole::show()
{
    KalExtension::show();
    if (dock)
        dock->show();
    if (frame)
        frame->show();
}

void KalConsole::display(bool shown, const QColor& colour, const QString& text)
{
    if (!shown || !m_consoleOutput)
        return;
    if (document)
        document->append(colour, text);
}

void KalConsole::displayKind(int kind, const QString& text)
{
    switch (kind) {
    case ConsoleEvent::Information:
        displayInfo(text);
        break;
    case ConsoleEvent::Warning:
        displayWarning(text);
        break;
    default:
        displayError(text);
        break;
    }
}

// What other threads wrote, shown a slice at a time and laid out once a
// slice; the rest waits for the next wake-up, behind the events that came
// meanwhile.
void KalConsole::showInbox()
{
    std::vector<ConsoleInbox::Line> lines;
    long long dropped = 0;
    if (!document) {
        inbox.discard();
        return;
    }
    QElapsedTimer clock;
    clock.start();
    bool more = true;
    document->beginBatch();
    for (int take = 0; more && take < kTakesPerSlice && clock.elapsed() < kSliceMs; ++take) {
        lines.clear();
        more = inbox.take(lines, kTakenLines, dropped);
        document->addDropped(dropped);
        dropped = 0;
        for (const ConsoleInbox::Line& line : lines)
            displayKind(line.kind, line.text);
    }
    document->endBatch();
    if (more)
        inbox.postWakeUp();
}

void KalConsole::displayError(const QString& text)
{
    display(showErrors, errorColour, text);
}

void KalConsole::displayInfo(const QString& text)
{
    display(showInfos, infoColour, text);
}

void KalConsole::displayWarning(const QString& text)
{
    display(showWarnings, warningColour, text);
}

// Text written on another thread cannot touch the widgets: it waits in the
// inbox for the console's thread and is shown there, in the order it came.
// The redirector calls back only while capture lasts, so the console is
// there to take it.
void KalConsole::stdErrCallback(const char* text, std::streamsize, void* data)
{
    auto* console = static_cast<KalConsole*>(data);
    const QString line = QString::fromLocal8Bit(text);
    if (QThread::currentThread() == console->thread()) {
        console->displayError(line);
        return;
    }
    console->inbox.push(ConsoleEvent::Error, line);
}

void KalConsole::stdOutCallback(const char* text, std::streamsize, void* data)
{
    auto* console = static_cast<KalConsole*>(data);
    const QString line = QString::fromLocal8Bit(text);
    if (QThread::currentThread() == console->thread()) {
        console->displayInfo(line);
        return;
    }
    console->inbox.push(ConsoleEvent::Information, line);
}

void KalConsole::soErrorHandler(const SoError* error, void* data)
{
    auto* console = static_cast<KalConsole*>(data);
    if (!error || !console)
        return;
    auto* event = new ConsoleEvent(QString::fromUtf8(error->getDebugString().getString()));
    int kind = ConsoleEvent::Error;
    if (error->isOfType(SoDebugError::getClassTypeId())) {
        switch (static_cast<const SoDebugError*>(error)->getSeverity()) {
        case SoDebugError::WARNING:
            kind = ConsoleEvent::Warning;
            break;
        case SoDebugError::INFO:
            kind = ConsoleEvent::Information;
            break;
        default:
            break;
        }
    }
    event->setKind(kind);
    postToListedConsole(console, event);
}

bool KalConsole::event(QEvent* event)
{
    takeOverPostedReports();
    inbox.receivePosted();
    if (event->type() == ConsoleEvent::TypeId) {
        auto* report = static_cast<ConsoleEvent*>(event);
        displayKind(report->getKind(), report->getText());
    } else if (event->type() == ConsoleInbox::WakeUpType) {
        showInbox();
        return true;
    }
    return QObject::event(event);
}

void KalConsole::installErrorHandlers()
{
    if (handlersInstalled)
        return;
    listConsole(this);
    for (size_t i = 0; i < savedHandlers.size(); ++i) {
        savedHandlers[i].callback = kErrorClasses[i].callback();
        savedHandlers[i].data = kErrorClasses[i].data();
        kErrorClasses[i].set(&KalConsole::soErrorHandler, this);
    }
    handlersInstalled = true;
}

void KalConsole::restoreErrorHandlers()
{
    if (!handlersInstalled)
        return;
    for (size_t i = 0; i < savedHandlers.size(); ++i)
        kErrorClasses[i].set(savedHandlers[i].callback, savedHandlers[i].data);
    unlistConsole(this);
    handlersInstalled = false;
}

void KalConsole::clear()
{
    if (document)
        document->clear();
}

// Each toggle of a button calls its slot once, which keeps flag and button
// in step without reading the button.
void KalConsole::outputErrors()
{
    showErrors = !showErrors;
}

void KalConsole::outputInfos()
{
    showInfos = !showInfos;
}

void KalConsole::outputWarnings()
{
    showWarnings = !showWarnings;
}

void KalConsole::save()
{
    if (!m_consoleOutput)
        return;
    const QString fileName = ModalDialogs::getSaveFileName(
        frame, tr("Save the content of the console"), QStringLiteral("."), tr("Console outputs (*.txt)"));
    // The file is not truncated: a longer file keeps its old tail after the
    // new text. That is how saving has always worked here.
    QFile file(fileName);
    if (fileName.isEmpty() || !file.open(QIODevice::ReadWrite | QIODevice::Text))
        return;
    const QByteArray text = m_consoleOutput->toPlainText().toLatin1();
    file.write(text.constData(), qstrlen(text.constData()));
}
