// The slider frames' numbers: value and position mapping, spans, number
// bases and validators, driven through their real widgets.
#include <FxIntSlider.h>
#include <FxRealSlider.h>
#include <FxUIntSlider.h>
#include <KalFieldEditors.h>

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSlider>
#include <QtTest>

#include "FieldTesting.h"
#include "SliderDrag.h"
#include "SliderFrameTest.h"

#include <memory>

namespace {
using SliderDrag::drag;
} // namespace

class tst_SliderFrames : public SliderFrameTest
{
    Q_OBJECT

private slots:
    void init();

    void construction_data();
    void construction();
    void realMapping_data();
    void realMapping();
    void realFormats();
    void realUnboundedTextMovesTheSpan();
    void realBoundedTextIsClamped();
    void realEmptySpanDoesNotFault();
    void realHostileTexts_data();
    void realHostileTexts();
    void intBaseFixedByTheFirstText_data();
    void intBaseFixedByTheFirstText();
    void intValidatorLimits();
    void intSpans();
    void uintLimits();
    void uintBoundedNarrowsOnlyTypeLimits();
    void uintMapping();
};

void tst_SliderFrames::init()
{
    makeWindow();
}

void tst_SliderFrames::construction_data()
{
    QTest::addColumn<int>("inTable");
    QTest::addColumn<int>("margin");
    QTest::addColumn<int>("spacing");
    QTest::newRow("editor") << 0 << 2 << 4;
    QTest::newRow("table cell") << 1 << 0 << 3;
}

void tst_SliderFrames::construction()
{
    QFETCH(int, inTable);
    QFETCH(int, margin);
    QFETCH(int, spacing);
    FxRealSlider frame(inTable, m_owner.get(), m_window.get(), true, 0, 1);
    QCOMPARE(frame.objectName(), QStringLiteral("FxSliderFrame"));
    auto* layout = frame.findChild<QHBoxLayout*>(QStringLiteral("kalibraslider"));
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(margin, margin, margin, margin));
    QCOMPARE(layout->spacing(), spacing);
    QCOMPARE(layout->count(), 3);
    QCOMPARE(layout->itemAt(0)->widget(), frame.findChild<QCheckBox*>(QStringLiteral("m_checkBox")));
    QCOMPARE(layout->itemAt(1)->widget(), frame.findChild<QSlider*>(QStringLiteral("m_slider")));
    QCOMPARE(layout->itemAt(2)->widget(), frame.findChild<QLineEdit*>(QStringLiteral("m_lineEdit")));
    QVERIFY(frame.getCheckBox()->isChecked());
    QVERIFY(frame.getSlider()->hasTracking());
    QCOMPARE(frame.getSlider()->orientation(), Qt::Horizontal);
    QCOMPARE(frame.getSlider()->minimum(), 0);
    QCOMPARE(frame.getSlider()->maximum(), 100);
    QVERIFY(m_owner->calls.isEmpty());
}

void tst_SliderFrames::realMapping_data()
{
    QTest::addColumn<double>("bottom");
    QTest::addColumn<double>("top");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("position");
    QTest::newRow("2.5 of 0..10") << 0.0 << 10.0 << 2.5 << 25;
    QTest::newRow("rounds half up") << 0.0 << 10.0 << 2.45 << 25;
    QTest::newRow("bottom") << 0.0 << 10.0 << 0.0 << 0;
    QTest::newRow("top") << 0.0 << 10.0 << 10.0 << 100;
    QTest::newRow("negative span") << -5.0 << 5.0 << 0.0 << 50;
    QTest::newRow("unit span") << 0.0 << 1.0 << 0.333 << 33;
}

void tst_SliderFrames::realMapping()
{
    QFETCH(double, bottom);
    QFETCH(double, top);
    QFETCH(double, value);
    QFETCH(int, position);
    FxRealSlider frame(0, m_owner.get(), m_window.get(), true, 0, 1);
    frame.setRange(bottom, top, true);
    frame.setValue(value);
    QCOMPARE(frame.getSlider()->value(), position);
    QCOMPARE(frame.positionOf(value), position);

    frame.setRange(0.0, 10.0, true);
    frame.setPosition(33);
    QCOMPARE(frame.getValue(), 3.3);
    QVERIFY(m_owner->calls.isEmpty());
}

void tst_SliderFrames::realFormats()
{
    FxRealSlider single(0, m_owner.get(), m_window.get(), true, 0, 1);
    single.setRange(0.0, 10.0, false);
    single.setValue(2.5);
    QCOMPARE(single.getLineEdit()->text(), QStringLiteral("2.500000"));
    QCOMPARE(single.getLineEdit()->cursorPosition(), 0);
    FxRealSlider twice(0, m_owner.get(), m_window.get(), false, 0, 1);
    twice.setRange(0.0, 10.0, false);
    twice.setValue(1.0 / 3.0);
    QCOMPARE(twice.getLineEdit()->text(), QStringLiteral("0.333333333333333"));
    twice.setValue(2.5);
    QCOMPARE(twice.getLineEdit()->text(), QStringLiteral("2.5"));
}

