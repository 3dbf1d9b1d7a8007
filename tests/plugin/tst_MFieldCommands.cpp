// The row and value commands of multiple-value fields, run through the
// host's history on real fields.
#include "FieldTesting.h"

#include <KalMFAddRowsCommand.h>
#include <KalMFDeleteRowsCommand.h>
#include <KalMFSetFieldValueCommand.h>
#include <KalMFSetValueCommand.h>
#include <KalMFSwapRowsCommand.h>
#include <KalServices.h>

#include <Inventor/SoDB.h>
#include <Inventor/fields/SoMFFloat.h>
#include <Inventor/fields/SoMFPlane.h>
#include <Inventor/fields/SoMFString.h>
#include <Inventor/fields/SoMFVec3f.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/sensors/SoFieldSensor.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QtTest>

#include <array>
#include <cstring>

namespace {

QStringList values(SoMField& field)
{
    QStringList texts;
    for (int i = 0; i < field.getNum(); ++i) {
        SbString text;
        field.get1(i, text);
        texts << QString::fromLatin1(text.getString());
    }
    return texts;
}

void fill(SoMFString& field, const QStringList& texts)
{
    field.setNum(0);
    for (int i = 0; i < texts.size(); ++i)
        field.set1Value(i, SbString(texts.at(i).toLatin1().constData()));
}
} // namespace

class tst_MFieldCommands : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void addToAnEmptyStringList();
    void addToANumberList();
    void addNotifiesOnceAndLeavesTheDefault();
    void addedNumberRowsAreZeros();
    void deleteAndUndoRestoresInPlace();
    void deleteClipsToTheValuesThatExist();
    void swapUndoAndRedoBothExchange();
    void setValueReadsTheFieldWithoutAText();
    void setValueTakesOverAText();
    void setFieldValueUndoesToTheNewValue();
    void badIndicesAndNullFieldsChangeNothing();
};

void tst_MFieldCommands::initTestCase()
{
    SoDB::init();
}

void tst_MFieldCommands::cleanup()
{
    KalServices::getInstance()->clearHistory();
}

void tst_MFieldCommands::addToAnEmptyStringList()
{
    KalServices* services = KalServices::getInstance();
    SoMFString strings;
    strings.setNum(0);
    services->pushCommand(new KalMFAddRowsCommand(&strings, 0, 1));
    QCOMPARE(strings.getNum(), 1);
    QCOMPARE(QString::fromLatin1(strings[0].getString()), QString());
    QCOMPARE(values(strings), QStringList{"\"\""});
    QVERIFY(services->undo());
    QCOMPARE(strings.getNum(), 0);
    QVERIFY(services->redo());
    QCOMPARE(strings.getNum(), 1);
}

void tst_MFieldCommands::addToANumberList()
{
    KalServices* services = KalServices::getInstance();
    auto* material = new SoMaterial;
    material->ref();
    SoMFFloat& transparency = material->transparency;
    transparency.setValues(0, 2, std::array<float, 2>{0.25f, 0.75f}.data());
    transparency.setNum(2);
    services->pushCommand(new KalMFAddRowsCommand(&transparency, 1, 2));
    QCOMPARE(transparency.getNum(), 4);
    QCOMPARE(transparency[0], 0.25f);
    QCOMPARE(transparency[3], 0.75f);
    QVERIFY(services->undo());
    QCOMPARE(values(transparency), (QStringList{"0.25", "0.75"}));
    material->unref();
}

void tst_MFieldCommands::addNotifiesOnceAndLeavesTheDefault()
{
    auto* coordinates = new SoCoordinate3;
    coordinates->ref();
    QVERIFY(coordinates->point.isDefault());
    int triggered = 0;
    SoFieldSensor sensor(&countTrigger, &triggered);
    sensor.attach(&coordinates->point);
    KalServices::getInstance()->pushCommand(new KalMFAddRowsCommand(&coordinates->point, 0, 3));
    SoDB::getSensorManager()->processDelayQueue(FALSE);
    QCOMPARE(triggered, 1);
    QVERIFY(!coordinates->point.isDefault());
    QCOMPARE(coordinates->point.getNum(), 4);
    sensor.detach();
    KalServices::getInstance()->clearHistory();
    coordinates->unref();
}

// What insertSpace allocates is not written by Coin; freed memory full of
// ones stands in for whatever the heap held before.
void tst_MFieldCommands::addedNumberRowsAreZeros()
{
    auto* junk = new SbPlane[8];
    std::memset(static_cast<void*>(junk), 0x5a, sizeof(SbPlane) * 8);
    delete[] junk;
    SoMFPlane planes;
    planes.setNum(0);
    KalServices::getInstance()->pushCommand(new KalMFAddRowsCommand(&planes, 0, 3));
    QCOMPARE(planes.getNum(), 3);
    for (int i = 0; i < 3; ++i) {
        SbString text;
        planes.get1(i, text);
        QCOMPARE(QString::fromLatin1(text.getString()), QStringLiteral("0 0 0  0"));
    }
    SoMFVec3f vectors;
    vectors.setValue(SbVec3f(1, 2, 3));
    KalServices::getInstance()->pushCommand(new KalMFAddRowsCommand(&vectors, 1, 2));
    QCOMPARE(vectors[0], SbVec3f(1, 2, 3));
    QCOMPARE(vectors[1], SbVec3f(0, 0, 0));
    QCOMPARE(vectors[2], SbVec3f(0, 0, 0));
    KalServices::getInstance()->clearHistory();
}

