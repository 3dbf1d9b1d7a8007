#pragma once
// What the console tests share: for each test function a fresh "Console"
// made and shown in the stand-in host's main window, with std::cout and
// std::cerr pointed at the test's own buffers, all undone afterwards.
#include "ConsoleTesting.h"

#include <KalConsole.h>

#include <QObject>
#include <QTextEdit>

#include <memory>
#include <optional>
#include <sstream>

// A test class derives from it and adds only its checks: the fixture's
// initTestCase(), init() and cleanup() run as the test's own.
class ConsoleFixture : public QObject
{
    Q_OBJECT

protected slots:
    void initTestCase();
    void init();
    void cleanup();

protected:
    // Makes, shows and empties a console of its own.
    void makeConsole();
    // Puts a console that keeps at most `maxLines` lines, set through its
    // preference, in the place of the one the test has.
    void makeConsoleKeeping(int maxLines);
    // The console's text, null when it has no dock.
    QTextEdit* output() const;
    // A widget of the console's dock by object name, null when there is none.
    QWidget* consoleWidget(const QString& name) const;

    std::unique_ptr<KalConsole> m_console;
    // The streams the process "had before": buffers of the test's own, so
    // that what leaks past the console can be read back.
    std::ostringstream m_out;
    std::ostringstream m_err;
    std::optional<ConsoleTesting::StandardStreams> m_streams;
};
