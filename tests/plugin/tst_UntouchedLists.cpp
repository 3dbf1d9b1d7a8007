// Numbers are shown shortened in list cells and popup lines; what the user
// did not change must still go back to the field as the field holds it.
// Every list editor of numbers, on values of eight significant digits: a
// cell given its own text again, a slider released where it was pressed and
// a popup opened and closed write nothing, and a typed component changes
// only that component of its row, through undo and redo too.
#include "ListEditorFixture.h"
#include "TableTesting.h"
#include "UntouchedTesting.h"

#include <KalServices.h>

#include <QPushButton>
#include <QTableWidget>
#include <QtTest>

class tst_UntouchedLists : public ListEditorFixture
{
    Q_OBJECT

private slots:
    void untouchedListCellsWriteNothing_data();
    void untouchedListCellsWriteNothing();
    void listCellChangesOnlyItsComponent_data();
    void listCellChangesOnlyItsComponent();
    void listMatrixLineChangesOnlyItsElement();
    void listFloatSliderReleasedUnmovedWritesNothing();

private:
    // The node's field, set to `value`.
    SoField* prepare(const QByteArray& fieldName, const QByteArray& value);
    // The list editor's table ("m_table", or the colour list's own).
    static QTableWidget* listTable();
};

SoField* tst_UntouchedLists::prepare(const QByteArray& fieldName, const QByteArray& value)
{
    SoField* field = m_node->getField(SbName(fieldName.constData()));
    if (field)
        field->set(value.constData());
    return field;
}

QTableWidget* tst_UntouchedLists::listTable()
{
    return dock()->widget() ? dock()->widget()->findChild<QTableWidget*>() : nullptr;
}
namespace {

void addListColumns()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("value");
    // The table column of a value's first component.
    QTest::addColumn<int>("firstColumn");
}

void addListRows()
{
    QTest::newRow("MFVec2f") << QByteArray("mfVec2f") << QByteArray("[0.12345679 -98765.433, 1.0000001 2]")
                             << 0;
    QTest::newRow("MFVec3f") << QByteArray("mfVec3f")
                             << QByteArray("[0.12345679 -98765.433 1.0000001, 3.1415927 2 -0.69569266]") << 0;
    QTest::newRow("MFVec4f") << QByteArray("mfVec4f")
                             << QByteArray("[0.12345679 -98765.433 1.0000001 3.1415927, 1 2 3 4]") << 0;
    QTest::newRow("MFPlane") << QByteArray("mfPlane")
                             << QByteArray("[0.26726124 0.53452247 0.80178374 1.2345678, 0 0 1 2]") << 0;
    QTest::newRow("MFRotation") << QByteArray("mfRotation")
                                << QByteArray("[-0.43643582 0.21821791 0.87287158 1.2345678, 0 1 0 0.5]")
                                << 0;
    QTest::newRow("MFColor") << QByteArray("mfColor")
                             << QByteArray("[0.12345679 0.98765433 0.50000006, 0.2 0.4 0.6]") << 1;
    QTest::newRow("MFFloat") << QByteArray("mfFloat") << QByteArray("[0.12345679, 0.98765433]") << 0;
    QTest::newRow("MFDouble") << QByteArray("mfDouble") << QByteArray("[0.1234567890123456, 2]") << 0;
    QTest::newRow("MFVec2i32") << QByteArray("mfVec2i32") << QByteArray("[-123456789 7, 1 2]") << 0;
    QTest::newRow("MFVec2s") << QByteArray("mfVec2s") << QByteArray("[-1234 7, 1 2]") << 0;
    QTest::newRow("MFInt32") << QByteArray("mfInt32") << QByteArray("[-123456789, 2]") << 0;
    QTest::newRow("MFUInt32") << QByteArray("mfUInt32") << QByteArray("[4000000000, 2]") << 0;
    QTest::newRow("MFShort") << QByteArray("mfShort") << QByteArray("[-1234, 2]") << 0;
    QTest::newRow("MFUShort") << QByteArray("mfUShort") << QByteArray("[65000, 2]") << 0;
}

} // namespace

