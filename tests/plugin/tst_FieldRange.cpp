// The field range table: records, the map built from the table's text, the
// integer-base rule and the row each kind of editor takes for a field.
#include <FieldRangeMap.h>

#include <Inventor/SoDB.h>
#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/nodes/SoCone.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSphere.h>
#include <Inventor/nodes/SoSpotLight.h>

#include <QtTest>

class tst_FieldRange : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void defaultRecordIsZeroAndUnbounded();
    void constructorsFillOnePair();
    void doublesAreNarrowed();
    void settersAndEquality();
    void table_data();
    void table();
    void missingRowIsAllZero();
    void keysConcatenateWithoutSeparator();
    void integerTexts_data();
    void integerTexts();
    void rowForAField_data();
    void rowForAField();
    void rowForNoField();
};

void tst_FieldRange::initTestCase()
{
    SoDB::init();
}

void tst_FieldRange::defaultRecordIsZeroAndUnbounded()
{
    const FieldRange range;
    QCOMPARE(range.floatMin(), 0.0f);
    QCOMPARE(range.floatMax(), 0.0f);
    QCOMPARE(range.doubleMin(), 0.0f);
    QCOMPARE(range.doubleMax(), 0.0f);
    QCOMPARE(range.intMin(), 0);
    QCOMPARE(range.intMax(), 0);
    QVERIFY(!range.isBounded());
}

void tst_FieldRange::constructorsFillOnePair()
{
    const FieldRange ints(-4, 9, true);
    QCOMPARE(ints.intMin(), -4);
    QCOMPARE(ints.intMax(), 9);
    QCOMPARE(ints.floatMax(), 0.0f);
    QCOMPARE(ints.doubleMax(), 0.0f);
    QVERIFY(ints.isBounded());

    const FieldRange floats(0.5f, 2.5f, false);
    QCOMPARE(floats.floatMin(), 0.5f);
    QCOMPARE(floats.floatMax(), 2.5f);
    QCOMPARE(floats.intMax(), 0);
    QCOMPARE(floats.doubleMax(), 0.0f);
    QVERIFY(!floats.isBounded());

    const FieldRange doubles(-1.0, 3.0, true);
    QCOMPARE(doubles.doubleMin(), -1.0f);
    QCOMPARE(doubles.doubleMax(), 3.0f);
    QCOMPARE(doubles.floatMax(), 0.0f);
    QCOMPARE(doubles.intMax(), 0);

    FieldRange copy = doubles;
    QVERIFY(copy == doubles);
    copy = ints;
    QVERIFY(copy == ints);
    QVERIFY(copy != doubles);
}

void tst_FieldRange::doublesAreNarrowed()
{
    const FieldRange range(0.1, 1e300, false);
    QCOMPARE(range.doubleMin(), 0.1f);
    QVERIFY(double(range.doubleMin()) != 0.1);
    QVERIFY(qIsInf(range.doubleMax()));
    FieldRange set;
    set.setDoubleRange(0.1, 0.2);
    QCOMPARE(set.doubleMin(), 0.1f);
    QCOMPARE(set.doubleMax(), 0.2f);
}

void tst_FieldRange::settersAndEquality()
{
    FieldRange range;
    range.setFloatRange(1.0f, 2.0f);
    range.setIntRange(3, 4);
    range.setDoubleRange(5.0, 6.0);
    range.setBounded(true);
    QCOMPARE(range.floatMin(), 1.0f);
    QCOMPARE(range.intMax(), 4);
    QCOMPARE(range.doubleMax(), 6.0f);
    QVERIFY(range.isBounded());

    // Every one of the seven values takes part in equality.
    const FieldRange base = range;
    FieldRange other = base;
    other.setBounded(false);
    QVERIFY(other != base);
    other = base;
    other.setFloatRange(1.0f, 2.5f);
    QVERIFY(other != base);
    other = base;
    other.setDoubleRange(5.5, 6.0);
    QVERIFY(other != base);
    other = base;
    other.setIntRange(3, 5);
    QVERIFY(other != base);
    other = base;
    QVERIFY(other == base);
}

