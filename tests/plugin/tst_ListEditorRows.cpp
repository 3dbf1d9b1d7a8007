// The list editors' row operations, through the real plug-in module in the
// host's "Field Editor" dock: adding, deleting and moving rows with the
// buttons and the keys, each followed through the host's history on the
// field's values.
#include "AllFieldsNode.h"
#include "ListEditorTesting.h"

#include <KalMFAddRowsCommand.h>
#include <KalMFDeleteRowsCommand.h>
#include <KalMFSwapRowsCommand.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>

using namespace ListEditorTesting;

namespace {

const QStringList kSix = {"a", "b", "c", "d", "e", "f"};

QStringList quoted(const QStringList& texts)
{
    QStringList result;
    for (const QString& text : texts)
        result << QLatin1Char('"') + text + QLatin1Char('"');
    return result;
}

} // namespace

class tst_ListEditorRows : public ListEditorFixture
{
    Q_OBJECT

private slots:
    void addToAnEmptyTable();
    void addBelowTheCurrentRow();
    void addWithoutCurrentRowInsertsFirst();
    void plusMinusAndDeleteKeys();
    void shiftSelectionDeletesOneRange();
    void deleteOnAnEmptyTableDoesNothing();
    void deleteWithoutCurrentRowDoesNothing();
    void moveUpAndDown();
    void moveUpFromTheFirstRowOnlyPrints();
    void moveDownFromTheLastRowOnlyPrints();
};

void tst_ListEditorRows::addToAnEmptyTable()
{
    select(&m_node->emptyStrings);
    click("m_addButton");
    QCOMPARE(values(m_node->emptyStrings), QStringList{"\"\""});
    QCOMPARE(commands(), 1);
    QVERIFY(lastCommandIs<KalMFAddRowsCommand>());
    QCOMPARE(table()->currentRow(), 0);
    QCOMPARE(table()->rowCount(), 1);
    QCOMPARE(elementCount(), QStringLiteral("1 elements"));
    QVERIFY(KalServices::getInstance()->undo());
    processSensors();
    QCOMPARE(m_node->emptyStrings.getNum(), 0);
    QCOMPARE(table()->rowCount(), 0);
    QVERIFY(KalServices::getInstance()->redo());
    processSensors();
    QCOMPARE(values(m_node->emptyStrings), QStringList{"\"\""});
    QCOMPARE(table()->rowCount(), 1);
}

void tst_ListEditorRows::addBelowTheCurrentRow()
{
    fill(m_node->mfString, {"a", "b", "c", "d", "e"});
    select(&m_node->mfString);
    clickCell(3);
    QCOMPARE(table()->currentRow(), 3);
    click("m_addButton");
    QCOMPARE(values(m_node->mfString), quoted({"a", "b", "c", "d", "", "e"}));
    QCOMPARE(table()->currentRow(), 3);
    QCOMPARE(accessBox()->maximum(), 6);
    QVERIFY(KalServices::getInstance()->undo());
    QCOMPARE(values(m_node->mfString), quoted({"a", "b", "c", "d", "e"}));
    QVERIFY(KalServices::getInstance()->redo());
    QCOMPARE(values(m_node->mfString), quoted({"a", "b", "c", "d", "", "e"}));
}

void tst_ListEditorRows::addWithoutCurrentRowInsertsFirst()
{
    fill(m_node->mfString, {"a", "b"});
    select(&m_node->mfString);
    table()->setCurrentIndex(QModelIndex());
    QCOMPARE(table()->currentRow(), -1);
    click("m_addButton");
    QCOMPARE(values(m_node->mfString), quoted({"", "a", "b"}));
    QCOMPARE(table()->currentRow(), 0);
}

void tst_ListEditorRows::plusMinusAndDeleteKeys()
{
    fill(m_node->mfString, {"a", "b", "c"});
    select(&m_node->mfString);
    clickCell(0);
    key(Qt::Key_Plus);
    QCOMPARE(values(m_node->mfString), quoted({"a", "", "b", "c"}));
    clickCell(2);
    key(Qt::Key_Minus);
    QCOMPARE(values(m_node->mfString), quoted({"a", "", "c"}));
    clickCell(0);
    key(Qt::Key_Delete);
    QCOMPARE(values(m_node->mfString), quoted({"", "c"}));
    QCOMPARE(commands(), 3);
    QVERIFY(lastCommandIs<KalMFDeleteRowsCommand>());
    // Back through the history, each step restores the values in place.
    QVERIFY(KalServices::getInstance()->undo());
    QCOMPARE(values(m_node->mfString), quoted({"a", "", "c"}));
    QVERIFY(KalServices::getInstance()->undo());
    QCOMPARE(values(m_node->mfString), quoted({"a", "", "b", "c"}));
    QVERIFY(KalServices::getInstance()->undo());
    QCOMPARE(values(m_node->mfString), quoted({"a", "b", "c"}));
    QVERIFY(KalServices::getInstance()->redo());
    QVERIFY(KalServices::getInstance()->redo());
    QVERIFY(KalServices::getInstance()->redo());
    QCOMPARE(values(m_node->mfString), quoted({"", "c"}));
}

