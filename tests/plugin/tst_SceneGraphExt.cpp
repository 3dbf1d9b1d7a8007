// What the scene-graph extension library adds to Coin: the file path field,
// preference lookup, the two error classes, the string and notification
// bridges and the typed-object handle.
#include "FieldTesting.h"

#include <SbStringNull.h>
#include <SoErrorStack.h>
#include <SoGLError.h>
#include <SoKalExtensions.h>
#include <SoMFieldNotify.h>
#include <SoPreferences.h>
#include <SoSFFilePathString.h>
#include <SoTypedObject.h>

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/fields/SoMFFloat.h>
#include <Inventor/fields/SoMFString.h>
#include <Inventor/fields/SoSFFloat.h>
#include <Inventor/fields/SoSFInt32.h>
#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/sensors/SoFieldSensor.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QtTest>

namespace {

struct Received
{
    int count = 0;
    SoType type;
    QString message;
};

void recordError(const SoError* error, void* data)
{
    auto* received = static_cast<Received*>(data);
    ++received->count;
    received->type = error->getTypeId();
    received->message = QString::fromLatin1(error->getDebugString().getString());
}
} // namespace

class tst_SceneGraphExt : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void initIsIdempotent();
    void filePathFieldIsAStringField();
    void filePathFieldReadsFromAScene();
    void preferences_data();
    void preferences();
    void errorClassesHaveTheirOwnHandlers_data();
    void errorClassesHaveTheirOwnHandlers();
    void errorWithoutOwnHandlerGoesToTheGeneralOne();
    void makeNullEmptiesTheString();
    void multipleFieldNotifiesOnce();
    void typedObjectOnAField();
    void typedObjectOnAContainer();
    void nullTypedObject();
};

void tst_SceneGraphExt::initTestCase()
{
    SoDB::init();
    SoKalExtensions::init();
}

void tst_SceneGraphExt::initIsIdempotent()
{
    QVERIFY(SoKalExtensions::isInitialized());
    const SoType before = SoSFFilePathString::getClassTypeId();
    SoKalExtensions::init();
    QVERIFY(SoSFFilePathString::getClassTypeId() == before);
    QVERIFY(SoGLError::getClassTypeId() != SoType::badType());
    QVERIFY(SoErrorStack::getClassTypeId() != SoType::badType());
}

void tst_SceneGraphExt::filePathFieldIsAStringField()
{
    const SoType type = SoSFFilePathString::getClassTypeId();
    QVERIFY(type.isDerivedFrom(SoSFString::getClassTypeId()));
    QVERIFY(SoType::fromName("SFFilePathString") == type);
    QVERIFY(type.canCreateInstance());

    SoSFFilePathString path;
    path.setValue("textures/wood.png");
    QCOMPARE(QString::fromLatin1(path.getValue().getString()), QStringLiteral("textures/wood.png"));
    QVERIFY(path.isOfType(SoSFString::getClassTypeId()));
    SbString text;
    path.get(text);
    QCOMPARE(QString::fromLatin1(text.getString()), QStringLiteral("\"textures/wood.png\""));
    QVERIFY(path.set("\"a b/c.iv\""));
    QCOMPARE(QString::fromLatin1(path.getValue().getString()), QStringLiteral("a b/c.iv"));

    SoSFFilePathString copy;
    copy = path;
    QCOMPARE(QString::fromLatin1(copy.getValue().getString()), QStringLiteral("a b/c.iv"));
    QVERIFY(copy.isSame(path));
}

void tst_SceneGraphExt::filePathFieldReadsFromAScene()
{
    static const char scene[] =
        "#Inventor V2.1 ascii\n"
        "Separator { DEF Holder Info { fields [ SFFilePathString path, SFString string ]"
        " path \"scenes/room.iv\" string \"x\" } }\n";
    SoInput input;
    input.setBuffer(scene, sizeof(scene) - 1);
    SoSeparator* root = SoDB::readAll(&input);
    QVERIFY(root);
    root->ref();
    SoNode* holder = SoNode::getByName("Holder");
    QVERIFY(holder);
    SoField* field = holder->getField("path");
    QVERIFY(field);
    QVERIFY(field->getTypeId() == SoSFFilePathString::getClassTypeId());
    QCOMPARE(QString::fromLatin1(static_cast<SoSFFilePathString*>(field)->getValue().getString()),
             QStringLiteral("scenes/room.iv"));
    root->unref();
}

