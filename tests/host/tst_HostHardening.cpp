// Scene files and selections that used to bring kalhost down: numbers too
// long for Coin's reader, scenes nested deeper than a thread's stack, names
// too long for Coin's name table, and a save that would have replaced a good
// file with one that does not read back.
#include "HostWindowTesting.h"
#include "TestFiles.h"
#include <KalFieldSampler.h>
#include <KalHostWindow.h>
#include <KalShell.h>
#include <LargeStack.h>
#include <SceneDocument.h>
#include <SceneModel.h>
#include <ScenePath.h>
#include <SceneTextCheck.h>
#include <SoKalExtensions.h>

#include <Inventor/Qt/SoQt.h>
#include <Inventor/SoDB.h>
#include <Inventor/fields/SoSFFloat.h>
#include <Inventor/nodes/SoNode.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QDir>
#include <QFile>
#include <QMainWindow>
#include <QTemporaryDir>
#include <QTreeView>
#include <QtTest>

#include <cmath>
#include <memory>
#include <new>

namespace {

// Groups nested levels deep around a cube.
QByteArray nestedGroups(int levels)
{
    QByteArray text("#Inventor V2.1 ascii\n");
    text.reserve(text.size() + levels * 10 + 32);
    for (int i = 0; i < levels; ++i)
        text += "Group {\n";
    text += "Cube { width 3 }\n";
    for (int i = 0; i < levels; ++i)
        text += "}\n";
    return text;
}

// The child places of the cube in nestedGroups(levels), from the root
// separator the reader puts around a file's nodes.
QString cubePlaces(int levels)
{
    QString places;
    for (int i = 0; i <= levels; ++i)
        places += QStringLiteral("/0");
    return places;
}

} // namespace

class tst_HostHardening : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void longNumbersAreRefused_data();
    void longNumbersAreRefused();
    void longRunsAreRefusedWhereverTheyStand_data();
    void longRunsAreRefusedWhereverTheyStand();
    void theLongestRunAllowedReads();
    void binaryFilesAreNotScanned();
    void deepScenesOpenEditSaveAndClose();
    void deeperThanTheLargeStackIsRefused();
    void overlongNamesAreRefused_data();
    void overlongNamesAreRefused();
    void saveKeepsTheGoodFileWhenTheSceneDoesNotReadBack();
    void oversizedImagesAreRefused_data();
    void oversizedImagesAreRefused();
    void runningOutOfMemoryIsReported();

private:
    std::unique_ptr<KalHostWindow> m_host;
    QTemporaryDir m_dir;
};

void tst_HostHardening::initTestCase()
{
    HostWindowTesting::setUpScene();
    QVERIFY(m_dir.isValid());
}

void tst_HostHardening::init()
{
    m_host = HostWindowTesting::headlessSample();
}

void tst_HostHardening::cleanup()
{
    m_host.reset();
}

void tst_HostHardening::longNumbersAreRefused_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QByteArray>("node");
    // Each of these overran a buffer in Coin's reader and aborted kalhost.
    QTest::newRow("SFInt32 of 600 digits") << QByteArray(600, '7') << QByteArray("Switch { whichChild ");
    QTest::newRow("SFFloat of 5,000 digits")
        << "0." + QByteArray(5000, '5') << QByteArray("Complexity { value ");
    QTest::newRow("hexadecimal of 300 digits")
        << "0x" + QByteArray(300, 'f') << QByteArray("Switch { whichChild ");
    QTest::newRow("just over the limit")
        << QByteArray(SceneTextCheck::kMaxNumberLength + 1, '1') << QByteArray("Switch { whichChild ");
}

void tst_HostHardening::longNumbersAreRefused()
{
    QFETCH(QByteArray, value);
    QFETCH(QByteArray, node);
    const QString path = m_dir.filePath(QStringLiteral("long-number.iv"));
    writeFile(path, "#Inventor V2.1 ascii\nSeparator {\n  " + node + value + " }\n}\n");
    SoNode* before = m_host->sceneModel()->root();
    QVERIFY(!m_host->openScene(path));
    QVERIFY2(m_host->lastError().contains(path), qPrintable(m_host->lastError()));
    QVERIFY2(m_host->lastError().contains(QLatin1String("line 3 holds a number of more than 256 characters")),
             qPrintable(m_host->lastError()));
    QCOMPARE(m_host->sceneModel()->root(), before);
}

