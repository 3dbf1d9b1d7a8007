// What kalhost does to a person's scene file when it opens and saves it:
// nothing unasked (a camera in the file stays as written, however the view
// is turned), referenced files found from the scene's folder, whatever Coin
// reports shown and counted, and errors that name the file and the line.
#include "FieldTesting.h"
#include "HostWindowFixture.h"
#include "SceneFileTesting.h"

#include <KalServices.h>
#include <SceneModel.h>
#include <ViewCamera.h>

#include <Inventor/Qt/viewers/SoQtExaminerViewer.h>
#include <Inventor/SoDB.h>
#include <Inventor/nodes/SoCamera.h>
#include <Inventor/nodes/SoNode.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QMainWindow>
#include <QMouseEvent>
#include <QTextEdit>
#include <QTimer>
#include <QUndoStack>
#include <QtTest>

using namespace SceneFileTesting;

class tst_HostSceneFiles : public HostWindowFixture
{
    Q_OBJECT

public:
    tst_HostSceneFiles()
        : HostWindowFixture(true)
    {}

private slots:
    void cameraInTheFileIsNotTouched();
    void referencedFilesAreFoundFromTheScenesFolder();
    void missingReferencesAreShownAndCounted();
    void errorsNameTheFileAndTheLine_data();
    void errorsNameTheFileAndTheLine();
    void openThroughTheMenuNamesTheFile();

private:
    QString documentStatus() const;
    QString consoleText() const;
};

QString tst_HostSceneFiles::documentStatus() const
{
    auto* label = m_host->window()->findChild<QLabel*>(QStringLiteral("StatusDocument"));
    return label ? label->text() : QString();
}

QString tst_HostSceneFiles::consoleText() const
{
    // Coin's reports reach the console as posted events.
    QCoreApplication::processEvents();
    auto* output = m_host->window()->findChild<QTextEdit*>(QStringLiteral("m_consoleOutput"));
    return output ? output->toPlainText() : QString();
}
void tst_HostSceneFiles::cameraInTheFileIsNotTouched()
{
    const QString path = m_dir.filePath(QStringLiteral("camera.iv"));
    writeFile(path, kCameraScene);
    QVERIFY(m_host->openScene(path));
    SoNode* camera = SoNode::getByName("FileCamera");
    QVERIFY(camera);
    const QString asRead = nodeFields(camera);
    QVERIFY2(asRead.contains(QStringLiteral("position 0 0 50")), qPrintable(asRead));

    // Shown, drawn, framed again as when the window appears.
    m_host->window()->hide();
    m_host->window()->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_host->window()));
    QTest::qWait(100);
    SoDB::getSensorManager()->processDelayQueue(FALSE);
    QCoreApplication::processEvents();
    QCOMPARE(nodeFields(camera), asRead);
    QVERIFY(!m_host->hasUnsavedChanges());
    QVERIFY(!m_host->window()->windowTitle().contains(QLatin1Char('*')));
    QCOMPARE(KalServices::getInstance()->undoStack()->count(), 0);

    if (SoQtExaminerViewer* viewer = m_host->viewer()) {
        // The view starts where the file's camera is, through a camera of
        // its own, and turning it leaves the file's camera alone.
        SoCamera* view = viewer->getCamera();
        QVERIFY(view && view != camera);
        QCOMPARE(m_host->viewCamera()->sceneCamera(), camera);
        QCOMPARE(QString::fromUtf8(view->getTypeId().getName().getString()),
                 QStringLiteral("PerspectiveCamera"));
        QVERIFY(view->position.getValue().equals(SbVec3f(0, 0, 50), 1e-4f));
        viewer->setAnimationEnabled(FALSE);
        QWidget* area = viewer->getGLWidget();
        const QPoint from(area->width() / 2, area->height() / 2);
        auto send = [area](QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons) {
            QMouseEvent event(type, at, area->mapToGlobal(at), Qt::LeftButton, buttons, Qt::NoModifier);
            QApplication::sendEvent(area, &event);
        };
        const SbRotation turnedFrom = view->orientation.getValue();
        send(QEvent::MouseButtonPress, from, Qt::LeftButton);
        for (int step = 1; step <= 8; ++step)
            send(QEvent::MouseMove, from + QPoint(3 * step, 2 * step), Qt::LeftButton);
        send(QEvent::MouseButtonRelease, from + QPoint(24, 16), Qt::NoButton);
        QVERIFY(!(viewer->getCamera()->orientation.getValue() == turnedFrom));
        SoDB::getSensorManager()->processDelayQueue(FALSE);
        QCOMPARE(nodeFields(camera), asRead);
        QVERIFY(!m_host->hasUnsavedChanges());

        // An edit of the file's camera is the person's, and the view goes
        // there.
        QVERIFY2(m_host->select(QStringLiteral("FileCamera.position")), qPrintable(m_host->lastError()));
        static_cast<SoCamera*>(camera)->position.setValue(0, 0, 80);
        SoDB::getSensorManager()->processDelayQueue(FALSE);
        QVERIFY(viewer->getCamera()->position.getValue().equals(SbVec3f(0, 0, 80), 1e-4f));
        QTRY_VERIFY(m_host->hasUnsavedChanges());
        static_cast<SoCamera*>(camera)->position.setValue(0, 0, 50);
        SoDB::getSensorManager()->processDelayQueue(FALSE);
    }

    // Saved, the camera is written as it was read.
    const QString saved = m_dir.filePath(QStringLiteral("camera-saved.iv"));
    QVERIFY(m_host->saveScene(saved));
    const QString original = nodeText(path, "FileCamera");
    QVERIFY2(original.contains(QStringLiteral("position 0 0 50")), qPrintable(original));
    QCOMPARE(nodeText(saved, "FileCamera"), original);
    QCOMPARE(nodeText(saved, "Red"), nodeText(path, "Red"));

    // A camera of the other kind: the view looks through one of that kind.
    const QString ortho = m_dir.filePath(QStringLiteral("ortho.iv"));
    writeFile(ortho,
              "#Inventor V2.1 ascii\nSeparator {\n  DEF OrthoCamera OrthographicCamera { position 0 0 20 "
              "height 6 }\n  Cube { }\n}\n");
    QVERIFY(m_host->openScene(ortho));
    SoNode* orthoCamera = SoNode::getByName("OrthoCamera");
    QVERIFY(orthoCamera);
    const QString orthoRead = nodeFields(orthoCamera);
    QTest::qWait(50);
    SoDB::getSensorManager()->processDelayQueue(FALSE);
    QCOMPARE(nodeFields(orthoCamera), orthoRead);
    QVERIFY(!m_host->hasUnsavedChanges());
    if (SoQtExaminerViewer* viewer = m_host->viewer()) {
        SoCamera* view = viewer->getCamera();
        QVERIFY(view && view != orthoCamera);
        QCOMPARE(QString::fromUtf8(view->getTypeId().getName().getString()),
                 QStringLiteral("OrthographicCamera"));
        QVERIFY(view->position.getValue().equals(SbVec3f(0, 0, 20), 1e-4f));
    }
}

