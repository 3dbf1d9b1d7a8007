// The list editors of values with components (vectors, planes, rotations)
// through the real plug-in in the host's dock: their columns and cell texts,
// a cell edited through its line edit replacing that component only, the
// command each edit records, and text that makes no value the field can
// hold left out of the field and the history.
#include "AllFieldsNode.h"
#include "ListEditorTesting.h"
#include "TableTesting.h"

#include <KalMFSetValueCommand.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>

#include <QDoubleValidator>
#include <QIntValidator>
#include <QLineEdit>

using namespace ListEditorTesting;

namespace {

QStringList rowTexts(int row)
{
    QStringList texts;
    for (int column = 0; column < table()->columnCount(); ++column)
        texts << shownEditor()->getValueText(row, column);
    return texts;
}

} // namespace

class tst_ListComponentEditors : public ListEditorFixture
{
    Q_OBJECT

private slots:
    void columnsAndTexts_data();
    void columnsAndTexts();
    void editingOneComponentKeepsTheOthers_data();
    void editingOneComponentKeepsTheOthers();
    void refusedComponents_data();
    void refusedComponents();
    void cellsTakeTheirValidators();
    void rowOperationsOnVectors();
    void swapKeepsEveryBit();
};

void tst_ListComponentEditors::columnsAndTexts_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("editor");
    QTest::addColumn<QStringList>("headers");
    QTest::addColumn<QStringList>("firstRow");
    QTest::newRow("vec2f") << QByteArray("mfVec2f") << "FxMFVec2fWidget" << QStringList{"x", "y"}
                           << QStringList{"1", "2"};
    QTest::newRow("vec2i32") << QByteArray("mfVec2i32") << "FxMFVec2i32Widget" << QStringList{"x", "y"}
                             << QStringList{"1", "-2"};
    QTest::newRow("vec2s") << QByteArray("mfVec2s") << "FxMFVec2sWidget" << QStringList{"x", "y"}
                           << QStringList{"1", "2"};
    QTest::newRow("vec3f") << QByteArray("mfVec3f") << "FxMFVec3fWidget" << QStringList{"x", "y", "z"}
                           << QStringList{"1", "2", "3"};
    QTest::newRow("vec4f") << QByteArray("mfVec4f") << "FxMFVec4fWidget" << QStringList{"x", "y", "z", "w"}
                           << QStringList{"1", "2", "3", "4"};
    QTest::newRow("plane") << QByteArray("mfPlane") << "FxMFPlaneWidget"
                           << QStringList{"x", "y", "z", "distance"} << QStringList{"0", "0", "1", "2"};
    QTest::newRow("rotation") << QByteArray("mfRotation") << "FxMFRotationWidget"
                              << QStringList{"x", "y", "z", "radians"} << QStringList{"0", "1", "0", "0.5"};
}

void tst_ListComponentEditors::columnsAndTexts()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, editor);
    QFETCH(QStringList, headers);
    QFETCH(QStringList, firstRow);
    auto* list = static_cast<SoMField*>(m_node->getField(field.constData()));
    select(list);
    QCOMPARE(dock()->widget()->objectName(), editor);
    QCOMPARE(headerLabels(), headers);
    QCOMPARE(table()->rowCount(), list->getNum());
    QCOMPARE(rowTexts(0), firstRow);
    QCOMPARE(shownEditor()->getValueAlignment(), int(Qt::AlignLeft));
    QVERIFY(shownEditor()->getValueText(0, headers.size()).isNull());
    QVERIFY(shownEditor()->getValueText(list->getNum(), 0).isNull());
    // In a dock narrower than the columns' default widths.
    KalShell::getInstance()->getMainWindow()->resize(420, 600);
    QCoreApplication::processEvents();
    QVERIFY(table()->viewport()->width() < 400);
    for (int column = 0; column < headers.size(); ++column) {
        QCOMPARE(table()->horizontalHeader()->sectionResizeMode(column), QHeaderView::Interactive);
        // The table does not scroll sideways: every component is in sight.
        const QRect cell = table()->visualRect(table()->model()->index(0, column));
        QVERIFY2(table()->viewport()->rect().contains(cell.center()), qPrintable(QString::number(column)));
    }
}

void tst_ListComponentEditors::editingOneComponentKeepsTheOthers_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("firstRow");
    QTest::newRow("vec3f y") << QByteArray("mfVec3f") << 1 << "7.5" << QStringList{"1", "7.5", "3"};
    QTest::newRow("vec2f x") << QByteArray("mfVec2f") << 0 << "-0.25" << QStringList{"-0.25", "2"};
    QTest::newRow("vec2i32 y") << QByteArray("mfVec2i32") << 1 << "123456" << QStringList{"1", "123456"};
    QTest::newRow("vec2s x") << QByteArray("mfVec2s") << 0 << "-300" << QStringList{"-300", "2"};
    QTest::newRow("vec4f w") << QByteArray("mfVec4f") << 3 << "9" << QStringList{"1", "2", "3", "9"};
    QTest::newRow("plane distance") << QByteArray("mfPlane") << 3 << "5" << QStringList{"0", "0", "1", "5"};
    QTest::newRow("rotation angle") << QByteArray("mfRotation") << 3 << "1.25"
                                    << QStringList{"0", "1", "0", "1.25"};
    // A plane's normal and a rotation's axis are kept of unit length.
    QTest::newRow("plane normal") << QByteArray("mfPlane") << 1 << "1"
                                  << QStringList{"0", "0.707107", "0.707107", "2"};
    QTest::newRow("rotation axis") << QByteArray("mfRotation") << 0 << "1"
                                   << QStringList{"0.707107", "0.707107", "0", "0.5"};
}

