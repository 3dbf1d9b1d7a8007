// kalhost with the real plug-in: the sample scene's lists edited in their
// editors, the host's history naming each change, the modified flag, and
// undo from the Edit menu putting the values back.
#include "FieldTesting.h"
#include "HostWindowFixture.h"
#include "ListEditorTesting.h"
#include "TableTesting.h"

#include <CommandNamer.h>
#include <SceneModel.h>

#include <Inventor/fields/SoMFVec3f.h>

#include <QAction>
#include <QLineEdit>
#include <QUndoStack>

#include <memory>

using namespace ListEditorTesting;

class tst_HostListEditing : public HostWindowFixture
{
    Q_OBJECT

private slots:
    void everySamplerListHasItsEditor();
    void addEditAndUndoAString();
    void rowChangesAreNamedInTheHistory();
    void aTypedCellIsNamedByItsRow();
    void manyRowsAndLongListsAreNamedByCount();
    void ignoringAListIsNamedAsSuch();
    void numericEditsMarkTheSceneModified();

private:
    void trigger(const char* action);
};

void tst_HostListEditing::trigger(const char* action)
{
    auto* found = m_host->window()->findChild<QAction*>(QLatin1String(action));
    QVERIFY2(found && found->isEnabled(), action);
    found->trigger();
    processSensors();
}

void tst_HostListEditing::everySamplerListHasItsEditor()
{
    const struct
    {
        const char* path;
        const char* editor;
    } lists[] = {
        {"Sampler.ramp", "FxMFFloatWidget"},    {"Sampler.thresholds", "FxMFDoubleWidget"},
        {"Sampler.indices", "FxMFInt32Widget"}, {"Sampler.levels", "FxMFShortWidget"},
        {"Sampler.lines", "FxMFStringWidget"},  {"Sampler.masks", "FxMFUInt32Widget"},
        {"Sampler.counts", "FxMFUShortWidget"}, {"Sampler.keywords", "FxMFDefaultFieldWidget"},
    };
    for (const auto& list : lists) {
        QVERIFY2(m_host->select(QLatin1String(list.path)), list.path);
        processSensors();
        QVERIFY2(EditorDockFixture::dock()->isVisible(), list.path);
        QCOMPARE(EditorDockFixture::dock()->widget()->objectName(), QLatin1String(list.editor));
        const QByteArray name = QByteArray(list.path).mid(int(qstrlen("Sampler.")));
        auto* field = static_cast<SoMField*>(sampler()->getField(name.constData()));
        QCOMPARE(table()->rowCount(), field->getNum());
        QVERIFY(field->getNum() > 0);
    }
}

void tst_HostListEditing::addEditAndUndoAString()
{
    KalFieldSampler* node = sampler();
    QVERIFY(node);
    const QStringList before = values(node->lines);
    QVERIFY(m_host->select(QStringLiteral("Sampler.lines")));
    processSensors();
    QVERIFY(!m_host->hasUnsavedChanges());
    clickCell(0);
    click("m_addButton");
    QCOMPARE(node->lines.getNum(), before.size() + 1);
    QCOMPARE(QString::fromUtf8(node->lines[1].getString()), QString());
    QVERIFY(m_host->hasUnsavedChanges());

    // Type into the new row.
    QVERIFY(typeIntoTableCell(table(), 1, 0, QStringLiteral("a new line")));
    QCOMPARE(QString::fromUtf8(node->lines[1].getString()), QStringLiteral("a new line"));

    QUndoStack* stack = KalServices::getInstance()->undoStack();
    QCOMPARE(stack->count(), 2);
    QCOMPARE(stack->text(0), QStringLiteral("Add a row to Sampler.lines"));
    QCOMPARE(stack->text(1), QStringLiteral("Set row 2 of Sampler.lines: \"\" \u2192 \"a new line\""));

    // The value edit undoes to itself (the command read its old text after
    // the write); the row's addition undoes to the list as it was.
    trigger("UndoAction");
    trigger("UndoAction");
    QCOMPARE(values(node->lines), before);
    QCOMPARE(table()->rowCount(), before.size());
    trigger("RedoAction");
    QCOMPARE(node->lines.getNum(), before.size() + 1);
}

void tst_HostListEditing::rowChangesAreNamedInTheHistory()
{
    KalFieldSampler* node = sampler();
    const int count = node->ramp.getNum();
    QVERIFY(m_host->select(QStringLiteral("Sampler.ramp")));
    processSensors();
    clickCell(0);
    click("m_addButton");
    click("m_deleteButton");
    const QStringList beforeSwap = values(node->ramp);
    click("m_downButton");
    QUndoStack* stack = KalServices::getInstance()->undoStack();
    QCOMPARE(stack->count(), 3);
    QCOMPARE(stack->text(0), QStringLiteral("Add a row to Sampler.ramp"));
    QCOMPARE(stack->text(1), QStringLiteral("Delete a row from Sampler.ramp"));
    QCOMPARE(node->ramp.getNum(), count);
    // The history names the two rows the move exchanged, as the table
    // numbers them.
    const QStringList afterSwap = values(node->ramp);
    QList<int> moved;
    for (int i = 0; i < count; ++i) {
        if (beforeSwap.at(i) != afterSwap.at(i))
            moved << i + 1;
    }
    QCOMPARE(moved.size(), 2);
    QCOMPARE(stack->text(2),
             QStringLiteral("Swap rows %1 and %2 of Sampler.ramp").arg(moved[0]).arg(moved[1]));
}

