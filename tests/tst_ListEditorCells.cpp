// Editing the cells of the list editors through the real plug-in in the
// host's dock: the editor each cell opens (a line edit, or the slider frame
// of a numeric type), what typing into it does to the field and to the
// host's history, the validators, and what a cell shows of a long value.
#include "ListEditorTesting.h"
#include "ListFieldsNode.h"
#include "SliderDrag.h"

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

// Opens the cell's editor as a person does, with a double click.
QWidget* openCell(int row)
{
    FxMFieldTable* shown = table();
    const QModelIndex index = shown->model()->index(row, 0);
    shown->scrollTo(index);
    const QPoint centre = shown->visualRect(index).center();
    QTest::mouseClick(shown->viewport(), Qt::LeftButton, Qt::NoModifier, centre);
    QTest::mouseDClick(shown->viewport(), Qt::LeftButton, Qt::NoModifier, centre);
    return shown->indexWidget(index);
}

void typeAndReturn(QLineEdit* edit, const QString& text)
{
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
    // The view commits a cell editor's text from the event loop.
    QCoreApplication::processEvents();
    processSensors();
}

QLineEdit* sliderLine(QWidget* frame)
{
    return child<QLineEdit>("m_lineEdit", frame);
}

// An editor that counts the texts asked of it.
class CountingFloatEditor : public FxMFFloatWidget
{
public:
    int asked = 0;
    QString getValueText(int row, int column) override
    {
        ++asked;
        return FxMFFloatWidget::getValueText(row, column);
    }
};

} // namespace

class tst_ListEditorCells : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
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

    void validatorsByKind_data();
    void validatorsByKind();
    void unsignedValidators_data();
    void unsignedValidators();
    void noTextOutsideTheValues();
    void realCellsShowCoinsOwnText();
    void longTextsShowTheirHead_data();
    void longTextsShowTheirHead();
    void onlyCellsOnScreenAreAsked();

private:
    ListFieldsNode* m_node = nullptr;
};

void tst_ListEditorCells::initTestCase()
{
    SoDB::init();
    SoKalExtensions::init();
    ListFieldsNode::initClass();
}

void tst_ListEditorCells::init()
{
    QVERIFY(loadPlugin());
    m_node = new ListFieldsNode;
    m_node->ref();
}

void tst_ListEditorCells::cleanup()
{
    unloadPlugin();
    QLocale::setDefault(QLocale::c());
    m_node->unref();
    m_node = nullptr;
}

void tst_ListEditorCells::stringCellEditsThePlainString()
{
    fill(m_node->mfString, {"alpha", "say \"hi\""});
    select(&m_node->mfString);
    QCOMPARE(shownEditor()->getValueText(1, 0), QStringLiteral("say \"hi\""));
    auto* edit = qobject_cast<QLineEdit*>(openCell(0));
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
    QWidget* frame = openCell(2);
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
    QWidget* frame = openCell(1);
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
    frame = openCell(0);
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
    QWidget* frame = openCell(0);
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
    QWidget* frame = openCell(0);
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
    QWidget* frame = openCell(0);
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
    auto* edit = qobject_cast<QLineEdit*>(openCell(1));
    QVERIFY(edit);
    QVERIFY(qobject_cast<const QDoubleValidator*>(edit->validator()));
    typeAndReturn(edit, QStringLiteral("0.125"));
    QCOMPARE(values(m_node->mfDouble), (QStringList{"0.25", "0.125"}));
    QCOMPARE(commands(), 0);
    // Out of any double's range: typed, shown, never written.
    edit = qobject_cast<QLineEdit*>(openCell(1));
    typeAndReturn(edit, QStringLiteral("1e999"));
    QCOMPARE(values(m_node->mfDouble), (QStringList{"0.25", "0.125"}));
}

void tst_ListEditorCells::doubleCellUnderACommaLocale()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    select(&m_node->mfDouble);
    auto* edit = qobject_cast<QLineEdit*>(openCell(0));
    QVERIFY(edit);
    typeAndReturn(edit, QStringLiteral("2.5"));
    QCOMPARE(values(m_node->mfDouble).first(), QStringLiteral("2.5"));
    // The comma is no decimal point in a field's text: the keystroke is
    // refused where it is typed, in sight.
    edit = qobject_cast<QLineEdit*>(openCell(0));
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
    auto* edit = qobject_cast<QLineEdit*>(openCell(1));
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
    edit = qobject_cast<QLineEdit*>(openCell(1));
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