void tst_SceneGraphExt::preferences_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<bool>("unset");
    QTest::addColumn<bool>("defaultValue");
    QTest::addColumn<bool>("expected");
    QTest::newRow("unset, default true") << QByteArray() << true << true << true;
    QTest::newRow("unset, default false") << QByteArray() << true << false << false;
    QTest::newRow("empty") << QByteArray("") << false << true << true;
    for (const char* yes : {"true", "TRUE", "True", "1", "yes", "YES", "on", "On", "  on  "})
        QTest::newRow(yes) << QByteArray(yes) << false << false << true;
    for (const char* no : {"false", "FALSE", "0", "no", "No", "off", "OFF", "\tfalse\n"})
        QTest::newRow(no) << QByteArray(no) << false << true << false;
    QTest::newRow("garbage keeps default true") << QByteArray("maybe") << false << true << true;
    QTest::newRow("garbage keeps default false") << QByteArray("2") << false << false << false;
    QTest::newRow("inner blank") << QByteArray("o n") << false << false << false;
}

void tst_SceneGraphExt::preferences()
{
    QFETCH(QByteArray, value);
    QFETCH(bool, unset);
    QFETCH(bool, defaultValue);
    QFETCH(bool, expected);
    const char* name = "KALDEFAULTS_TEST_PREFERENCE";
    if (unset)
        qunsetenv(name);
    else
        qputenv(name, value);
    QCOMPARE(bool(SoPreferences::getBool(name, defaultValue)), expected);
    qunsetenv(name);
    QCOMPARE(bool(SoPreferences::getBool(nullptr, defaultValue)), defaultValue);
}

void tst_SceneGraphExt::errorClassesHaveTheirOwnHandlers_data()
{
    QTest::addColumn<int>("which");
    QTest::newRow("GL error") << 0;
    QTest::newRow("error stack") << 1;
}

void tst_SceneGraphExt::errorClassesHaveTheirOwnHandlers()
{
    QFETCH(int, which);
    using Setter = void (*)(SoErrorCB*, void*);
    using Getter = SoErrorCB* (*)();
    using DataGetter = void* (*)();
    using Poster = void (*)(const char*, ...);
    const Setter set[] = {&SoGLError::setHandlerCallback, &SoErrorStack::setHandlerCallback};
    const Getter get[] = {&SoGLError::getHandlerCallback, &SoErrorStack::getHandlerCallback};
    const DataGetter data[] = {&SoGLError::getHandlerData, &SoErrorStack::getHandlerData};
    const Poster post[] = {&SoGLError::post, &SoErrorStack::post};
    const SoType type[] = {SoGLError::getClassTypeId(), SoErrorStack::getClassTypeId()};
    const Setter otherSet = which == 0 ? &SoErrorStack::setHandlerCallback : &SoGLError::setHandlerCallback;

    QVERIFY(type[which].isDerivedFrom(SoError::getClassTypeId()));
    SoErrorCB* previous = get[which]();
    void* previousData = data[which]();

    Received mine;
    Received other;
    set[which](&recordError, &mine);
    otherSet(&recordError, &other);
    QVERIFY(get[which]() == &recordError);
    QCOMPARE(data[which](), static_cast<void*>(&mine));

    post[which]("texture unit %d of %s", 3, "quad");
    QCOMPARE(mine.count, 1);
    QCOMPARE(other.count, 0);
    QVERIFY(mine.type == type[which]);
    QVERIFY(mine.message.contains(QStringLiteral("texture unit 3 of quad")));

    set[which](previous, previousData);
    otherSet(nullptr, nullptr);
    QVERIFY(get[which]() == previous);
    QCOMPARE(data[which](), previousData);
    post[which]("after restore");
    QCOMPARE(mine.count, 1);
}

void tst_SceneGraphExt::errorWithoutOwnHandlerGoesToTheGeneralOne()
{
    SoErrorCB* previous = SoError::getHandlerCallback();
    void* previousData = SoError::getHandlerData();
    SoGLError::setHandlerCallback(nullptr, nullptr);
    Received general;
    SoError::setHandlerCallback(&recordError, &general);
    SoGLError::post("no context");
    SoError::setHandlerCallback(previous, previousData);
    QCOMPARE(general.count, 1);
    QVERIFY(general.type == SoGLError::getClassTypeId());
    QVERIFY(general.message.contains(QStringLiteral("no context")));
    // A null format posts nothing.
    SoError::setHandlerCallback(&recordError, &general);
    SoGLError::post(nullptr);
    SoError::setHandlerCallback(previous, previousData);
    QCOMPARE(general.count, 1);
}

