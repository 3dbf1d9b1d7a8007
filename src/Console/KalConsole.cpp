#include "KalConsole.h"

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
#include <QFile>
#include <QFrame>
#include <QThread>

#include <iostream>

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

} // namespace

KalConsole::ConsoleEvent::ConsoleEvent(QString text)
    : QEvent(TypeId)
    , text(std::move(text))
{}

KalConsole::KalConsole()
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
    delete frame;
    frame = nullptr;
    delete dock;
    dock = nullptr;
    restoreErrorHandlers();
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
        errRedirector =
            std::make_unique<StdStreamRedirector<char>>(std::cerr, &KalConsole::stdErrCallback, this);
        outRedirector =
            std::make_unique<StdStreamRedirector<char>>(std::cout, &KalConsole::stdOutCallback, this);
    }
    KalShell::getInstance()->addDockWidget(dock, 8);
    show();
}

void KalConsole::deactivate()
{
    KalExtension::deactivate();
    if (dock && frame) {
        dock->setWidget(nullptr);
        frame->setParent(dock);
        frame->hide();
    }
    errRedirector.reset();
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
    m_consoleOutput->setTextColor(colour);
    m_consoleOutput->append(text);
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

// Text written on another thread cannot touch the widgets: it travels to the
// console's thread as an event and is shown there, in the order it came.
void KalConsole::stdErrCallback(const char* text, std::streamsize, void* data)
{
    auto* console = static_cast<KalConsole*>(data);
    const QString line = QString::fromLocal8Bit(text);
    if (QThread::currentThread() == console->thread()) {
        console->displayError(line);
        return;
    }
    auto* event = new ConsoleEvent(line);
    event->setKind(ConsoleEvent::Error);
    QCoreApplication::postEvent(console, event);
}

void KalConsole::stdOutCallback(const char* text, std::streamsize, void* data)
{
    auto* console = static_cast<KalConsole*>(data);
    const QString line = QString::fromLocal8Bit(text);
    if (QThread::currentThread() == console->thread()) {
        console->displayInfo(line);
        return;
    }
    auto* event = new ConsoleEvent(line);
    event->setKind(ConsoleEvent::Information);
    QCoreApplication::postEvent(console, event);
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
    QCoreApplication::postEvent(console, event);
}

bool KalConsole::event(QEvent* event)
{
    if (event->type() == ConsoleEvent::TypeId) {
        auto* report = static_cast<ConsoleEvent*>(event);
        switch (report->getKind()) {
        case ConsoleEvent::Information:
            displayInfo(report->getText());
            break;
        case ConsoleEvent::Warning:
            displayWarning(report->getText());
            break;
        default:
            displayError(report->getText());
            break;
        }
    }
    return QObject::event(event);
}

void KalConsole::installErrorHandlers()
{
    if (handlersInstalled)
        return;
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
    handlersInstalled = false;
}

void KalConsole::clear()
{
    if (m_consoleOutput)
        m_consoleOutput->clear();
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
