// kalhost: the stand-in host application. A small scene inspector: it
// loads the plug-in into its main window, opens a scene (the built-in
// sample when none is given), and lets a person select fields, edit them in
// the plug-in's editors, undo, redo and save.
#include "DemoTour.h"
#include "FirstPaintWatcher.h"
#include "KalFieldSampler.h"
#include "KalHostWindow.h"
#include "ProfileFile.h"

#include <KalEditor.h>
#include <KalExtension.h>
#include <KalPlugin.h>
#include <KalPluginsManager.h>
#include <KalProfile.h>
#include <KalShell.h>
#include <SoKalExtensions.h>

#include <Inventor/Qt/SoQt.h>
#include <Inventor/SoDB.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QMainWindow>
#include <QTextStream>
#include <QTimer>

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

// The plug-in --plugin stands for when it is not given: the first place that
// holds one, or else the last place, which the error message then names.
QString defaultPluginPath(const QStringList& places)
{
    for (const QString& place : places) {
        if (QFileInfo::exists(place))
            return place;
    }
    return places.isEmpty() ? QString() : places.last();
}

QString pluginOptionHelp(const QStringList& places)
{
    QString help = QStringLiteral("The plug-in library to load.");
    if (!places.isEmpty())
        help += QStringLiteral(" Without it, the first of these that exists: %1.")
                    .arg(places.join(QStringLiteral(", then ")));
    return help;
}

void nameApplication()
{
    QCoreApplication::setApplicationName(QStringLiteral("kalhost"));
    QCoreApplication::setOrganizationName(QStringLiteral("KalDefaults"));
    QCoreApplication::setApplicationVersion(QStringLiteral("1.0.0"));
}

// Everything kalhost understands on its command line.
struct CommandLine
{
    // The places the plug-in is looked for in, none before there is an
    // application to ask where the program is.
    explicit CommandLine(const QStringList& pluginPlaces)
        : plugin(QStringLiteral("plugin"), pluginOptionHelp(pluginPlaces), QStringLiteral("PATH"),
                 defaultPluginPath(pluginPlaces))
        , profiles(QStringLiteral("profiles"), QStringLiteral("A JSON file of profiles (see the README)."),
                   QStringLiteral("FILE"))
        , profile(QStringLiteral("profile"), QStringLiteral("The profile to start with."),
                  QStringLiteral("NAME"))
        , select(QStringLiteral("select"),
                 QStringLiteral("Select a node or field at start: Material.diffuseColor (by node name) or "
                                "/0/3.diffuseColor (by child places from the root)."),
                 QStringLiteral("PATH"))
        , screenshot(QStringLiteral("screenshot"),
                     QStringLiteral("Write a PNG of the main window once it is idle."),
                     QStringLiteral("FILE"))
        , quit(QStringLiteral("quit"), QStringLiteral("Exit after the screenshot."))
        , list(QStringLiteral("list-extensions"),
               QStringLiteral("Print the extensions the plug-in registers."))
        , noView(QStringLiteral("no-view"), QStringLiteral("Do without the 3D view."))
        , tour(QStringLiteral("tour"),
               QStringLiteral("Take the scripted demo tour, screenshots into DIR, then exit."),
               QStringLiteral("DIR"))
    {
        parser.setApplicationDescription(QStringLiteral(
            "Kalibra stand-in host: opens a scene (the built-in sample when none is given), loads the "
            "field-editing plug-in, and lets you select, edit, undo and save."));
        parser.addHelpOption();
        parser.addVersionOption();
        parser.addPositionalArgument(QStringLiteral("scene"), QStringLiteral("The scene file to open (.iv)."),
                                     QStringLiteral("[SCENE.iv]"));
        parser.addOptions({plugin, profiles, profile, select, screenshot, quit, list, noView, tour});
    }

    // Only the listing is wanted: nothing is shown.
    bool listsOnly() const { return parser.isSet(list) && !parser.isSet(screenshot) && !parser.isSet(tour); }

    QCommandLineParser parser;
    QCommandLineOption plugin;
    QCommandLineOption profiles;
    QCommandLineOption profile;
    QCommandLineOption select;
    QCommandLineOption screenshot;
    QCommandLineOption quit;
    QCommandLineOption list;
    QCommandLineOption noView;
    QCommandLineOption tour;
};

// Whether the person chose a window system platform that can start.
bool platformChosen()
{
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (platform.isEmpty())
        return false;
    // An X platform without an X server to reach cannot start at all.
    return !(platform.startsWith("xcb") && qEnvironmentVariableIsEmpty("DISPLAY"));
}

