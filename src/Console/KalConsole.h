#pragma once

#include "ConsoleInbox.h"
#include "StdStreamRedirector.h"
#include "ui_m_consoleFrame.h"

#include <KalExtension.h>

#include <Inventor/errors/SoError.h>

#include <QColor>
#include <QEvent>
#include <QString>

#include <array>
#include <memory>

class ConsoleDocument;
class ConsoleFinder;
class QDockWidget;
class QFrame;

// The "Console" dock: what the process writes to std::cerr (errors) and
// std::cout (information), and the scene graph's error reports, coloured by
// kind. Each kind can be hidden; the text can be cleared and saved.
class KalConsole : public KalExtension, public Ui::m_consoleFrame
{
    Q_OBJECT
    Q_DISABLE_COPY(KalConsole)

public:
    // One scene-graph error report on its way to the console through the
    // event queue.
    class ConsoleEvent : public QEvent
    {
    public:
        enum Kind
        {
            Error = 0,
            Information = 1,
            Warning = 2
        };
        static constexpr QEvent::Type TypeId = QEvent::User;

        explicit ConsoleEvent(QString text);
        QString getText() const { return text; }
        int getKind() const { return kind; }
        void setKind(int newKind) { kind = newKind; }

    private:
        QString text;
        int kind = Error;
    };

    KalConsole();
    ~KalConsole() override;

    void activate() override;
    void deactivate() override;
    void hide() override;
    void createWidget() override;
    void show() override;
    void destroyWidget() override;

    bool event(QEvent* event) override;

    void displayError(const QString& text);
    void displayInfo(const QString& text);
    void displayWarning(const QString& text);

    static void soErrorHandler(const SoError* error, void* data);

public slots:
    void clear();
    void outputErrors();
    void outputInfos();
    void outputWarnings();
    void save();

private:
    void display(bool shown, const QColor& colour, const QString& text);
    void displayKind(int kind, const QString& text);
    void showInbox();
    void installErrorHandlers();
    void keepButtonsInSight();
    void restoreErrorHandlers();
    static void stdErrCallback(const char* text, std::streamsize count, void* data);
    static void stdOutCallback(const char* text, std::streamsize count, void* data);

    QDockWidget* dock = nullptr;
    QFrame* frame = nullptr;

    bool showErrors = true;
    bool showInfos = true;
    bool showWarnings = true;

    const QColor errorColour = Qt::darkRed;
    const QColor infoColour = Qt::darkGreen;
    const QColor warningColour = Qt::darkYellow;

    // The handlers the six error classes had before the console took over.
    struct SavedHandler
    {
        SoErrorCB* callback = nullptr;
        void* data = nullptr;
    };
    std::array<SavedHandler, 6> savedHandlers;
    bool handlersInstalled = false;

    // Retired rather than freed when capture ends: a thread may still be
    // writing through one.
    using Redirector = std::unique_ptr<StdStreamRedirector<char>, StdStreamRedirector<char>::Retire>;
    Redirector errRedirector;
    Redirector outRedirector;
    // Resumes the redirector still in the stream, or puts a new one there.
    void capture(Redirector& redirector, std::ostream& stream, StdStreamRedirector<char>::Callback callback);

    // Lines from other threads on their way to the text, the text kept to
    // its limit, and find.
    ConsoleInbox inbox;
    std::unique_ptr<ConsoleDocument> document;
    ConsoleFinder* finder = nullptr;
};
