// Editing the cells of the list editors through the real plug-in in the
// host's dock: the editor each cell opens (a line edit, or the slider frame
// of a numeric type), and what typing into it does to the field and to the
// host's history. What the cells accept and show is
// tst_ListEditorCellTexts'.
#include "AllFieldsNode.h"
#include "ListEditorTesting.h"
#include "SliderDrag.h"
#include "TableTesting.h"

#include <FieldRangeMap.h>
#include <FxIntSlider.h>
#include <FxMFDefaultFieldWidget.h>
#include <FxMFFloatWidget.h>
#include <FxMFieldTableItemDelegate.h>
#include <FxRealSlider.h>
#include <FxUIntSlider.h>
#include <KalMFSetValueCommand.h>
#include <QUIntValidator.h>
#include <QULongValidator.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>
#include <Inventor/nodes/SoMaterial.h>

#include <QDoubleValidator>
#include <QIntValidator>
#include <QLineEdit>
#include <QSlider>

#include <cmath>
#include <limits>
#include <random>

using namespace ListEditorTesting;

namespace {

void typeAndReturn(QLineEdit* edit, const QString& text)
{
    typeIntoLine(edit, text);
    // The view commits a cell editor's text from the event loop.
    QCoreApplication::processEvents();
    processSensors();
}

QLineEdit* sliderLine(QWidget* frame)
{
    return EditorDockFixture::child<QLineEdit>("m_lineEdit", frame);
}

} // namespace

class tst_ListEditorCells : public ListEditorFixture
{
    Q_OBJECT

private slots:
    void cleanup();

    void stringCellEditsThePlainString();
    void genericEditorShowsAndTakesTheTextForm();
    void floatCellOpensARealSliderAndPushesNothing();
    void floatOfAMaterialTakesTheUnitSpan();
    void integerCellsOpenTheirSliders_data();
    void integerCellsOpenTheirSliders();
    void integerCellsReadLeadingZerosAsDecimal_data();
    void integerCellsReadLeadingZerosAsDecimal();
    void draggingACellSliderWritesAsItGoes();
    void doubleCellTakesValidatedText();
    void doubleCellUnderACommaLocale();
    void genericEditorRecordsItsEdits();
    void badTextLeavesTheFieldAndPushesNothing_data();
    void badTextLeavesTheFieldAndPushesNothing();
};

void tst_ListEditorCells::cleanup()
{
    EditorDockFixture::cleanup();
    QLocale::setDefault(QLocale::c());
}

void tst_ListEditorCells::stringCellEditsThePlainString()
{
    fill(m_node->mfString, {"alpha", "say \"hi\""});
    select(&m_node->mfString);
    QCOMPARE(shownEditor()->getValueText(1, 0), QStringLiteral("say \"hi\""));
    auto* edit = openCellLine(table(), 0, 0);
    QVERIFY(edit);
    QCOMPARE(edit->objectName(), QStringLiteral("qt_lineeditor"));
    QCOMPARE(edit->text(), QStringLiteral("alpha"));
    QVERIFY(!edit->validator());
    typeAndReturn(edit, QStringLiteral("a \"quoted\" word"));
    QCOMPARE(QString::fromUtf8(m_node->mfString[0].getString()), QStringLiteral("a \"quoted\" word"));
    QCOMPARE(commands(), 1);
    QVERIFY(lastCommandIs<KalMFSetValueCommand>());
    // The command read its old text after the write: undo keeps the value.
    // String lists have always recorded their edits this way.
    QVERIFY(KalServices::getInstance()->undo());
    QCOMPARE(QString::fromUtf8(m_node->mfString[0].getString()), QStringLiteral("a \"quoted\" word"));
    QVERIFY(KalServices::getInstance()->redo());
    QCOMPARE(QString::fromUtf8(m_node->mfString[0].getString()), QStringLiteral("a \"quoted\" word"));
}

