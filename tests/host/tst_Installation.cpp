// This build installed into a folder of its own, as `cmake --install` does
// for a person: what lands where, that the installed files look for their
// libraries only inside the installation, that the installed kalhost
// finds and loads the installed plug-in with no --plugin, and what Debian
// asks of a package besides its programs: copyright, changelog, manual
// page, no development links.
#include "RegistrationOrder.h"
#include <QDir>
#include <QFile>
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

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
    void noDevelopmentLinks();
    void copyrightIsInDebianFormat();
    void compressedAsDebianAsks_data();
    void compressedAsDebianAsks();
    void changelogNamesThisVersion();
    void manualPageNamesEveryOption();
    void helpPointsAtTheInstalledDocumentation();

private:
    QString installed(const QString& relative) const { return m_prefix.filePath(relative); }
    QString libDir() const { return installed(QStringLiteral(KAL_INSTALL_LIBDIR)); }
    // readelf's listing of a file's dynamic section: run path, soname, needs.
    static Run dynamicSection(const QString& file)
    {
        return runProgram(QStringLiteral("readelf"), {QStringLiteral("-d"), file}, cleanEnvironment());
    }
    QString docDir() const { return installed(QStringLiteral(KAL_INSTALL_DOCDIR)); }
    // A gzip file's text, through gzip itself.
    static QString unpacked(const QString& path)
    {
        const Run run = runProgram(QStringLiteral("gzip"), {QStringLiteral("-dc"), path}, cleanEnvironment());
        return run.code == 0 ? run.out : QString();
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
    QVERIFY(
        QFileInfo::exists(libDir() + QStringLiteral("/libKalibraExtenderAPI.so.%1").arg(KAL_VERSION_MAJOR)));
    QVERIFY(
        QFileInfo::exists(libDir() + QStringLiteral("/libKalSceneGraphExt.so.%1").arg(KAL_VERSION_MAJOR)));
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
    const QString major = QStringLiteral(".so.%1").arg(KAL_VERSION_MAJOR);
    const QStringList files = {installed(QStringLiteral("bin/kalhost")),
                               libDir() + QStringLiteral("/libKalibraExtenderAPI") + major,
                               libDir() + QStringLiteral("/libKalSceneGraphExt") + major, pluginPath()};
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
        const Run run = dynamicSection(libDir() + QLatin1Char('/') + versioned);
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

void tst_Installation::noDevelopmentLinks()
{
    // No headers are installed, so a link for a linker to find would serve
    // no one; the versioned names are what programs load.
    const QStringList links = QDir(libDir()).entryList({QStringLiteral("*.so")}, QDir::Files | QDir::System);
    QVERIFY2(links.isEmpty(), qPrintable(links.join(QLatin1Char(' '))));
    QVERIFY(!QDir(libDir()).entryList({QStringLiteral("libKal*.so.*")}, QDir::Files).isEmpty());
}

void tst_Installation::copyrightIsInDebianFormat()
{
    const QString copyright = QString::fromUtf8(fileBytes(docDir() + QStringLiteral("/copyright")));
    QVERIFY2(copyright.startsWith(QStringLiteral(
                 "Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/\n")),
             qPrintable(copyright));
    for (const char* field :
         {"\nUpstream-Name: KalDefaults\n", "\nFiles: *\n", "\nCopyright: ", "\nLicense: "})
        QVERIFY2(copyright.contains(QLatin1String(field)), field);
}

void tst_Installation::compressedAsDebianAsks_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("changelog") << QStringLiteral(KAL_INSTALL_DOCDIR "/changelog.gz");
    QTest::newRow("manual page") << QStringLiteral(KAL_INSTALL_MANDIR "/man1/kalhost.1.gz");
}

void tst_Installation::compressedAsDebianAsks()
{
    // gzip -9n: the best compression, and neither the file's name nor its
    // time inside, so that two builds give the same bytes.
    QFETCH(QString, file);
    const QByteArray bytes = fileBytes(installed(file));
    QVERIFY2(bytes.size() > 10, qPrintable(file));
    QCOMPARE(bytes.left(3), QByteArray("\x1f\x8b\x08", 3));
    const char flags = bytes.at(3);
    QVERIFY2(!(flags & 0x08), "the original name is stored");
    QCOMPARE(bytes.mid(4, 4), QByteArray(4, '\0'));
    QCOMPARE(int(quint8(bytes.at(8))), 2); // the extra flag gzip sets for -9
}

void tst_Installation::changelogNamesThisVersion()
{
    const QString changelog = unpacked(installed(QStringLiteral(KAL_INSTALL_DOCDIR "/changelog.gz")));
    QVERIFY2(changelog.startsWith(QStringLiteral("kaldefaults (" KAL_VERSION ") ")), qPrintable(changelog));
    const QRegularExpression trailer(QStringLiteral("\n -- [^<\n]+ <[^>\n]+>  \\w{3}, \\d{1,2} \\w{3} \\d{4} "
                                                    "\\d\\d:\\d\\d:\\d\\d [+-]\\d{4}\n"));
    QVERIFY2(trailer.match(changelog).hasMatch(), qPrintable(changelog));
}

void tst_Installation::manualPageNamesEveryOption()
{
    const QString page = unpacked(installed(QStringLiteral(KAL_INSTALL_MANDIR "/man1/kalhost.1.gz")));
    QVERIFY2(page.startsWith(QStringLiteral(".TH KALHOST 1 ")), qPrintable(page.left(200)));
    const Run help =
        runProgram(installed(QStringLiteral("bin/kalhost")), {QStringLiteral("--help")}, cleanEnvironment());
    QCOMPARE(help.code, 0);
    const QRegularExpression option(QStringLiteral("^  (?:-\\w, )?(--[\\w-]+)"),
                                    QRegularExpression::MultilineOption);
    int options = 0;
    for (QRegularExpressionMatchIterator it = option.globalMatch(help.out); it.hasNext(); ++options) {
        QString name = it.next().captured(1);
        QVERIFY2(page.contains(name.replace(QLatin1Char('-'), QStringLiteral("\\-"))), qPrintable(name));
    }
    QVERIFY2(options >= 10, qPrintable(help.out));
    // The page names the places of the package, never those of the build.
    QVERIFY2(!page.contains(QStringLiteral(KAL_BUILD_DIR)), qPrintable(page));
}

void tst_Installation::helpPointsAtTheInstalledDocumentation()
{
    const Run run =
        runProgram(installed(QStringLiteral("bin/kalhost")), {QStringLiteral("--help")}, cleanEnvironment());
    QCOMPARE(run.code, 0);
    const QString help = run.out.simplified().remove(QLatin1Char(' '));
    const QString folder = QFileInfo(docDir()).canonicalFilePath();
    QVERIFY2(help.contains(folder + QLatin1Char('/')), qPrintable(run.out));
    QVERIFY(QFileInfo::exists(folder + QStringLiteral("/README.md")));
}

QTEST_MAIN(tst_Installation)
#include "tst_Installation.moc"