void tst_UntouchedLists::untouchedListCellsWriteNothing_data()
{
    addListColumns();
    addListRows();
}

// Every cell of the first row opened and left, and given its own text
// again: the field keeps every value as it was.
void tst_UntouchedLists::untouchedListCellsWriteNothing()
{
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, value);
    QFETCH(int, firstColumn);
    SoField* edited = prepare(field, value);
    QVERIFY(edited);
    QVERIFY(selectShown(edited));
    KalServices::getInstance()->clearHistory();
    const QStringList before = containerTexts(m_node);
    QTableWidget* table = listTable();
    QVERIFY(table);

    WriteCounter writes(edited);
    for (int column = firstColumn; column < table->columnCount(); ++column) {
        QWidget* cell = openCell(table, 0, column);
        QVERIFY(cell);
        auto* line = qobject_cast<QLineEdit*>(cell);
        if (!line)
            line = cell->findChild<QLineEdit*>(QStringLiteral("m_lineEdit"));
        QVERIFY(line);
        const QString shown = line->text();
        line->selectAll();
        QTest::keyClicks(line, shown);
        QTest::keyClick(line, Qt::Key_Return);
        QCoreApplication::processEvents();
        processSensors();
        QCOMPARE(containerTexts(m_node), before);
    }
    QCOMPARE(writes.count, 0);
}

void tst_UntouchedLists::listCellChangesOnlyItsComponent_data()
{
    addListColumns();
    QTest::addColumn<int>("component");
    QTest::addColumn<QString>("typed");
    QTest::newRow("MFVec2f x") << QByteArray("mfVec2f") << QByteArray("[0.12345679 -98765.433, 1.0000001 2]")
                               << 0 << 0 << "7.5";
    QTest::newRow("MFVec3f y") << QByteArray("mfVec3f")
                               << QByteArray("[0.12345679 -98765.433 1.0000001, 3.1415927 2 -0.69569266]")
                               << 0 << 1 << "-2.25";
    QTest::newRow("MFVec4f w") << QByteArray("mfVec4f")
                               << QByteArray("[0.12345679 -98765.433 1.0000001 3.1415927, 1 2 3 4]") << 0 << 3
                               << "0.5";
    QTest::newRow("MFPlane distance")
        << QByteArray("mfPlane") << QByteArray("[0.26726124 0.53452247 0.80178374 1.2345678, 0 0 1 2]") << 0
        << 3 << "4.5";
    QTest::newRow("MFRotation angle")
        << QByteArray("mfRotation") << QByteArray("[-0.43643582 0.21821791 0.87287158 1.2345678, 0 1 0 0.5]")
        << 0 << 3 << "0.5";
    QTest::newRow("MFColor blue") << QByteArray("mfColor")
                                  << QByteArray("[0.12345679 0.98765433 0.50000006, 0.2 0.4 0.6]") << 1 << 2
                                  << "0.75";
}

// A typed cell of the first row changes that component only; the row's
// other components, the other row and the node's other fields stay as they
// were, after undo and redo as well (the list commands record the value
// after the edit as both of their texts).
void tst_UntouchedLists::listCellChangesOnlyItsComponent()
{
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, value);
    QFETCH(int, firstColumn);
    QFETCH(int, component);
    QFETCH(QString, typed);
    SoField* edited = prepare(field, value);
    QVERIFY(edited);
    QVERIFY(selectShown(edited));
    KalServices::getInstance()->clearHistory();
    auto* list = static_cast<SoMField*>(edited);
    const QStringList before = containerTexts(m_node);
    const QStringList rowBefore = tokensOf(rowText(list, 0));
    const QString secondBefore = rowText(list, 1);
    QTableWidget* table = listTable();
    QVERIFY(table);

    QVERIFY(typeIntoTableCell(table, 0, firstColumn + component, typed));

    const QStringList after = containerTexts(m_node);
    QCOMPARE(othersOf(after, field), othersOf(before, field));
    QCOMPARE(rowText(list, 1), secondBefore);
    const QStringList rowAfter = tokensOf(rowText(list, 0));
    QCOMPARE(rowAfter.size(), rowBefore.size());
    for (int i = 0; i < rowBefore.size(); ++i) {
        if (i == component)
            QVERIFY2(qFuzzyCompare(rowAfter[i].toDouble(), typed.toDouble()), qPrintable(rowAfter[i]));
        else
            QCOMPARE(rowAfter[i], rowBefore[i]);
    }

    KalServices* services = KalServices::getInstance();
    QVERIFY(services->undo());
    QCOMPARE(containerTexts(m_node), after);
    QVERIFY(services->redo());
    QCOMPARE(containerTexts(m_node), after);
}