void tst_ListEditorCells::genericEditorShowsAndTakesTheTextForm()
{
    fill(m_node->mfString, {"say \"hi\""});
    FxMFDefaultFieldWidget editor;
    editor.createWidget();
    editor.setEditedObject(&m_node->mfString);
    editor.activate();
    QCOMPARE(editor.getValueText(0, 0), QStringLiteral("\"say \\\"hi\\\"\""));
    editor.setValueFromText(0, 0, QStringLiteral("\"it's \\\"new\\\"\""));
    QCOMPARE(QString::fromUtf8(m_node->mfString[0].getString()), QStringLiteral("it's \"new\""));
    QCOMPARE(commands(), 1);
    editor.deactivate();
    editor.destroyWidget();
}

void tst_ListEditorCells::floatCellOpensARealSliderAndPushesNothing()
{
    select(&m_node->mfFloat);
    QWidget* frame = openCell(table(), 2, 0);
    QVERIFY(frame);
    QVERIFY(frame->inherits("FxRealSlider"));
    QLineEdit* edit = sliderLine(frame);
    QVERIFY(edit);
    QCOMPARE(edit->text(), QStringLiteral("3.500000"));
    typeAndReturn(edit, QStringLiteral("7.25"));
    QCOMPARE(values(m_node->mfFloat), (QStringList{"1.5", "2.5", "7.25"}));
    // Numeric lists write without recording: that is how they have always
    // been edited.
    QCOMPARE(commands(), 0);
    QCOMPARE(shownEditor()->getValueText(2, 0), QStringLiteral("7.25"));
}

void tst_ListEditorCells::floatOfAMaterialTakesTheUnitSpan()
{
    auto* material = new SoMaterial;
    material->ref();
    material->shininess.set1Value(1, 0.5f);
    select(&material->shininess);
    QWidget* frame = openCell(table(), 1, 0);
    QVERIFY(frame && frame->inherits("FxRealSlider"));
    auto* slider = static_cast<FxRealSlider*>(frame);
    const FieldRange unit = fieldRange(buildFieldRangeMap(), "Complexity", "value");
    QCOMPARE(slider->minimum(), double(unit.floatMin()));
    QCOMPARE(slider->maximum(), double(unit.floatMax()));
    QCOMPARE(slider->isBounded(), unit.isBounded());
    QVERIFY(slider->isBounded());
    // The bounded span refuses what lies outside it; what lies inside goes
    // into the field.
    typeAndReturn(sliderLine(frame), QStringLiteral("5"));
    QCOMPARE(material->shininess[1], 0.5f);
    typeAndReturn(sliderLine(frame), QStringLiteral("0.75"));
    QCOMPARE(material->shininess[1], 0.75f);
    unloadPlugin();
    material->unref();

    // Any other node's list takes the default float span.
    QVERIFY(loadPlugin());
    select(&m_node->mfFloat);
    frame = openCell(table(), 0, 0);
    QVERIFY(frame && frame->inherits("FxRealSlider"));
    const FieldRange plain = fieldRange(buildFieldRangeMap(), "DefaultNode", "floatField");
    QCOMPARE(static_cast<FxRealSlider*>(frame)->isBounded(), plain.isBounded());
}

void tst_ListEditorCells::integerCellsOpenTheirSliders_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("slider");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    QTest::newRow("int32") << QByteArray("mfInt32") << QByteArray("FxIntSlider") << "10"
                           << "-42"
                           << "-42";
    QTest::newRow("short") << QByteArray("mfShort") << QByteArray("FxIntSlider") << "1"
                           << "300"
                           << "300";
    // Coin writes unsigned lists in hexadecimal; the frame keeps that base.
    QTest::newRow("uint32") << QByteArray("mfUInt32") << QByteArray("FxUIntSlider") << "7"
                            << "ff"
                            << "0xff";
    QTest::newRow("ushort") << QByteArray("mfUShort") << QByteArray("FxUIntSlider") << "5"
                            << "1a"
                            << "0x1a";
    QTest::newRow("ushort, clamped") << QByteArray("mfUShort") << QByteArray("FxUIntSlider") << "5"
                                     << "fffff"
                                     << "0xffff";
}

