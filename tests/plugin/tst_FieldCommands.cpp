// The three commands of single-value edits, run through the host's history
// on real nodes: push, undo, redo, and the field's text after each.
#include <KalFieldIgnoredCommand.h>
#include <KalFieldSetDefaultCommand.h>
#include <KalSFSetValueCommand.h>
#include <KalServices.h>

#include <Inventor/SoDB.h>
#include <Inventor/fields/SoMFVec3f.h>
#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoMaterial.h>

#include <QtTest>

namespace {

QString textOf(SoField& field)
{
    SbString text;
    field.get(text);
    return QString::fromLatin1(text.getString());
}

template <class Node>
struct Held
{
    Held()
        : node(new Node)
    {
        node->ref();
    }
    ~Held() { node->unref(); }
    Node* operator->() const { return node; }
    Node* node;
};

} // namespace

class tst_FieldCommands : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void setValueTakesOverAPreviousText();
    void setValueReadsTheFieldWithoutOne_data();
    void setValueReadsTheFieldWithoutOne();
    void numericEditUndoesToTheTextFromBefore();
    void otherEditsUndoToTheValueAfter();
    void ignoreToggle();
    void ignoreUndoSetsTheOppositeWhateverTheFlag();
    void resetAfterWritingTheDefaultKeepsItOnUndo();
    void resetBeforeWritingRestoresOnUndo();
    void redoOfAResetWritesTheDefaultAgain();
    void resetOfAMultipleField();
    void nullFieldsDoNothing();
    void commandsOutliveTheirNode();
};

void tst_FieldCommands::initTestCase()
{
    SoDB::init();
}

void tst_FieldCommands::cleanup()
{
    KalServices::getInstance()->clearHistory();
}

void tst_FieldCommands::setValueTakesOverAPreviousText()
{
    Held<SoComplexity> complexity;
    SbString previous("0.25");
    KalSFSetValueCommand command(&complexity->value, previous);
    QCOMPARE(previous.getLength(), 0);
    QCOMPARE(QString::fromLatin1(previous.getString()), QString());
    command.undo();
    QCOMPARE(complexity->value.getValue(), 0.25f);
}

void tst_FieldCommands::setValueReadsTheFieldWithoutOne_data()
{
    QTest::addColumn<bool>("empty");
    QTest::newRow("empty text") << true;
    QTest::newRow("null text") << false;
}

void tst_FieldCommands::setValueReadsTheFieldWithoutOne()
{
    QFETCH(bool, empty);
    Held<SoComplexity> complexity;
    complexity->value.setValue(0.75f);
    SbString previous;
    if (empty)
        previous = "";
    KalSFSetValueCommand command(&complexity->value, previous);
    complexity->value.setValue(0.1f);
    command.undo();
    QCOMPARE(complexity->value.getValue(), 0.75f);
}

void tst_FieldCommands::numericEditUndoesToTheTextFromBefore()
{
    KalServices* services = KalServices::getInstance();
    Held<SoDirectionalLight> light;
    SoSFFloat& intensity = light->intensity;
    SbString before;
    intensity.get(before);
    intensity.setValue(0.3f);
    services->pushCommand(new KalSFSetValueCommand(&intensity, before));
    QCOMPARE(before.getLength(), 0);
    QCOMPARE(services->commandCount(), 1);
    QCOMPARE(textOf(intensity), QStringLiteral("0.30000001"));

    QVERIFY(services->undo());
    QCOMPARE(textOf(intensity), QStringLiteral("1"));
    QVERIFY(services->redo());
    QCOMPARE(textOf(intensity), QStringLiteral("0.30000001"));
    QVERIFY(services->undo());
    QCOMPARE(intensity.getValue(), 1.0f);
}

void tst_FieldCommands::otherEditsUndoToTheValueAfter()
{
    // Editors without a text of their own pass an empty one: the command
    // reads the field after the edit, so undo writes the edited value back.
    KalServices* services = KalServices::getInstance();
    Held<SoComplexity> complexity;
    complexity->type.setValue(SoComplexity::SCREEN_SPACE);
    SbString none;
    services->pushCommand(new KalSFSetValueCommand(&complexity->type, none));
    QCOMPARE(textOf(complexity->type), QStringLiteral("SCREEN_SPACE"));
    QVERIFY(services->undo());
    QCOMPARE(textOf(complexity->type), QStringLiteral("SCREEN_SPACE"));
    complexity->type.setValue(SoComplexity::BOUNDING_BOX);
    QVERIFY(services->redo());
    QCOMPARE(textOf(complexity->type), QStringLiteral("SCREEN_SPACE"));
}

void tst_FieldCommands::ignoreToggle()
{
    KalServices* services = KalServices::getInstance();
    Held<SoComplexity> complexity;
    SoSFFloat& value = complexity->value;
    value.setIgnored(TRUE);
    services->pushCommand(new KalFieldIgnoredCommand(&value, true));
    QVERIFY(value.isIgnored());
    QVERIFY(services->undo());
    QVERIFY(!value.isIgnored());
    QVERIFY(services->redo());
    QVERIFY(value.isIgnored());
}

