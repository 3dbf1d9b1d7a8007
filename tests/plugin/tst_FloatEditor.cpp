// The float editor in use: selected through the host, edited through its
// real widgets, its changes going through the host's undo history.
#include "EditorDockFixture.h"
#include "FieldTesting.h"
#include <FxRealSlider.h>
#include <KalFieldIgnoredCommand.h>
#include <KalFieldSetDefaultCommand.h>
#include <KalPlugin.h>
#include <KalPluginsManager.h>
#include <KalSFSetValueCommand.h>
#include <KalServices.h>
#include <KalShell.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>
#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/nodes/SoCone.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSphere.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QCheckBox>
#include <QDockWidget>
#include <QDoubleValidator>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QtTest>

#include "SliderDrag.h"

namespace {

using SliderDrag::handleCentre;
using SliderDrag::moveHeld;

// The plug-in module carries its own copy of its classes' meta-objects, so a
// qobject_cast from this test cannot recognise its widgets; the class name
// can, and the class is the same code.
template <class T>
T* sameClass(QObject* object)
{
    if (!object || qstrcmp(object->metaObject()->className(), T::staticMetaObject.className()) != 0)
        return nullptr;
    return static_cast<T*>(object);
}

} // namespace

class tst_FloatEditor : public EditorDockFixture
{
    Q_OBJECT

public:
    tst_FloatEditor()
        : EditorDockFixture(QSize(900, 500))
    {}

private slots:
    void init();
    void cleanup();

    void selectionShowsTheFloatEditor();
    void typedValueRoundTripsThroughUndo();
    void typedValueOutsideABoundedSpanNeverArrives();
    void sliderDragWritesWhileChecked();
    void sliderDragWritesOnReleaseWhenCleared();
    void spanComesFromTheOwningNode_data();
    void spanComesFromTheOwningNode();
    void spanGrowsToTheFieldsValue_data();
    void spanGrowsToTheFieldsValue();
    void otherPartiesChangesRefreshTheEditor();
    void deselectedEditorNoLongerRefreshes();
    void ignoreButtonTwiceRestoresTheFlag();
    void setToDefaultWritesAFreshNodesValue();
    void labelAndButtons();
    void focusLeaveWithoutChangesWritesNothing();
    void deactivatingTheDockWhileShown();
    void deletingTheNodeUnderTheEditor();
    void unloadingWhileShown();

private:
    void typeValue(const QString& text);

    SoComplexity* m_complexity = nullptr;
};

void tst_FloatEditor::init()
{
    EditorDockFixture::init();
    m_complexity = new SoComplexity;
    m_complexity->ref();
}

void tst_FloatEditor::cleanup()
{
    EditorDockFixture::cleanup();
    if (m_complexity)
        m_complexity->unref();
    m_complexity = nullptr;
}

void tst_FloatEditor::typeValue(const QString& text)
{
    QLineEdit* edit = child<QLineEdit>("m_lineEdit");
    QVERIFY(edit);
    typeIntoLine(edit, text);
}

void tst_FloatEditor::selectionShowsTheFloatEditor()
{
    select(&m_complexity->value);
    QDockWidget* dock = EditorDockFixture::dock();
    QVERIFY(dock);
    QVERIFY(!dock->isHidden());
    QVERIFY(dock->widget());
    QCOMPARE(dock->widget()->objectName(), QStringLiteral("FxSFFloatWidget"));
    QCOMPARE(child<QLineEdit>("m_lineEdit")->text(), QStringLiteral("0.500000"));
    QCOMPARE(child<QSlider>("m_slider")->value(), 50);
}

void tst_FloatEditor::typedValueRoundTripsThroughUndo()
{
    KalServices* services = KalServices::getInstance();
    select(&m_complexity->value);
    typeValue(QStringLiteral("0.75"));

    QCOMPARE(m_complexity->value.getValue(), 0.75f);
    QCOMPARE(services->commandCount(), 1);
    QVERIFY(dynamic_cast<KalSFSetValueCommand*>(services->command(0)));
    processSensors();
    QLineEdit* edit = child<QLineEdit>("m_lineEdit");
    QCOMPARE(edit->text(), QStringLiteral("0.750000"));
    QCOMPARE(child<QSlider>("m_slider")->value(), 75);

    QVERIFY(services->undo());
    QCOMPARE(m_complexity->value.getValue(), 0.5f);
    processSensors();
    QCOMPARE(edit->text(), QStringLiteral("0.500000"));

    QVERIFY(services->redo());
    QCOMPARE(m_complexity->value.getValue(), 0.75f);
    processSensors();
    QCOMPARE(edit->text(), QStringLiteral("0.750000"));
    QCOMPARE(services->commandCount(), 1);
}