void tst_ListEditorCells::integerCellsOpenTheirSliders()
{
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, slider);
    QFETCH(QString, shown);
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    auto* list = static_cast<SoMField*>(m_node->getField(field.constData()));
    select(list);
    QWidget* frame = openCell(table(), 0, 0);
    QVERIFY(frame);
    QVERIFY2(frame->inherits(slider.constData()), frame->metaObject()->className());
    QLineEdit* edit = sliderLine(frame);
    QCOMPARE(edit->text(), shown);
    typeAndReturn(edit, typed);
    QCOMPARE(values(*list).first(), stored);
    QCOMPARE(commands(), 0);
}

void tst_ListEditorCells::integerCellsReadLeadingZerosAsDecimal_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    // The slider and the validators read "010" as ten; Coin, given the
    // text as typed, read eight.
    QTest::newRow("int32") << QByteArray("mfInt32") << "010"
                           << "10";
    QTest::newRow("int32, negative") << QByteArray("mfInt32") << "-007"
                                     << "-7";
    QTest::newRow("short, not octal") << QByteArray("mfShort") << "09"
                                      << "9";
    QTest::newRow("int32, zero") << QByteArray("mfInt32") << "000"
                                 << "0";
}

void tst_ListEditorCells::integerCellsReadLeadingZerosAsDecimal()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    auto* list = static_cast<SoMField*>(m_node->getField(field.constData()));
    select(list);
    QWidget* frame = openCell(table(), 0, 0);
    QVERIFY(frame);
    QLineEdit* edit = sliderLine(frame);
    QVERIFY(edit);
    typeAndReturn(edit, typed);
    QCOMPARE(values(*list).first(), stored);
}

void tst_ListEditorCells::draggingACellSliderWritesAsItGoes()
{
    m_node->mfInt32.set1Value(0, 0);
    select(&m_node->mfInt32);
    QWidget* frame = openCell(table(), 0, 0);
    QVERIFY(frame && frame->inherits("FxIntSlider"));
    auto* slider = child<QSlider>("m_slider", frame);
    QVERIFY(slider);
    QVERIFY(slider->width() > 20);
    const QPoint start = SliderDrag::handleCentre(slider);
    QTest::mousePress(slider, Qt::LeftButton, Qt::NoModifier, start);
    SliderDrag::moveHeld(slider, QPoint(slider->width() - 2, start.y()));
    processSensors();
    const int whileDragging = m_node->mfInt32[0];
    QVERIFY(whileDragging > 0);
    QCOMPARE(whileDragging, slider->value());
    QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, QPoint(slider->width() - 2, start.y()));
    processSensors();
    QCOMPARE(m_node->mfInt32[0], slider->value());
    // Numeric lists are not recorded, and the editor refreshes again after
    // the frame's writes.
    QCOMPARE(commands(), 0);
    QVERIFY(shownEditor()->isRefreshEnabled());
    QCOMPARE(shownEditor()->getValueText(0, 0), QString::number(slider->value()));
}

void tst_ListEditorCells::doubleCellTakesValidatedText()
{
    select(&m_node->mfDouble);
    auto* edit = openCellLine(table(), 1, 0);
    QVERIFY(edit);
    QVERIFY(qobject_cast<const QDoubleValidator*>(edit->validator()));
    typeAndReturn(edit, QStringLiteral("0.125"));
    QCOMPARE(values(m_node->mfDouble), (QStringList{"0.25", "0.125"}));
    QCOMPARE(commands(), 0);
    // Out of any double's range: typed, shown, never written.
    edit = openCellLine(table(), 1, 0);
    typeAndReturn(edit, QStringLiteral("1e999"));
    QCOMPARE(values(m_node->mfDouble), (QStringList{"0.25", "0.125"}));
}

