// kalhost as a person starts it: command-line options, exit codes and the
// messages bad input gives, on the offscreen platform.
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Run
{
    int code = -1;
    QString out;
    QString err;
};

Run kalhost(const QStringList& arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(KALHOST_PATH), arguments);
    Run run;
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit) {
        process.kill();
        return run;
    }
    run.code = process.exitCode();
    run.out = QString::fromLocal8Bit(process.readAllStandardOutput());
    run.err = QString::fromLocal8Bit(process.readAllStandardError());
    return run;
}

} // namespace

class tst_KalHostProcess : public QObject
{
    Q_OBJECT

private slots:
    void versionAndHelp();
    void screenshotOfTheSampleThenQuit();
    void listsTheExtensions();
    void missingSceneFallsBackToTheSample();
    void missingPluginLeavesAUsableHost();
    void unknownSelectionIsSaid();
    void profileFileChoosesTheProfile();
    void brokenProfileFileIsSaid();

private:
    QTemporaryDir m_dir;
};

void tst_KalHostProcess::versionAndHelp()
{
    const Run version = kalhost({QStringLiteral("--version")});
    QCOMPARE(version.code, 0);
    QCOMPARE(version.out.trimmed(), QStringLiteral("kalhost 1.0.0"));
    const Run help = kalhost({QStringLiteral("--help")});
    QCOMPARE(help.code, 0);
    for (const char* option : {"--plugin", "--profiles", "--profile", "--select", "--screenshot", "--quit"})
        QVERIFY2(help.out.contains(QLatin1String(option)), option);
}

void tst_KalHostProcess::screenshotOfTheSampleThenQuit()
{
    const QString shot = m_dir.filePath(QStringLiteral("sample.png"));
    const Run run = kalhost({QStringLiteral("--select"), QStringLiteral("Sampler.tint"),
                             QStringLiteral("--screenshot"), shot, QStringLiteral("--quit")});
    QCOMPARE(run.code, 0);
    QVERIFY2(QImage(shot).width() > 600, qPrintable(run.err));
}

void tst_KalHostProcess::listsTheExtensions()
{
    const Run run = kalhost({QStringLiteral("--list-extensions")});
    QCOMPARE(run.code, 0);
    QVERIFY(run.out.contains(QStringLiteral("Field Editor")));
    QVERIFY(run.out.contains(QStringLiteral("SFFloat  (field editor)")));
}

void tst_KalHostProcess::missingSceneFallsBackToTheSample()
{
    const QString missing = m_dir.filePath(QStringLiteral("nowhere.iv"));
    const Run run = kalhost(
        {missing, QStringLiteral("--select"), QStringLiteral("Sampler.opacity"), QStringLiteral("--quit")});
    QCOMPARE(run.code, 1);
    QVERIFY2(run.err.contains(QStringLiteral("Cannot open \"%1\": there is no such file.").arg(missing)),
             qPrintable(run.err));
    // The sample took its place: the selection found its node.
    QVERIFY2(!run.err.contains(QStringLiteral("no node")), qPrintable(run.err));
}

void tst_KalHostProcess::missingPluginLeavesAUsableHost()
{
    const QString shot = m_dir.filePath(QStringLiteral("no-plugin.png"));
    const Run run = kalhost({QStringLiteral("--plugin"), QStringLiteral("/no/such/plugin.so"),
                             QStringLiteral("--screenshot"), shot, QStringLiteral("--quit")});
    QCOMPARE(run.code, 1);
    QVERIFY2(run.err.contains(QStringLiteral("The plug-in file \"/no/such/plugin.so\" does not exist.")),
             qPrintable(run.err));
    QVERIFY(!QImage(shot).isNull());
}

void tst_KalHostProcess::unknownSelectionIsSaid()
{
    const Run run =
        kalhost({QStringLiteral("--select"), QStringLiteral("Nobody.value"), QStringLiteral("--quit")});
    QCOMPARE(run.code, 1);
    QVERIFY2(run.err.contains(QStringLiteral("The scene has no node \"Nobody\".")), qPrintable(run.err));
}

void tst_KalHostProcess::profileFileChoosesTheProfile()
{
    const QString path = m_dir.filePath(QStringLiteral("profiles.json"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(
        R"({"profiles": [{"name": "Floats only", "extensions": ["Field Editor"], "editors": ["SFFloat", "Nope"]}],
                  "active": "Floats only"})");
    file.close();
    const Run run = kalhost({QStringLiteral("--profiles"), path, QStringLiteral("--list-extensions")});
    QCOMPARE(run.code, 0);
    QVERIFY2(run.err.contains(QStringLiteral("Profile \"Floats only\": no editor is named \"Nope\".")),
             qPrintable(run.err));
    const Run missing = kalhost({QStringLiteral("--profiles"), path, QStringLiteral("--profile"),
                                 QStringLiteral("Absent"), QStringLiteral("--list-extensions")});
    QVERIFY2(missing.err.contains(QStringLiteral("there is no profile \"Absent\"")), qPrintable(missing.err));
}

void tst_KalHostProcess::brokenProfileFileIsSaid()
{
    const QString path = m_dir.filePath(QStringLiteral("broken.json"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{ \"profiles\": [ ");
    file.close();
    const Run run = kalhost({QStringLiteral("--profiles"), path, QStringLiteral("--list-extensions")});
    QCOMPARE(run.code, 0);
    QVERIFY2(run.err.contains(QStringLiteral("is not valid JSON")), qPrintable(run.err));
}

QTEST_MAIN(tst_KalHostProcess)
#include "tst_KalHostProcess.moc"
