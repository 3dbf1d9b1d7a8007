// Scenes whose graph is not a tree: a node that contains itself, which Coin
// reads as a node that is its own child (the view, the search and Save
// recursed or looped for ever), and groups shared under many parents, whose
// paths double with every level (31 groups make a billion). A scene that
// contains itself is refused and freed; a shared one opens, is counted and
// saved by walks that visit each node once.
#include "HostWindowTesting.h"
#include "KalHostRun.h"
#include "TestFiles.h"
#include <KalHostWindow.h>
#include <SceneGraphSurvey.h>
#include <SceneModel.h>
#include <TreeSelection.h>
#include <ViewCamera.h>
#include <ViewPicker.h>

#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoPointSet.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QLabel>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTreeView>
#include <QtTest>

#include <cstdint>
#include <memory>

namespace {

const QByteArray kInventor("#Inventor V2.1 ascii\n");

// Groups L0 to L(levels - 1), each using the one before twice, L0 holding
// a cube; nested, so that the last is the one top node and each name is
// found on the first path down, or one after the other at the top.
QByteArray sharedGroups(int levels, bool nested)
{
    QByteArray text = "DEF L0 Group { Cube {} }";
    for (int level = 1; level < levels; ++level) {
        const QByteArray before = "L" + QByteArray::number(level - 1);
        const QByteArray self = "DEF L" + QByteArray::number(level) + " Group { ";
        text = nested ? self + text + " USE " + before + " }"
                      : text + "\n" + self + "USE " + before + " USE " + before + " }";
    }
    return kInventor + text + "\n";
}

// Nodes one drawing of sharedGroups(levels, false) visits: Ln visits
// itself and Ln-1 twice, that is 3 * 2^n - 1 nodes, and the top separator
// each of them once.
std::uint64_t sharedVisits(int levels)
{
    std::uint64_t visits = 1;
    for (int level = 0; level < levels; ++level)
        visits += 3 * (std::uint64_t(1) << level) - 1;
    return visits;
}

QProcessEnvironment offscreen()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    return environment;
}

} // namespace

class tst_HostGraphs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void scenesThatContainThemselvesAreRefused_data();
    void scenesThatContainThemselvesAreRefused();
    void aSceneMadeToContainItselfIsNotSaved();
    void unnamedNodesThatContainThemselvesAreSaidByPlace_data();
    void unnamedNodesThatContainThemselvesAreSaidByPlace();
    void sharedScenesOpenCountedOnce();
    void sharedScenesAreSavedAndReadBack();
    void countsPastSixtyFourBitsStayAtTheirLimit();
    void selectingOnTheCommandLine_data();
    void selectingOnTheCommandLine();
    void theViewLeavesOutWhatItCannotDraw();
    void deepSelectionsAreOutlinedOnlyWhereTheSceneIsDrawn();

private:
    QString write(const QString& name, const QByteArray& text);

    std::unique_ptr<KalHostWindow> m_host;
    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_HostGraphs::initTestCase()
{
    HostWindowTesting::setUpScene();
}

void tst_HostGraphs::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
    m_host = HostWindowTesting::headlessSample();
}

void tst_HostGraphs::cleanup()
{
    m_host.reset();
    KalPluginsManager::getInstance()->unloadAll();
    m_dir.reset();
}

QString tst_HostGraphs::write(const QString& name, const QByteArray& text)
{
    const QString path = m_dir->filePath(name);
    writeFile(path, text);
    return path;
}