void tst_HostListEditing::aTypedCellIsNamedByItsRow()
{
    auto* coordinates = static_cast<SoMFVec3f*>(SoNode::getByName("PedestalCoordinates")->getField("point"));
    QVERIFY(m_host->select(QStringLiteral("PedestalCoordinates.point")));
    processSensors();
    const SbVec3f before = (*coordinates)[4];
    QVERIFY(typeIntoTableCell(table(), 4, 1, QStringLiteral("1.2")));
    QCOMPARE((*coordinates)[4][1], 1.2f);
    QUndoStack* stack = KalServices::getInstance()->undoStack();
    QCOMPARE(stack->count(), 1);
    // Numbers as a person wrote them, not Coin's "1.2000000".
    QCOMPARE(stack->text(0),
             QStringLiteral("Set row 5 of PedestalCoordinates.point: %1 %2 %3 \u2192 %1 1.2 %3")
                 .arg(double(before[0]))
                 .arg(double(before[1]))
                 .arg(double(before[2])));
}

void tst_HostListEditing::manyRowsAndLongListsAreNamedByCount()
{
    // Several rows changed at once, as a whole-list write does.
    KalFieldSampler* node = sampler();
    CommandNamer::Seen before = CommandNamer::seen(&node->ramp);
    QVERIFY(node->ramp.getNum() >= 3);
    node->ramp.set1Value(0, 10.5f);
    node->ramp.set1Value(2, 12.5f);
    QCOMPARE(CommandNamer::describe(&node->ramp, before, CommandNamer::seen(&node->ramp)),
             QStringLiteral("Set 2 rows of Sampler.ramp"));

    // A list too long to keep row by row is named by its length.
    auto* coordinates = static_cast<SoMFVec3f*>(SoNode::getByName("PedestalCoordinates")->getField("point"));
    const int count = CommandNamer::kMaxRowsNoted + 1;
    coordinates->setNum(count);
    processSensors();
    QVERIFY(m_host->select(QStringLiteral("PedestalCoordinates.point")));
    processSensors();
    QCOMPARE(table()->rowCount(), count);
    QVERIFY(typeIntoTableCell(table(), 3, 0, QStringLiteral("0.25")));
    QCOMPARE((*coordinates)[3][0], 0.25f);
    QUndoStack* stack = KalServices::getInstance()->undoStack();
    QCOMPARE(stack->count(), 1);
    QCOMPARE(stack->text(0), QStringLiteral("Set PedestalCoordinates.point (%1 values)").arg(count));
}

void tst_HostListEditing::numericEditsMarkTheSceneModified()
{
    KalFieldSampler* node = sampler();
    QVERIFY(m_host->select(QStringLiteral("Sampler.ramp")));
    processSensors();
    FxMFieldTable* shown = table();
    QWidget* frame = openCell(shown, 1, 0);
    QVERIFY(frame && frame->inherits("FxRealSlider"));
    QLineEdit* edit = EditorDockFixture::child<QLineEdit>("m_lineEdit", frame);
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("0.75"));
    QTest::keyClick(edit, Qt::Key_Return);
    processSensors();
    QCOMPARE(node->ramp[1], 0.75f);
    // Numeric lists write without a command; the history makes the entry
    // once the event loop runs, and with it the scene is modified.
    QUndoStack* stack = KalServices::getInstance()->undoStack();
    QTRY_COMPARE(stack->count(), 1);
    QVERIFY(m_host->hasUnsavedChanges());
    QVERIFY(stack->text(0).startsWith(QStringLiteral("Set row 2 of Sampler.ramp: ")));
    QVERIFY(stack->text(0).endsWith(QStringLiteral(" \u2192 0.75")));
}

void tst_HostListEditing::ignoringAListIsNamedAsSuch()
{
    // The rows are compared, not the list's text, to tell that only the
    // ignore flag changed.
    KalFieldSampler* node = sampler();
    QVERIFY(m_host->select(QStringLiteral("Sampler.ramp")));
    processSensors();
    const QStringList before = values(node->ramp);
    click("m_ignoreButton");
    QVERIFY(node->ramp.isIgnored());
    QCOMPARE(values(node->ramp), before);
    click("m_ignoreButton");
    QVERIFY(!node->ramp.isIgnored());
    QUndoStack* stack = KalServices::getInstance()->undoStack();
    QCOMPARE(stack->count(), 2);
    QCOMPARE(stack->text(0), QStringLiteral("Ignore Sampler.ramp"));
    QCOMPARE(stack->text(1), QStringLiteral("Stop ignoring Sampler.ramp"));
}

QTEST_MAIN(tst_HostListEditing)
#include "tst_HostListEditing.moc"