void tst_HostSceneFiles::referencedFilesAreFoundFromTheScenesFolder()
{
    QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("board/parts")));
    writeFile(m_dir.filePath(QStringLiteral("board/parts/piece.iv")),
              "#Inventor V2.1 ascii\nDEF Piece Cone { height 3 }\n");
    const QString scene = m_dir.filePath(QStringLiteral("board/board.iv"));
    writeFile(scene,
              "#Inventor V2.1 ascii\nSeparator {\n  File { name \"parts/piece.iv\" }\n  Cube { }\n}\n");
    // Started somewhere else: the scene's own folder is searched first.
    QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("elsewhere")));
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_dir.filePath(QStringLiteral("elsewhere"))));
    const bool opened = m_host->openScene(scene);
    QDir::setCurrent(before);
    QVERIFY2(opened, qPrintable(m_host->lastError()));
    QVERIFY2(!documentStatus().contains(QStringLiteral("not found")), qPrintable(documentStatus()));
    // The referenced cone is the File node's child, in the tree.
    QVERIFY(SoNode::getByName("Piece"));
    QVERIFY(m_host->select(QStringLiteral("/0/0.height")));
    QCOMPARE(fieldText(SoNode::getByName("Piece")->getField("height")), QStringLiteral("3"));
    QVERIFY2(documentStatus().startsWith(QStringLiteral("Opened board.iv: ")), qPrintable(documentStatus()));
    QVERIFY(!m_host->hasUnsavedChanges());
}

