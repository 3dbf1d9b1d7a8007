// Picking in the host's 3D view: a click on an object selects its node's row,
// a click on empty space or a drag selects nothing, and the selected node is
// outlined in the view, following the tree. The view needs an X server
// (tst_ViewPicker_xvfb); without one, the window has no picker and the
// tree's selection works as before.
#include "HostWindowTesting.h"
#include <KalHostWindow.h>
#include <KalPluginsManager.h>
#include <KalServices.h>
#include <SceneModel.h>
#include <ScenePath.h>
#include <ViewPicker.h>

#include <Inventor/Qt/viewers/SoQtExaminerViewer.h>
#include <Inventor/SbViewVolume.h>
#include <Inventor/SoPath.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/nodes/SoCamera.h>
#include <Inventor/nodes/SoSphere.h>

#include <QMainWindow>
#include <QMouseEvent>
#include <QScreen>
#include <QTreeView>
#include <QtTest>

#include <memory>

Q_DECLARE_METATYPE(SoFieldContainer*)

class tst_ViewPicker : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    // One window with a view per process: a second SoQt view is laid out
    // too narrow, so every check on the view is in this one function.
    void clickSelectsAndTheSelectionIsOutlined();
    void withoutAViewThereIsNoPicker();

private:
    QModelIndex row(const QString& path) const;
    SoNode* node(const QString& path) const;
    // Where the centre of the node's bounds is drawn, in the drawing
    // area's coordinates.
    QPoint drawnAt(SoNode* target) const;
    void sendMouse(QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons);

    std::unique_ptr<KalHostWindow> m_host;
};

void tst_ViewPicker::initTestCase()
{
    qRegisterMetaType<SoFieldContainer*>();
    HostWindowTesting::setUpScene();
}

void tst_ViewPicker::cleanup()
{
    m_host.reset();
    KalPluginsManager::getInstance()->unloadAll();
}

QModelIndex tst_ViewPicker::row(const QString& path) const
{
    QString error;
    const QModelIndex index = ScenePath::find(*m_host->sceneModel(), path, &error);
    if (!index.isValid())
        qWarning() << error;
    return index;
}

SoNode* tst_ViewPicker::node(const QString& path) const
{
    return static_cast<SoNode*>(m_host->sceneModel()->container(row(path)));
}

QPoint tst_ViewPicker::drawnAt(SoNode* target) const
{
    SoQtExaminerViewer* viewer = m_host->viewer();
    SoSearchAction search;
    search.setNode(target);
    search.apply(m_host->sceneModel()->root());
    if (!search.getPath())
        return QPoint(-1, -1);
    const SbViewportRegion& region = viewer->getViewportRegion();
    SoGetBoundingBoxAction bounds(region);
    bounds.apply(search.getPath());
    const SbVec3f centre = bounds.getBoundingBox().getCenter();
    SbVec3f screen;
    viewer->getCamera()->getViewVolume(region.getViewportAspectRatio()).projectToScreen(centre, screen);
    QWidget* area = viewer->getGLWidget();
    return QPoint(int(screen[0] * area->width()), int((1.0f - screen[1]) * area->height()));
}

