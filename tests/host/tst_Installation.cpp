// This build installed into a folder of its own, as `cmake --install` does
// for a person: what lands where, that the installed files look for their
// libraries only inside the installation, and that the installed kalhost
// finds and loads the installed plug-in with no --plugin.
#include "RegistrationOrder.h"
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Run
{
    int code = -1;
    QString out;
    QString err;
};

// Runs a program to its end (at most two minutes) and keeps what it said.
Run runProgram(const QString& program, const QStringList& arguments, const QProcessEnvironment& environment)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    Run run;
    const bool finished = process.waitForFinished(120000);
    if (!finished)
        process.kill();
    if (finished && process.exitStatus() == QProcess::NormalExit)
        run.code = process.exitCode();
    run.out = QString::fromLocal8Bit(process.readAllStandardOutput());
    run.err = QString::fromLocal8Bit(process.readAllStandardError()) + process.errorString();
    return run;
}

// The environment of a person's shell: nothing that would point the
// installed files at the build tree or move the installation elsewhere.
QProcessEnvironment cleanEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("LD_LIBRARY_PATH"));
    environment.remove(QStringLiteral("DESTDIR"));
    environment.remove(QStringLiteral("QT_PLUGIN_PATH"));
    return environment;
}

} // namespace

class tst_Installation : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void filesLandInTheStandardPlaces();
    void runPathsStayInsideTheInstallation();
    void librariesCarryTheirMajorVersion();
    void extenderLibraryExportsNoTestInterface();
    void installedHostFindsThePluginByItself();
    void helpSaysWhereThePluginIsLookedFor();

private:
    QString installed(const QString& relative) const { return m_prefix.filePath(relative); }
    QString libDir() const { return installed(QStringLiteral(KAL_INSTALL_LIBDIR)); }
    // readelf's listing of a file's dynamic section: run path, soname, needs.
    static Run dynamicSection(const QString& file)
    {
        return runProgram(QStringLiteral("readelf"), {QStringLiteral("-d"), file}, cleanEnvironment());
    }
    QString pluginPath() const
    {
        return installed(QStringLiteral(KAL_INSTALL_LIBDIR "/" KAL_PLUGIN_INSTALL_DIR "/libKalDefaults.so"));
    }

    QTemporaryDir m_prefix;
};

void tst_Installation::initTestCase()
{
    QVERIFY(m_prefix.isValid());
    const Run run = runProgram(QStringLiteral(KAL_CMAKE_COMMAND),
                               {QStringLiteral("--install"), QStringLiteral(KAL_BUILD_DIR),
                                QStringLiteral("--prefix"), m_prefix.path()},
                               cleanEnvironment());
    QVERIFY2(run.code == 0, qPrintable(run.out + run.err));
}

void tst_Installation::filesLandInTheStandardPlaces()
{
    QVERIFY(QFileInfo(installed(QStringLiteral("bin/kalhost"))).isExecutable());
    QVERIFY(QFileInfo::exists(libDir() + QStringLiteral("/libKalibraExtenderAPI.so")));
    QVERIFY(QFileInfo::exists(libDir() + QStringLiteral("/libKalSceneGraphExt.so")));
    QVERIFY(QFileInfo::exists(pluginPath()));
    QVERIFY(QFileInfo::exists(installed(QStringLiteral("share/applications/kalhost.desktop"))));
    QVERIFY(QFileInfo::exists(installed(QStringLiteral("share/icons/hicolor/scalable/apps/kalhost.svg"))));

    // Only the program a person runs: no tests, benchmarks or fixtures, and
    // the plug-in only in the host's plug-in folder.
    QCOMPARE(QDir(installed(QStringLiteral("bin"))).entryList(QDir::Files), QStringList{"kalhost"});
    QVERIFY(!QFileInfo::exists(libDir() + QStringLiteral("/libKalDefaults.so")));
    const QStringList fixtures =
        QDir(libDir()).entryList({QStringLiteral("*Fixture*"), QStringLiteral("*Test*")}, QDir::Files);
    QVERIFY2(fixtures.isEmpty(), qPrintable(fixtures.join(QLatin1Char(' '))));
    QVERIFY(!QFileInfo::exists(installed(QStringLiteral("include"))));
}

