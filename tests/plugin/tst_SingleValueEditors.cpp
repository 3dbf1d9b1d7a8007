// The single-value editors in use, through the real plug-in module and the
// host: the dock's choice for each field type, editing through the real
// widgets, the host's history, and what the widgets show afterwards.
#include "EditorDockFixture.h"
#include "FieldTesting.h"

#include <FxSFFilePathStringWidget.h>
#include <FxSFLineWidget.h>
#include <KalPluginsManager.h>
#include <KalSFSetValueCommand.h>
#include <KalServices.h>
#include <KalShell.h>
#include <ModalDialogs.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>
#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QSlider>
#include <QtTest>

class tst_SingleValueEditors : public EditorDockFixture
{
    Q_OBJECT

private slots:
    void cleanup();

    void editRoundTrip_data();
    void editRoundTrip();
    void genericEditorWritesOnEveryKeystroke();
    void genericRefreshEmitsNothing();
    void genericReturnWritesNothingMore();
    void typedEditorAppliesOnLeavingEvenUnchanged();
    void typedEditorsWriteDerivedTypesThroughSetValue();
    void integerSpanIsChosenOnce();
    void unsignedShortClampsTypedValues();
    void doubleSpanOnAComplexityNode();
    void badTextNeverCorruptsTheField_data();
    void badTextNeverCorruptsTheField();
    void setToDefaultAndIgnoreOnEachFamily_data();
    void setToDefaultAndIgnoreOnEachFamily();
    void fileDialogChoosesAPath();
    void cancelledFileDialogChangesNothing();
};

void tst_SingleValueEditors::cleanup()
{
    EditorDockFixture::cleanup();
    ModalDialogs::setOpenFileName(nullptr);
}

void tst_SingleValueEditors::editRoundTrip_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("editor");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("shownBefore");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shownAfter");
    QTest::addColumn<QString>("afterUndo");
    // Numeric editors undo to the value from before the edit.
    QTest::newRow("double") << QByteArray("sfDouble") << "FxSFDoubleWidget"
                            << "SFDouble"
                            << "m_lineEdit"
                            << "2.5"
                            << "4.25"
                            << "4.25"
                            << "4.25"
                            << "2.5";
    QTest::newRow("int32") << QByteArray("sfInt32") << "FxSFInt32Widget"
                           << "SFInt32"
                           << "m_lineEdit"
                           << "42"
                           << "77"
                           << "77"
                           << "77"
                           << "42";
    QTest::newRow("short") << QByteArray("sfShort") << "FxSFShortWidget"
                           << "SFShort"
                           << "m_lineEdit"
                           << "-7"
                           << "-300"
                           << "-300"
                           << "-300"
                           << "-7";
    // Coin writes unsigned fields in hexadecimal ("0x7"), and the first text
    // an integer frame sees fixes its base: these editors work in base 16.
    QTest::newRow("uint32") << QByteArray("sfUInt32") << "FxSFUInt32Widget"
                            << "SFUInt32"
                            << "m_lineEdit"
                            << "7"
                            << "ee6b2800"
                            << "0xee6b2800"
                            << "ee6b2800"
                            << "0x7";
    QTest::newRow("ushort") << QByteArray("sfUShort") << "FxSFUShortWidget"
                            << "SFUShort"
                            << "m_lineEdit"
                            << "9"
                            << "ea60"
                            << "0xea60"
                            << "ea60"
                            << "0x9";
    QTest::newRow("float") << QByteArray("sfFloat") << "FxSFFloatWidget"
                           << "SFFloat"
                           << "m_lineEdit"
                           << "3.500000"
                           << "1.25"
                           << "1.25"
                           << "1.250000"
                           << "3.5";
    // The text editors pass no previous text: undo writes the edited value
    // back, as they always have.
    QTest::newRow("string") << QByteArray("sfString") << "FxSFStringWidget"
                            << "SFString"
                            << "lineEdit"
                            << "a string"
                            << "new text"
                            << "\"new text\""
                            << "new text"
                            << "\"new text\"";
    QTest::newRow("name") << QByteArray("sfName") << "FxSFNameWidget"
                          << "SFName"
                          << "lineEdit"
                          << "hello"
                          << "world"
                          << "\"world\""
                          << "world"
                          << "\"world\"";
    QTest::newRow("file path") << QByteArray("sfFilePath") << "FxSFFilePathStringWidget"
                               << "SFFilePathString"
                               << "lineEdit"
                               << "textures/wood.png"
                               << "scenes/room.iv"
                               << "\"scenes/room.iv\""
                               << "scenes/room.iv"
                               << "\"scenes/room.iv\"";
}