// Every keystroke in the popup writes the matrix; the fifteen lines nobody
// typed into keep their elements exactly.
void tst_UntouchedLists::listMatrixLineChangesOnlyItsElement()
{
    SoField* edited =
        prepare("mfMatrix", QByteArray("[") + kEightDigitMatrix + ", 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1]");
    QVERIFY(edited);
    QVERIFY(selectShown(edited));
    KalServices::getInstance()->clearHistory();
    auto* list = static_cast<SoMField*>(edited);
    const QStringList before = containerTexts(m_node);
    const QStringList rowBefore = tokensOf(rowText(list, 0));
    const QString secondBefore = rowText(list, 1);

    auto* button = child<QPushButton>(QStringLiteral("m_editButton"));
    QVERIFY(button);
    QTest::mouseClick(button, Qt::LeftButton);
    const QList<QLineEdit*> lines = popupLines(dock()->widget());
    QCOMPARE(lines.size(), 16);
    // Opened and left untouched, then closed: nothing written.
    QTest::mouseClick(button, Qt::LeftButton);
    processSensors();
    QCOMPARE(containerTexts(m_node), before);

    QTest::mouseClick(button, Qt::LeftButton);
    lines[9]->selectAll();
    QTest::keyClicks(lines[9], QStringLiteral("-1.5"));
    processSensors();

    const QStringList after = containerTexts(m_node);
    QCOMPARE(othersOf(after, "mfMatrix"), othersOf(before, "mfMatrix"));
    QCOMPARE(rowText(list, 1), secondBefore);
    const QStringList rowAfter = tokensOf(rowText(list, 0));
    QCOMPARE(rowAfter.size(), 16);
    for (int i = 0; i < 16; ++i) {
        if (i == 9)
            QCOMPARE(rowAfter[i], QStringLiteral("-1.5"));
        else
            QCOMPARE(rowAfter[i], rowBefore[i]);
    }

    KalServices* services = KalServices::getInstance();
    while (services->undo())
        QCOMPARE(othersOf(containerTexts(m_node), "mfMatrix"), othersOf(before, "mfMatrix"));
    while (services->redo())
        QCOMPARE(othersOf(containerTexts(m_node), "mfMatrix"), othersOf(before, "mfMatrix"));
    QCOMPARE(containerTexts(m_node), after);
}

// A real-number cell's slider pressed and let go where it was writes
// nothing, where it used to write the value's six decimals.
void tst_UntouchedLists::listFloatSliderReleasedUnmovedWritesNothing()
{
    SoField* edited = prepare("mfFloat", "[0.12345679, 0.98765433]");
    QVERIFY(edited);
    QVERIFY(selectShown(edited));
    KalServices::getInstance()->clearHistory();
    const QStringList before = containerTexts(m_node);
    QTableWidget* table = listTable();
    QVERIFY(table);
    QWidget* cell = openCell(table, 1, 0);
    QVERIFY(cell);
    auto* slider = cell->findChild<QSlider*>(QStringLiteral("m_slider"));
    QVERIFY(slider);
    WriteCounter writes(edited);
    pressAndRelease(slider);
    processSensors();
    QCOMPARE(containerTexts(m_node), before);
    QCOMPARE(writes.count, 0);
}
QTEST_MAIN(tst_UntouchedLists)
#include "tst_UntouchedLists.moc"