void tst_ListEditorCells::doubleCellUnderACommaLocale()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    select(&m_node->mfDouble);
    auto* edit = openCellLine(table(), 0, 0);
    QVERIFY(edit);
    typeAndReturn(edit, QStringLiteral("2.5"));
    QCOMPARE(values(m_node->mfDouble).first(), QStringLiteral("2.5"));
    // The comma is no decimal point in a field's text: the keystroke is
    // refused where it is typed, in sight.
    edit = openCellLine(table(), 0, 0);
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("3,"));
    QCOMPARE(edit->text(), QStringLiteral("3"));
    QString pasted = QStringLiteral("3,5");
    int position = 0;
    QVERIFY(edit->validator()->validate(pasted, position) != QValidator::Acceptable);
    QTest::keyClick(edit, Qt::Key_Escape);
    QCoreApplication::processEvents();
    QCOMPARE(values(m_node->mfDouble).first(), QStringLiteral("2.5"));
}

void tst_ListEditorCells::genericEditorRecordsItsEdits()
{
    select(&m_node->mfName);
    QCOMPARE(dock()->widget()->objectName(), QStringLiteral("FxMFDefaultFieldWidget"));
    auto* edit = openCellLine(table(), 1, 0);
    QVERIFY(edit);
    // The generic editor shows and takes each value's text form.
    QCOMPARE(edit->text(), QStringLiteral("\"two\""));
    typeAndReturn(edit, QStringLiteral("three"));
    QCOMPARE(values(m_node->mfName), (QStringList{"\"one\"", "\"three\""}));
    QCOMPARE(commands(), 1);
    QVERIFY(lastCommandIs<KalMFSetValueCommand>());
    QVERIFY(KalServices::getInstance()->undo());
    QCOMPARE(values(m_node->mfName), (QStringList{"\"one\"", "\"three\""}));
    QVERIFY(KalServices::getInstance()->redo());
    QCOMPARE(values(m_node->mfName), (QStringList{"\"one\"", "\"three\""}));
    // The same text again is no change, and no command.
    edit = openCellLine(table(), 1, 0);
    typeAndReturn(edit, QStringLiteral("three"));
    QCOMPARE(commands(), 1);
}

void tst_ListEditorCells::badTextLeavesTheFieldAndPushesNothing_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("text");
    const QString longNumber = QString(600, QLatin1Char('9'));
    QTest::newRow("time, letters") << QByteArray("mfTime") << "abc";
    QTest::newRow("time, 600 digits") << QByteArray("mfTime") << longNumber;
    QTest::newRow("time, 5000 digits") << QByteArray("mfTime") << QString(5000, QLatin1Char('1'));
    QTest::newRow("float, inf") << QByteArray("mfFloat") << "inf";
    QTest::newRow("float, nan") << QByteArray("mfFloat") << "nan";
    QTest::newRow("float, past the largest") << QByteArray("mfFloat") << "1e39";
    QTest::newRow("float, 600 digits") << QByteArray("mfFloat") << longNumber;
    QTest::newRow("double, 1e999") << QByteArray("mfDouble") << "1e999";
    QTest::newRow("double, -inf") << QByteArray("mfDouble") << "-inf";
    QTest::newRow("int32, 600 digits") << QByteArray("mfInt32") << longNumber;
    QTest::newRow("string, past the end") << QByteArray("mfString") << "x";
}

// What reaches the editor's text route from any cell editor: refused text
// leaves the values and the history as they were.
void tst_ListEditorCells::badTextLeavesTheFieldAndPushesNothing()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, text);
    auto* list = static_cast<SoMField*>(m_node->getField(field.constData()));
    select(list);
    const QStringList before = values(*list);
    const int row = field == "mfString" ? list->getNum() : 0;
    shownEditor()->setValueFromText(row, 0, text);
    QCOMPARE(values(*list), before);
    QCOMPARE(commands(), 0);
}

QTEST_MAIN(tst_ListEditorCells)
#include "tst_ListEditorCells.moc"