void tst_HostSceneFiles::missingReferencesAreShownAndCounted()
{
    const QString scene = m_dir.filePath(QStringLiteral("gaps.iv"));
    writeFile(scene, "#Inventor V2.1 ascii\nSeparator {\n  File { name \"gone.iv\" }\n"
                     "  File { name \"lost/away.iv\" }\n  DEF Kept Cube { }\n}\n");
    consoleText();
    QVERIFY(m_host->openScene(scene));
    QVERIFY(m_host->select(QStringLiteral("Kept.width")));
    // Counted in the bar, each in full in the tooltip and in the console,
    // as Coin said it.
    QVERIFY2(documentStatus().contains(QStringLiteral(", 2 files not found")), qPrintable(documentStatus()));
    auto* label = m_host->window()->findChild<QLabel*>(QStringLiteral("StatusDocument"));
    QVERIFY2(label->toolTip().contains(QStringLiteral("gaps.iv, line 3: Could not find 'gone.iv'")),
             qPrintable(label->toolTip()));
    const QString console = consoleText();
    QVERIFY2(console.contains(QStringLiteral("Could not find 'gone.iv'")), qPrintable(console));
    QVERIFY2(console.contains(QStringLiteral("Could not find 'lost/away.iv'")), qPrintable(console));
    QVERIFY2(console.contains(QStringLiteral("gaps.iv")), qPrintable(console));
    QVERIFY(!console.contains(QStringLiteral("<memory>")));

    // Other problems are counted apart.
    const QString texture = m_dir.filePath(QStringLiteral("texture.iv"));
    writeFile(texture,
              "#Inventor V2.1 ascii\nSeparator {\n  Texture2 { filename \"nope.png\" }\n  Cube { }\n}\n");
    QVERIFY(m_host->openScene(texture));
    QVERIFY2(documentStatus().contains(QStringLiteral(", 1 file not found")), qPrintable(documentStatus()));
    QVERIFY(consoleText().contains(QStringLiteral("nope.png")));

    // A whole scene says nothing more.
    const QString whole = m_dir.filePath(QStringLiteral("whole.iv"));
    writeFile(whole, "#Inventor V2.1 ascii\nCube { }\n");
    QVERIFY(m_host->openScene(whole));
    const QRegularExpression plain(QStringLiteral("^Opened whole\\.iv: 2 nodes in [0-9,]+ ms$"));
    QVERIFY2(plain.match(documentStatus()).hasMatch(), qPrintable(documentStatus()));
}

void tst_HostSceneFiles::errorsNameTheFileAndTheLine_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("place");
    QTest::addColumn<QString>("reason");
    QTest::newRow("unknown node") << QByteArray("#Inventor V2.1 ascii\n\nSeparator {\n  Cube { width 2 }\n"
                                                "  Frobnicate { }\n}\n")
                                  << "bad.iv, line 5: "
                                  << "Frobnicate";
    QTest::newRow("bad value") << QByteArray(
                                      "#Inventor V2.1 ascii\nSeparator {\n  Cube {\n    width abc\n  }\n}\n")
                               << "bad.iv, line 4: "
                               << "width";
}

void tst_HostSceneFiles::errorsNameTheFileAndTheLine()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, place);
    QFETCH(QString, reason);
    const QString path = m_dir.filePath(QStringLiteral("bad.iv"));
    writeFile(path, text);
    QVERIFY(!m_host->openScene(path));
    const QString error = m_host->lastError();
    QVERIFY2(error.contains(place), qPrintable(error));
    QVERIFY2(error.contains(reason), qPrintable(error));
    QVERIFY2(!error.contains(QStringLiteral("<memory>")), qPrintable(error));
    QVERIFY(documentStatus().contains(place));
    QVERIFY2(consoleText().contains(reason), qPrintable(consoleText()));
}

void tst_HostSceneFiles::openThroughTheMenuNamesTheFile()
{
    const QString path = m_dir.filePath(QStringLiteral("menu-bad.iv"));
    writeFile(path, "#Inventor V2.1 ascii\nSeparator {\n  Unheard { }\n}\n");
    m_host->setFileQuestion([path](KalHostWindow::FileQuestion, const QString&) { return path; });
    m_host->window()->findChild<QAction*>(QStringLiteral("OpenAction"))->trigger();
    const QString error = m_host->lastError();
    QVERIFY2(error.contains(QStringLiteral("menu-bad.iv, line 3: ")), qPrintable(error));
    QVERIFY2(!error.contains(QStringLiteral("<memory>")), qPrintable(error));
    // The sample stays.
    QVERIFY(m_host->select(QStringLiteral("Sampler.opacity")));
}

QTEST_MAIN(tst_HostSceneFiles)
#include "tst_HostSceneFiles.moc"