void tst_FloatEditor::typedValueOutsideABoundedSpanNeverArrives()
{
    select(&m_complexity->value);
    typeValue(QStringLiteral("7"));
    QCOMPARE(m_complexity->value.getValue(), 0.5f);
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    typeValue(QStringLiteral("abc"));
    QCOMPARE(m_complexity->value.getValue(), 0.5f);
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
}

void tst_FloatEditor::sliderDragWritesWhileChecked()
{
    KalServices* services = KalServices::getInstance();
    select(&m_complexity->value);
    QVERIFY(QTest::qWaitForWindowExposed(KalShell::getInstance()->getMainWindow()));
    QSlider* slider = child<QSlider>("m_slider");
    QVERIFY(slider && slider->isVisible());
    QVERIFY(child<QCheckBox>("m_checkBox")->isChecked());

    const QPoint start = handleCentre(slider);
    QTest::mousePress(slider, Qt::LeftButton, Qt::NoModifier, start);
    moveHeld(slider, start + QPoint(25, 0));
    const float afterFirstMove = m_complexity->value.getValue();
    QVERIFY(afterFirstMove > 0.5f);
    QCOMPARE(services->commandCount(), 1);
    moveHeld(slider, start + QPoint(50, 0));
    QVERIFY(m_complexity->value.getValue() > afterFirstMove);
    QCOMPARE(services->commandCount(), 2);
    QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, start + QPoint(50, 0));
    processSensors();
    QCOMPARE(child<QLineEdit>("m_lineEdit")->text(), QString::number(m_complexity->value.getValue(), 'f', 6));

    // Undoing every step of the drag returns to the value from before it.
    while (services->undo()) {
    }
    QCOMPARE(m_complexity->value.getValue(), 0.5f);
}

void tst_FloatEditor::sliderDragWritesOnReleaseWhenCleared()
{
    KalServices* services = KalServices::getInstance();
    select(&m_complexity->value);
    QVERIFY(QTest::qWaitForWindowExposed(KalShell::getInstance()->getMainWindow()));
    QSlider* slider = child<QSlider>("m_slider");
    QTest::mouseClick(child<QCheckBox>("m_checkBox"), Qt::LeftButton);
    QVERIFY(!child<QCheckBox>("m_checkBox")->isChecked());

    const QPoint start = handleCentre(slider);
    QTest::mousePress(slider, Qt::LeftButton, Qt::NoModifier, start);
    moveHeld(slider, start + QPoint(40, 0));
    QCOMPARE(m_complexity->value.getValue(), 0.5f);
    QCOMPARE(services->commandCount(), 0);
    QVERIFY(child<QLineEdit>("m_lineEdit")->text() != QStringLiteral("0.500000"));
    QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, start + QPoint(40, 0));
    QVERIFY(m_complexity->value.getValue() > 0.5f);
    QCOMPARE(services->commandCount(), 1);
    QVERIFY(services->undo());
    QCOMPARE(m_complexity->value.getValue(), 0.5f);
}

void tst_FloatEditor::spanComesFromTheOwningNode_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<double>("top");
    QTest::addColumn<bool>("bounded");
    QTest::newRow("complexity") << "Complexity" << QByteArray("textureQuality") << 1.0 << true;
    QTest::newRow("directional light") << "DirectionalLight" << QByteArray("intensity") << 1.0 << true;
    QTest::newRow("cone") << "Cone" << QByteArray("height") << 10.0 << false;
    QTest::newRow("sphere") << "Sphere" << QByteArray("radius") << 10.0 << false;
}

