#pragma once

// The host's singletons outlive the application object, but the plug-ins'
// widgets and the main window must not: once a QApplication exists, this
// makes sure that every plug-in is unloaded and the main window deleted while
// it still does.
class HostLifetime
{
public:
    static void ensureShutdownHook();

private:
    static void shutdown();
};
