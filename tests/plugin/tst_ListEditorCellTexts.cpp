// What the cells of the list editors accept and show, through the real
// plug-in in the host's dock: the validators of each kind, the texts of the
// values (Coin's own for reals, the head of a long one), and that only the
// cells on screen are asked for theirs. Editing them is tst_ListEditorCells'.
#include "AllFieldsNode.h"
#include "ListEditorTesting.h"
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

class tst_ListEditorCellTexts : public ListEditorFixture
{
    Q_OBJECT

private slots:
    void cleanup();

    void validatorsByKind_data();
    void validatorsByKind();
    void unsignedValidators_data();
    void unsignedValidators();
    void noTextOutsideTheValues();
    void realCellsShowCoinsOwnText();
    void longTextsShowTheirHead_data();
    void longTextsShowTheirHead();
    void onlyCellsOnScreenAreAsked();
};

void tst_ListEditorCellTexts::cleanup()
{
    EditorDockFixture::cleanup();
    QLocale::setDefault(QLocale::c());
}

void tst_ListEditorCellTexts::validatorsByKind_data()
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

void tst_ListEditorCellTexts::validatorsByKind()
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

void tst_ListEditorCellTexts::unsignedValidators_data()
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

void tst_ListEditorCellTexts::unsignedValidators()
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

void tst_ListEditorCellTexts::noTextOutsideTheValues()
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
void tst_ListEditorCellTexts::realCellsShowCoinsOwnText()
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

void tst_ListEditorCellTexts::longTextsShowTheirHead_data()
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

void tst_ListEditorCellTexts::longTextsShowTheirHead()
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

void tst_ListEditorCellTexts::onlyCellsOnScreenAreAsked()
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

QTEST_MAIN(tst_ListEditorCellTexts)
#include "tst_ListEditorCellTexts.moc"