void tst_ViewPicker::sendMouse(QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons)
{
    QWidget* area = m_host->viewer()->getGLWidget();
    QMouseEvent event(type, at, area->mapToGlobal(at), Qt::LeftButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(area, &event);
}

void tst_ViewPicker::clickSelectsAndTheSelectionIsOutlined()
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        QSKIP("The 3D view needs an X server (this test runs under Xvfb).");
    m_host = HostWindowTesting::sampleWithPlugin(true);
    QVERIFY(m_host);
    SoQtExaminerViewer* viewer = m_host->viewer();
    QVERIFY(viewer);
    // No spinning on after a drag: the camera stays where the drag left it.
    viewer->setAnimationEnabled(FALSE);
    QTest::qWait(100);
    QWidget* area = viewer->getGLWidget();
    if (area->width() < 200)
        QSKIP("The 3D view is too narrow.");
    auto* picker = m_host->findChild<ViewPicker*>();
    QVERIFY(picker);
    QCOMPARE(picker->highlighted(), nullptr);
    QSignalSpy nodes(KalServices::getInstance(), &KalServices::selectedNodeChanged);

    // The ornament's sphere, in the middle of the view.
    SoNode* sphere = node(QStringLiteral("/4/2"));
    QVERIFY(sphere && sphere->isOfType(SoSphere::getClassTypeId()));
    const QImage unselected = HostWindowTesting::viewFrame(*m_host);
    const QPoint onSphere = drawnAt(sphere);
    QVERIFY(area->rect().contains(onSphere));
    QTest::mouseClick(area, Qt::LeftButton, Qt::NoModifier, onSphere);
    QCOMPARE(m_host->tree()->currentIndex(), row(QStringLiteral("/4/2")));
    QVERIFY(!nodes.isEmpty());
    QCOMPARE(nodes.last().at(0).value<SoFieldContainer*>(), static_cast<SoFieldContainer*>(sphere));
    QVERIFY(m_host->tree()->visualRect(m_host->tree()->currentIndex()).isValid());
    // Outlined in the view.
    QCOMPARE(picker->highlighted(), sphere);
    const QImage outlined = HostWindowTesting::viewFrame(*m_host);
    int changed = HostWindowTesting::changedPixels(unselected, outlined);
    QVERIFY2(changed > 50, qPrintable(QString::number(changed)));

    // Empty space: nothing is hit, the selection stays.
    const int selections = nodes.size();
    QVERIFY(!picker->pickAt(QPoint(3, 3)));
    QTest::mouseClick(area, Qt::LeftButton, Qt::NoModifier, QPoint(3, 3));
    QCOMPARE(nodes.size(), selections);
    QCOMPARE(m_host->tree()->currentIndex(), row(QStringLiteral("/4/2")));

    // The outline follows the tree: another node, then a field's node.
    QVERIFY(m_host->select(QStringLiteral("Pedestal")));
    QCOMPARE(picker->highlighted(), node(QStringLiteral("Pedestal")));
    changed = HostWindowTesting::changedPixels(outlined, HostWindowTesting::viewFrame(*m_host));
    QVERIFY2(changed > 50, qPrintable(QString::number(changed)));
    QVERIFY(m_host->select(QStringLiteral("Gold.diffuseColor")));
    QCOMPARE(picker->highlighted(), node(QStringLiteral("Gold")));
    m_host->tree()->selectionModel()->clearSelection();
    QCOMPARE(picker->highlighted(), nullptr);

    // In pick mode too, where the scene gets the events.
    viewer->setViewing(FALSE);
    QVERIFY(m_host->select(QStringLiteral("Pedestal")));
    QTest::mouseClick(area, Qt::LeftButton, Qt::NoModifier, drawnAt(sphere));
    QCOMPARE(m_host->tree()->currentIndex(), row(QStringLiteral("/4/2")));
    viewer->setViewing(TRUE);

    // A drag turns the camera and picks nothing.
    QVERIFY(m_host->select(QStringLiteral("Pedestal")));
    const SbRotation turnedFrom = viewer->getCamera()->orientation.getValue();
    const QPoint from = drawnAt(sphere);
    sendMouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
    for (int step = 1; step <= 8; ++step)
        sendMouse(QEvent::MouseMove, from + QPoint(10 * step, 4 * step), Qt::LeftButton);
    sendMouse(QEvent::MouseButtonRelease, from + QPoint(80, 32), Qt::NoButton);
    QVERIFY(!(viewer->getCamera()->orientation.getValue() == turnedFrom));
    QCOMPARE(m_host->tree()->currentIndex(), row(QStringLiteral("Pedestal")));
    QCOMPARE(picker->highlighted(), node(QStringLiteral("Pedestal")));
}

void tst_ViewPicker::withoutAViewThereIsNoPicker()
{
    m_host = HostWindowTesting::sampleWithPlugin(false);
    QVERIFY(m_host);
    QCOMPARE(m_host->findChild<ViewPicker*>(), nullptr);
    QVERIFY(m_host->select(QStringLiteral("Gold")));
    QCOMPARE(m_host->tree()->currentIndex(), row(QStringLiteral("Gold")));
}

QTEST_MAIN(tst_ViewPicker)
#include "tst_ViewPicker.moc"