void tst_HostGraphs::scenesThatContainThemselvesAreRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("included");
    QTest::addColumn<QString>("node");
    QTest::newRow("its own child") << kInventor + "DEF CycleA Separator { Cube {} USE CycleA }\n"
                                   << QByteArray() << "Separator CycleA";
    QTest::newRow("through another")
        << kInventor + "Separator { Cube {} DEF CycleB Separator { DEF Inner Group { USE CycleB } } }\n"
        << QByteArray() << "Separator CycleB";
    QTest::newRow("a VRML group's children")
        << QByteArray("#VRML V2.0 utf8\nDEF CycleG Group { children [ Shape {} USE CycleG ] }\n")
        << QByteArray() << "VRMLGroup CycleG";
    QTest::newRow("a node-valued field")
        << QByteArray("#VRML V2.0 utf8\nDEF CycleS Shape { appearance USE CycleS }\n") << QByteArray()
        << "VRMLShape CycleS";
    QTest::newRow("a kit's part") << kInventor + "DEF CycleK SeparatorKit { childList NodeKitListPart { "
                                                 "containerNode Separator { USE CycleK } } }\n"
                                  << QByteArray() << "SeparatorKit CycleK";
    QTest::newRow("an included file") << kInventor + "Separator { Cube {} File { name \"loop.iv\" } }\n"
                                      << kInventor + "DEF CycleF Separator { Cube {} USE CycleF }\n"
                                      << "Separator CycleF";
}

void tst_HostGraphs::scenesThatContainThemselvesAreRefused()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, included);
    QFETCH(QString, node);
    if (!included.isEmpty())
        write(QStringLiteral("loop.iv"), included);
    const QString path = write(QStringLiteral("cycle.iv"), text);
    SoNode* before = m_host->sceneModel()->root();
    QVERIFY(!m_host->openScene(path));
    const QString error = m_host->lastError();
    QVERIFY2(error.contains(path), qPrintable(error));
    QVERIFY2(error.contains(QStringLiteral("the scene contains itself: ") + node), qPrintable(error));
    QCOMPARE(m_host->sceneModel()->root(), before);
    QCOMPARE(m_host->window()->findChild<QLabel*>(QStringLiteral("StatusDocument"))->text(), error);
    // Freed: a node left alive by its own reference would keep its name.
    const QByteArray name = node.section(QLatin1Char(' '), 1).toLatin1();
    QVERIFY2(!SoNode::getByName(SbName(name.constData())), name.constData());
    // Still usable.
    const QString good = write(QStringLiteral("good.iv"), kInventor + "DEF Fine Separator { Cube {} }\n");
    QVERIFY2(m_host->openScene(good), qPrintable(m_host->lastError()));
    QCOMPARE(m_host->sceneModel()->root()->getName(), SbName("Fine"));
}

void tst_HostGraphs::aSceneMadeToContainItselfIsNotSaved()
{
    // Nothing in kalhost's window makes a node its own child, but a
    // plug-in may, through the scene it is given.
    const QByteArray text = kInventor + "DEF Top Separator { DEF Inner Group { Cube {} } }\n";
    const QString path = write(QStringLiteral("scene.iv"), text);
    QVERIFY2(m_host->openScene(path), qPrintable(m_host->lastError()));
    auto* top = static_cast<SoSeparator*>(m_host->sceneModel()->root());
    auto* inner = static_cast<SoGroup*>(top->getChild(0));
    inner->addChild(top);
    QVERIFY(!m_host->saveScene(path));
    QVERIFY2(m_host->lastError().contains(QStringLiteral("the scene contains itself: Separator Top")),
             qPrintable(m_host->lastError()));
    QCOMPARE(readFile(path), text);
    // Untied again, it saves.
    inner->removeChild(top);
    QVERIFY2(m_host->saveScene(path), qPrintable(m_host->lastError()));
    QVERIFY(readFile(path).contains("DEF Inner"));
}

void tst_HostGraphs::unnamedNodesThatContainThemselvesAreSaidByPlace_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("said");
    // The group at /1 made a child of the separator under it.
    QTest::newRow("among children") << kInventor +
                                           "Separator { Cube {} Group { Cube {} Separator { Cube {} } } }\n"
                                    << "Group at /1";
    // The separator a point set holds in its field made its own child.
    QTest::newRow("held in a field") << kInventor + "Separator { Cube {} Separator { Cube {} PointSet { "
                                                    "vertexProperty Separator { Cube {} } } } }\n"
                                     << "Separator at /1/1.vertexProperty";
}

