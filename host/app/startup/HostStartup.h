#pragma once

#include <QString>

struct CommandLine;
class KalHostWindow;
class KalPlugin;

// A kalhost run, from a command line that was understood to the end of the
// event loop: the scene graph set up, the window made, the plug-in loaded
// and the profile chosen, the scene opened, then either a person's session
// or a scripted one (the tour, a screenshot, a start that quits).
class HostStartup
{
public:
    // The application must exist already.
    explicit HostStartup(const CommandLine& commandLine);
    HostStartup(const HostStartup&) = delete;
    HostStartup& operator=(const HostStartup&) = delete;

    // The exit code: 1 when something given on the command line could not
    // be used.
    int run();

private:
    void makeWindow();
    KalPlugin* loadPlugin();
    // False when a profile file or profile cannot be used: starting with
    // other profiles than the ones asked for would pass unnoticed.
    bool chooseProfile(KalPlugin* plugin);
    void openScene();
    void startScript();
    int finish(int status);

    const CommandLine& m_commandLine;
    KalHostWindow* m_host = nullptr;
    int m_status = 0;
};
