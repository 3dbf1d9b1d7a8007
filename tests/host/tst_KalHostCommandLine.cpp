// kalhost started as a process with command lines that used to go wrong:
// profile files and profiles that cannot be used, help, version and the
// extension listing where there is no display, and a selection by a name
// too long for Coin.
#include "KalHostRun.h"
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

namespace {

using Run = KalHostRun;

// Without a display: no X server, no Wayland, and no platform chosen,
// unless one is given.
Run kalhost(const QStringList& arguments, const QString& platform = QStringLiteral("offscreen"))
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    if (!platform.isEmpty())
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), platform);
    return KalHostRun::of(arguments, environment);
}

} // namespace

class tst_KalHostCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void helpVersionAndListingNeedNoDisplay_data();
    void helpVersionAndListingNeedNoDisplay();
    void unusableProfilesEndTheRun_data();
    void unusableProfilesEndTheRun();
    void goodProfileFileStillStarts();
    void overlongSelectionIsRefused();
    void selectionsNamingNothingAreRefused_data();
    void selectionsNamingNothingAreRefused();
    void selectionsReachNodesHeldInFields_data();
    void selectionsReachNodesHeldInFields();
    void unwritableScreenshotSaysWhy();

private:
    QString writeProfiles(const QString& name, const QByteArray& json);

    QTemporaryDir m_dir;
};

void tst_KalHostCommandLine::initTestCase()
{
    QVERIFY(m_dir.isValid());
}

QString tst_KalHostCommandLine::writeProfiles(const QString& name, const QByteArray& json)
{
    const QString path = m_dir.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(json) != json.size())
        return QString();
    return path;
}

void tst_KalHostCommandLine::helpVersionAndListingNeedNoDisplay_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("platform");
    QTest::addColumn<QString>("expected");
    for (const QString& platform : {QString(), QStringLiteral("xcb")}) {
        const QByteArray suffix = platform.isEmpty() ? " (no platform)" : " (xcb)";
        QTest::newRow("--help" + suffix) << "--help" << platform << "--profiles <FILE>";
        QTest::newRow("--version" + suffix) << "--version" << platform << "kalhost 1.0.0";
        QTest::newRow("--list-extensions" + suffix)
            << "--list-extensions" << platform << "SFFloat  (field editor)";
    }
}

void tst_KalHostCommandLine::helpVersionAndListingNeedNoDisplay()
{
    QFETCH(QString, option);
    QFETCH(QString, platform);
    QFETCH(QString, expected);
    const Run run = kalhost({option}, platform);
    QVERIFY2(run.code == 0, qPrintable(run.err));
    QVERIFY2(run.out.contains(expected), qPrintable(run.out));
}