void tst_HostGraphs::unnamedNodesThatContainThemselvesAreSaidByPlace()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, said);
    const QString path = write(QStringLiteral("scene.iv"), text);
    QVERIFY2(m_host->openScene(path), qPrintable(m_host->lastError()));
    auto* top = static_cast<SoSeparator*>(m_host->sceneModel()->root());
    auto* outer = static_cast<SoGroup*>(top->getChild(1));
    SoGroup* tied = nullptr;
    if (outer->getNumChildren() > 1 && outer->getChild(1)->isOfType(SoPointSet::getClassTypeId())) {
        auto* shape = static_cast<SoPointSet*>(outer->getChild(1));
        tied = static_cast<SoGroup*>(shape->vertexProperty.getValue());
        tied->addChild(tied);
    } else {
        tied = static_cast<SoGroup*>(outer->getChild(1));
        tied->addChild(outer);
    }
    QVERIFY(!m_host->saveScene(path));
    QVERIFY2(m_host->lastError().contains(QStringLiteral("the scene contains itself: ") + said),
             qPrintable(m_host->lastError()));
    QCOMPARE(readFile(path), text);
    tied->removeChild(tied->getNumChildren() - 1);
    QVERIFY2(m_host->saveScene(path), qPrintable(m_host->lastError()));
}

void tst_HostGraphs::sharedScenesOpenCountedOnce()
{
    const QString path = write(QStringLiteral("shared.iv"), sharedGroups(31, false));
    QVERIFY2(m_host->openScene(path), qPrintable(m_host->lastError()));
    // The top separator, 31 groups and the cube.
    const QString status = m_host->window()->findChild<QLabel*>(QStringLiteral("StatusDocument"))->text();
    QVERIFY2(status.contains(QStringLiteral(": 33 nodes in")), qPrintable(status));
    const SceneGraphSurvey survey(m_host->sceneModel()->root());
    QVERIFY(!survey.cycle());
    QCOMPARE(survey.nodeCount(), 33);
    QCOMPARE(survey.depth(), 33);
    QCOMPARE(survey.traversalVisits(), sharedVisits(31));
}

void tst_HostGraphs::sharedScenesAreSavedAndReadBack()
{
    const QString path = write(QStringLiteral("shared.iv"), sharedGroups(31, true));
    QVERIFY2(m_host->openScene(path), qPrintable(m_host->lastError()));
    const QString saved = m_dir->filePath(QStringLiteral("saved.iv"));
    QVERIFY2(m_host->saveScene(saved), qPrintable(m_host->lastError()));
    QVERIFY(readFile(saved).contains("USE L29"));
    QVERIFY2(m_host->openScene(saved), qPrintable(m_host->lastError()));
    // Under the separator Coin puts around a file's nodes.
    const SceneGraphSurvey survey(m_host->sceneModel()->root());
    QCOMPARE(survey.nodeCount(), 33);
    QCOMPARE(survey.depth(), 33);
}

void tst_HostGraphs::countsPastSixtyFourBitsStayAtTheirLimit()
{
    const QString path = write(QStringLiteral("shared.iv"), sharedGroups(70, false));
    QVERIFY2(m_host->openScene(path), qPrintable(m_host->lastError()));
    const SceneGraphSurvey survey(m_host->sceneModel()->root());
    QCOMPARE(survey.nodeCount(), 72);
    QCOMPARE(survey.traversalVisits(), SceneGraphSurvey::kTooMany);
}

void tst_HostGraphs::selectingOnTheCommandLine_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("select");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("said");
    QTest::newRow("a scene that contains itself")
        << kInventor + "DEF CycleA Separator { Cube {} USE CycleA }\n"
        << "CycleA" << 1 << "the scene contains itself: Separator CycleA";
    QTest::newRow("a shared scene, by name") << sharedGroups(31, true) << "L0" << 0 << QString();
    // The name is looked for in each shared group once, not along each of
    // the billion paths.
    QTest::newRow("a shared scene, a name it lacks")
        << sharedGroups(31, true) << "Missing.width" << 1 << "The scene has no node \"Missing\".";
    QTest::newRow("a shared scene, a field deep in it")
        << sharedGroups(31, true) << "L0/0.width" << 0 << QString();
    QTest::newRow("a shared scene, by places")
        << sharedGroups(31, true) << QStringLiteral("/0").repeated(32) + QStringLiteral(".width") << 0
        << QString();
}

