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
#include <QDir>
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

} // namespace

int main(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    std::vector<char*> qtArguments = argumentsForQt(argc, argv);
    int qtArgc = int(qtArguments.size()) - 1;
    QApplication app(qtArgc, qtArguments.data());
    QApplication::setApplicationName(QStringLiteral("kalhost"));
    QApplication::setOrganizationName(QStringLiteral("KalDefaults"));
    QApplication::setApplicationVersion(QStringLiteral("1.0.0"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Kalibra stand-in host: opens a scene (the built-in sample when none is given), loads the "
        "field-editing plug-in, and lets you select, edit, undo and save."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("scene"), QStringLiteral("The scene file to open (.iv)."),
                                 QStringLiteral("[SCENE.iv]"));
    const QString defaultPlugin =
        QDir(QApplication::applicationDirPath()).filePath(QStringLiteral("../lib/" KAL_DEFAULT_PLUGIN_NAME));
    QCommandLineOption pluginOption(QStringLiteral("plugin"), QStringLiteral("The plug-in library to load."),
                                    QStringLiteral("PATH"), QDir::cleanPath(defaultPlugin));
    QCommandLineOption profilesOption(QStringLiteral("profiles"),
                                      QStringLiteral("A JSON file of profiles (see the README)."),
                                      QStringLiteral("FILE"));
    QCommandLineOption profileOption(QStringLiteral("profile"), QStringLiteral("The profile to start with."),
                                     QStringLiteral("NAME"));
    QCommandLineOption selectOption(
        QStringLiteral("select"),
        QStringLiteral("Select a node or field at start: Material.diffuseColor (by node name) or "
                       "/0/3.diffuseColor (by child places from the root)."),
        QStringLiteral("PATH"));
    QCommandLineOption screenshotOption(QStringLiteral("screenshot"),
                                        QStringLiteral("Write a PNG of the main window once it is idle."),
                                        QStringLiteral("FILE"));
    QCommandLineOption quitOption(QStringLiteral("quit"), QStringLiteral("Exit after the screenshot."));
    QCommandLineOption listOption(QStringLiteral("list-extensions"),
                                  QStringLiteral("Print the extensions the plug-in registers."));
    QCommandLineOption noViewOption(QStringLiteral("no-view"), QStringLiteral("Do without the 3D view."));
    QCommandLineOption tourOption(
        QStringLiteral("tour"),
        QStringLiteral("Take the scripted demo tour, screenshots into DIR, then exit."),
        QStringLiteral("DIR"));
    parser.addOptions({pluginOption, profilesOption, profileOption, selectOption, screenshotOption,
                       quitOption, listOption, noViewOption, tourOption});
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

    QString activeProfile = parser.value(profileOption);
    if (plugin && parser.isSet(profilesOption)) {
        QString fromFile;
        QStringList warnings;
        QString error;
        if (!ProfileFile::load(parser.value(profilesOption), plugin->getExtensions(), &fromFile, &warnings,
                               &error))
            err << "kalhost: " << error << '\n';
        for (const QString& warning : warnings)
            err << "kalhost: " << warning << '\n';
        if (activeProfile.isEmpty())
            activeProfile = fromFile;
    }
    if (!activeProfile.isEmpty()) {
        KalProfile* wanted = nullptr;
        for (KalProfile* profile : manager->getProfilesList()) {
            if (QString::fromUtf8(profile->getName().getString()) == activeProfile)
                wanted = profile;
        }
        if (wanted)
            manager->setActiveProfile(wanted);
        else
            err << "kalhost: there is no profile \"" << activeProfile << "\".\n";
    }
    err.flush();
    host->refreshProfilesMenu();
    host->arrangeDocks();

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
        QObject::connect(painted, &FirstPaintWatcher::painted, &app, &QApplication::quit, Qt::QueuedConnection);
    }

    const int loopStatus = QApplication::exec();
    delete host;
    manager->unloadAll();
    return loopStatus != 0 ? loopStatus : status;
}