void tst_ListComponentEditors::editingOneComponentKeepsTheOthers()
{
    QFETCH(QByteArray, field);
    QFETCH(int, column);
    QFETCH(QString, typed);
    QFETCH(QStringList, firstRow);
    auto* list = static_cast<SoMField*>(m_node->getField(field.constData()));
    select(list);
    const QStringList secondRow = rowTexts(1 % list->getNum());
    QVERIFY(typeIntoTableCell(table(), 0, column, typed));
    QCOMPARE(rowTexts(0), firstRow);
    if (list->getNum() > 1)
        QCOMPARE(rowTexts(1), secondRow);
    QCOMPARE(commands(), 1);
    QVERIFY(lastCommandIs<KalMFSetValueCommand>());
    // The command was made after the write: undo and redo keep the new
    // value, as every list editor's value commands do.
    QVERIFY(KalServices::getInstance()->undo());
    processSensors();
    QCOMPARE(rowTexts(0), firstRow);
    QVERIFY(KalServices::getInstance()->redo());
    processSensors();
    QCOMPARE(rowTexts(0), firstRow);
}

void tst_ListComponentEditors::refusedComponents_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");
    QTest::newRow("vec3f, letters") << QByteArray("mfVec3f") << 0 << "abc";
    QTest::newRow("vec3f, empty") << QByteArray("mfVec3f") << 0 << "";
    QTest::newRow("vec3f, nan") << QByteArray("mfVec3f") << 1 << "nan";
    QTest::newRow("vec3f, inf") << QByteArray("mfVec3f") << 1 << "inf";
    QTest::newRow("vec3f, past the largest float") << QByteArray("mfVec3f") << 2 << "1e39";
    QTest::newRow("vec3f, 1e999") << QByteArray("mfVec3f") << 2 << "1e999";
    QTest::newRow("vec3f, 5000 digits") << QByteArray("mfVec3f") << 2 << QString(5000, QLatin1Char('9'));
    QTest::newRow("vec2i32, past the type") << QByteArray("mfVec2i32") << 0 << "2147483648";
    QTest::newRow("vec2s, past the type") << QByteArray("mfVec2s") << 0 << "40000";
    QTest::newRow("vec2s, fraction") << QByteArray("mfVec2s") << 0 << "1.5";
    QTest::newRow("plane, zero normal") << QByteArray("mfPlane") << 2 << "0";
    QTest::newRow("rotation, zero axis") << QByteArray("mfRotation") << 1 << "0";
    QTest::newRow("rotation, nan angle") << QByteArray("mfRotation") << 3 << "nan";
}

void tst_ListComponentEditors::refusedComponents()
{
    QFETCH(QByteArray, field);
    QFETCH(int, column);
    QFETCH(QString, text);
    auto* list = static_cast<SoMField*>(m_node->getField(field.constData()));
    select(list);
    const QStringList before = values(*list);
    shownEditor()->setValueFromText(0, column, text);
    shownEditor()->setValueFromText(list->getNum(), column, QStringLiteral("1"));
    shownEditor()->setValueFromText(0, 7, QStringLiteral("1"));
    QCOMPARE(values(*list), before);
    QCOMPARE(commands(), 0);
}

void tst_ListComponentEditors::cellsTakeTheirValidators()
{
    select(&m_node->mfVec3f);
    QLineEdit* edit = openCellLine(table(), 0, 0);
    QVERIFY(edit);
    QVERIFY(qobject_cast<const QDoubleValidator*>(edit->validator()));
    select(&m_node->mfVec2i32);
    edit = openCellLine(table(), 0, 1);
    QVERIFY(edit);
    auto* integers = qobject_cast<const QIntValidator*>(edit->validator());
    QVERIFY(integers);
    QCOMPARE(integers->bottom(), -2147483647);
    // Short vectors take any text; what is no short is refused on writing.
    select(&m_node->mfVec2s);
    edit = openCellLine(table(), 0, 0);
    QVERIFY(edit);
    QVERIFY(!edit->validator());
}

void tst_ListComponentEditors::rowOperationsOnVectors()
{
    select(&m_node->mfVec3f);
    clickCell(0);
    click("m_addButton");
    QCOMPARE(m_node->mfVec3f.getNum(), 3);
    QCOMPARE(m_node->mfVec3f[2], SbVec3f(4, 5, 6));
    clickCell(2);
    click("m_upButton");
    QCOMPARE(m_node->mfVec3f[1], SbVec3f(4, 5, 6));
    QVERIFY(KalServices::getInstance()->undo());
    QVERIFY(KalServices::getInstance()->undo());
    QCOMPARE(m_node->mfVec3f.getNum(), 2);
    QCOMPARE(m_node->mfVec3f[0], SbVec3f(1, 2, 3));
    QCOMPARE(m_node->mfVec3f[1], SbVec3f(4, 5, 6));
}

// Values are exchanged as they are, not through their nine-digit texts.
void tst_ListComponentEditors::swapKeepsEveryBit()
{
    const SbVec3f precise(0.1f + 1e-9f, 1.0f / 3.0f, 16777217.0f);
    m_node->mfVec3f.set1Value(0, precise);
    select(&m_node->mfVec3f);
    shownEditor()->swapValues(0, 1);
    QCOMPARE(m_node->mfVec3f[1], precise);
    QCOMPARE(m_node->mfVec3f[0], SbVec3f(4, 5, 6));
    shownEditor()->swapValues(0, 2);
    QCOMPARE(m_node->mfVec3f[1], precise);
}

QTEST_MAIN(tst_ListComponentEditors)
#include "tst_ListComponentEditors.moc"
