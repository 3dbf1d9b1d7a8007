#include "HostStartup.h"

#include "CommandLine.h"
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
#include <QMainWindow>
#include <QTextStream>
#include <QTimer>

namespace {

void printLines(QTextStream& stream, const QString& text)
{
    for (const QString& line : text.split(QLatin1Char('\n')))
        stream << "kalhost: " << line << '\n';
    stream.flush();
}

} // namespace

HostStartup::HostStartup(const CommandLine& commandLine)
    : m_commandLine(commandLine)
{}

int HostStartup::run()
{
    const QCommandLineParser& parser = m_commandLine.parser;
    makeWindow();
    KalPlugin* plugin = loadPlugin();
    if (!chooseProfile(plugin))
        return finish(1);
    if (parser.isSet(m_commandLine.profiles))
        m_host->profilesChanged();
    else
        m_host->refreshProfilesMenu();
    m_host->arrangeDocks();
    // Scripted runs (the tour, screenshots) take the default layout, so that
    // what they show does not depend on how a person last left the window.
    if (!m_commandLine.scripted() && !parser.isSet(m_commandLine.screenshot))
        m_host->restoreLayout();
    openScene();
    if (m_commandLine.listsOnly())
        return finish(m_status);

    m_host->window()->show();
    if (parser.isSet(m_commandLine.select) && !m_host->select(parser.value(m_commandLine.select)))
        m_status = 1;
    startScript();
    const int loopStatus = QApplication::exec();
    return finish(loopStatus != 0 ? loopStatus : m_status);
}

void HostStartup::makeWindow()
{
    const QString platform = QGuiApplication::platformName();
    SoDB::init();
    SoKalExtensions::init();
    KalFieldSampler::initClass();
    // Coin's sensor queues are processed from Qt's event loop, on this
    // thread, from here on.
    SoQt::init(KalShell::getInstance()->getMainWindow());

    KalHostWindow::Options options;
    options.interactive = !m_commandLine.scripted();
    options.view = !m_commandLine.parser.isSet(m_commandLine.noView) &&
                   platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
    m_host = new KalHostWindow(options);
}

KalPlugin* HostStartup::loadPlugin()
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    KalPlugin* plugin = manager->loadPlugin(m_commandLine.parser.value(m_commandLine.plugin));
    m_host->pluginLoaded(plugin, manager->lastError());
    if (!plugin) {
        // The application stays usable: scenes open, only the editors are
        // missing.
        QTextStream err(stderr);
        err << "kalhost: " << manager->lastError() << '\n';
        err.flush();
        m_status = 1;
    } else if (m_commandLine.parser.isSet(m_commandLine.list)) {
        QTextStream out(stdout);
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
    return plugin;
}

bool HostStartup::chooseProfile(KalPlugin* plugin)
{
    const QCommandLineParser& parser = m_commandLine.parser;
    QTextStream err(stderr);
    bool profilesUsable = true;
    QString activeProfile = parser.value(m_commandLine.profile);
    QString activeFrom;
    if (plugin && parser.isSet(m_commandLine.profiles)) {
        QString fromFile;
        QStringList warnings;
        QString error;
        if (!ProfileFile::load(parser.value(m_commandLine.profiles), plugin->getExtensions(), &fromFile,
                               &warnings, &error)) {
            printLines(err, error);
            profilesUsable = false;
        }
        for (const QString& warning : warnings)
            err << "kalhost: " << warning << '\n';
        if (activeProfile.isEmpty() && !fromFile.isEmpty()) {
            activeProfile = fromFile;
            activeFrom = parser.value(m_commandLine.profiles);
        }
    }
    if (profilesUsable && !activeProfile.isEmpty()) {
        KalPluginsManager* manager = KalPluginsManager::getInstance();
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
    return profilesUsable;
}

void HostStartup::openScene()
{
    const QStringList positional = m_commandLine.parser.positionalArguments();
    if (positional.isEmpty() || !m_host->openScene(positional.first())) {
        if (!positional.isEmpty())
            m_status = 1;
        m_host->openSample();
    }
}

void HostStartup::startScript()
{
    const QCommandLineParser& parser = m_commandLine.parser;
    if (parser.isSet(m_commandLine.tour)) {
        const QString directory = parser.value(m_commandLine.tour);
        QTextStream(stdout) << "Demo tour on the sample scene, screenshots in " << directory << ":\n";
        auto* tour = new DemoTour(m_host, directory, m_host);
        QObject::connect(tour, &DemoTour::finished, qApp, [this](bool ok) {
            if (!ok)
                m_status = 1;
            QApplication::quit();
        });
        tour->start();
    } else if (parser.isSet(m_commandLine.screenshot)) {
        // Once the window is up and the event loop has nothing left to do;
        // the 3D view draws from a timer of its own, so give it a moment.
        const QString file = parser.value(m_commandLine.screenshot);
        const bool quit = parser.isSet(m_commandLine.quit);
        QTimer::singleShot(700, m_host, [this, file, quit] {
            if (!m_host->writeScreenshot(file))
                m_status = 1;
            else
                QTextStream(stdout) << "Screenshot written to " << file << '\n';
            if (quit)
                QApplication::quit();
        });
    } else if (parser.isSet(m_commandLine.quit)) {
        // Leave once the window has been painted: a start-up that is
        // complete, and what the start-up benchmark times.
        auto* painted = new FirstPaintWatcher(m_host->window());
        QObject::connect(painted, &FirstPaintWatcher::painted, qApp, &QApplication::quit,
                         Qt::QueuedConnection);
    }
}

int HostStartup::finish(int status)
{
    delete m_host;
    m_host = nullptr;
    KalPluginsManager::getInstance()->unloadAll();
    return status;
}