void tst_MFieldCommands::deleteAndUndoRestoresInPlace()
{
    KalServices* services = KalServices::getInstance();
    SoMFString strings;
    const QStringList six = {"a", "b", "c", "d", "e", "f"};
    fill(strings, six);
    const QStringList texts = values(strings);
    services->pushCommand(new KalMFDeleteRowsCommand(&strings, 2, 3));
    QCOMPARE(values(strings), (QStringList{texts[0], texts[1], texts[5]}));
    QVERIFY(services->undo());
    QCOMPARE(values(strings), texts);
    QVERIFY(services->redo());
    QCOMPARE(strings.getNum(), 3);
    QVERIFY(services->undo());
    QCOMPARE(values(strings), texts);
}

void tst_MFieldCommands::deleteClipsToTheValuesThatExist()
{
    KalServices* services = KalServices::getInstance();
    SoMFString strings;
    fill(strings, {"a", "b", "c"});
    const QStringList texts = values(strings);
    services->pushCommand(new KalMFDeleteRowsCommand(&strings, 1, 10));
    QCOMPARE(values(strings), QStringList{texts[0]});
    QVERIFY(services->undo());
    QCOMPARE(values(strings), texts);
}

void tst_MFieldCommands::swapUndoAndRedoBothExchange()
{
    KalServices* services = KalServices::getInstance();
    SoMFString strings;
    fill(strings, {"first", "second", "third"});
    services->pushCommand(new KalMFSwapRowsCommand(&strings, 0, 2));
    QCOMPARE(values(strings), (QStringList{"\"third\"", "\"second\"", "\"first\""}));
    QVERIFY(services->undo());
    QCOMPARE(values(strings), (QStringList{"\"first\"", "\"second\"", "\"third\""}));
    QVERIFY(services->redo());
    QCOMPARE(values(strings), (QStringList{"\"third\"", "\"second\"", "\"first\""}));
}

void tst_MFieldCommands::setValueReadsTheFieldWithoutAText()
{
    // As the editors do it: write the value, then push with an empty text;
    // the old text read back is the new value, so undo changes nothing.
    KalServices* services = KalServices::getInstance();
    SoMFFloat numbers;
    numbers.setValues(0, 3, std::array<float, 3>{1, 2, 3}.data());
    numbers.set1Value(1, 20.0f);
    SbString none;
    services->pushCommand(new KalMFSetValueCommand(&numbers, 1, none));
    QVERIFY(services->undo());
    QCOMPARE(numbers[1], 20.0f);
    numbers.set1Value(1, 5.0f);
    QVERIFY(services->redo());
    QCOMPARE(numbers[1], 20.0f);
}

void tst_MFieldCommands::setValueTakesOverAText()
{
    KalServices* services = KalServices::getInstance();
    SoMFFloat numbers;
    numbers.setValues(0, 3, std::array<float, 3>{1, 2, 3}.data());
    SbString previous;
    numbers.get1(2, previous);
    numbers.set1Value(2, 30.0f);
    services->pushCommand(new KalMFSetValueCommand(&numbers, 2, previous));
    QCOMPARE(previous.getLength(), 0);
    QVERIFY(services->undo());
    QCOMPARE(numbers[2], 3.0f);
    QVERIFY(services->redo());
    QCOMPARE(numbers[2], 30.0f);
}

void tst_MFieldCommands::setFieldValueUndoesToTheNewValue()
{
    KalServices* services = KalServices::getInstance();
    SoMFFloat numbers;
    numbers.setValues(0, 2, std::array<float, 2>{1, 2}.data());
    numbers.set1Value(0, 10.0f);
    services->pushCommand(new KalMFSetFieldValueCommand(&numbers, 0));
    QCOMPARE(numbers[0], 10.0f);
    numbers.set1Value(0, 7.0f);
    QVERIFY(services->undo());
    QCOMPARE(numbers[0], 10.0f);
    numbers.set1Value(0, 8.0f);
    QVERIFY(services->redo());
    QCOMPARE(numbers[0], 10.0f);
}

void tst_MFieldCommands::badIndicesAndNullFieldsChangeNothing()
{
    KalServices* services = KalServices::getInstance();
    SoMFString strings;
    fill(strings, {"a", "b"});
    const QStringList texts = values(strings);
    SbString none;
    services->pushCommand(new KalMFAddRowsCommand(&strings, 5, 1));
    services->pushCommand(new KalMFAddRowsCommand(&strings, -1, 1));
    services->pushCommand(new KalMFAddRowsCommand(&strings, 0, -3));
    services->pushCommand(new KalMFDeleteRowsCommand(&strings, 2, 1));
    services->pushCommand(new KalMFDeleteRowsCommand(&strings, -1, 1));
    services->pushCommand(new KalMFSwapRowsCommand(&strings, 0, 2));
    services->pushCommand(new KalMFSwapRowsCommand(&strings, -1, 0));
    services->pushCommand(new KalMFSetValueCommand(&strings, 7, none));
    services->pushCommand(new KalMFSetFieldValueCommand(&strings, -2));
    services->pushCommand(new KalMFAddRowsCommand(nullptr, 0, 1));
    services->pushCommand(new KalMFDeleteRowsCommand(nullptr, 0, 1));
    services->pushCommand(new KalMFSwapRowsCommand(nullptr, 0, 1));
    services->pushCommand(new KalMFSetValueCommand(nullptr, 0, none));
    services->pushCommand(new KalMFSetFieldValueCommand(nullptr, 0));
    QCOMPARE(services->commandCount(), 14);
    QCOMPARE(values(strings), texts);
    while (services->undo()) {
    }
    QCOMPARE(values(strings), texts);
    while (services->redo()) {
    }
    QCOMPARE(values(strings), texts);
}

QTEST_GUILESS_MAIN(tst_MFieldCommands)
#include "tst_MFieldCommands.moc"