void tst_ListEditorRows::shiftSelectionDeletesOneRange()
{
    fill(m_node->mfString, kSix);
    select(&m_node->mfString);
    FxMFieldTable* shown = table();
    shown->setFocus();
    QTest::keyPress(shown, Qt::Key_Shift);
    QVERIFY(shown->isMultiSelect());
    QCOMPARE(shown->selectionMode(), QAbstractItemView::ContiguousSelection);
    clickCell(2, Qt::ShiftModifier);
    clickCell(4, Qt::ShiftModifier);
    QTest::keyClick(shown, Qt::Key_Delete, Qt::ShiftModifier);
    processSensors();
    QCOMPARE(values(m_node->mfString), quoted({"a", "b", "f"}));
    QCOMPARE(commands(), 1);
    QVERIFY(lastCommandIs<KalMFDeleteRowsCommand>());
    QTest::keyRelease(shown, Qt::Key_Shift);
    QVERIFY(!shown->isMultiSelect());
    QCOMPARE(shown->selectionMode(), QAbstractItemView::NoSelection);
    QVERIFY(KalServices::getInstance()->undo());
    QCOMPARE(values(m_node->mfString), quoted(kSix));
    QVERIFY(KalServices::getInstance()->redo());
    QCOMPARE(values(m_node->mfString), quoted({"a", "b", "f"}));
}

void tst_ListEditorRows::deleteOnAnEmptyTableDoesNothing()
{
    select(&m_node->emptyStrings);
    click("m_deleteButton");
    key(Qt::Key_Delete);
    key(Qt::Key_Minus);
    ErrorStreamCapture errors;
    click("m_upButton");
    click("m_downButton");
    QCOMPARE(m_node->emptyStrings.getNum(), 0);
    QCOMPARE(commands(), 0);
    QCOMPARE(errors.text(),
             QStringLiteral("FxMFieldTable::swapUpRow() -1\nFxMFieldTable::swapDownRow() -1\n"));
}

void tst_ListEditorRows::deleteWithoutCurrentRowDoesNothing()
{
    fill(m_node->mfString, {"a", "b"});
    select(&m_node->mfString);
    table()->setCurrentIndex(QModelIndex());
    click("m_deleteButton");
    key(Qt::Key_Delete);
    QCOMPARE(values(m_node->mfString), quoted({"a", "b"}));
    QCOMPARE(commands(), 0);
    // With Shift held and nothing selected, nothing goes either.
    FxMFieldTable* shown = table();
    shown->setFocus();
    QTest::keyPress(shown, Qt::Key_Shift);
    shown->clearSelection();
    QTest::keyClick(shown, Qt::Key_Delete, Qt::ShiftModifier);
    QTest::keyRelease(shown, Qt::Key_Shift);
    QCOMPARE(values(m_node->mfString), quoted({"a", "b"}));
    QCOMPARE(commands(), 0);
}

void tst_ListEditorRows::moveUpAndDown()
{
    fill(m_node->mfString, {"a", "b", "c", "d"});
    select(&m_node->mfString);
    clickCell(2);
    QCOMPARE(accessBox()->value(), 3);
    ErrorStreamCapture errors;
    click("m_upButton");
    QCOMPARE(values(m_node->mfString), quoted({"a", "c", "b", "d"}));
    QCOMPARE(accessBox()->value(), 2);
    QVERIFY(lastCommandIs<KalMFSwapRowsCommand>());
    // The box follows the moved value: a second click moves it again.
    click("m_upButton");
    QCOMPARE(values(m_node->mfString), quoted({"c", "a", "b", "d"}));
    QCOMPARE(errors.text(), QStringLiteral("FxMFieldTable::swapUpRow() 2\nFxMFieldTable::swapUpRow() 1\n"));
    click("m_downButton");
    QCOMPARE(values(m_node->mfString), quoted({"a", "c", "b", "d"}));
    QCOMPARE(commands(), 3);
    QVERIFY(KalServices::getInstance()->undo());
    QCOMPARE(values(m_node->mfString), quoted({"c", "a", "b", "d"}));
    QVERIFY(KalServices::getInstance()->undo());
    QVERIFY(KalServices::getInstance()->undo());
    QCOMPARE(values(m_node->mfString), quoted({"a", "b", "c", "d"}));
    QVERIFY(KalServices::getInstance()->redo());
    QCOMPARE(values(m_node->mfString), quoted({"a", "c", "b", "d"}));
}

void tst_ListEditorRows::moveUpFromTheFirstRowOnlyPrints()
{
    fill(m_node->mfString, {"a", "b"});
    select(&m_node->mfString);
    accessBox()->setValue(1);
    ErrorStreamCapture errors;
    click("m_upButton");
    QCOMPARE(errors.text(), QStringLiteral("FxMFieldTable::swapUpRow() 0\n"));
    QCOMPARE(values(m_node->mfString), quoted({"a", "b"}));
    QCOMPARE(commands(), 0);
}

void tst_ListEditorRows::moveDownFromTheLastRowOnlyPrints()
{
    fill(m_node->mfString, {"a", "b"});
    select(&m_node->mfString);
    clickCell(1);
    ErrorStreamCapture errors;
    click("m_downButton");
    QCOMPARE(errors.text(), QStringLiteral("FxMFieldTable::swapDownRow() 1\n"));
    QCOMPARE(values(m_node->mfString), quoted({"a", "b"}));
    QCOMPARE(commands(), 0);
}

QTEST_MAIN(tst_ListEditorRows)
#include "tst_ListEditorRows.moc"