void tst_HostHardening::longRunsAreRefusedWhereverTheyStand_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const QByteArray number = "  Switch { whichChild " + QByteArray(5000, '7') + " }\n";
    // Coin reads abc" as one word, so the number that follows is read as a
    // number, and overran its buffer: exit 134.
    QTest::newRow("quote inside a word")
        << QByteArray("  Info { string abc\" }\n" + number) << QByteArray("# \"\n");
    QTest::newRow("quote after a comma in a word")
        << QByteArray("  Info { string abc,\" }\n" + number) << QByteArray("# \"\n");
    QTest::newRow("escaped quote") << QByteArray("  Info { string \"a\\\" }\n" + number) << QByteArray();
    QTest::newRow("hash inside a word") << QByteArray("  Info { string abc# } " + number) << QByteArray();
    QTest::newRow("hash inside a string") << QByteArray("  Info { string \"#\" } " + number) << QByteArray();
    QTest::newRow("comment opened inside a string")
        << QByteArray("  Info { string \"x\n# \" }\n" + number) << QByteArray();
    // No scene needs such a run; where it is harmless it is refused too.
    QTest::newRow("in a string") << QByteArray("  Info { string \"" + QByteArray(2000, '9') + "\" }\n")
                                 << QByteArray();
    QTest::newRow("in a comment") << QByteArray("# " + QByteArray(2000, '9') + "\n") << QByteArray();
}

void tst_HostHardening::longRunsAreRefusedWhereverTheyStand()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    const QString path = m_dir.filePath(QStringLiteral("hidden-number.iv"));
    writeFile(path, "#Inventor V2.1 ascii\nSeparator {\n" + before + "}\n" + after);
    SoNode* previous = m_host->sceneModel()->root();
    QVERIFY(!m_host->openScene(path));
    QVERIFY2(m_host->lastError().contains(path), qPrintable(m_host->lastError()));
    QVERIFY2(m_host->lastError().contains(QLatin1String("holds a number of more than 256 characters")),
             qPrintable(m_host->lastError()));
    QCOMPARE(m_host->sceneModel()->root(), previous);
}

void tst_HostHardening::theLongestRunAllowedReads()
{
    const QByteArray digits(SceneTextCheck::kMaxNumberLength, '9');
    const QString path = m_dir.filePath(QStringLiteral("long-text.iv"));
    writeFile(path, "#Inventor V2.1 ascii\n# " + digits + "\nSeparator {\n  DEF LongText Info { string \"" +
                        digits + "\\\" " + digits + "\" }\n  Complexity { value 0." +
                        QByteArray(SceneTextCheck::kMaxNumberLength - 2, '0') + " }\n}\n");
    QVERIFY2(m_host->openScene(path), qPrintable(m_host->lastError()));
    QVERIFY(m_host->select(QStringLiteral("LongText.string")));
    QCOMPARE(
        m_host->sceneModel()->data(m_host->tree()->currentIndex().siblingAtColumn(SceneModel::TypeColumn)),
        QVariant(QStringLiteral("SFString")));
}

void tst_HostHardening::binaryFilesAreNotScanned()
{
    // Bytes of a binary file are no text; any run of them may look like a
    // long number.
    const QByteArray binary = "#Inventor V2.1 binary  \n" + QByteArray(1000, '1');
    QString error;
    QVERIFY(SceneTextCheck::acceptable(binary, QStringLiteral("binary.iv"), &error));
    QVERIFY(error.isEmpty());
    QVERIFY(!SceneTextCheck::acceptable("#Inventor V2.1 ascii\n" + QByteArray(1000, '1'),
                                        QStringLiteral("ascii.iv"), &error));
    // Binary is what Coin takes for binary: a first line that only
    // mentions the word is text, and scanned.
    QVERIFY(!SceneTextCheck::acceptable("#Inventor V2.1 ascii binary\n" + QByteArray(1000, '1'),
                                        QStringLiteral("ascii.iv"), &error));
}