void tst_Installation::runPathsStayInsideTheInstallation()
{
    const QRegularExpression runPath(
        QStringLiteral("\\((?:RUNPATH|RPATH)\\)\\s+Library r(?:un)?path: \\[(.*)\\]"));
    const QStringList files = {installed(QStringLiteral("bin/kalhost")),
                               libDir() + QStringLiteral("/libKalibraExtenderAPI.so"),
                               libDir() + QStringLiteral("/libKalSceneGraphExt.so"), pluginPath()};
    for (const QString& file : files) {
        const Run run = dynamicSection(file);
        QVERIFY2(run.code == 0, qPrintable(run.err));
        const QRegularExpressionMatch match = runPath.match(run.out);
        QVERIFY2(match.hasMatch(), qPrintable(file + QStringLiteral(": no run path")));
        for (const QString& entry : match.captured(1).split(QLatin1Char(':'))) {
            QVERIFY2(entry.startsWith(QStringLiteral("$ORIGIN")),
                     qPrintable(file + QStringLiteral(" looks in ") + entry));
        }
    }
}

void tst_Installation::librariesCarryTheirMajorVersion()
{
    const QRegularExpression soname(QStringLiteral("\\(SONAME\\)\\s+Library soname: \\[(.*)\\]"));
    const QRegularExpression needed(QStringLiteral("\\(NEEDED\\)\\s+Shared library: \\[(libKal[^]]*)\\]"));
    for (const char* name : {"libKalibraExtenderAPI.so", "libKalSceneGraphExt.so"}) {
        const QString versioned = QLatin1String(name) + QStringLiteral(".%1").arg(KAL_VERSION_MAJOR);
        QVERIFY2(QFileInfo::exists(libDir() + QLatin1Char('/') + versioned), qPrintable(versioned));
        const Run run = dynamicSection(libDir() + QLatin1Char('/') + name);
        QVERIFY2(run.code == 0, qPrintable(run.err));
        QCOMPARE(soname.match(run.out).captured(1), versioned);
    }
    // What the program and the plug-in ask for is the versioned name.
    for (const QString& file : {installed(QStringLiteral("bin/kalhost")), pluginPath()}) {
        const Run run = dynamicSection(file);
        QVERIFY2(run.code == 0, qPrintable(run.err));
        QStringList libraries;
        for (QRegularExpressionMatchIterator it = needed.globalMatch(run.out); it.hasNext();)
            libraries << it.next().captured(1);
        QVERIFY2(!libraries.isEmpty(), qPrintable(file));
        for (const QString& library : libraries) {
            QVERIFY2(library.endsWith(QStringLiteral(".so.%1").arg(KAL_VERSION_MAJOR)),
                     qPrintable(file + QStringLiteral(" needs ") + library));
        }
    }
}

void tst_Installation::extenderLibraryExportsNoTestInterface()
{
    // The back door the tests use into the plug-ins manager lives in the
    // test support library: a plug-in linked against the installed library
    // must not be able to reach it.
    const QString library = libDir() + QStringLiteral("/libKalibraExtenderAPI.so.%1").arg(KAL_VERSION_MAJOR);
    const Run run =
        runProgram(QStringLiteral("nm"),
                   {QStringLiteral("-D"), QStringLiteral("--defined-only"), QStringLiteral("-C"), library},
                   cleanEnvironment());
    QVERIFY2(run.code == 0, qPrintable(run.err));
    QVERIFY2(run.out.contains(QStringLiteral("KalPluginsManager::getInstance()")),
             qPrintable(run.out.left(2000)));
    for (const QString& symbol : run.out.split(QLatin1Char('\n'))) {
        QVERIFY2(!symbol.contains(QStringLiteral("KalHostTesting")), qPrintable(symbol));
    }
}

void tst_Installation::installedHostFindsThePluginByItself()
{
    QProcessEnvironment environment = cleanEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    const Run run = runProgram(installed(QStringLiteral("bin/kalhost")),
                               {QStringLiteral("--list-extensions")}, environment);
    QVERIFY2(run.code == 0, qPrintable(run.err));
    QVERIFY2(run.out.contains(QStringLiteral("45 extension(s) registered, in order:")), qPrintable(run.out));
    const QRegularExpression line(QStringLiteral("^ *(\\d+)\\. (.+?)(  \\(field editor\\))?$"));
    QStringList names;
    for (const QString& text : run.out.split(QLatin1Char('\n'))) {
        const QRegularExpressionMatch match = line.match(text);
        if (match.hasMatch())
            names << match.captured(2);
    }
    QCOMPARE(names, RegistrationOrder::names());
}

void tst_Installation::helpSaysWhereThePluginIsLookedFor()
{
    const Run run =
        runProgram(installed(QStringLiteral("bin/kalhost")), {QStringLiteral("--help")}, cleanEnvironment());
    QCOMPARE(run.code, 0);
    // The help text wraps long lines; the places are compared without the
    // wrapping.
    const QString help = run.out.simplified().remove(QLatin1Char(' '));
    QVERIFY2(help.contains(QFileInfo(pluginPath()).canonicalFilePath()), qPrintable(run.out));
}

QTEST_MAIN(tst_Installation)
#include "tst_Installation.moc"
