// kalhost: the stand-in host application. For now it loads a plug-in into the
// stand-in host and reports what the plug-in registered.
#include <KalEditor.h>
#include <KalExtension.h>
#include <KalPlugin.h>
#include <KalPluginsManager.h>
#include <KalProfile.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QTextStream>

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
    QApplication::setApplicationVersion(QStringLiteral("1.0.0"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Stand-in host: loads a plug-in and lists the extensions it registers."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QString defaultPlugin =
        QDir(QApplication::applicationDirPath()).filePath(QStringLiteral("../lib/" KAL_DEFAULT_PLUGIN_NAME));
    QCommandLineOption pluginOption(QStringLiteral("plugin"), QStringLiteral("The plug-in library to load."),
                                    QStringLiteral("PATH"), QDir::cleanPath(defaultPlugin));
    parser.addOption(pluginOption);
    parser.process(arguments);

    SoDB::init();
    SoKalExtensions::init();

    QTextStream out(stdout);
    QTextStream err(stderr);
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    KalPlugin* plugin = manager->loadPlugin(parser.value(pluginOption));
    if (!plugin) {
        err << "kalhost: " << manager->lastError() << '\n';
        return 1;
    }

    out << "Loaded " << plugin->name.getString() << ' ' << plugin->version.getString() << " by "
        << plugin->author.getString() << ": " << plugin->description.getString() << '\n';
    const auto& extensions = plugin->getExtensions();
    out << extensions.size() << " extension(s) registered, in order:\n";
    int place = 0;
    for (KalExtension* extension : extensions) {
        out << QStringLiteral("%1").arg(++place, 3) << ". " << extension->name.getString()
            << (qobject_cast<KalEditor*>(extension) ? "  (field editor)" : "") << '\n';
    }
    if (KalProfile* profile = manager->getActiveProfile())
        out << "Active profile: " << profile->getName().getString() << '\n';
    out.flush();

    manager->unloadAll();
    return 0;
}