void tst_SingleValueEditors::editRoundTrip()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, editor);
    QFETCH(QString, label);
    QFETCH(QString, input);
    QFETCH(QString, shownBefore);
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    QFETCH(QString, shownAfter);
    QFETCH(QString, afterUndo);
    KalServices* services = KalServices::getInstance();
    SoField* target = m_node->getField(SbName(field.constData()));
    QVERIFY(target);
    const QString before = fieldText(target);

    select(target);
    QVERIFY(dock() && !dock()->isHidden());
    QCOMPARE(dock()->widget()->objectName(), editor);
    QCOMPARE(child<QLabel>(QStringLiteral("m_label"))->text(),
             QStringLiteral("<p align=\"center\">%1</p>").arg(label));
    QLineEdit* edit = child<QLineEdit>(input);
    QVERIFY(edit);
    QCOMPARE(edit->text(), shownBefore);

    typeIntoLine(edit, typed);
    QCOMPARE(fieldText(target), stored);
    QCOMPARE(services->commandCount(), 1);
    QVERIFY(dynamic_cast<KalSFSetValueCommand*>(services->command(0)));
    processSensors();
    QCOMPARE(edit->text(), shownAfter);

    QVERIFY(services->undo());
    QCOMPARE(fieldText(target), afterUndo);
    processSensors();
    QVERIFY(services->redo());
    QCOMPARE(fieldText(target), stored);
    processSensors();
    QCOMPARE(edit->text(), shownAfter);
    QVERIFY(services->undo());
    if (afterUndo != stored)
        QCOMPARE(fieldText(target), before);
}

void tst_SingleValueEditors::genericEditorWritesOnEveryKeystroke()
{
    KalServices* services = KalServices::getInstance();
    select(&m_node->sfTime);
    QCOMPARE(dock()->widget()->objectName(), QStringLiteral("FxSFLineWidget"));
    QCOMPARE(child<QLabel>(QStringLiteral("m_label"))->text(),
             QStringLiteral("<p align=\"center\">SField</p>"));
    QLineEdit* edit = child<QLineEdit>(QStringLiteral("lineEdit"));
    QCOMPARE(edit->text(), QStringLiteral("1.5"));
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_2);
    QCOMPARE(m_node->sfTime.getValue().getValue(), 2.0);
    // textEdited and textChanged both write: two commands for one key.
    QCOMPARE(services->commandCount(), 2);
    QTest::keyClick(edit, Qt::Key_5);
    QCOMPARE(m_node->sfTime.getValue().getValue(), 25.0);
    QCOMPARE(services->commandCount(), 4);
    processSensors();
    QCOMPARE(edit->text(), QStringLiteral("25"));
    QCOMPARE(edit->cursorPosition(), 2);
}

void tst_SingleValueEditors::genericRefreshEmitsNothing()
{
    select(&m_node->sfTime);
    QCOMPARE(dock()->widget()->objectName(), QStringLiteral("FxSFLineWidget"));
    QLineEdit* edit = child<QLineEdit>(QStringLiteral("lineEdit"));
    QSignalSpy changed(edit, SIGNAL(textChanged(QString)));
    m_node->sfTime.setValue(SbTime(7.25));
    processSensors();
    QCOMPARE(edit->text(), QStringLiteral("7.25"));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
}

void tst_SingleValueEditors::genericReturnWritesNothingMore()
{
    select(&m_node->sfTime);
    QLineEdit* edit = child<QLineEdit>(QStringLiteral("lineEdit"));
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_End);
    QTest::keyClick(edit, Qt::Key_5);
    const int afterKey = KalServices::getInstance()->commandCount();
    QCOMPARE(afterKey, 2);
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(KalServices::getInstance()->commandCount(), afterKey);
}