void tst_FloatEditor::spanComesFromTheOwningNode()
{
    QFETCH(QString, node);
    QFETCH(QByteArray, field);
    QFETCH(double, top);
    QFETCH(bool, bounded);
    auto* container =
        static_cast<SoNode*>(SoType::fromName(SbName(node.toLatin1().constData())).createInstance());
    container->ref();
    select(container->getField(SbName(field.constData())));
    auto* frame = sameClass<FxRealSlider>(child<QWidget>("FxSliderFrame"));
    QVERIFY(frame);
    QCOMPARE(frame->minimum(), 0.0);
    QCOMPARE(frame->maximum(), top);
    QCOMPARE(frame->isBounded(), bounded);
    // What the user meets: a bounded span limits what can be typed.
    auto* validator = qobject_cast<const QDoubleValidator*>(child<QLineEdit>("m_lineEdit")->validator());
    QVERIFY(validator);
    QCOMPARE(validator->top() == top, bounded);
    select(nullptr);
    container->unref();
}

void tst_FloatEditor::spanGrowsToTheFieldsValue_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<double>("bottom");
    QTest::addColumn<double>("top");
    QTest::newRow("above") << 25.0f << 0.0 << 25.0;
    QTest::newRow("below") << -3.0f << -3.0 << 10.0;
    QTest::newRow("inside") << 4.0f << 0.0 << 10.0;
}

void tst_FloatEditor::spanGrowsToTheFieldsValue()
{
    QFETCH(float, value);
    QFETCH(double, bottom);
    QFETCH(double, top);
    auto* cone = new SoCone;
    cone->ref();
    cone->height.setValue(value);
    select(&cone->height);
    auto* frame = sameClass<FxRealSlider>(child<QWidget>("FxSliderFrame"));
    QVERIFY(frame);
    QCOMPARE(frame->minimum(), bottom);
    QCOMPARE(frame->maximum(), top);
    QCOMPARE(frame->getValue(), double(value));
    select(nullptr);
    cone->unref();
}

void tst_FloatEditor::otherPartiesChangesRefreshTheEditor()
{
    select(&m_complexity->value);
    m_complexity->value.setValue(0.25f);
    QCOMPARE(child<QLineEdit>("m_lineEdit")->text(), QStringLiteral("0.500000"));
    processSensors();
    QCOMPARE(child<QLineEdit>("m_lineEdit")->text(), QStringLiteral("0.250000"));
    QCOMPARE(child<QSlider>("m_slider")->value(), 25);
    m_complexity->value.setIgnored(TRUE);
    processSensors();
    QVERIFY(child<QPushButton>("m_ignoreButton")->isChecked());
}

void tst_FloatEditor::deselectedEditorNoLongerRefreshes()
{
    select(&m_complexity->value);
    QLineEdit* edit = child<QLineEdit>("m_lineEdit");
    select(nullptr);
    m_complexity->value.setValue(0.25f);
    processSensors();
    QCOMPARE(edit->text(), QStringLiteral("0.500000"));
}

void tst_FloatEditor::ignoreButtonTwiceRestoresTheFlag()
{
    KalServices* services = KalServices::getInstance();
    select(&m_complexity->value);
    auto* ignore = child<QPushButton>("m_ignoreButton");
    QVERIFY(ignore && ignore->isCheckable());
    QTest::mouseClick(ignore, Qt::LeftButton);
    QVERIFY(m_complexity->value.isIgnored());
    QCOMPARE(services->commandCount(), 1);
    QVERIFY(dynamic_cast<KalFieldIgnoredCommand*>(services->command(0)));
    QTest::mouseClick(ignore, Qt::LeftButton);
    QVERIFY(!m_complexity->value.isIgnored());
    QCOMPARE(services->commandCount(), 2);
    QVERIFY(services->undo());
    QVERIFY(m_complexity->value.isIgnored());
    processSensors();
    QVERIFY(ignore->isChecked());
}

void tst_FloatEditor::setToDefaultWritesAFreshNodesValue()
{
    KalServices* services = KalServices::getInstance();
    m_complexity->value.setValue(0.9f);
    select(&m_complexity->value);
    QTest::mouseClick(child<QPushButton>("m_defaultButton"), Qt::LeftButton);
    QCOMPARE(m_complexity->value.getValue(), 0.5f);
    QCOMPARE(services->commandCount(), 1);
    QVERIFY(dynamic_cast<KalFieldSetDefaultCommand*>(services->command(0)));
    processSensors();
    QCOMPARE(child<QLineEdit>("m_lineEdit")->text(), QStringLiteral("0.500000"));
    // The default was written before the command was made: undo keeps it.
    QVERIFY(services->undo());
    QCOMPARE(m_complexity->value.getValue(), 0.5f);

    // Each node type resets to its own default.
    auto* light = new SoDirectionalLight;
    light->ref();
    light->intensity.setValue(0.2f);
    select(&light->intensity);
    QTest::mouseClick(child<QPushButton>("m_defaultButton"), Qt::LeftButton);
    QCOMPARE(light->intensity.getValue(), 1.0f);
    select(nullptr);
    light->unref();
}