void tst_FieldRange::table_data()
{
    QTest::addColumn<QByteArray>("nodeType");
    QTest::addColumn<QByteArray>("fieldName");
    QTest::addColumn<FieldRange>("expected");
    QTest::newRow("default float") << QByteArray("DefaultNode") << QByteArray("floatField")
                                   << FieldRange(0.0f, 10.0f, false);
    QTest::newRow("default double") << QByteArray("DefaultNode") << QByteArray("doubleField")
                                    << FieldRange(0.0, 10.0, false);
    QTest::newRow("default int") << QByteArray("DefaultNode") << QByteArray("intField")
                                 << FieldRange(0, 100, false);
    QTest::newRow("complexity value")
        << QByteArray("Complexity") << QByteArray("value") << FieldRange(0.0f, 1.0f, true);
    QTest::newRow("texture quality") << QByteArray("Complexity") << QByteArray("textureQuality")
                                     << FieldRange(0.0f, 1.0f, true);
    QTest::newRow("light intensity") << QByteArray("DirectionalLight") << QByteArray("intensity")
                                     << FieldRange(0.0f, 1.0f, true);
    QTest::newRow("transparency") << QByteArray("Material") << QByteArray("transparency")
                                  << FieldRange(0.0f, 1.0f, true);
}

void tst_FieldRange::table()
{
    QFETCH(QByteArray, nodeType);
    QFETCH(QByteArray, fieldName);
    QFETCH(FieldRange, expected);
    const FieldRangeMap map = buildFieldRangeMap();
    QCOMPARE(map.size(), 7);
    QVERIFY(hasFieldRange(map, nodeType.constData(), fieldName.constData()));
    const FieldRange range = fieldRange(map, nodeType.constData(), fieldName.constData());
    QCOMPARE(range.floatMin(), expected.floatMin());
    QCOMPARE(range.floatMax(), expected.floatMax());
    QCOMPARE(range.doubleMin(), expected.doubleMin());
    QCOMPARE(range.doubleMax(), expected.doubleMax());
    QCOMPARE(range.intMin(), expected.intMin());
    QCOMPARE(range.intMax(), expected.intMax());
    QCOMPARE(range.isBounded(), expected.isBounded());
    QVERIFY(range == expected);
}

void tst_FieldRange::missingRowIsAllZero()
{
    const FieldRangeMap map = buildFieldRangeMap();
    for (const char* fieldName : {"shininess", "diffuseColor", "", "Transparency"}) {
        QVERIFY(!hasFieldRange(map, "Material", fieldName));
        QVERIFY(fieldRange(map, "Material", fieldName) == FieldRange());
    }
    QVERIFY(!hasFieldRange(map, "Cone", "bottomRadius"));
    QVERIFY(fieldRange(map, nullptr, nullptr) == FieldRange());
}

void tst_FieldRange::keysConcatenateWithoutSeparator()
{
    const FieldRangeMap map = buildFieldRangeMap();
    QVERIFY(map.contains(QStringLiteral("Complexityvalue")));
    QVERIFY(hasFieldRange(map, "Complexit", "yvalue"));
    QVERIFY(fieldRange(map, "Complexit", "yvalue") == FieldRange(0.0f, 1.0f, true));
    QVERIFY(hasFieldRange(map, "", "Complexityvalue"));
}

void tst_FieldRange::integerTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("base");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("ok");
    QTest::newRow("hexadecimal") << "0x10" << 16 << 16 << true;
    QTest::newRow("octal") << "07" << 8 << 7 << true;
    QTest::newRow("three digits stay decimal") << "010" << 10 << 10 << true;
    QTest::newRow("zero") << "0" << 10 << 0 << true;
    QTest::newRow("hundred") << "100" << 10 << 100 << true;
    QTest::newRow("negative") << "-5" << 10 << -5 << true;
    QTest::newRow("not octal") << "08" << 8 << 0 << false;
    QTest::newRow("bare prefix") << "0x" << 8 << 0 << false;
    QTest::newRow("hex letters") << "0xff" << 16 << 255 << true;
    QTest::newRow("empty") << "" << 10 << 0 << false;
    QTest::newRow("words") << "ten" << 10 << 0 << false;
    QTest::newRow("too large") << "99999999999" << 10 << 0 << false;
}