void tst_SliderFrames::realUnboundedTextMovesTheSpan()
{
    m_owner->real = new FxRealSlider(0, m_owner.get(), m_window.get(), true, 0, 1);
    FxRealSlider& frame = *m_owner->real;
    m_window->show();
    frame.setRange(0.0, 10.0, false);
    typeIntoLine(frame.getLineEdit(), QStringLiteral("25"));
    QCOMPARE(frame.maximum(), 25.0);
    QCOMPARE(frame.minimum(), 0.0);
    QCOMPARE(frame.getValue(), 25.0);
    QCOMPARE(frame.getSlider()->minimum(), 0);
    QCOMPARE(frame.getSlider()->maximum(), 100);
    QCOMPARE(frame.getSlider()->value(), 100);
    typeIntoLine(frame.getLineEdit(), QStringLiteral("-5"));
    QCOMPARE(frame.minimum(), -5.0);
    QCOMPARE(frame.maximum(), 25.0);
    QCOMPARE(frame.getSlider()->value(), 0);
    QCOMPARE(m_owner->applied, (QList<double>{25.0, -5.0}));
}

void tst_SliderFrames::realBoundedTextIsClamped()
{
    FxRealSlider frame(0, m_owner.get(), m_window.get(), true, 0, 1);
    frame.setRange(0.0, 10.0, true);
    frame.setValueText(QStringLiteral("25"));
    QCOMPARE(frame.getValue(), 10.0);
    QCOMPARE(frame.maximum(), 10.0);
    frame.setValueText(QStringLiteral("-3"));
    QCOMPARE(frame.getValue(), 0.0);
    // The bounded span limits what can be typed, too.
    int at = 0;
    QString text = QStringLiteral("25");
    QVERIFY(frame.getLineEdit()->validator()->validate(text, at) != QValidator::Acceptable);
    text = QStringLiteral("7.5");
    QCOMPARE(frame.getLineEdit()->validator()->validate(text, at), QValidator::Acceptable);
}

void tst_SliderFrames::realEmptySpanDoesNotFault()
{
    FxRealSlider frame(0, m_owner.get(), m_window.get(), true, 0, 1);
    frame.setRange(0.0, 0.0, true);
    frame.setValue(0.0);
    QCOMPARE(frame.getValue(), 0.0);
    frame.setPosition(50);
    QCOMPARE(frame.getValue(), 0.0);
    QCOMPARE(frame.positionOf(3.0), 0);
}

void tst_SliderFrames::realHostileTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    QTest::newRow("empty") << "" << 0.0;
    QTest::newRow("words") << "abc" << 0.0;
    QTest::newRow("overflow") << "1e400" << 0.0;
    QTest::newRow("nan") << "nan" << 0.0;
    QTest::newRow("inf") << "inf" << 0.0;
    QTest::newRow("huge") << "1e30" << 1e30;
}

void tst_SliderFrames::realHostileTexts()
{
    QFETCH(QString, text);
    QFETCH(double, value);
    FxRealSlider frame(0, m_owner.get(), m_window.get(), false, 0, 1);
    frame.setRange(0.0, 10.0, false);
    frame.setValueText(text);
    QCOMPARE(frame.getValue(), value);
    QVERIFY(frame.getSlider()->value() >= frame.getSlider()->minimum());
    QVERIFY(frame.getSlider()->value() <= frame.getSlider()->maximum());
}

void tst_SliderFrames::intBaseFixedByTheFirstText_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<int>("base");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("prefixed");
    QTest::newRow("hexadecimal") << "0x1f" << 16 << "1f" << 31 << "0x1f";
    QTest::newRow("octal") << "07" << 8 << "7" << 7 << "07";
    QTest::newRow("decimal despite the zero") << "010" << 10 << "010" << 10 << "010";
    QTest::newRow("decimal") << "42" << 10 << "42" << 42 << "42";
}

void tst_SliderFrames::intBaseFixedByTheFirstText()
{
    QFETCH(QString, first);
    QFETCH(int, base);
    QFETCH(QString, shown);
    QFETCH(int, value);
    QFETCH(QString, prefixed);
    FxIntSlider frame(1, 0, m_owner.get(), m_window.get(), 0, 1);
    frame.setRange(0, 100, false);
    frame.setValueText(first);
    QCOMPARE(frame.numberBase(), base);
    QCOMPARE(frame.getLineEdit()->text(), shown);
    QCOMPARE(frame.getValue(), value);
    QCOMPARE(frame.textWithPrefix(), prefixed);
    // Only base 10 puts the validator on the line edit.
    QCOMPARE(frame.getLineEdit()->validator() != nullptr, base == 10);

    // Later texts do not change the base.
    frame.setValueText(QStringLiteral("0x20"));
    QCOMPARE(frame.numberBase(), base);
}