void tst_ListEditorCells::validatorsByKind_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("state");
    const int ok = QValidator::Acceptable;
    QTest::newRow("short top") << 1 << "32767" << ok;
    QTest::newRow("short bottom is the negated top") << 1 << "-32767" << ok;
    QTest::newRow("short past the bottom") << 1 << "-32768" << int(QValidator::Invalid);
    QTest::newRow("ushort top") << 2 << "65535" << ok;
    QTest::newRow("ushort negative") << 2 << "-1" << int(QValidator::Invalid);
    QTest::newRow("int default") << 3 << "-2147483648" << ok;
    QTest::newRow("uint top") << 4 << "4294967295" << ok;
    QTest::newRow("int32 bottom is the negated top") << 5 << "-2147483647" << ok;
    QTest::newRow("int32 past the bottom") << 5 << "-2147483648" << int(QValidator::Invalid);
    QTest::newRow("uint32 past the top") << 6 << "4294967296" << int(QValidator::Intermediate);
    QTest::newRow("float") << 7 << "3.4e38" << ok;
    // What the float cells' reading takes, to the last digit: the largest
    // float, and nothing past it, which the reading refuses.
    QTest::newRow("float, the largest") << 7 << "340282346638528859811704183484516925440" << ok;
    QTest::newRow("float, just past the largest")
        << 7 << "340282350000000000000000000000000000000" << int(QValidator::Intermediate);
    QTest::newRow("float, comma") << 7 << "1,5" << int(QValidator::Invalid);
    QTest::newRow("float, six decimals") << 7 << "0.1234567" << int(QValidator::Invalid);
    QTest::newRow("double") << 8 << "-2.5e-300" << ok;
    QTest::newRow("double, nan") << 8 << "nan" << int(QValidator::Invalid);
}

void tst_ListEditorCells::validatorsByKind()
{
    QFETCH(int, kind);
    QFETCH(QString, text);
    QFETCH(int, state);
    FxMFieldTableItemDelegate delegate(nullptr, nullptr);
    delegate.setValueKind(kind);
    QLineEdit edit;
    delegate.setValidator(&edit);
    QVERIFY(edit.validator());
    int position = 0;
    QCOMPARE(int(edit.validator()->validate(text, position)), state);
}

void tst_ListEditorCells::unsignedValidators_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("state");
    QTest::newRow("empty") << "" << int(QValidator::Acceptable);
    QTest::newRow("zero") << "0" << int(QValidator::Acceptable);
    QTest::newRow("top") << "4294967295" << int(QValidator::Acceptable);
    QTest::newRow("past the top") << "4294967296" << int(QValidator::Intermediate);
    QTest::newRow("a hundred digits") << QString(100, QLatin1Char('7')) << int(QValidator::Intermediate);
    QTest::newRow("negative") << "-1" << int(QValidator::Invalid);
    QTest::newRow("letters") << "12a" << int(QValidator::Invalid);
    QTest::newRow("blank") << " 1" << int(QValidator::Invalid);
}

void tst_ListEditorCells::unsignedValidators()
{
    QFETCH(QString, text);
    QFETCH(int, state);
    QUIntValidator uintValidator(0, 4294967295u, nullptr);
    QULongValidator ulongValidator(0, 99999999999ull, nullptr);
    QCOMPARE(ulongValidator.getTop(), 4294967295u);
    int position = 0;
    QCOMPARE(int(uintValidator.validate(text, position)), state);
    QCOMPARE(int(ulongValidator.validate(text, position)), state);
    // A narrower range makes the same text intermediate, never invalid.
    uintValidator.setRange(10, 20);
    if (state == QValidator::Acceptable && !text.isEmpty())
        QCOMPARE(int(uintValidator.validate(text, position)), int(QValidator::Intermediate));
}

void tst_ListEditorCells::noTextOutsideTheValues()
{
    select(&m_node->mfFloat);
    FxMFieldWidget* editor = shownEditor();
    QCOMPARE(editor->getValueText(0, 0), QStringLiteral("1.5"));
    QVERIFY(editor->getValueText(0, 1).isNull());
    QVERIFY(editor->getValueText(3, 0).isNull());
    QVERIFY(editor->getValueText(-1, 0).isNull());
    QCOMPARE(editor->getValueAlignment(), int(Qt::AlignCenter));
}