void tst_HostGraphs::selectingOnTheCommandLine()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, select);
    QFETCH(int, code);
    QFETCH(QString, said);
    const QString path = write(QStringLiteral("scene.iv"), text);
    const KalHostRun run = KalHostRun::of(
        {path, QStringLiteral("--no-view"), QStringLiteral("--select"), select, QStringLiteral("--quit")},
        offscreen());
    QVERIFY2(run.code == code, qPrintable(run.err));
    if (!said.isEmpty()) {
        QVERIFY2(run.err.contains(said), qPrintable(run.err));
        if (said.contains(QLatin1String("contains itself")))
            QVERIFY2(run.err.contains(path), qPrintable(run.err));
    }
}

void tst_HostGraphs::theViewLeavesOutWhatItCannotDraw()
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        QSKIP("The 3D view needs an X server (this test runs under Xvfb).");
    m_host.reset();
    m_host = HostWindowTesting::sampleWithPlugin(true);
    QVERIFY(m_host);
    SoQtExaminerViewer* viewer = m_host->viewer();
    QVERIFY(viewer);
    auto* note = m_host->window()->findChild<QLabel*>(QStringLiteral("ViewNote"));
    QVERIFY(note);
    QVERIFY(note->isHidden());
    const auto drawn = [viewer] { return static_cast<SoGroup*>(viewer->getSceneGraph())->getNumChildren(); };
    QCOMPARE(drawn(), 2);

    const QString shared = write(QStringLiteral("shared.iv"), sharedGroups(31, false));
    QVERIFY2(m_host->openScene(shared), qPrintable(m_host->lastError()));
    QVERIFY(!note->isHidden());
    QVERIFY2(note->text().contains(QLocale().toString(qulonglong(sharedVisits(31)))),
             qPrintable(note->text()));
    // Only the view's camera: nothing to draw, nothing to pick.
    QCOMPARE(drawn(), 1);
    HostWindowTesting::viewFrame(*m_host);

    // A scene just under the bound is drawn.
    const QString smaller = write(QStringLiteral("smaller.iv"), sharedGroups(18, false));
    QVERIFY(sharedVisits(18) <= ViewCamera::kMaxVisits);
    QVERIFY2(m_host->openScene(smaller), qPrintable(m_host->lastError()));
    QVERIFY(note->isHidden());
    QCOMPARE(drawn(), 2);
}

void tst_HostGraphs::deepSelectionsAreOutlinedOnlyWhereTheSceneIsDrawn()
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        QSKIP("The 3D view needs an X server (this test runs under Xvfb).");
    m_host.reset();
    m_host = HostWindowTesting::sampleWithPlugin(true);
    QVERIFY(m_host);
    auto* picker = m_host->findChild<ViewPicker*>();
    QVERIFY(picker);

    // Measuring L29 for its outline went down each of its 2^29 paths, and
    // down every group before it: the window never came back.
    const QString shared = write(QStringLiteral("shared.iv"), sharedGroups(31, false));
    QVERIFY2(m_host->openScene(shared), qPrintable(m_host->lastError()));
    QVERIFY2(m_host->select(QStringLiteral("L29")), qPrintable(m_host->lastError()));
    QCOMPARE(
        m_host->sceneModel()->data(TreeSelection::selectedRow(m_host->tree()->selectionModel())).toString(),
        QStringLiteral("L29"));
    QCOMPARE(picker->highlighted(), nullptr);
    QVERIFY2(!m_host->select(QStringLiteral("Missing.width")), "a name the scene lacks was selected");
    QCOMPARE(m_host->lastError(), QStringLiteral("The scene has no node \"Missing\"."));

    // Where the scene is drawn, the same selection is outlined.
    const QString smaller = write(QStringLiteral("smaller.iv"), sharedGroups(18, false));
    QVERIFY2(m_host->openScene(smaller), qPrintable(m_host->lastError()));
    QVERIFY2(m_host->select(QStringLiteral("L16")), qPrintable(m_host->lastError()));
    QVERIFY(picker->highlighted());
    QCOMPARE(QByteArray(picker->highlighted()->getName().getString()), QByteArray("L16"));
}

QTEST_MAIN(tst_HostGraphs)
#include "tst_HostGraphs.moc"