void tst_KalHostCommandLine::unusableProfilesEndTheRun_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("profile");
    QTest::addColumn<QStringList>("said");

    QTest::newRow("missing") << "missing.json" << QByteArray() << QString()
                             << QStringList{QStringLiteral("Cannot open the profile file")};
    QTest::newRow("a folder") << "folder.json" << QByteArray() << QString()
                              << QStringList{QStringLiteral("is not a regular file")};
    // A device that never ends was read until memory ran out, and a pipe
    // with no writer blocked the start for good.
    QTest::newRow("a device") << "/dev/zero" << QByteArray() << QString()
                              << QStringList{QStringLiteral("is not a regular file")};
    QTest::newRow("a pipe") << "pipe.json" << QByteArray() << QString()
                            << QStringList{QStringLiteral("is not a regular file")};
    QTest::newRow("too large") << "large.json" << QByteArray() << QString()
                               << QStringList{QStringLiteral("is larger than 64 MiB")};
    QTest::newRow("broken JSON") << "broken.json" << QByteArray("{ \"profiles\": [ ") << QString()
                                 << QStringList{QStringLiteral("is not valid JSON")};
    QTest::newRow("a list at the top") << "top.json" << QByteArray("[]") << QString()
                                       << QStringList{QStringLiteral("should hold an object")};
    QTest::newRow("profiles as text")
        << "text.json" << QByteArray(R"({"profiles": "Colours"})") << QString()
        << QStringList{QStringLiteral("\"profiles\" should be a list of profiles, not the text \"Colours\"")};
    QTest::newRow("editors as text")
        << "editors.json" << QByteArray(R"({"profiles": [{"name": "A", "editors": "SFFloat"}]})") << QString()
        << QStringList{
               QStringLiteral("profile 1 (\"A\"): \"editors\" should be a list of names or \"*\", not "
                              "the text \"SFFloat\"")};
    QTest::newRow("extensions null") << "null.json"
                                     << QByteArray(R"({"profiles": [{"name": "A", "extensions": null}]})")
                                     << QString()
                                     << QStringList{QStringLiteral(
                                            "\"extensions\" should be a list of names or \"*\", not null")};
    QTest::newRow("a number among the names")
        << "number.json" << QByteArray(R"({"profiles": [{"name": "A", "editors": ["SFFloat", 3]}]})")
        << QString() << QStringList{QStringLiteral("entry 2 of \"editors\" should be a name, not a number")};
    QTest::newRow("name not text") << "name.json" << QByteArray(R"({"profiles": [{"name": 7}]})") << QString()
                                   << QStringList{
                                          QStringLiteral("profile 1 should have a name, not a number")};
    QTest::newRow("active not text") << "active.json" << QByteArray(R"({"profiles": [], "active": ["A"]})")
                                     << QString()
                                     << QStringList{QStringLiteral(
                                            "\"active\" should be the name of a profile, not a list")};
    QTest::newRow("two of one name")
        << "twice.json" << QByteArray(R"({"profiles": [{"name": "A"}, {"name": "B"}, {"name": "A"}]})")
        << QString()
        << QStringList{QStringLiteral("profile 3 (\"A\"): there is already a profile of that name")};
    QTest::newRow("the host's own name")
        << "default.json" << QByteArray(R"({"profiles": [{"name": "Default"}]})") << QString()
        << QStringList{QStringLiteral("profile 1 (\"Default\"): there is already a profile of that name")};
    QTest::newRow("every problem said")
        << "several.json"
        << QByteArray(R"({"profiles": [{"name": "A", "editors": null}, {"extensions": 1}]})") << QString()
        << QStringList{QStringLiteral("profile 1 (\"A\"): \"editors\""),
                       QStringLiteral("profile 2 has no \"name\""),
                       QStringLiteral("profile 2: \"extensions\"")};
    QTest::newRow("unknown --profile")
        << "" << QByteArray() << "Absent" << QStringList{QStringLiteral("there is no profile \"Absent\"")};
    QTest::newRow("unknown --profile with a file")
        << "good.json" << QByteArray(R"({"profiles": [{"name": "A"}]})") << "Absent"
        << QStringList{QStringLiteral("there is no profile \"Absent\"")};
    QTest::newRow("unknown active profile")
        << "unknown-active.json" << QByteArray(R"({"profiles": [{"name": "A"}], "active": "B"})") << QString()
        << QStringList{QStringLiteral("starts with the profile \"B\", which it does not hold")};
}

void tst_KalHostCommandLine::unusableProfilesEndTheRun()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, json);
    QFETCH(QString, profile);
    QFETCH(QStringList, said);
    QStringList arguments{QStringLiteral("--list-extensions")};
    QString path;
    if (!file.isEmpty()) {
        path = QDir::isAbsolutePath(file) ? file : m_dir.filePath(file);
        if (file == QLatin1String("folder.json")) {
            QVERIFY(QDir(m_dir.path()).mkpath(file));
        } else if (file == QLatin1String("pipe.json")) {
            QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        } else if (file == QLatin1String("large.json")) {
            // Sparse: one byte past the limit costs no disk.
            QFile large(path);
            QVERIFY(large.open(QIODevice::WriteOnly) && large.resize((qint64(64) << 20) + 1));
        } else if (!json.isEmpty()) {
            QVERIFY(!writeProfiles(file, json).isEmpty());
        }
        arguments << QStringLiteral("--profiles") << path;
    }
    if (!profile.isEmpty())
        arguments << QStringLiteral("--profile") << profile;
    const Run run = kalhost(arguments);
    QCOMPARE(run.code, 1);
    // Said on stderr, naming the file.
    if (!profile.isEmpty() && file.isEmpty())
        QVERIFY2(!run.err.contains(QLatin1String("profile file")), qPrintable(run.err));
    else if (profile.isEmpty())
        QVERIFY2(run.err.contains(QStringLiteral("\"%1\"").arg(path)), qPrintable(run.err));
    for (const QString& words : said)
        QVERIFY2(run.err.contains(words), qPrintable(run.err));
}

void tst_KalHostCommandLine::goodProfileFileStillStarts()
{
    // Names of extensions or editors the host does not know are no reason
    // to stop: they are reported, naming the file, and skipped.
    const QString path = writeProfiles(
        QStringLiteral("good.json"),
        R"({"profiles": [{"name": "Floats", "extensions": ["Field Editor"], "editors": ["SFFloat", "Nope"]},
                         {"name": "All", "editors": "*"}], "active": "Floats"})");
    QVERIFY(!path.isEmpty());
    const Run run = kalhost({QStringLiteral("--profiles"), path, QStringLiteral("--profile"),
                             QStringLiteral("All"), QStringLiteral("--list-extensions")});
    QVERIFY2(run.code == 0, qPrintable(run.err));
    QVERIFY2(
        run.err.contains(QStringLiteral("The profile file \"%1\": Profile \"Floats\": no editor is named "
                                        "\"Nope\".")
                             .arg(path)),
        qPrintable(run.err));
    QVERIFY(run.out.contains(QLatin1String("extension(s) registered")));
}