void tst_SingleValueEditors::typedEditorAppliesOnLeavingEvenUnchanged()
{
    select(&m_node->sfString);
    QLineEdit* edit = child<QLineEdit>(QStringLiteral("lineEdit"));
    QMetaObject::invokeMethod(edit, "editingFinished");
    QCOMPARE(KalServices::getInstance()->commandCount(), 1);
    QCOMPARE(QString::fromUtf8(m_node->sfString.getValue().getString()), QStringLiteral("a string"));
}

void tst_SingleValueEditors::typedEditorsWriteDerivedTypesThroughSetValue()
{
    // The file path field derives from the string field: the string editor,
    // given one, writes it as a string value, not as quoted text.
    select(&m_node->sfFilePath);
    QLineEdit* edit = child<QLineEdit>(QStringLiteral("lineEdit"));
    typeIntoLine(edit, QStringLiteral("has \"quotes\" inside"));
    QCOMPARE(QString::fromUtf8(m_node->sfFilePath.getValue().getString()),
             QStringLiteral("has \"quotes\" inside"));
}

void tst_SingleValueEditors::integerSpanIsChosenOnce()
{
    select(&m_node->sfInt32);
    QLineEdit* edit = child<QLineEdit>(QStringLiteral("m_lineEdit"));
    typeIntoLine(edit, QStringLiteral("500"));
    QCOMPARE(m_node->sfInt32.getValue(), 500);
    // The unbounded span grew to 500 and stays so for the next field: the
    // integer editors choose their span once, when their widget is built.
    auto* other = new AllFieldsNode;
    other->ref();
    select(&other->sfInt32);
    auto* slider = child<QSlider>(QStringLiteral("m_slider"));
    QVERIFY(slider);
    QCOMPARE(slider->maximum(), 500);
    select(nullptr);
    other->unref();
}

void tst_SingleValueEditors::unsignedShortClampsTypedValues()
{
    select(&m_node->sfUShort);
    QLineEdit* edit = child<QLineEdit>(QStringLiteral("m_lineEdit"));
    // 0x11170 is 70000, beyond what the field holds.
    typeIntoLine(edit, QStringLiteral("11170"));
    QCOMPARE(int(m_node->sfUShort.getValue()), 65535);
}

void tst_SingleValueEditors::doubleSpanOnAComplexityNode()
{
    // The double editor reads the float row's zero double pair for these
    // node types, and widens it to the field's value.
    select(&m_node->sfDouble);
    QCOMPARE(child<QSlider>(QStringLiteral("m_slider"))->value(), 25);
}

void tst_SingleValueEditors::badTextNeverCorruptsTheField_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("text");
    QTest::newRow("int32 words") << QByteArray("sfInt32") << "m_lineEdit"
                                 << "forty";
    QTest::newRow("int32 huge") << QByteArray("sfInt32") << "m_lineEdit"
                                << "99999999999999";
    QTest::newRow("double words") << QByteArray("sfDouble") << "m_lineEdit"
                                  << "abc";
    QTest::newRow("double huge") << QByteArray("sfDouble") << "m_lineEdit"
                                 << "1e999";
    QTest::newRow("ushort negative") << QByteArray("sfUShort") << "m_lineEdit"
                                     << "-5";
    QTest::newRow("time empty") << QByteArray("sfTime") << "lineEdit"
                                << "";
    QTest::newRow("vector words") << QByteArray("sfVec3f") << "SFVec3fLine"
                                  << "one two three";
    QTest::newRow("box cell huge") << QByteArray("sfBox3s") << "m_cell"
                                   << "99999";
    QTest::newRow("matrix cell words") << QByteArray("sfMatrix") << "m_cell"
                                       << "one";
}

void tst_SingleValueEditors::badTextNeverCorruptsTheField()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, input);
    QFETCH(QString, text);
    SoField* target = m_node->getField(SbName(field.constData()));
    select(target);
    QLineEdit* edit = child<QLineEdit>(input);
    QVERIFY(edit);
    typeIntoLine(edit, text);
    processSensors();
    // Whatever was written, the field still holds a value it can write out
    // and read back.
    const QString stored = fieldText(target);
    QVERIFY(!stored.isEmpty());
    QVERIFY(target->set(stored.toUtf8().constData()));
    while (KalServices::getInstance()->undo()) {
    }
    QVERIFY(!fieldText(target).isEmpty());
}