void tst_SceneGraphExt::makeNullEmptiesTheString()
{
    SbString text("0.5");
    QVERIFY(!SbStringNull::isNullOrEmpty(text));
    SbStringNull::makeNull(text);
    QVERIFY(SbStringNull::isNullOrEmpty(text));
    QCOMPARE(text.getLength(), 0);
    QCOMPARE(QString::fromLatin1(text.getString()), QString());
    QVERIFY(SbStringNull::isNullOrEmpty(SbString()));
    QVERIFY(SbStringNull::isNullOrEmpty(SbString("")));
}

void tst_SceneGraphExt::multipleFieldNotifiesOnce()
{
    auto* material = new SoMaterial;
    material->ref();
    SoMFFloat& field = material->transparency;
    QVERIFY(field.isDefault());
    int triggered = 0;
    SoFieldSensor sensor(&countTrigger, &triggered);
    sensor.attach(&field);

    // Change the values without notification, then notify once.
    const SbBool notifying = field.enableNotify(FALSE);
    field.insertSpace(0, 3);
    field.enableNotify(notifying);
    SoDB::getSensorManager()->processDelayQueue(FALSE);
    QCOMPARE(triggered, 0);
    SoMFieldNotify::valueChanged(&field);
    SoDB::getSensorManager()->processDelayQueue(FALSE);
    QCOMPARE(triggered, 1);
    QVERIFY(!field.isDefault());

    // A field of no container notifies its sensors too.
    SoMFString standalone;
    int standaloneTriggered = 0;
    SoFieldSensor standaloneSensor(&countTrigger, &standaloneTriggered);
    standaloneSensor.attach(&standalone);
    SoMFieldNotify::valueChanged(&standalone);
    SoDB::getSensorManager()->processDelayQueue(FALSE);
    QCOMPARE(standaloneTriggered, 1);
    SoMFieldNotify::valueChanged(nullptr);

    sensor.detach();
    material->unref();
}

void tst_SceneGraphExt::typedObjectOnAField()
{
    auto* complexity = new SoComplexity;
    complexity->ref();
    SoTypedObject object(&complexity->value);
    QVERIFY(object);
    QVERIFY(object.isField());
    QVERIFY(!object.isFieldContainer());
    QVERIFY(object.getTypeId() == SoSFFloat::getClassTypeId());
    QVERIFY(object.isOfType(SoField::getClassTypeId()));
    QCOMPARE(object.toField(), static_cast<SoField*>(&complexity->value));
    QCOMPARE(object.cast<SoSFFloat>(), &complexity->value);
    QCOMPARE(object.cast<SoSFInt32>(), nullptr);
    QCOMPARE(object.toFieldContainer(), nullptr);
    QCOMPARE(object.cast<SoComplexity>(), nullptr);
    QVERIFY(object == SoTypedObject(&complexity->value));
    QVERIFY(object != SoTypedObject(&complexity->textureQuality));
    complexity->unref();
}

void tst_SceneGraphExt::typedObjectOnAContainer()
{
    auto* material = new SoMaterial;
    material->ref();
    SoTypedObject object(material);
    QVERIFY(object.isFieldContainer());
    QCOMPARE(object.cast<SoMaterial>(), material);
    QCOMPARE(object.cast<SoNode>(), static_cast<SoNode*>(material));
    QCOMPARE(object.cast<SoComplexity>(), nullptr);
    QCOMPARE(object.toField(), nullptr);
    QCOMPARE(object.cast<SoSFFloat>(), nullptr);
    QVERIFY(object.isOfType(SoNode::getClassTypeId()));
    QVERIFY(!object.isOfType(SoField::getClassTypeId()));
    QVERIFY(!object.isOfType(SoType::badType()));
    material->unref();
}

void tst_SceneGraphExt::nullTypedObject()
{
    for (const SoTypedObject& object :
         {SoTypedObject(), SoTypedObject(nullptr), SoTypedObject(static_cast<SoField*>(nullptr)),
          SoTypedObject(static_cast<SoFieldContainer*>(nullptr))}) {
        QVERIFY(object.isNull());
        QVERIFY(!object);
        QVERIFY(object.getTypeId() == SoType::badType());
        QVERIFY(!object.isOfType(SoField::getClassTypeId()));
        QCOMPARE(object.toField(), nullptr);
        QCOMPARE(object.toFieldContainer(), nullptr);
        QCOMPARE(object.cast<SoSFFloat>(), nullptr);
        QCOMPARE(object.cast<SoNode>(), nullptr);
    }
}

QTEST_GUILESS_MAIN(tst_SceneGraphExt)
#include "tst_SceneGraphExt.moc"