void printLines(QTextStream& stream, const QString& text)
{
    for (const QString& line : text.split(QLatin1Char('\n')))
        stream << "kalhost: " << line << '\n';
    stream.flush();
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
            CommandLine commandLine(defaultPluginPlaces());
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
    QCommandLineParser& parser = commandLine.parser;
    const QCommandLineOption& pluginOption = commandLine.plugin;
    const QCommandLineOption& profilesOption = commandLine.profiles;
    const QCommandLineOption& profileOption = commandLine.profile;
    const QCommandLineOption& selectOption = commandLine.select;
    const QCommandLineOption& screenshotOption = commandLine.screenshot;
    const QCommandLineOption& quitOption = commandLine.quit;
    const QCommandLineOption& listOption = commandLine.list;
    const QCommandLineOption& noViewOption = commandLine.noView;
    const QCommandLineOption& tourOption = commandLine.tour;
    parser.process(arguments);

    QTextStream out(stdout);
    QTextStream err(stderr);
    const QString platform = QGuiApplication::platformName();
    const bool scripted = parser.isSet(quitOption) || parser.isSet(tourOption);

    SoDB::init();
    SoKalExtensions::init();
    KalFieldSampler::initClass();
    QMainWindow* mainWindow = KalShell::getInstance()->getMainWindow();
    // Coin's sensor queues are processed from Qt's event loop, on this
    // thread, from here on.
    SoQt::init(mainWindow);

    KalHostWindow::Options options;
    options.interactive = !scripted;
    options.view = !parser.isSet(noViewOption) && platform != QLatin1String("offscreen") &&
                   platform != QLatin1String("minimal");
    auto* host = new KalHostWindow(options);

    int status = 0;
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    KalPlugin* plugin = manager->loadPlugin(parser.value(pluginOption));
    host->pluginLoaded(plugin, manager->lastError());
    if (!plugin) {
        // The application stays usable: scenes open, only the editors are
        // missing.
        err << "kalhost: " << manager->lastError() << '\n';
        err.flush();
        status = 1;
    } else if (parser.isSet(listOption)) {
        out << "Loaded " << plugin->name.getString() << ' ' << plugin->version.getString() << " by "
            << plugin->author.getString() << ": " << plugin->description.getString() << '\n';
        const auto& extensions = plugin->getExtensions();
        out << extensions.size() << " extension(s) registered, in order:\n";
        int place = 0;
        for (KalExtension* extension : extensions) {
            out << QStringLiteral("%1").arg(++place, 3) << ". " << extension->name.getString()
                << (qobject_cast<KalEditor*>(extension) ? "  (field editor)" : "") << '\n';
        }
        out.flush();
    }

    // A profile file or profile that cannot be used ends the run: starting
    // with other profiles than the ones asked for would pass unnoticed.
    bool profilesUsable = true;
    QString activeProfile = parser.value(profileOption);
    QString activeFrom;
    if (plugin && parser.isSet(profilesOption)) {
        QString fromFile;
        QStringList warnings;
        QString error;
        if (!ProfileFile::load(parser.value(profilesOption), plugin->getExtensions(), &fromFile, &warnings,
                               &error)) {
            printLines(err, error);
            profilesUsable = false;
        }
        for (const QString& warning : warnings)
            err << "kalhost: " << warning << '\n';
        if (activeProfile.isEmpty() && !fromFile.isEmpty()) {
            activeProfile = fromFile;
            activeFrom = parser.value(profilesOption);
        }
    }
    if (profilesUsable && !activeProfile.isEmpty()) {
        KalProfile* wanted = nullptr;
        for (KalProfile* profile : manager->getProfilesList()) {
            if (QString::fromUtf8(profile->getName().getString()) == activeProfile)
                wanted = profile;
        }
        if (wanted) {
            manager->setActiveProfile(wanted);
        } else {
            if (activeFrom.isEmpty())
                err << "kalhost: there is no profile \"" << activeProfile << "\".\n";
            else
                err << "kalhost: the profile file \"" << activeFrom << "\" starts with the profile \""
                    << activeProfile << "\", which it does not hold.\n";
            profilesUsable = false;
        }
    }
    err.flush();
    if (!profilesUsable) {
        delete host;
        manager->unloadAll();
        return 1;
    }
    if (parser.isSet(profilesOption))
        host->profilesChanged();
    else
        host->refreshProfilesMenu();
    host->arrangeDocks();
    // Scripted runs (the tour, screenshots) take the default layout, so that
    // what they show does not depend on how a person last left the window.
    if (!scripted && !parser.isSet(screenshotOption))
        host->restoreLayout();

    const QStringList positional = parser.positionalArguments();
    if (positional.isEmpty() || !host->openScene(positional.first())) {
        if (!positional.isEmpty())
            status = 1;
        host->openSample();
    }
    if (parser.isSet(listOption) && !parser.isSet(screenshotOption) && !parser.isSet(tourOption)) {
        delete host;
        manager->unloadAll();
        return status;
    }

    mainWindow->show();
    if (parser.isSet(selectOption) && !host->select(parser.value(selectOption)))
        status = 1;

    DemoTour* tour = nullptr;
    if (parser.isSet(tourOption)) {
        out << "Demo tour on the sample scene, screenshots in " << parser.value(tourOption) << ":\n";
        out.flush();
        tour = new DemoTour(host, parser.value(tourOption), host);
        QObject::connect(tour, &DemoTour::finished, &app, [&status](bool ok) {
            if (!ok)
                status = 1;
            QApplication::quit();
        });
        tour->start();
    } else if (parser.isSet(screenshotOption)) {
        // Once the window is up and the event loop has nothing left to do;
        // the 3D view draws from a timer of its own, so give it a moment.
        const QString file = parser.value(screenshotOption);
        const bool quit = parser.isSet(quitOption);
        QTimer::singleShot(700, host, [host, file, quit, &status] {
            if (!host->writeScreenshot(file))
                status = 1;
            else
                QTextStream(stdout) << "Screenshot written to " << file << '\n';
            if (quit)
                QApplication::quit();
        });
    } else if (parser.isSet(quitOption)) {
        // Leave once the window has been painted: a start-up that is
        // complete, and what the start-up benchmark times.
        auto* painted = new FirstPaintWatcher(mainWindow);
        QObject::connect(painted, &FirstPaintWatcher::painted, &app, &QApplication::quit,
                         Qt::QueuedConnection);
    }

    const int loopStatus = QApplication::exec();
    delete host;
    manager->unloadAll();
    return loopStatus != 0 ? loopStatus : status;
}
