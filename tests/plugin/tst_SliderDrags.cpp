// When the slider frames tell their owning editor: drags, typed values,
// table cells and untouched edits, driven through their real widgets.
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
using SliderDrag::handleCentre;
using SliderDrag::moveHeld;
} // namespace

class tst_SliderDrags : public SliderFrameTest
{
    Q_OBJECT

private slots:
    void init();

    void dragWritesWhileChecked();
    void dragWritesOnReleaseWhenCleared();
    void tableModeSendsTheCellText();
    void previousValueTextAtDragStart();
    void typedValueRemembersThePreviousOne();
    void returnThenLeavingWritesOnce();
    void unmodifiedEditDoesNothing();
    void noOwnerIsHarmless();
};

void tst_SliderDrags::init()
{
    makeWindow();
}

void tst_SliderDrags::dragWritesWhileChecked()
{
    m_owner->real = new FxRealSlider(0, m_owner.get(), m_window.get(), true, 0, 1);
    FxRealSlider& frame = *m_owner->real;
    m_window->layout()->addWidget(&frame);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    frame.setRange(0.0, 10.0, false);
    frame.setValue(5.0);
    QVERIFY(frame.getCheckBox()->isChecked());

    drag(frame.getSlider(), {20, 40});
    // One write per move, and one more on release.
    QCOMPARE(m_owner->calls.count(QStringLiteral("apply")), 3);
    QVERIFY(m_owner->applied.at(0) > 5.0);
    QVERIFY(m_owner->applied.at(1) > m_owner->applied.at(0));
    QCOMPARE(m_owner->applied.last(), frame.getValue());
    QCOMPARE(frame.getLineEdit()->text(), frame.format(frame.getValue()));
}

void tst_SliderDrags::dragWritesOnReleaseWhenCleared()
{
    m_owner->real = new FxRealSlider(0, m_owner.get(), m_window.get(), true, 0, 1);
    FxRealSlider& frame = *m_owner->real;
    m_window->layout()->addWidget(&frame);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    frame.setRange(0.0, 10.0, false);
    frame.setValue(5.0);
    QTest::mouseClick(frame.getCheckBox(), Qt::LeftButton);
    QVERIFY(!frame.getCheckBox()->isChecked());

    const QPoint start = handleCentre(frame.getSlider());
    QTest::mousePress(frame.getSlider(), Qt::LeftButton, Qt::NoModifier, start);
    moveHeld(frame.getSlider(), start + QPoint(30, 0));
    // The line edit follows the drag, the field does not.
    QVERIFY(frame.getValue() > 5.0);
    QCOMPARE(frame.getLineEdit()->text(), frame.format(frame.getValue()));
    QVERIFY(m_owner->calls.isEmpty());
    QTest::mouseRelease(frame.getSlider(), Qt::LeftButton, Qt::NoModifier, start + QPoint(30, 0));
    QCOMPARE(m_owner->calls, QStringList{"apply"});
    QCOMPARE(m_owner->applied.last(), frame.getValue());
}

void tst_SliderDrags::tableModeSendsTheCellText()
{
    FxIntSlider frame(1, 1, m_owner.get(), m_window.get(), 4, 2);
    frame.setRange(0, 100, false);
    frame.setValueText(QStringLiteral("0x10"));
    m_window->show();
    typeIntoLine(frame.getLineEdit(), QStringLiteral("1f"));
    QCOMPARE(m_owner->calls, (QStringList{"refresh false", "text 4 2 0x1f", "refresh true"}));
}

void tst_SliderDrags::previousValueTextAtDragStart()
{
    FxRealSlider real(0, m_owner.get(), m_window.get(), true, 0, 1);
    real.setRange(0.0, 10.0, false);
    real.setValue(2.5);
    real.beginCallback();
    // In the field's own form, every digit kept, not in six decimals.
    QCOMPARE(QString::fromLatin1(real.previousValueText().getString()), QStringLiteral("2.5"));

    FxIntSlider ints(1, 0, m_owner.get(), m_window.get(), 0, 1);
    ints.setRange(0, 100, false);
    ints.setValueText(QStringLiteral("0x1f"));
    ints.beginCallback();
    QCOMPARE(QString::fromLatin1(ints.previousValueText().getString()), QStringLiteral("1f"));

    FxUIntSlider uints(2, 0, m_owner.get(), m_window.get(), 0, 1);
    uints.setRange(0, 100, false);
    uints.setValueText(QStringLiteral("0x1f"));
    uints.beginCallback();
    QCOMPARE(QString::fromLatin1(uints.previousValueText().getString()), QStringLiteral("0x1f"));
}

void tst_SliderDrags::typedValueRemembersThePreviousOne()
{
    FxRealSlider frame(0, m_owner.get(), m_window.get(), true, 0, 1);
    m_window->show();
    frame.setRange(0.0, 10.0, false);
    frame.setValue(1.5);
    typeIntoLine(frame.getLineEdit(), QStringLiteral("4"));
    QCOMPARE(QString::fromLatin1(frame.previousValueText().getString()), QStringLiteral("1.5"));
    QCOMPARE(frame.getValue(), 4.0);

    // An unsigned frame remembers the value it had, not the text just typed.
    FxUIntSlider uints(2, 0, m_owner.get(), m_window.get(), 0, 1);
    uints.setRange(0, 100, false);
    uints.setValueText(QStringLiteral("0x1f"));
    typeIntoLine(uints.getLineEdit(), QStringLiteral("20"));
    QCOMPARE(QString::fromLatin1(uints.previousValueText().getString()), QStringLiteral("0x1f"));
    QCOMPARE(uints.getValue(), 32u);
}

void tst_SliderDrags::returnThenLeavingWritesOnce()
{
    FxRealSlider frame(0, m_owner.get(), m_window.get(), true, 0, 1);
    m_window->show();
    frame.setRange(0.0, 10.0, false);
    typeIntoLine(frame.getLineEdit(), QStringLiteral("3"));
    QMetaObject::invokeMethod(frame.getLineEdit(), "editingFinished");
    QCOMPARE(m_owner->calls, QStringList{"apply"});
}

void tst_SliderDrags::unmodifiedEditDoesNothing()
{
    FxRealSlider frame(0, m_owner.get(), m_window.get(), true, 0, 1);
    frame.setRange(0.0, 10.0, false);
    frame.setValue(3.0);
    frame.changeValueFromEdit();
    QMetaObject::invokeMethod(frame.getLineEdit(), "returnPressed");
    QVERIFY(m_owner->calls.isEmpty());
    QCOMPARE(frame.getValue(), 3.0);
}

void tst_SliderDrags::noOwnerIsHarmless()
{
    FxUIntSlider frame(2, 0, nullptr, m_window.get(), 0, 1);
    frame.setRange(0, 100, false);
    frame.getSlider()->setValue(FxUIntSlider::positionOf(7));
    frame.finishCallback();
    QCOMPARE(frame.getValue(), 7u);
}

QTEST_MAIN(tst_SliderDrags)
#include "tst_SliderDrags.moc"