// The real lists make their cell texts without Coin's output stream; they
// must read exactly as Coin writes the values, in any locale.
void tst_ListEditorCells::realCellsShowCoinsOwnText()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const float specialFloats[] = {
        0.0f,  -0.0f, 0.5f,         0.6f,  1e-45f,          3.4028235e38f,
        -1.0f, 1e7f,  123456789.0f, 1e-5f, -8.0005018e-05f, std::numeric_limits<float>::infinity()};
    const double specialDoubles[] = {0.0,
                                     -0.0,
                                     0.75,
                                     0.1,
                                     1e300,
                                     5e-324,
                                     1e16,
                                     1e15,
                                     123456789012345678.0,
                                     -std::numeric_limits<double>::infinity()};
    m_node->mfFloat.setNum(0);
    m_node->mfDouble.setNum(0);
    for (float value : specialFloats)
        m_node->mfFloat.set1Value(m_node->mfFloat.getNum(), value);
    for (double value : specialDoubles)
        m_node->mfDouble.set1Value(m_node->mfDouble.getNum(), value);
    // And a spread over every magnitude the types have.
    std::mt19937 random(7);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    for (int i = 0; i < 2000; ++i) {
        m_node->mfFloat.set1Value(m_node->mfFloat.getNum(),
                                  float(unit(random) * std::pow(10.0, int(unit(random) * 38))));
        m_node->mfDouble.set1Value(m_node->mfDouble.getNum(),
                                   unit(random) * std::pow(10.0, int(unit(random) * 300)));
    }
    for (SoMField* list :
         {static_cast<SoMField*>(&m_node->mfFloat), static_cast<SoMField*>(&m_node->mfDouble)}) {
        select(list);
        const QStringList written = values(*list);
        for (int row = 0; row < list->getNum(); ++row)
            QCOMPARE(shownEditor()->getValueText(row, 0), written.at(row));
    }
}

void tst_ListEditorCells::longTextsShowTheirHead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::newRow("fits") << "short" << 200;
    QTest::newRow("longer than the cell") << QString(300, QLatin1Char('w')) << 120;
    QTest::newRow("seventy thousand characters") << QString(70000, QLatin1Char('m')) << 120;
    QTest::newRow("no room at all") << "wide text" << 2;
    QTest::newRow("negative room") << "wide text" << -10;
    QTest::newRow("surrogate pairs") << QString::fromUtf8("\xF0\x9F\x98\x80\xF0\x9F\x98\x80\xF0\x9F\x98\x80")
                                     << 1;
}

void tst_ListEditorCells::longTextsShowTheirHead()
{
    QFETCH(QString, text);
    QFETCH(int, width);
    const QFontMetrics metrics(QApplication::font());
    const QString shown = FxMFieldTableItemDelegate::elided(metrics, text, width);
    if (metrics.horizontalAdvance(text) <= width) {
        QCOMPARE(shown, text);
        return;
    }
    QVERIFY(shown.endsWith(QLatin1String("...")));
    const QString head = shown.chopped(3);
    QVERIFY(!head.isEmpty());
    QVERIFY(text.startsWith(head));
    QVERIFY(!head.back().isHighSurrogate());
    // The longest head that fits: one more character would not.
    if (head.toUcs4().size() > 1 && head.size() < text.size()) {
        QVERIFY(metrics.horizontalAdvance(QStringLiteral("...") + head) < width);
        QVERIFY(metrics.horizontalAdvance(QStringLiteral("...") + text.left(head.size() + 1)) >= width);
    }
}

void tst_ListEditorCells::onlyCellsOnScreenAreAsked()
{
    m_node->mfFloat.setNum(100000);
    CountingFloatEditor editor;
    editor.createWidget();
    editor.setEditedObject(&m_node->mfFloat);
    editor.activate();
    editor.getFrame()->resize(400, 500);
    editor.getFrame()->show();
    QVERIFY(QTest::qWaitForWindowExposed(editor.getFrame()));
    QCoreApplication::processEvents();
    editor.getTable()->viewport()->repaint();
    QCOMPARE(editor.getTable()->rowCount(), 100000);
    QVERIFY(editor.asked > 0);
    QVERIFY2(editor.asked < 200, qPrintable(QString::number(editor.asked)));
    editor.asked = 0;
    // A value changed elsewhere: the refresh asks for the cells on screen
    // again, not for the list.
    m_node->mfFloat.set1Value(99999, 1.0f);
    processSensors();
    editor.getTable()->viewport()->repaint();
    QVERIFY(editor.asked > 0);
    QVERIFY2(editor.asked < 200, qPrintable(QString::number(editor.asked)));
    editor.deactivate();
    editor.destroyWidget();
}

QTEST_MAIN(tst_ListEditorCells)
#include "tst_ListEditorCells.moc"
