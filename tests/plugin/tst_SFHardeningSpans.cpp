// A bounded span shown once does not outlive its field: the next unbounded
// field gets the whole range of its type back, in the editors and in the
// slider frames they and the list editors are built from.
#include "EditorDockFixture.h"
#include "FieldTesting.h"

#include <FxIntSlider.h>
#include <FxRealSlider.h>
#include <FxUIntSlider.h>
#include <KalPluginsManager.h>
#include <KalServices.h>
#include <KalShell.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>
#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/nodes/SoCone.h>
#include <Inventor/nodes/SoDirectionalLight.h>

#include <QDockWidget>
#include <QDoubleValidator>
#include <QIntValidator>
#include <QLineEdit>
#include <QMainWindow>
#include <QtTest>

#include <limits>

class tst_SFHardeningSpans : public EditorDockFixture
{
    Q_OBJECT

private slots:
    void unboundedFieldAfterABoundedOne_data();
    void unboundedFieldAfterABoundedOne();
    void boundedFieldStillRefusesOutside();
    void realFrameGetsItsWholeRangeBack_data();
    void realFrameGetsItsWholeRangeBack();
    void intFrameGetsItsTypeLimitsBack_data();
    void intFrameGetsItsTypeLimitsBack();
    void unsignedFrameGetsItsTypeLimitsBack_data();
    void unsignedFrameGetsItsTypeLimitsBack();

private:
    void type(const QString& text);
};

void tst_SFHardeningSpans::type(const QString& text)
{
    auto* edit = dock()->findChild<QLineEdit*>(QStringLiteral("m_lineEdit"));
    QVERIFY(edit);
    typeIntoLine(edit, text);
}

void tst_SFHardeningSpans::unboundedFieldAfterABoundedOne_data()
{
    QTest::addColumn<QString>("boundedNode");
    QTest::addColumn<QByteArray>("boundedField");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<float>("stored");
    QTest::newRow("complexity, 5") << "Complexity" << QByteArray("value") << "5" << 5.0f;
    QTest::newRow("texture quality, beyond the slider")
        << "Complexity" << QByteArray("textureQuality") << "250" << 250.0f;
    QTest::newRow("light, negative") << "DirectionalLight" << QByteArray("intensity") << "-2" << -2.0f;
}

void tst_SFHardeningSpans::unboundedFieldAfterABoundedOne()
{
    QFETCH(QString, boundedNode);
    QFETCH(QByteArray, boundedField);
    QFETCH(QString, typed);
    QFETCH(float, stored);
    auto* bounded =
        static_cast<SoNode*>(SoType::fromName(SbName(boundedNode.toLatin1().constData())).createInstance());
    bounded->ref();
    select(bounded->getField(SbName(boundedField.constData())));

    // Another node's float, and the test node's: neither has a span of its
    // own.
    auto* cone = new SoCone;
    cone->ref();
    select(&cone->height);
    type(typed);
    QCOMPARE(cone->height.getValue(), stored);
    select(&m_node->sfFloat);
    type(typed);
    QCOMPARE(m_node->sfFloat.getValue(), stored);
    QCOMPARE(KalServices::getInstance()->commandCount(), 2);

    // The double editor meets the same frame kind after a bounded float.
    select(&m_node->sfDouble);
    type(QStringLiteral("1e300"));
    QCOMPARE(m_node->sfDouble.getValue(), 1e300);

    select(nullptr);
    cone->unref();
    bounded->unref();
}

void tst_SFHardeningSpans::boundedFieldStillRefusesOutside()
{
    auto* cone = new SoCone;
    cone->ref();
    select(&cone->height);
    auto* complexity = new SoComplexity;
    complexity->ref();
    select(&complexity->value);
    type(QStringLiteral("5"));
    QCOMPARE(complexity->value.getValue(), 0.5f);
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    type(QStringLiteral("0.25"));
    QCOMPARE(complexity->value.getValue(), 0.25f);
    select(nullptr);
    complexity->unref();
    cone->unref();
}

void tst_SFHardeningSpans::realFrameGetsItsWholeRangeBack_data()
{
    QTest::addColumn<bool>("isFloat");
    QTest::addColumn<double>("limit");
    QTest::newRow("float") << true << 3.4028234663852886e38;
    QTest::newRow("double") << false << 1.7976931348623157e308;
}

void tst_SFHardeningSpans::realFrameGetsItsWholeRangeBack()
{
    QFETCH(bool, isFloat);
    QFETCH(double, limit);
    QWidget window;
    FxRealSlider frame(0, nullptr, &window, isFloat, 0, 1);
    frame.setRange(0.0, 1.0, true);
    frame.setRange(0.0, 10.0, false);
    auto* validator = qobject_cast<const QDoubleValidator*>(frame.getLineEdit()->validator());
    QVERIFY(validator);
    QCOMPARE(validator->bottom(), -limit);
    QCOMPARE(validator->top(), limit);
    QCOMPARE(validator->decimals(), isFloat ? 6 : 15);
    // The unbounded span itself is as it always was.
    QCOMPARE(frame.minimum(), 0.0);
    QCOMPARE(frame.maximum(), 10.0);
    QVERIFY(!frame.isBounded());
}

void tst_SFHardeningSpans::intFrameGetsItsTypeLimitsBack_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("bottom");
    QTest::addColumn<int>("top");
    QTest::newRow("int32") << 1 << std::numeric_limits<int32_t>::min() << std::numeric_limits<int32_t>::max();
    QTest::newRow("short") << 3 << -32768 << 32767;
    QTest::newRow("other kinds") << 7 << QIntValidator().bottom() << QIntValidator().top();
}

void tst_SFHardeningSpans::intFrameGetsItsTypeLimitsBack()
{
    QFETCH(int, kind);
    QFETCH(int, bottom);
    QFETCH(int, top);
    QWidget window;
    FxIntSlider frame(kind, 0, nullptr, &window, 0, 1);
    frame.setRange(0, 1, true);
    frame.setRange(0, 100, false);
    QCOMPARE(frame.getValidator()->bottom(), bottom);
    QCOMPARE(frame.getValidator()->top(), top);
    QCOMPARE(frame.maximum(), 100);
}

void tst_SFHardeningSpans::unsignedFrameGetsItsTypeLimitsBack_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<uint>("top");
    QTest::newRow("uint32") << 2 << 4294967295u;
    QTest::newRow("ushort") << 4 << 65535u;
}

void tst_SFHardeningSpans::unsignedFrameGetsItsTypeLimitsBack()
{
    QFETCH(int, kind);
    QFETCH(uint, top);
    QWidget window;
    FxUIntSlider frame(kind, 0, nullptr, &window, 0, 1);
    frame.setRange(0, 100, false);
    frame.setRange(10, 20, true);
    frame.setRange(0, 100, false);
    QCOMPARE(frame.typeMinimum(), 0u);
    QCOMPARE(frame.typeMaximum(), top);
    frame.setValueText(QStringLiteral("5"));
    QCOMPARE(frame.getValue(), 5u);
    frame.setValueText(QStringLiteral("500"));
    QCOMPARE(frame.getValue(), 500u);
}

QTEST_MAIN(tst_SFHardeningSpans)
#include "tst_SFHardeningSpans.moc"