void tst_FieldCommands::ignoreUndoSetsTheOppositeWhateverTheFlag()
{
    Held<SoComplexity> complexity;
    SoSFFloat& value = complexity->value;
    KalFieldIgnoredCommand command(&value, false);
    value.setIgnored(FALSE);
    command.undo();
    QVERIFY(value.isIgnored());
    command.undo();
    QVERIFY(value.isIgnored());
    command.execute();
    QVERIFY(!value.isIgnored());
    command.redo();
    QVERIFY(!value.isIgnored());
}

void tst_FieldCommands::resetAfterWritingTheDefaultKeepsItOnUndo()
{
    KalServices* services = KalServices::getInstance();
    Held<SoComplexity> complexity;
    Held<SoComplexity> fresh;
    complexity->value.setValue(0.9f);
    // As the editors do it: the default goes in first, then the command.
    SbString defaultText;
    fresh->value.get(defaultText);
    complexity->value.set(defaultText.getString());
    services->pushCommand(new KalFieldSetDefaultCommand(&complexity->value, &fresh->value));
    QCOMPARE(textOf(complexity->value), QStringLiteral("0.5"));
    QVERIFY(services->undo());
    QCOMPARE(textOf(complexity->value), QStringLiteral("0.5"));
    QVERIFY(services->redo());
    QCOMPARE(textOf(complexity->value), QStringLiteral("0.5"));
}

void tst_FieldCommands::resetBeforeWritingRestoresOnUndo()
{
    KalServices* services = KalServices::getInstance();
    Held<SoMaterial> material;
    Held<SoMaterial> fresh;
    material->shininess.setValue(0.9f);
    services->pushCommand(new KalFieldSetDefaultCommand(&material->shininess, &fresh->shininess));
    QCOMPARE(textOf(material->shininess), QStringLiteral("0.2"));
    QVERIFY(services->undo());
    QCOMPARE(textOf(material->shininess), QStringLiteral("0.89999998"));
}

void tst_FieldCommands::redoOfAResetWritesTheDefaultAgain()
{
    KalServices* services = KalServices::getInstance();
    Held<SoComplexity> complexity;
    Held<SoComplexity> fresh;
    complexity->value.setValue(0.9f);
    services->pushCommand(new KalFieldSetDefaultCommand(&complexity->value, &fresh->value));
    QVERIFY(services->undo());
    QCOMPARE(complexity->value.getValue(), 0.9f);
    complexity->value.setValue(0.7f);
    QVERIFY(services->redo());
    QCOMPARE(textOf(complexity->value), QStringLiteral("0.5"));
}

void tst_FieldCommands::resetOfAMultipleField()
{
    KalServices* services = KalServices::getInstance();
    Held<SoCoordinate3> coordinates;
    Held<SoCoordinate3> fresh;
    coordinates->point.setNum(0);
    coordinates->point.set1Value(0, SbVec3f(1, 2, 3));
    coordinates->point.set1Value(1, SbVec3f(4, 5, 6));
    const QString before = textOf(coordinates->point);
    services->pushCommand(new KalFieldSetDefaultCommand(&coordinates->point, &fresh->point));
    QCOMPARE(textOf(coordinates->point), textOf(fresh->point));
    QCOMPARE(coordinates->point.getNum(), fresh->point.getNum());
    QVERIFY(services->undo());
    QCOMPARE(textOf(coordinates->point), before);
    QCOMPARE(coordinates->point.getNum(), 2);
}

void tst_FieldCommands::nullFieldsDoNothing()
{
    KalServices* services = KalServices::getInstance();
    SbString previous("1");
    services->pushCommand(new KalSFSetValueCommand(nullptr, previous));
    services->pushCommand(new KalFieldIgnoredCommand(nullptr, true));
    services->pushCommand(new KalFieldSetDefaultCommand(nullptr, nullptr));
    QCOMPARE(services->commandCount(), 3);
    while (services->undo()) {
    }
    while (services->redo()) {
    }

    // A reset without a default field leaves the field alone.
    Held<SoComplexity> complexity;
    complexity->value.setValue(0.9f);
    services->pushCommand(new KalFieldSetDefaultCommand(&complexity->value, nullptr));
    QCOMPARE(complexity->value.getValue(), 0.9f);
}

void tst_FieldCommands::commandsOutliveTheirNode()
{
    // Destroying a command never reads its field, so a command may die
    // after the node it points into.
    KalServices* services = KalServices::getInstance();
    auto* complexity = new SoComplexity;
    complexity->ref();
    SbString before("0.1");
    services->pushCommand(new KalSFSetValueCommand(&complexity->value, before));
    services->pushCommand(new KalFieldIgnoredCommand(&complexity->value, true));
    Held<SoComplexity> fresh;
    services->pushCommand(new KalFieldSetDefaultCommand(&complexity->value, &fresh->value));
    complexity->unref();
    services->clearHistory();
    QCOMPARE(services->commandCount(), 0);
}

QTEST_GUILESS_MAIN(tst_FieldCommands)
#include "tst_FieldCommands.moc"
