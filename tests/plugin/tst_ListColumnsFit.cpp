// Every list editor's columns fit its table: the last column (a colour's B,
// a rotation's angle) ends inside the viewport, beside the vertical scroll
// bar and not under it, whether the list is short or long, grows or shrinks
// while shown, or the dock is narrowed or widened.
#include "AllFieldsNode.h"
#include "ListEditorTesting.h"

#include <QMouseEvent>
#include <QScrollBar>

using namespace ListEditorTesting;

namespace {

// Fills the list with copies of its first value, so that every row is one
// the field can hold.
void fillRows(SoMField& list, int rows)
{
    SbString first;
    list.get1(0, first);
    list.setNum(rows);
    for (int row = 1; row < rows; ++row)
        list.set1(row, first.getString());
}

// Where the last column ends against the viewport, as the failure message
// says it.
QString lastColumnReport()
{
    const QHeaderView* header = table()->horizontalHeader();
    const int last = table()->columnCount() - 1;
    return QStringLiteral("column %1 ends at %2 in a %3 px viewport")
        .arg(last)
        .arg(header->sectionViewportPosition(last) + header->sectionSize(last))
        .arg(table()->viewport()->width());
}

// Every column is in sight, none is squeezed to nothing, and the last ends
// at the viewport's edge.
bool columnsFit()
{
    const QHeaderView* header = table()->horizontalHeader();
    const int columns = table()->columnCount();
    if (columns < 1 || table()->viewport()->width() <= 0)
        return false;
    int end = 0;
    for (int column = 0; column < columns; ++column) {
        if (header->sectionSize(column) <= 0 || header->sectionViewportPosition(column) < 0)
            return false;
        end = header->sectionViewportPosition(column) + header->sectionSize(column);
    }
    // The columns fill the table: no strip of nothing beside the last.
    return end == table()->viewport()->width();
}

// A person's drag of the right edge of a column header to x: press on the
// edge, move with the button held, release.
void dragColumnEdge(int column, int x)
{
    QHeaderView* header = table()->horizontalHeader();
    const int y = header->height() / 2;
    const QPoint edge(header->sectionViewportPosition(column) + header->sectionSize(column) - 1, y);
    QTest::mousePress(header->viewport(), Qt::LeftButton, Qt::NoModifier, edge);
    // QTest's own mouseMove sends no held button, which a drag needs.
    for (const QPoint to : {QPoint((edge.x() + x) / 2, y), QPoint(x, y)}) {
        QMouseEvent move(QEvent::MouseMove, to, header->viewport()->mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(header->viewport(), &move);
    }
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(x, y));
}

void settle()
{
    processSensors();
    for (int turn = 0; turn < 3; ++turn)
        QCoreApplication::processEvents();
}

} // namespace

class tst_ListColumnsFit : public ListEditorFixture
{
    Q_OBJECT

private slots:
    void lastColumnEndsInsideTheViewport_data();
    void lastColumnEndsInsideTheViewport();
    void columnDraggedWiderTakesRoomFromTheLast();
};

void tst_ListColumnsFit::lastColumnEndsInsideTheViewport_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("editor");
    QTest::newRow("float") << QByteArray("mfFloat") << "FxMFFloatWidget";
    QTest::newRow("double") << QByteArray("mfDouble") << "FxMFDoubleWidget";
    QTest::newRow("int32") << QByteArray("mfInt32") << "FxMFInt32Widget";
    QTest::newRow("short") << QByteArray("mfShort") << "FxMFShortWidget";
    QTest::newRow("uint32") << QByteArray("mfUInt32") << "FxMFUInt32Widget";
    QTest::newRow("ushort") << QByteArray("mfUShort") << "FxMFUShortWidget";
    QTest::newRow("string") << QByteArray("mfString") << "FxMFStringWidget";
    QTest::newRow("generic") << QByteArray("mfTime") << "FxMFDefaultFieldWidget";
    QTest::newRow("vec2f") << QByteArray("mfVec2f") << "FxMFVec2fWidget";
    QTest::newRow("vec2i32") << QByteArray("mfVec2i32") << "FxMFVec2i32Widget";
    QTest::newRow("vec2s") << QByteArray("mfVec2s") << "FxMFVec2sWidget";
    QTest::newRow("vec3f") << QByteArray("mfVec3f") << "FxMFVec3fWidget";
    QTest::newRow("vec4f") << QByteArray("mfVec4f") << "FxMFVec4fWidget";
    QTest::newRow("plane") << QByteArray("mfPlane") << "FxMFPlaneWidget";
    QTest::newRow("rotation") << QByteArray("mfRotation") << "FxMFRotationWidget";
    QTest::newRow("color") << QByteArray("mfColor") << "FxMFColorWidget";
    QTest::newRow("matrix") << QByteArray("mfMatrix") << "FxMFMatrixWidget";
}