void tst_HostHardening::deepScenesOpenEditSaveAndClose()
{
    // 20,000 levels overflowed the GUI thread's stack while Coin read them,
    // wrote them and freed them.
    constexpr int kLevels = 20000;
    const QString path = m_dir.filePath(QStringLiteral("deep.iv"));
    writeFile(path, nestedGroups(kLevels));
    QVERIFY2(m_host->openScene(path), qPrintable(m_host->lastError()));

    // The deepest field, reached by places as --select does, and changed:
    // the change is noticed up through every level.
    QVERIFY2(m_host->select(cubePlaces(kLevels) + QStringLiteral(".width")), qPrintable(m_host->lastError()));
    SoField* width = m_host->sceneModel()->field(m_host->tree()->currentIndex());
    QVERIFY(width);
    QCOMPARE(static_cast<SoSFFloat*>(width)->getValue(), 3.0f);
    // Changed behind the editor's back: the history gives the change an
    // entry of its own once the event loop runs.
    static_cast<SoSFFloat*>(width)->setValue(5.0f);
    QTRY_VERIFY(m_host->hasUnsavedChanges());

    const QString saved = m_dir.filePath(QStringLiteral("deep-saved.iv"));
    QVERIFY2(m_host->saveScene(saved), qPrintable(m_host->lastError()));
    // Written without indentation, which at this depth would be most of
    // the file, and hundreds of megabytes of it.
    QVERIFY(QFileInfo(saved).size() < 1024 * 1024);
    QVERIFY2(m_host->openScene(saved), qPrintable(m_host->lastError()));
    QVERIFY(m_host->select(cubePlaces(kLevels) + QStringLiteral(".width")));
    QCOMPARE(static_cast<SoSFFloat*>(m_host->sceneModel()->field(m_host->tree()->currentIndex()))->getValue(),
             5.0f);

    // Replacing the scene frees all 20,000 levels.
    m_host->openSample();
    QVERIFY(m_host->select(QStringLiteral("Sampler.opacity")));
}

void tst_HostHardening::deeperThanTheLargeStackIsRefused()
{
    const QString path = m_dir.filePath(QStringLiteral("deepest.iv"));
    writeFile(path, nestedGroups(SceneTextCheck::kMaxDepth + 1));
    SoNode* before = m_host->sceneModel()->root();
    QVERIFY(!m_host->openScene(path));
    QVERIFY2(m_host->lastError().contains(path), qPrintable(m_host->lastError()));
    QVERIFY2(m_host->lastError().contains(
                 QStringLiteral("nests the scene more than %1 levels deep").arg(SceneTextCheck::kMaxDepth)),
             qPrintable(m_host->lastError()));
    QCOMPARE(m_host->sceneModel()->root(), before);
}

void tst_HostHardening::overlongNamesAreRefused_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("refused");
    const QString longName(70000, QLatin1Char('A'));
    QTest::newRow("node name of 70,000") << longName << true;
    QTest::newRow("node name of 70,000, with a field") << longName + QStringLiteral(".opacity") << true;
    QTest::newRow("field name of 70,000") << QStringLiteral("Sampler.") + longName << true;
    QTest::newRow("field name of 70,000 by places") << QStringLiteral("/0.") + longName << true;
    QTest::newRow("just over the limit")
        << QString(ScenePath::kMaxNameLength + 1, QLatin1Char('N')) + QStringLiteral(".value") << true;
    // At the limit the name is looked for, and not found.
    QTest::newRow("at the limit") << QString(ScenePath::kMaxNameLength, QLatin1Char('N')) << false;
}

