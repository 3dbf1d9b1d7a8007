// Scene files that bring others in through File and Inline nodes: what the
// included files hold is checked as the scene's own text is, before Coin
// opens any of them, so that an included file can neither overrun Coin's
// reader, nor hang it, nor include itself.
#include "HostWindowTesting.h"
#include "TestFiles.h"
#include <KalHostWindow.h>
#include <SceneDocument.h>
#include <SceneIncludes.h>
#include <SceneModel.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

#include <sys/stat.h>

namespace {

const QByteArray kInventor("#Inventor V2.1 ascii\n");

QByteArray including(const QByteArray& name)
{
    return kInventor + "Separator {\n  Cube {}\n  File { name \"" + name + "\" }\n}\n";
}

} // namespace

class tst_HostIncludes : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void includedFilesOpen();
    void namesAreReadAsCoinReadsThem_data();
    void namesAreReadAsCoinReadsThem();
    void badIncludedFilesAreRefused_data();
    void badIncludedFilesAreRefused();
    void saveChecksIncludedFiles();
    void binaryScenesIncludedFilesAreChecked();
    void includedFilesThatAreNotRegularAreRefused_data();
    void includedFilesThatAreNotRegularAreRefused();
    void scenesThatIncludeThemselvesAreRefused_data();
    void scenesThatIncludeThemselvesAreRefused();

private:
    void expectRefused(const QString& path, const QString& reason);

    std::unique_ptr<KalHostWindow> m_host;
    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_HostIncludes::initTestCase()
{
    HostWindowTesting::setUpScene();
}

void tst_HostIncludes::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
    m_host = HostWindowTesting::headlessSample();
}

void tst_HostIncludes::cleanup()
{
    m_host.reset();
    m_dir.reset();
}

void tst_HostIncludes::expectRefused(const QString& path, const QString& reason)
{
    SoNode* before = m_host->sceneModel()->root();
    QVERIFY(!m_host->openScene(path));
    QVERIFY2(m_host->lastError().contains(reason), qPrintable(m_host->lastError()));
    QCOMPARE(m_host->sceneModel()->root(), before);
}

void tst_HostIncludes::includedFilesOpen()
{
    // The same file included twice is no cycle.
    writeFile(m_dir->filePath(QStringLiteral("cube.iv")), kInventor + "Cube { width 4 }\n");
    const QString path = m_dir->filePath(QStringLiteral("scene.iv"));
    writeFile(path, kInventor + "Separator {\n  File { name \"cube.iv\" }\n  File { name \"cube.iv\" }\n}\n");
    QVERIFY2(m_host->openScene(path), qPrintable(m_host->lastError()));
    QCOMPARE(m_host->scenePath(), path);
}

void tst_HostIncludes::namesAreReadAsCoinReadsThem_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("quoted") << QByteArray("File { name \"a b.iv\" }") << QStringList{"a b.iv"};
    QTest::newRow("word") << QByteArray("File {name a.iv }") << QStringList{"a.iv"};
    // Coin reads a word up to white space, brace and all.
    QTest::newRow("word and brace") << QByteArray("File {name a.iv}") << QStringList{"a.iv}", "a.iv"};
    QTest::newRow("backslash kept") << QByteArray("File { name \"a\\b.iv\" }") << QStringList{"a\\b.iv"};
    QTest::newRow("escaped quote") << QByteArray("File { name \"a\\\"b.iv\" }") << QStringList{"a\"b.iv"};
    QTest::newRow("after a comment and another field")
        << QByteArray("File { # name \"no.iv\"\n bboxSize 1 2 3 name \"yes.iv\" }") << QStringList{"yes.iv"};
    QTest::newRow("urls") << QByteArray("DEF I Inline { url [ \"a.wrl\", \"b.wrl\" ] }")
                          << QStringList{"a.wrl", "b.wrl"};
    // A File word in a string is taken for a node too: looking needlessly
    // costs a look; missing one would let Coin open it.
    QTest::newRow("in a string") << QByteArray("Info { string \"File { name x.iv }\" }")
                                 << QStringList{"x.iv"};
    QTest::newRow("stray bracket") << QByteArray("File { ] name \"a.iv\" }") << QStringList{"a.iv"};
    QTest::newRow("unclosed") << QByteArray("File { File { name \"a.iv\"") << QStringList{"a.iv"};
    QTest::newRow("part of a word") << QByteArray("MyFile { name \"x.iv\" }") << QStringList{};
}

void tst_HostIncludes::namesAreReadAsCoinReadsThem()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, names);
    QCOMPARE(SceneIncludes::names(text), names);
}

void tst_HostIncludes::badIncludedFilesAreRefused_data()
{
    QTest::addColumn<QByteArray>("scene");
    QTest::addColumn<QString>("culprit");
    QTest::addColumn<QString>("reason");
    const QString number = QStringLiteral("holds a number of more than 256 characters");
    QTest::newRow("File") << including("long.iv") << QStringLiteral("long.iv") << number;
    QTest::newRow("VRML 2.0 Inline") << QByteArray("#VRML V2.0 utf8\nInline { url \"long.iv\" }\n")
                                     << QStringLiteral("long.iv") << number;
    QTest::newRow("two levels down") << including("middle.iv") << QStringLiteral("long.iv") << number;
    QTest::newRow("image") << including("image.iv") << QStringLiteral("image.iv")
                           << QString::fromUtf8("declares an image 30000×30000×4, which is too large");
}