void tst_KalHostCommandLine::overlongSelectionIsRefused()
{
    // 70,000 characters crashed inside Coin's name table.
    const Run run =
        kalhost({QStringLiteral("--select"), QString(70000, QLatin1Char('A')) + QStringLiteral(".value"),
                 QStringLiteral("--quit")});
    QVERIFY2(run.code == 1, qPrintable(run.err.right(400)));
    QVERIFY2(
        run.err.contains(QLatin1String("is 70000 characters long; names of more than 1024 characters are "
                                       "refused")),
        qPrintable(run.err.right(400)));
}

void tst_KalHostCommandLine::selectionsNamingNothingAreRefused_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("said");
    // Each of these used to select the root and exit 0.
    QTest::newRow("empty") << ""
                           << "The path \"\" names no node";
    QTest::newRow("a dot") << "."
                           << "The path \".\" names no node";
    QTest::newRow("a field alone") << ".diffuseColor"
                                   << "The path \".diffuseColor\" names no node";
    QTest::newRow("a dot after a node") << "Stone."
                                        << "The path \"Stone.\" names no field after its dot";
}

void tst_KalHostCommandLine::selectionsNamingNothingAreRefused()
{
    QFETCH(QString, path);
    QFETCH(QString, said);
    const Run run = kalhost({QStringLiteral("--select"), path, QStringLiteral("--quit")});
    QVERIFY2(run.code == 1, qPrintable(run.err));
    QVERIFY2(run.err.contains(said), qPrintable(run.err));
}

void tst_KalHostCommandLine::selectionsReachNodesHeldInFields_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("code");
    QTest::newRow("a kit's part") << "LEFT_THIGH.transform" << 0;
    QTest::newRow("a field of the part") << "LEFT_THIGH.transform/0.translation" << 0;
    QTest::newRow("a node in a File node's scene") << "Part.width" << 0;
    QTest::newRow("a part the kit lacks") << "LEFT_THIGH.appearance/0" << 1;
}

void tst_KalHostCommandLine::selectionsReachNodesHeldInFields()
{
    QFETCH(QString, path);
    QFETCH(int, code);
    QFile part(m_dir.filePath(QStringLiteral("part.iv")));
    QVERIFY(part.open(QIODevice::WriteOnly));
    part.write("#Inventor V2.1 ascii\nDEF Part Cube { width 3 }\n");
    part.close();
    QFile scene(m_dir.filePath(QStringLiteral("kit.iv")));
    QVERIFY(scene.open(QIODevice::WriteOnly));
    scene.write("#Inventor V2.1 ascii\nSeparator {\n  DEF LEFT_THIGH ShapeKit { transform Transform { } }\n"
                "  File { name \"part.iv\" }\n}\n");
    scene.close();
    const Run run = kalhost({scene.fileName(), QStringLiteral("--select"), path, QStringLiteral("--quit")});
    QVERIFY2(run.code == code, qPrintable(run.err));
    QCOMPARE(run.err.contains(QStringLiteral("The scene has no node")), code != 0);
}

void tst_KalHostCommandLine::unwritableScreenshotSaysWhy()
{
    // A folder in the file's place: refused with the reason, not only the
    // exit code.
    const Run run = kalhost({QStringLiteral("--screenshot"), m_dir.path(), QStringLiteral("--quit")});
    QVERIFY2(run.code == 1, qPrintable(run.err));
    QVERIFY2(run.err.contains(
                 QStringLiteral("Cannot write the screenshot \"%1\": it is a folder.").arg(m_dir.path())),
             qPrintable(run.err));
    const QString inMissingFolder = m_dir.filePath(QStringLiteral("no/such/folder/shot.png"));
    const Run missing = kalhost({QStringLiteral("--screenshot"), inMissingFolder, QStringLiteral("--quit")});
    QCOMPARE(missing.code, 1);
    QVERIFY2(
        missing.err.contains(QStringLiteral("Cannot write the screenshot \"%1\": ").arg(inMissingFolder)),
        qPrintable(missing.err));
    QVERIFY2(!missing.err.contains(QStringLiteral("\": .")), qPrintable(missing.err));
}

QTEST_MAIN(tst_KalHostCommandLine)
#include "tst_KalHostCommandLine.moc"