void tst_HostHardening::overlongNamesAreRefused()
{
    QFETCH(QString, path);
    QFETCH(bool, refused);
    QVERIFY(!m_host->select(path));
    const QString error = m_host->lastError();
    QCOMPARE(error.contains(QStringLiteral("names of more than 1024 characters are refused")), refused);
    // The message shows the start of the name, not all of it.
    QVERIFY2(error.size() < 300, qPrintable(error.left(300)));
    QVERIFY(m_host->select(QStringLiteral("Sampler.opacity")));
}

void tst_HostHardening::saveKeepsTheGoodFileWhenTheSceneDoesNotReadBack()
{
    const QString path = m_dir.filePath(QStringLiteral("good.iv"));
    QVERIFY(m_host->saveScene(path));
    const QByteArray good = readFile(path);
    QVERIFY(!good.isEmpty());

    // Coin writes a float that is not a number as "nan", which it cannot
    // read back.
    QVERIFY(m_host->select(QStringLiteral("Sampler.opacity")));
    auto* opacity = static_cast<SoSFFloat*>(m_host->sceneModel()->field(m_host->tree()->currentIndex()));
    opacity->setValue(std::nanf(""));
    QTRY_VERIFY(m_host->hasUnsavedChanges());
    QVERIFY(!m_host->saveScene(path));
    QVERIFY2(m_host->lastError().contains(QStringLiteral("Cannot save \"%1\"").arg(path)),
             qPrintable(m_host->lastError()));
    QVERIFY2(m_host->lastError().contains(QLatin1String("would not read back")),
             qPrintable(m_host->lastError()));
    QCOMPARE(readFile(path), good);
    QVERIFY(m_host->hasUnsavedChanges());
    // Nothing written aside is left behind.
    QCOMPARE(QDir(m_dir.path()).entryList({QStringLiteral("good.iv*")}, QDir::Files),
             QStringList{QStringLiteral("good.iv")});
    QCOMPARE(m_host->scenePath(), path);

    opacity->setValue(0.5f);
    QVERIFY2(m_host->saveScene(path), qPrintable(m_host->lastError()));
    QVERIFY(readFile(path) != good);
}

void tst_HostHardening::oversizedImagesAreRefused_data()
{
    QTest::addColumn<QByteArray>("image");
    QTest::addColumn<QString>("refusal");
    // Coin allocated 3.6 GB for this before reading a pixel, and its
    // std::bad_alloc left the reading thread and ended kalhost.
    QTest::newRow("30000 by 30000") << QByteArray("30000 30000 4 0xff")
                                    << QStringLiteral(
                                           "line 3 declares an image 30000×30000×4, which is too large");
    QTest::newRow("one value short") << QByteArray("2 2 1 0 0 0")
                                     << QStringLiteral("declares an image 2×2×1, which is too large");
    QTest::newRow("as many as declared") << QByteArray("2 1 1 0xff 0x00") << QString();
}

void tst_HostHardening::oversizedImagesAreRefused()
{
    QFETCH(QByteArray, image);
    QFETCH(QString, refusal);
    const QString path = m_dir.filePath(QStringLiteral("image.iv"));
    writeFile(path, "#Inventor V2.1 ascii\nSeparator {\n  DEF Picture Texture2 { image " + image + " }\n}\n");
    SoNode* before = m_host->sceneModel()->root();
    QCOMPARE(m_host->openScene(path), refusal.isEmpty());
    if (refusal.isEmpty()) {
        QVERIFY(m_host->select(QStringLiteral("Picture.image")));
        return;
    }
    QVERIFY2(m_host->lastError().contains(path), qPrintable(m_host->lastError()));
    QVERIFY2(m_host->lastError().contains(refusal), qPrintable(m_host->lastError()));
    QCOMPARE(m_host->sceneModel()->root(), before);
}

void tst_HostHardening::runningOutOfMemoryIsReported()
{
    // What Coin throws on the large stack's thread comes back as a result:
    // let out of the thread, it ended the program.
    bool after = false;
    QVERIFY(!LargeStack::run([] { throw std::bad_alloc(); }));
    QVERIFY(LargeStack::run([&after] { after = true; }));
    QVERIFY(after);
}

QTEST_MAIN(tst_HostHardening)
#include "tst_HostHardening.moc"