void tst_HostIncludes::badIncludedFilesAreRefused()
{
    QFETCH(QByteArray, scene);
    QFETCH(QString, culprit);
    QFETCH(QString, reason);
    writeFile(m_dir->filePath(QStringLiteral("long.iv")),
              kInventor + "Switch { whichChild " + QByteArray(5000, '7') + " }\n");
    writeFile(m_dir->filePath(QStringLiteral("image.iv")),
              kInventor + "Texture2 { image 30000 30000 4 0xff }\n");
    writeFile(m_dir->filePath(QStringLiteral("middle.iv")), including("long.iv"));
    const QString path = m_dir->filePath(QStringLiteral("scene.iv"));
    writeFile(path, scene);
    expectRefused(path, QStringLiteral("included file %1").arg(m_dir->filePath(culprit)));
    QVERIFY2(m_host->lastError().contains(reason), qPrintable(m_host->lastError()));
}

void tst_HostIncludes::saveChecksIncludedFiles()
{
    const QString included = m_dir->filePath(QStringLiteral("part.iv"));
    writeFile(included, kInventor + "Cube {}\n");
    const QString path = m_dir->filePath(QStringLiteral("scene.iv"));
    writeFile(path, including("part.iv"));
    QVERIFY2(m_host->openScene(path), qPrintable(m_host->lastError()));
    const QByteArray good = readFile(path);

    // The saved scene is read back with what it includes, as it is now.
    writeFile(included, kInventor + "Switch { whichChild " + QByteArray(5000, '7') + " }\n");
    QVERIFY(!m_host->saveScene(path));
    QVERIFY2(m_host->lastError().contains(QLatin1String("would not read back")),
             qPrintable(m_host->lastError()));
    QVERIFY2(m_host->lastError().contains(QStringLiteral("included file %1").arg(included)),
             qPrintable(m_host->lastError()));
    QCOMPARE(readFile(path), good);
}

void tst_HostIncludes::binaryScenesIncludedFilesAreChecked()
{
    // A binary scene names its included files in its own layout; what they
    // hold reaches Coin's reader as a text scene's would.
    const QString included = m_dir->filePath(QStringLiteral("part.iv"));
    writeFile(included, kInventor + "Cube {}\n");
    const QString text = m_dir->filePath(QStringLiteral("scene.iv"));
    writeFile(text, including("part.iv"));
    QVERIFY2(m_host->openScene(text), qPrintable(m_host->lastError()));
    const QString binary = m_dir->filePath(QStringLiteral("binary.iv"));
    QVERIFY2(m_host->saveScene(binary, SceneDocument::Format::Binary), qPrintable(m_host->lastError()));
    QVERIFY(readFile(binary).startsWith("#Inventor V2.1 binary"));
    QVERIFY2(m_host->openScene(binary), qPrintable(m_host->lastError()));

    writeFile(included, kInventor + "Switch { whichChild " + QByteArray(5000, '7') + " }\n");
    m_host->openSample();
    expectRefused(binary, QStringLiteral("included file %1").arg(included));
    QVERIFY2(m_host->lastError().contains(QLatin1String("holds a number of more than 256 characters")),
             qPrintable(m_host->lastError()));

    writeFile(included, including("binary.iv"));
    expectRefused(binary, QStringLiteral("includes itself"));
}

void tst_HostIncludes::includedFilesThatAreNotRegularAreRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("found");
    // Coin read /dev/zero for ever, and waited in fopen for a writer to
    // the pipe; the window never came up.
    QTest::newRow("device") << QStringLiteral("/dev/zero") << QStringLiteral("/dev/zero");
    QTest::newRow("pipe") << QStringLiteral("pipe") << QStringLiteral("pipe");
    QTest::newRow("folder") << QStringLiteral("folder") << QStringLiteral("folder");
    // Coin also tries a name's last part in the folders it searches.
    QTest::newRow("pipe by its last part") << QStringLiteral("nowhere/pipe") << QStringLiteral("pipe");
}

void tst_HostIncludes::includedFilesThatAreNotRegularAreRefused()
{
    QFETCH(QString, name);
    QFETCH(QString, found);
    QVERIFY(mkfifo(QFile::encodeName(m_dir->filePath(QStringLiteral("pipe"))).constData(), 0600) == 0);
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("folder")));
    const QString path = m_dir->filePath(QStringLiteral("scene.iv"));
    writeFile(path, including(QFile::encodeName(name)));
    const QString included = QDir::isAbsolutePath(found) ? found : m_dir->filePath(found);
    expectRefused(path, QStringLiteral("included file %1 is not a regular file").arg(included));
    QVERIFY2(m_host->lastError().contains(path), qPrintable(m_host->lastError()));
}

void tst_HostIncludes::scenesThatIncludeThemselvesAreRefused_data()
{
    QTest::addColumn<QString>("opened");
    QTest::addColumn<QString>("closing");
    QTest::newRow("itself") << QStringLiteral("self.iv") << QStringLiteral("self.iv");
    QTest::newRow("a cycle of two") << QStringLiteral("a.iv") << QStringLiteral("a.iv");
    QTest::newRow("a cycle below the scene") << QStringLiteral("top.iv") << QStringLiteral("a.iv");
}

void tst_HostIncludes::scenesThatIncludeThemselvesAreRefused()
{
    QFETCH(QString, opened);
    QFETCH(QString, closing);
    writeFile(m_dir->filePath(QStringLiteral("self.iv")), including("self.iv"));
    writeFile(m_dir->filePath(QStringLiteral("a.iv")), including("b.iv"));
    writeFile(m_dir->filePath(QStringLiteral("b.iv")), including("a.iv"));
    writeFile(m_dir->filePath(QStringLiteral("top.iv")), including("a.iv"));
    const QString path = m_dir->filePath(opened);
    expectRefused(path, QStringLiteral("includes itself at %1").arg(m_dir->filePath(closing)));
}

QTEST_MAIN(tst_HostIncludes)
#include "tst_HostIncludes.moc"
