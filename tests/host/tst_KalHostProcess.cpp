// kalhost as a person starts it: command-line options, exit codes, the
// messages bad input gives and the demo tour; on the offscreen platform, or
// on the one KAL_KALHOST_PLATFORM names (a real X server, with the 3D view).
#include "KalHostRun.h"
#include "RegistrationOrder.h"
#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QString platform()
{
    return qEnvironmentVariable("KAL_KALHOST_PLATFORM", QStringLiteral("offscreen"));
}

// Pixels of the 3D view's background colour in a screenshot.
int viewBackgroundPixels(const QImage& image)
{
    const QRgb background = qRgb(41, 46, 56);
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qAbs(qRed(pixel) - qRed(background)) <= 1 && qAbs(qGreen(pixel) - qGreen(background)) <= 1 &&
                qAbs(qBlue(pixel) - qBlue(background)) <= 1)
                ++count;
        }
    }
    return count;
}

using Run = KalHostRun;

Run kalhost(const QStringList& arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), platform());
    return KalHostRun::of(arguments, environment);
}

} // namespace

class tst_KalHostProcess : public QObject
{
    Q_OBJECT

private slots:
    void versionAndHelp();
    void screenshotOfTheSampleThenQuit();
    void demoTourTakesItsScreenshots();
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
    const QImage image(shot);
    QVERIFY2(image.width() > 600, qPrintable(run.err));
    // With a display the scene is drawn; offscreen there is no 3D view.
    if (platform() == QLatin1String("xcb"))
        QVERIFY(viewBackgroundPixels(image) > 10000);
    else
        QCOMPARE(viewBackgroundPixels(image), 0);
}

void tst_KalHostProcess::demoTourTakesItsScreenshots()
{
    const QString directory = m_dir.filePath(QStringLiteral("tour"));
    const Run run = kalhost({QStringLiteral("--tour"), directory});
    QVERIFY2(run.code == 0, qPrintable(run.out + run.err));
    QVERIFY2(!run.out.contains(QLatin1String("FAILED")), qPrintable(run.out));
    const char* const shots[] = {"01-float.png",         "02-enum.png",           "03-rotation.png",
                                 "04-bitmask.png",       "05-colour.png",         "06-float-again.png",
                                 "07-edited.png",        "08-undone.png",         "09-list-row-added.png",
                                 "10-list-edited.png",   "11-list-undone.png",    "12-colour-list.png",
                                 "13-colour-undone.png", "14-vector-list.png",    "15-filter.png",
                                 "16-driven-field.png",  "17-vertex-property.png"};
    for (const char* shot : shots) {
        const QString path = QDir(directory).filePath(QLatin1String(shot));
        QVERIFY2(run.out.contains(path), shot);
        QVERIFY2(QImage(path).width() > 600, shot);
    }
    // The edit and its undo are in the host's history, as its menu says.
    QVERIFY2(run.out.contains(QStringLiteral("Edit > Undo Set Quality.value")), qPrintable(run.out));
    QVERIFY2(run.out.contains(QStringLiteral("Edit > Undo Add a row to Sampler.lines")), qPrintable(run.out));
    const QImage listBefore(QDir(directory).filePath(QStringLiteral("09-list-row-added.png")));
    const QImage listEdited(QDir(directory).filePath(QStringLiteral("10-list-edited.png")));
    const QImage listUndone(QDir(directory).filePath(QStringLiteral("11-list-undone.png")));
    QVERIFY(listBefore != listEdited);
    QVERIFY(listEdited != listUndone);
    // The scene's colour and coordinate lists, each edited in its editor.
    QVERIFY2(run.out.contains(QStringLiteral("typed 0.1 into R")), qPrintable(run.out));
    const QImage colours(QDir(directory).filePath(QStringLiteral("12-colour-list.png")));
    const QImage colourUndone(QDir(directory).filePath(QStringLiteral("13-colour-undone.png")));
    const QImage vectors(QDir(directory).filePath(QStringLiteral("14-vector-list.png")));
    QVERIFY(listUndone != colours);
    QVERIFY(colours != colourUndone);
    QVERIFY(colourUndone != vectors);
    // A vertex held in a shape's VertexProperty, edited in the same list.
    QVERIFY2(run.out.contains(QStringLiteral("typed -0.6 into y of row 3")), qPrintable(run.out));
    const QImage vertexEdited(QDir(directory).filePath(QStringLiteral("17-vertex-property.png")));
    QVERIFY(vertexEdited.width() > 600);
    QVERIFY(QImage(QDir(directory).filePath(QStringLiteral("16-driven-field.png"))) != vertexEdited);
    // The colour's undo names the row and both values: the gold comes back.
    QVERIFY2(run.out.contains(QStringLiteral("Edit > Undo Set row 1 of Gold.diffuseColor: 0.85 0.6 0.15 ")),
             qPrintable(run.out));
    // The edited screenshot differs from the one before the edit, and the
    // undone one shows the editor as before.
    const QImage before(QDir(directory).filePath(QStringLiteral("06-float-again.png")));
    const QImage edited(QDir(directory).filePath(QStringLiteral("07-edited.png")));
    QVERIFY(before != edited);
}

void tst_KalHostProcess::listsTheExtensions()
{
    const Run run = kalhost({QStringLiteral("--list-extensions")});
    QCOMPARE(run.code, 0);
    QVERIFY2(run.out.contains(QStringLiteral("45 extension(s) registered, in order:")), qPrintable(run.out));
    // "  3. MFColor  (field editor)": the place, the name, and what it is.
    const QRegularExpression line(QStringLiteral("^ *(\\d+)\\. (.+?)(  \\(field editor\\))?$"));
    QStringList names;
    QStringList editors;
    for (const QString& text : run.out.split(QLatin1Char('\n'))) {
        const QRegularExpressionMatch match = line.match(text);
        if (!match.hasMatch())
            continue;
        QCOMPARE(match.captured(1).toInt(), names.size() + 1);
        names << match.captured(2);
        if (!match.captured(3).isEmpty())
            editors << match.captured(2);
    }
    QCOMPARE(names, RegistrationOrder::names());
    // Every extension but the selector, the console and the two docks edits
    // a field.
    QCOMPARE(editors.size(), 41);
    QVERIFY(!editors.contains(QStringLiteral("Console")));
    QVERIFY(editors.contains(QStringLiteral("MFMatrix")));
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
    QCOMPARE(run.code, 1);
    QVERIFY2(run.err.contains(QStringLiteral("is not valid JSON")), qPrintable(run.err));
}

QTEST_MAIN(tst_KalHostProcess)
#include "tst_KalHostProcess.moc"
