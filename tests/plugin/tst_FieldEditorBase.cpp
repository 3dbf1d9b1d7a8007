// The field editor base and the single-value base, on an editor made
// directly rather than through the host: activation without a field, the
// sensor's life, the label, and an editor with no field.
#include "FieldTesting.h"
#include <FxSFFloatWidget.h>
#include <KalServices.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>
#include <Inventor/nodes/SoCone.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QtTest>

#include <memory>

class tst_FieldEditorBase : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void descriptors();
    void activateWithoutAnObjectDoesNothingMore();
    void activateWithAContainerDoesNothingMore();
    void activateAttachesFillsAndShows();
    void deactivateStopsTheRefresh();
    void destroyingWithoutCreateWidgetDeletesOnlyTheFrame();
    void destroyWidgetDeletesTheSensor();
    void labelKeepsItsFirstText();
    void noFieldMeansNoWriteAndNoRefresh();
};

void tst_FieldEditorBase::initTestCase()
{
    SoDB::init();
    SoKalExtensions::init();
}

void tst_FieldEditorBase::cleanup()
{
    KalServices::getInstance()->clearHistory();
}

void tst_FieldEditorBase::descriptors()
{
    FxSFFloatWidget editor;
    QCOMPARE(editor.objectName(), QStringLiteral("FxSFFloatWidget"));
    QCOMPARE(QString::fromLatin1(editor.name.getString()), QStringLiteral("SFFloat"));
    QCOMPARE(QString::fromLatin1(editor.author.getString()), QStringLiteral("Quelvo"));
    QCOMPARE(QString::fromLatin1(editor.description.getString()),
             QStringLiteral("Field Editor for Kalibra."));
    QCOMPARE(QString::fromLatin1(editor.version.getString()), QStringLiteral("1.0.0"));
    QVERIFY(editor.getHandledType() == SoSFFloat::getClassTypeId());
    QCOMPARE(editor.getWidget(), static_cast<QWidget*>(editor.getFrame()));
    QCOMPARE(editor.getFrame()->parent(), nullptr);
    FxSFFloatWidget named("MyFloats");
    QCOMPARE(named.objectName(), QStringLiteral("MyFloats"));
}

void tst_FieldEditorBase::activateWithoutAnObjectDoesNothingMore()
{
    FxSFFloatWidget editor;
    editor.createWidget();
    QVERIFY(editor.getFrame()->isHidden());
    editor.setEditedObject(nullptr);
    editor.activate();
    QVERIFY(editor.getFrame()->isHidden());
    QCOMPARE(editor.getField(), nullptr);
    editor.deactivate();
    editor.destroyWidget();
}

void tst_FieldEditorBase::activateWithAContainerDoesNothingMore()
{
    auto* cone = new SoCone;
    cone->ref();
    FxSFFloatWidget editor;
    editor.createWidget();
    editor.setEditedObject(cone);
    editor.activate();
    QVERIFY(editor.getFrame()->isHidden());
    QCOMPARE(editor.getField(), nullptr);
    cone->height.setValue(7.0f);
    processSensors();
    QCOMPARE(editor.getFrame()->findChild<QLineEdit*>(QStringLiteral("m_lineEdit"))->text(), QString());
    editor.deactivate();
    editor.destroyWidget();
    cone->unref();
}

void tst_FieldEditorBase::activateAttachesFillsAndShows()
{
    auto* cone = new SoCone;
    cone->ref();
    cone->height.setValue(4.0f);
    FxSFFloatWidget editor;
    editor.createWidget();
    editor.setEditedObject(&cone->height);
    editor.activate();
    QVERIFY(!editor.getFrame()->isHidden());
    QCOMPARE(editor.getField(), static_cast<SoField*>(&cone->height));
    auto* edit = editor.getFrame()->findChild<QLineEdit*>(QStringLiteral("m_lineEdit"));
    QCOMPARE(edit->text(), QStringLiteral("4.000000"));
    cone->height.setValue(6.0f);
    processSensors();
    QCOMPARE(edit->text(), QStringLiteral("6.000000"));
    editor.deactivate();
    QVERIFY(editor.getFrame()->isHidden());
    editor.destroyWidget();
    cone->unref();
}

void tst_FieldEditorBase::deactivateStopsTheRefresh()
{
    auto* cone = new SoCone;
    cone->ref();
    FxSFFloatWidget editor;
    editor.createWidget();
    editor.setEditedObject(&cone->height);
    editor.activate();
    auto* edit = editor.getFrame()->findChild<QLineEdit*>(QStringLiteral("m_lineEdit"));
    const QString shown = edit->text();
    editor.deactivate();
    cone->height.setValue(9.0f);
    processSensors();
    QCOMPARE(edit->text(), shown);
    editor.destroyWidget();
    cone->unref();
}

void tst_FieldEditorBase::destroyingWithoutCreateWidgetDeletesOnlyTheFrame()
{
    auto editor = std::make_unique<FxSFFloatWidget>();
    QPointer<QFrame> frame = editor->getFrame();
    QVERIFY(frame);
    QVERIFY(!frame->findChild<QLabel*>(QStringLiteral("m_label")));
    editor.reset();
    QVERIFY(!frame);
}

void tst_FieldEditorBase::destroyWidgetDeletesTheSensor()
{
    auto* cone = new SoCone;
    cone->ref();
    FxSFFloatWidget editor;
    editor.createWidget();
    editor.setEditedObject(&cone->height);
    editor.activate();
    editor.deactivate();
    editor.destroyWidget();
    // Without a sensor, nothing watches the field any more; a later
    // activation still shows the value but no longer follows it.
    editor.activate();
    auto* edit = editor.getFrame()->findChild<QLineEdit*>(QStringLiteral("m_lineEdit"));
    const QString shown = edit->text();
    cone->height.setValue(11.0f);
    processSensors();
    QCOMPARE(edit->text(), shown);
    editor.deactivate();
    cone->unref();
}

void tst_FieldEditorBase::labelKeepsItsFirstText()
{
    FxSFFloatWidget editor;
    editor.setFieldLabel(QStringLiteral("First"));
    editor.setFieldLabel(QStringLiteral("Second"));
    editor.createWidget();
    auto* label = editor.getFrame()->findChild<QLabel*>(QStringLiteral("m_label"));
    QVERIFY(label);
    QCOMPARE(label->text(), QStringLiteral("<p align=\"center\">First</p>"));
    editor.destroyWidget();
}

void tst_FieldEditorBase::noFieldMeansNoWriteAndNoRefresh()
{
    FxSFFloatWidget editor;
    editor.createWidget();
    auto* edit = editor.getFrame()->findChild<QLineEdit*>(QStringLiteral("m_lineEdit"));
    edit->setText(QStringLiteral("3"));
    editor.updateWidget();
    QCOMPARE(edit->text(), QStringLiteral("3"));
    editor.applyChanges();
    editor.setDefaultFieldValue();
    editor.ignoreButtonStateChanged();
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    editor.destroyWidget();
}

QTEST_MAIN(tst_FieldEditorBase)
#include "tst_FieldEditorBase.moc"