void tst_SliderFrames::intValidatorLimits()
{
    FxIntSlider whole(1, 0, m_owner.get(), m_window.get(), 0, 1);
    QCOMPARE(whole.getValidator()->bottom(), -2147483647 - 1);
    QCOMPARE(whole.getValidator()->top(), 2147483647);
    FxIntSlider shorts(3, 0, m_owner.get(), m_window.get(), 0, 1);
    QCOMPARE(shorts.getValidator()->bottom(), -32768);
    QCOMPARE(shorts.getValidator()->top(), 32767);
    // In base 16 the validator cannot help: the frame clamps to its limits.
    shorts.setRange(-100000, 100000, false);
    shorts.setValueText(QStringLiteral("0xfffff"));
    QCOMPARE(shorts.getValue(), 32767);
    FxIntSlider other(7, 0, m_owner.get(), m_window.get(), 0, 1);
    QCOMPARE(other.getValidator()->top(), QIntValidator().top());
}

void tst_SliderFrames::intSpans()
{
    FxIntSlider frame(1, 0, m_owner.get(), m_window.get(), 0, 1);
    frame.setRange(0, 100, false);
    QCOMPARE(frame.getSlider()->minimum(), 0);
    QCOMPARE(frame.getSlider()->maximum(), 100);
    frame.setValueText(QStringLiteral("250"));
    QCOMPARE(frame.maximum(), 250);
    QCOMPARE(frame.getSlider()->maximum(), 250);
    QCOMPARE(frame.getSlider()->value(), 250);
    frame.setValueText(QStringLiteral("nonsense"));
    QCOMPARE(frame.getValue(), 0);

    FxIntSlider bounded(1, 0, m_owner.get(), m_window.get(), 0, 1);
    bounded.setRange(0, 100, true);
    bounded.setValueText(QStringLiteral("250"));
    QCOMPARE(bounded.getValue(), 100);
    bounded.setTopValue(500);
    QCOMPARE(bounded.maximum(), 100);
    QCOMPARE(bounded.getValidator()->top(), 100);
}

void tst_SliderFrames::uintLimits()
{
    FxUIntSlider shorts(4, 0, m_owner.get(), m_window.get(), 0, 1);
    QCOMPARE(shorts.typeMaximum(), 65535u);
    shorts.setRange(0, 100, false);
    shorts.setValueText(QStringLiteral("70000"));
    QCOMPARE(shorts.getValue(), 65535u);
    QCOMPARE(shorts.getLineEdit()->text(), QStringLiteral("70000"));
    shorts.setValueText(QStringLiteral("not a number"));
    QCOMPARE(shorts.getValue(), 65535u);
    shorts.setValueText(QStringLiteral("-5"));
    QCOMPARE(shorts.getValue(), 65535u);

    FxUIntSlider whole(2, 0, m_owner.get(), m_window.get(), 0, 1);
    QCOMPARE(whole.typeMaximum(), 4294967295u);
    whole.setRange(0, 100, false);
    whole.setValueText(QStringLiteral("4294967295"));
    QCOMPARE(whole.getValue(), 4294967295u);
    whole.setValueText(QStringLiteral("99999999999999999999"));
    QCOMPARE(whole.getValue(), 4294967295u);
}

void tst_SliderFrames::uintBoundedNarrowsOnlyTypeLimits()
{
    FxUIntSlider frame(2, 0, m_owner.get(), m_window.get(), 0, 1);
    frame.setRange(0, 100, false);
    frame.setRange(10, 20, true);
    QCOMPARE(frame.typeMinimum(), 10u);
    QCOMPARE(frame.typeMaximum(), 20u);
    QCOMPARE(frame.minimum(), 0u);
    QCOMPARE(frame.maximum(), 100u);
    QCOMPARE(frame.getSlider()->maximum(), FxUIntSlider::positionOf(100));
    frame.setValueText(QStringLiteral("50"));
    QCOMPARE(frame.getValue(), 20u);
}

void tst_SliderFrames::uintMapping()
{
    QCOMPARE(FxUIntSlider::positionOf(0), -2147483647 - 1);
    QCOMPARE(FxUIntSlider::positionOf(4294967295u), 2147483647);
    QCOMPARE(FxUIntSlider::positionOf(2147483648u), 0);
    for (uint32_t value : {0u, 1u, 100u, 65535u, 2147483647u, 4294967295u})
        QCOMPARE(FxUIntSlider::valueOf(FxUIntSlider::positionOf(value)), value);
    FxUIntSlider frame(2, 0, m_owner.get(), m_window.get(), 0, 1);
    frame.setRange(0, 100, false);
    frame.setPosition(FxUIntSlider::positionOf(42));
    QCOMPARE(frame.getValue(), 42u);
}

QTEST_MAIN(tst_SliderFrames)
#include "tst_SliderFrames.moc"
