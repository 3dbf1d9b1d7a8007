// kalhost: the stand-in host application. A small scene inspector: it
// loads the plug-in into its main window, opens a scene (the built-in
// sample when none is given), and lets a person select fields, edit them in
// the plug-in's editors, undo, redo and save.
//
// This file reads the command line; HostStartup takes the run from there.
#include "CommandLine.h"
#include "HostStartup.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>

#include <vector>

namespace {

// Qt takes "-plugin NAME" for a platform input plug-in and would swallow our
// own --plugin, so our options are read from the command line as it was
// given and Qt only sees the rest.
std::vector<char*> argumentsForQt(int argc, char** argv)
{
    std::vector<char*> kept;
    for (int i = 0; i < argc; ++i) {
        const QByteArray argument(argv[i]);
        if (argument == "--plugin" || argument == "-plugin") {
            ++i;
            continue;
        }
        if (argument.startsWith("--plugin=") || argument.startsWith("-plugin="))
            continue;
        kept.push_back(argv[i]);
    }
    kept.push_back(nullptr);
    return kept;
}

// Without --plugin, the plug-in is looked for in these places in turn: in a
// build tree it sits in the library folder beside the program's, in an
// installation in the host's own plug-in folder.
QStringList defaultPluginPlaces()
{
    const QDir programDir(QCoreApplication::applicationDirPath());
    return {QDir::cleanPath(programDir.filePath(QStringLiteral("../lib/" KAL_DEFAULT_PLUGIN_NAME))),
            QDir::cleanPath(
                programDir.filePath(QStringLiteral(KAL_INSTALLED_PLUGIN_DIR "/" KAL_DEFAULT_PLUGIN_NAME)))};
}

// Where the README, the copyright and the changelog are installed, found from
// the program's own place as the plug-in is.
QString installedDocumentation()
{
    const QDir programDir(QCoreApplication::applicationDirPath());
    return QDir::cleanPath(programDir.filePath(QStringLiteral(KAL_INSTALLED_DOC_DIR)));
}

void nameApplication()
{
    QCoreApplication::setApplicationName(QStringLiteral("kalhost"));
    QCoreApplication::setOrganizationName(QStringLiteral("KalDefaults"));
    QCoreApplication::setApplicationVersion(QStringLiteral("1.0.0"));
}

// Whether the person chose a window system platform that can start.
bool platformChosen()
{
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (platform.isEmpty())
        return false;
    // An X platform without an X server to reach cannot start at all.
    return !(platform.startsWith("xcb") && qEnvironmentVariableIsEmpty("DISPLAY"));
}

} // namespace

int main(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    {
        // Help, the version and mistakes on the command line need no
        // window system, and must work where there is none.
        CommandLine early{QStringList()};
        if (!early.parser.parse(arguments) || early.parser.isSet(QStringLiteral("help")) ||
            early.parser.isSet(QStringLiteral("help-all")) || early.parser.isSet(QStringLiteral("version"))) {
            QCoreApplication app(argc, argv);
            nameApplication();
            CommandLine commandLine(defaultPluginPlaces(), installedDocumentation());
            commandLine.parser.process(arguments);
            return 0;
        }
        // The listing builds the plug-in's widgets but shows none of them,
        // so it does not need a display either.
        if (early.listsOnly() && !platformChosen())
            qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    std::vector<char*> qtArguments = argumentsForQt(argc, argv);
    int qtArgc = int(qtArguments.size()) - 1;
    QApplication app(qtArgc, qtArguments.data());
    nameApplication();

    CommandLine commandLine(defaultPluginPlaces());
    commandLine.parser.process(arguments);
    return HostStartup(commandLine).run();
}