void tst_FloatEditor::labelAndButtons()
{
    select(&m_complexity->value);
    auto* label = child<QLabel>("m_label");
    QVERIFY(label);
    QCOMPARE(label->text(), QStringLiteral("<p align=\"center\">SFFloat</p>"));
    QCOMPARE(label->font().pointSize(), 10);
    auto* reset = child<QPushButton>("m_defaultButton");
    auto* ignore = child<QPushButton>("m_ignoreButton");
    QCOMPARE(reset->toolTip(), QStringLiteral("Set to default"));
    QCOMPARE(ignore->toolTip(), QStringLiteral("Ignore this field"));
    QVERIFY(reset->text().isEmpty() && ignore->text().isEmpty());
    QCOMPARE(reset->focusPolicy(), Qt::NoFocus);
    QCOMPARE(reset->maximumSize(), QSize(20, 20));
    QVERIFY(!reset->icon().isNull() && !ignore->icon().isNull());
    QVERIFY(child<QFrame>("m_editionFrame"));

    // The label keeps the first text it was given, field after field.
    auto* cone = new SoCone;
    cone->ref();
    select(&cone->height);
    QCOMPARE(child<QLabel>("m_label")->text(), QStringLiteral("<p align=\"center\">SFFloat</p>"));
    select(nullptr);
    cone->unref();
}

void tst_FloatEditor::focusLeaveWithoutChangesWritesNothing()
{
    select(&m_complexity->value);
    QLineEdit* edit = child<QLineEdit>("m_lineEdit");
    QMetaObject::invokeMethod(edit, "editingFinished");
    QObject* editor =
        KalShell::getInstance()->getMainWindow()->findChild<QObject*>(QStringLiteral("FxSFFloatWidget"));
    QVERIFY(editor);
    QMetaObject::invokeMethod(dock()->widget(), "setFocusLeaveEvent");
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    QCOMPARE(m_complexity->value.getValue(), 0.5f);
}

void tst_FloatEditor::deactivatingTheDockWhileShown()
{
    select(&m_complexity->value);
    QDockWidget* dock = EditorDockFixture::dock();
    QWidget* frame = dock->widget();
    QVERIFY(frame);
    // Switching to no profile deactivates the dock, which hands the
    // editor's frame back before it leaves the window.
    KalPluginsManager::getInstance()->setActiveProfile(nullptr);
    QCOMPARE(frame->parent(), nullptr);
    QCOMPARE(dock->widget(), nullptr);
    QVERIFY(dock->isHidden());
    QCOMPARE(KalShell::getInstance()->getMainWindow()->dockWidgetArea(dock), Qt::NoDockWidgetArea);
    m_complexity->value.setValue(0.1f);
    processSensors();
    QCOMPARE(frame->findChild<QLineEdit*>(QStringLiteral("m_lineEdit"))->text(), QStringLiteral("0.500000"));
}

void tst_FloatEditor::deletingTheNodeUnderTheEditor()
{
    auto* cone = new SoCone;
    cone->ref();
    select(&cone->height);
    QLineEdit* edit = child<QLineEdit>("m_lineEdit");
    QVERIFY(edit);
    cone->unref();
    // The editor has forgotten the field: typing, dragging and queued
    // refreshes reach nothing.
    processSensors();
    typeValue(QStringLiteral("3"));
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    QTest::mouseClick(child<QPushButton>("m_defaultButton"), Qt::LeftButton);
    QTest::mouseClick(child<QPushButton>("m_ignoreButton"), Qt::LeftButton);
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    select(&m_complexity->value);
    QCOMPARE(child<QLineEdit>("m_lineEdit")->text(), QStringLiteral("0.500000"));
}

void tst_FloatEditor::unloadingWhileShown()
{
    select(&m_complexity->value);
    typeValue(QStringLiteral("0.25"));
    KalPluginsManager::getInstance()->unloadAll();
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    m_complexity->value.setValue(0.1f);
    processSensors();
    QCOMPARE(m_complexity->value.getValue(), 0.1f);
}

QTEST_MAIN(tst_FloatEditor)
#include "tst_FloatEditor.moc"