void tst_FieldRange::integerTexts()
{
    QFETCH(QString, text);
    QFETCH(int, base);
    QFETCH(int, value);
    QFETCH(bool, ok);
    QCOMPARE(integerBase(text), base);
    bool parsed = !ok;
    QCOMPARE(parseInteger(text, &parsed), value);
    QCOMPARE(parsed, ok);
    QCOMPARE(parseInteger(text), value);
}

void tst_FieldRange::rowForAField_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<int>("kind");
    QTest::addColumn<FieldRange>("expected");
    const int floats = int(FieldRangeKind::Float);
    const int doubles = int(FieldRangeKind::Double);
    const int ints = int(FieldRangeKind::Integer);
    const FieldRange unit(0.0f, 1.0f, true);
    QTest::newRow("material transparency") << "Material" << QByteArray("transparency") << floats << unit;
    QTest::newRow("material shininess") << "Material" << QByteArray("shininess") << floats << unit;
    QTest::newRow("complexity value") << "Complexity" << QByteArray("value") << floats << unit;
    QTest::newRow("complexity texture") << "Complexity" << QByteArray("textureQuality") << floats << unit;
    QTest::newRow("light intensity") << "DirectionalLight" << QByteArray("intensity") << floats << unit;
    QTest::newRow("cone radius") << "Cone" << QByteArray("bottomRadius") << floats
                                 << FieldRange(0.0f, 10.0f, false);
    QTest::newRow("sphere radius") << "Sphere" << QByteArray("radius") << floats
                                   << FieldRange(0.0f, 10.0f, false);
    QTest::newRow("spot light") << "SpotLight" << QByteArray("intensity") << floats
                                << FieldRange(0.0f, 10.0f, false);
    // The double editor reads the float row's zero double pair, bounded.
    QTest::newRow("double on material") << "Material" << QByteArray("shininess") << doubles << unit;
    QTest::newRow("double elsewhere")
        << "Cone" << QByteArray("height") << doubles << FieldRange(0.0, 10.0, false);
    QTest::newRow("integer on material")
        << "Material" << QByteArray("shininess") << ints << FieldRange(0, 100, false);
    QTest::newRow("integer elsewhere") << "Cone" << QByteArray("parts") << ints << FieldRange(0, 100, false);
}

void tst_FieldRange::rowForAField()
{
    QFETCH(QString, node);
    QFETCH(QByteArray, field);
    QFETCH(int, kind);
    QFETCH(FieldRange, expected);
    SoType type = SoType::fromName(SbName(node.toLatin1().constData()));
    QVERIFY(type.canCreateInstance());
    auto* container = static_cast<SoNode*>(type.createInstance());
    container->ref();
    SoField* target = container->getField(SbName(field.constData()));
    QVERIFY(target);
    const FieldRange range = fieldRangeForField(buildFieldRangeMap(), target, FieldRangeKind(kind));
    container->unref();
    QVERIFY(range == expected);
    if (FieldRangeKind(kind) == FieldRangeKind::Double && expected.isBounded())
        QCOMPARE(range.doubleMax(), 0.0f);
}

void tst_FieldRange::rowForNoField()
{
    const FieldRangeMap map = buildFieldRangeMap();
    QVERIFY(fieldRangeForField(map, nullptr, FieldRangeKind::Float) == FieldRange(0.0f, 10.0f, false));
    SoSFFloat standalone;
    QVERIFY(fieldRangeForField(map, &standalone, FieldRangeKind::Float) == FieldRange(0.0f, 10.0f, false));
    QVERIFY(fieldRangeForField(FieldRangeMap(), &standalone, FieldRangeKind::Integer) == FieldRange());
}

QTEST_GUILESS_MAIN(tst_FieldRange)
#include "tst_FieldRange.moc"