void tst_ListColumnsFit::lastColumnEndsInsideTheViewport()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, editor);
    auto* list = static_cast<SoMField*>(m_node->getField(field.constData()));
    QVERIFY(list);
    QMainWindow* window = KalShell::getInstance()->getMainWindow();

    // A short list first, then one long enough to scroll and to need wider
    // row numbers, written while the editor is shown.
    QVERIFY(selectShown(list));
    QCOMPARE(dock()->widget()->objectName(), editor);
    settle();
    QVERIFY2(columnsFit(), qPrintable(lastColumnReport()));
    fillRows(*list, 1500);
    settle();
    QVERIFY(table()->verticalScrollBar()->isVisible());
    QVERIFY(table()->verticalScrollBar()->maximum() > 0);
    QVERIFY2(columnsFit(), qPrintable(QStringLiteral("grown: ") + lastColumnReport()));

    // Narrower and wider docks.
    for (int width : {420, 1000, 560}) {
        window->resize(width, 700);
        settle();
        QVERIFY2(columnsFit(), qPrintable(QStringLiteral("%1 px window: ").arg(width) + lastColumnReport()));
    }

    // Shown again on a list that is long from the start, then shrunk.
    select(nullptr);
    QVERIFY(selectShown(list));
    settle();
    QVERIFY2(columnsFit(), qPrintable(QStringLiteral("long at once: ") + lastColumnReport()));
    list->setNum(2);
    settle();
    QVERIFY2(columnsFit(), qPrintable(QStringLiteral("shrunk: ") + lastColumnReport()));
}

void tst_ListColumnsFit::columnDraggedWiderTakesRoomFromTheLast()
{
    KalShell::getInstance()->getMainWindow()->resize(420, 700);
    QVERIFY(selectShown(&m_node->mfColor));
    settle();
    QHeaderView* header = table()->horizontalHeader();
    const int last = table()->columnCount() - 1;
    const int share = header->sectionSize(0);

    // The swatch column dragged far past the table's right edge.
    dragColumnEdge(0, table()->viewport()->width() + 200);
    settle();
    QVERIFY2(columnsFit(), qPrintable(lastColumnReport()));
    QVERIFY(header->sectionSize(0) > share);
    QCOMPARE(header->sectionSize(last), header->minimumSectionSize());
    QCOMPARE(header->sectionSize(1), share);

    // Back a little: the last column takes what the first gave up.
    const int dragged = header->sectionSize(0);
    dragColumnEdge(0, header->sectionViewportPosition(0) + dragged - 40);
    settle();
    QVERIFY2(columnsFit(), qPrintable(lastColumnReport()));
    QVERIFY(header->sectionSize(0) < dragged);
    QVERIFY(header->sectionSize(last) > header->minimumSectionSize());

    // A refresh of the field keeps the widths set by hand.
    const int kept = header->sectionSize(0);
    m_node->mfColor.set1Value(0, SbColor(0, 0, 1));
    settle();
    QCOMPARE(header->sectionSize(0), kept);
    QVERIFY2(columnsFit(), qPrintable(lastColumnReport()));

    // The last column's own edge is the viewport's.
    const int end = header->sectionViewportPosition(last) + header->sectionSize(last);
    dragColumnEdge(last, end - 30);
    settle();
    QCOMPARE(header->sectionViewportPosition(last) + header->sectionSize(last), end);
}

QTEST_MAIN(tst_ListColumnsFit)
#include "tst_ListColumnsFit.moc"