void tst_SingleValueEditors::setToDefaultAndIgnoreOnEachFamily_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("changed");
    QTest::newRow("numeric") << QByteArray("sfInt32") << "1000";
    QTest::newRow("text") << QByteArray("sfName") << "other";
    QTest::newRow("vector") << QByteArray("sfVec3f") << "9 9 9";
    QTest::newRow("generic") << QByteArray("sfTime") << "100";
    QTest::newRow("choice") << QByteArray("sfBool") << "FALSE";
    QTest::newRow("colour") << QByteArray("sfColor") << "0 0 1";
    QTest::newRow("popup") << QByteArray("sfMatrix") << "2 0 0 0 0 2 0 0 0 0 2 0 0 0 0 1";
}

void tst_SingleValueEditors::setToDefaultAndIgnoreOnEachFamily()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, changed);
    SoField* target = m_node->getField(SbName(field.constData()));
    auto* fresh = new AllFieldsNode;
    fresh->ref();
    const QString defaultText = fieldText(fresh->getField(SbName(field.constData())));
    fresh->unref();
    target->set(changed.toUtf8().constData());
    select(target);
    QTest::mouseClick(child<QPushButton>(QStringLiteral("m_defaultButton")), Qt::LeftButton);
    QCOMPARE(fieldText(target), defaultText);
    QCOMPARE(KalServices::getInstance()->commandCount(), 1);
    QTest::mouseClick(child<QPushButton>(QStringLiteral("m_ignoreButton")), Qt::LeftButton);
    QVERIFY(target->isIgnored());
    QVERIFY(KalServices::getInstance()->undo());
    QVERIFY(!target->isIgnored());
}

void tst_SingleValueEditors::fileDialogChoosesAPath()
{
    // Made directly, so that the dialog seam it asks is this test's.
    FxSFFilePathStringWidget editor;
    editor.createWidget();
    editor.setEditedObject(&m_node->sfFilePath);
    editor.activate();
    QString caption;
    ModalDialogs::setOpenFileName([&](QWidget*, const QString& c, const QString&, const QString&) {
        caption = c;
        return QStringLiteral("/tmp/chosen.iv");
    });
    auto* button = editor.getFrame()->findChild<QPushButton*>(QStringLiteral("openFileButton"));
    QVERIFY(button);
    QCOMPARE(button->text(), QStringLiteral("..."));
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(caption, QStringLiteral("Open File"));
    QCOMPARE(QString::fromUtf8(m_node->sfFilePath.getValue().getString()), QStringLiteral("/tmp/chosen.iv"));
    QCOMPARE(editor.getFrame()->findChild<QLineEdit*>(QStringLiteral("lineEdit"))->text(),
             QStringLiteral("/tmp/chosen.iv"));
    QCOMPARE(KalServices::getInstance()->commandCount(), 1);
    editor.deactivate();
    editor.destroyWidget();
}

void tst_SingleValueEditors::cancelledFileDialogChangesNothing()
{
    FxSFFilePathStringWidget editor;
    editor.createWidget();
    editor.setEditedObject(&m_node->sfFilePath);
    editor.activate();
    ModalDialogs::setOpenFileName(
        [](QWidget*, const QString&, const QString&, const QString&) { return QString(); });
    QTest::mouseClick(editor.getFrame()->findChild<QPushButton*>(QStringLiteral("openFileButton")),
                      Qt::LeftButton);
    QCOMPARE(QString::fromUtf8(m_node->sfFilePath.getValue().getString()),
             QStringLiteral("textures/wood.png"));
    QCOMPARE(editor.getFrame()->findChild<QLineEdit*>(QStringLiteral("lineEdit"))->text(),
             QStringLiteral("textures/wood.png"));
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    editor.deactivate();
    editor.destroyWidget();
}

QTEST_MAIN(tst_SingleValueEditors)
#include "tst_SingleValueEditors.moc"
