// Numbers are shown shortened (six digits, six decimals); what the user did
// not change must still go back to the field as the field holds it. Every
// editor of numbers with components, single-value and list, on values of
// eight significant digits: leaving a control, Return, a slider released
// where it was pressed, and a popup opened and closed write nothing that
// differs, and editing one component leaves every other one, and every
// other field of the node, as it was, through undo and redo too.
#include "FieldTesting.h"
#include "ListEditorFixture.h"
#include "SliderDrag.h"
#include "TableTesting.h"

#include <KalServices.h>

#include <Inventor/SoDB.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/fields/SoFieldData.h>
#include <Inventor/fields/SoMField.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/nodes/SoMatrixTransform.h>
#include <Inventor/nodes/SoRotation.h>
#include <Inventor/sensors/SoFieldSensor.h>

#include <QApplication>
#include <QFocusEvent>
#include <QFrame>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTableWidget>
#include <QtTest>

#include <algorithm>

namespace {

const char kMatrix[] = "-0.69569266 0.71838945 0.012345678 0 "
                       "0.54383814 0.83004785 -0.12347856 0 "
                       "-0.2048548 0.30023453 0.93168502 0 "
                       "1.2345678 -2.3456789 3.4567891 1";
const char kRotation[] = "-0.43643582 0.21821791 0.87287158 1.2345678";

// Every field of the container as "name=text", in the container's order.
QStringList containerTexts(SoFieldContainer* container)
{
    QStringList texts;
    SoFieldList fields;
    container->getFields(fields);
    for (int i = 0; i < fields.getLength(); ++i) {
        SbName name;
        container->getFieldName(fields[i], name);
        texts << QString::fromLatin1(name.getString()) + QLatin1Char('=') + fieldText(fields[i]);
    }
    return texts;
}

// The same without one field's entry.
QStringList othersOf(const QStringList& texts, const QByteArray& field)
{
    QStringList others;
    for (const QString& text : texts) {
        if (!text.startsWith(QString::fromLatin1(field + '=')))
            others << text;
    }
    return others;
}

// A value's numbers as Coin writes them.
QStringList tokensOf(const QString& text)
{
    QString plain = text;
    plain.remove(QLatin1Char('[')).remove(QLatin1Char(']')).replace(QLatin1Char(','), QLatin1Char(' '));
    return plain.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QString rowText(SoMField* field, int row)
{
    SbString text;
    field->get1(row, text);
    return QString::fromLatin1(text.getString());
}

// Leaving a line edit, as when the user clicks elsewhere.
void leave(QLineEdit* edit)
{
    QFocusEvent in(QEvent::FocusIn, Qt::MouseFocusReason);
    QApplication::sendEvent(edit, &in);
    QFocusEvent out(QEvent::FocusOut, Qt::MouseFocusReason);
    QApplication::sendEvent(edit, &out);
}

// The lines of a list editor's popup in grid order, found by their place in
// its layout: the popup is a window of its own, but a child of the editor.
QList<QLineEdit*> popupLines(QWidget* editor)
{
    QList<QLineEdit*> lines;
    auto* grid = editor ? editor->findChild<QGridLayout*>(QStringLiteral("m_popupFrameLayout")) : nullptr;
    if (!grid)
        return lines;
    for (int row = 0; row < grid->rowCount(); ++row) {
        for (int column = 0; column < grid->columnCount(); ++column) {
            QLayoutItem* item = grid->itemAtPosition(row, column);
            if (item && item->widget())
                lines << static_cast<QLineEdit*>(item->widget());
        }
    }
    return lines;
}

// Presses the slider on its handle and lets go without moving.
void pressAndRelease(QSlider* slider)
{
    const QPoint handle = SliderDrag::handleCentre(slider);
    QTest::mousePress(slider, Qt::LeftButton, Qt::NoModifier, handle);
    QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, handle);
}

// Counts the notifications of a field while it lives.
class WriteCounter
{
public:
    explicit WriteCounter(SoField* field)
        : sensor(countTrigger, &count)
    {
        sensor.setPriority(0);
        sensor.attach(field);
    }
    int count = 0;

private:
    SoFieldSensor sensor;
};

} // namespace

class tst_UntouchedComponents : public ListEditorFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void untouchedControlsWriteNothing_data();
    void untouchedControlsWriteNothing();
    void oneComponentChangesOnlyIt_data();
    void oneComponentChangesOnlyIt();
    void sliderFrameUndoGivesTheExactValueBack();
    void spinBoxRefreshWritesNothing();
    void untouchedListCellsWriteNothing_data();
    void untouchedListCellsWriteNothing();
    void listCellChangesOnlyItsComponent_data();
    void listCellChangesOnlyItsComponent();
    void listMatrixLineChangesOnlyItsElement();
    void listFloatSliderReleasedUnmovedWritesNothing();

private:
    // The container a row names and its field, set to `value`.
    SoField* prepare(const QString& container, const QByteArray& fieldName, const QByteArray& value);
    // The editor's line edits of that name, in reading order; a popup's
    // cells are opened first.
    QList<QLineEdit*> inputs(const QString& name, bool popup);
    // The list editor's table ("m_table", or the colour list's own).
    static QTableWidget* listTable();

    SoMatrixTransform* m_matrixTransform = nullptr;
    SoRotation* m_rotation = nullptr;
    SoFieldContainer* m_container = nullptr;
};

void tst_UntouchedComponents::init()
{
    ListEditorFixture::init();
    m_matrixTransform = new SoMatrixTransform;
    m_matrixTransform->ref();
    m_rotation = new SoRotation;
    m_rotation->ref();
}

void tst_UntouchedComponents::cleanup()
{
    ListEditorFixture::cleanup();
    m_matrixTransform->unref();
    m_rotation->unref();
}

SoField* tst_UntouchedComponents::prepare(const QString& container, const QByteArray& fieldName,
                                          const QByteArray& value)
{
    if (container == QLatin1String("MatrixTransform"))
        m_container = m_matrixTransform;
    else if (container == QLatin1String("Rotation"))
        m_container = m_rotation;
    else
        m_container = m_node;
    SoField* field = m_container->getField(SbName(fieldName.constData()));
    if (field && !value.isEmpty())
        field->set(value.constData());
    return field;
}

QList<QLineEdit*> tst_UntouchedComponents::inputs(const QString& name, bool popup)
{
    if (popup) {
        auto* button = dock()->widget()->findChild<QPushButton*>(QStringLiteral("m_editButton"));
        if (!button)
            return {};
        QTest::mouseClick(button, Qt::LeftButton);
        // Created row by row, so in cell order.
        return dock()->widget()->findChildren<QLineEdit*>(name);
    }
    QList<QLineEdit*> found = dock()->widget()->findChildren<QLineEdit*>(name);
    std::sort(found.begin(), found.end(), [](QLineEdit* a, QLineEdit* b) { return a->x() < b->x(); });
    return found;
}

QTableWidget* tst_UntouchedComponents::listTable()
{
    return dock()->widget() ? dock()->widget()->findChild<QTableWidget*>() : nullptr;
}

namespace {

void addEditorColumns()
{
    QTest::addColumn<QString>("container");
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("input");
    QTest::addColumn<bool>("popup");
}

} // namespace

void tst_UntouchedComponents::untouchedControlsWriteNothing_data()
{
    addEditorColumns();
    QTest::newRow("SFVec2f") << "AllFields" << QByteArray("sfVec2f") << QByteArray("0.12345679 -98765.433")
                             << "SFVec2fBox" << false;
    QTest::newRow("SFVec3f") << "AllFields" << QByteArray("sfVec3f")
                             << QByteArray("0.12345679 -98765.433 1.0000001") << "SFVec3fLine" << false;
    QTest::newRow("SFVec4f") << "AllFields" << QByteArray("sfVec4f")
                             << QByteArray("0.12345679 -98765.433 1.0000001 3.1415927") << "SF4fine" << false;
    QTest::newRow("SFPlane") << "AllFields" << QByteArray("sfPlane")
                             << QByteArray("0.26726124 0.53452247 0.80178374 1.2345678") << "SF4fine"
                             << false;
    QTest::newRow("SFRotation") << "AllFields" << QByteArray("sfRotation") << QByteArray(kRotation)
                                << "SF4fine" << false;
    QTest::newRow("Rotation.rotation")
        << "Rotation" << QByteArray("rotation") << QByteArray(kRotation) << "SF4fine" << false;
    QTest::newRow("SFColor") << "AllFields" << QByteArray("sfColor")
                             << QByteArray("0.12345679 0.98765433 0.50000006") << "SFColorLine" << false;
    QTest::newRow("SFMatrix") << "AllFields" << QByteArray("sfMatrix") << QByteArray(kMatrix) << "m_cell"
                              << true;
    QTest::newRow("MatrixTransform.matrix")
        << "MatrixTransform" << QByteArray("matrix") << QByteArray(kMatrix) << "m_cell" << true;
    QTest::newRow("SFFloat") << "AllFields" << QByteArray("sfFloat") << QByteArray("0.12345679")
                             << "m_lineEdit" << false;
    QTest::newRow("SFDouble") << "AllFields" << QByteArray("sfDouble") << QByteArray("0.1234567890123456")
                              << "m_lineEdit" << false;
    QTest::newRow("SFInt32") << "AllFields" << QByteArray("sfInt32") << QByteArray("-123456789")
                             << "m_lineEdit" << false;
    QTest::newRow("SFUInt32") << "AllFields" << QByteArray("sfUInt32") << QByteArray("4000000000")
                              << "m_lineEdit" << false;
    QTest::newRow("SFShort") << "AllFields" << QByteArray("sfShort") << QByteArray("-1234") << "m_lineEdit"
                             << false;
    QTest::newRow("SFUShort") << "AllFields" << QByteArray("sfUShort") << QByteArray("65000") << "m_lineEdit"
                              << false;
    QTest::newRow("SFBox3s") << "AllFields" << QByteArray("sfBox3s") << QByteArray("-3 -2 -1 1 2 3")
                             << "m_cell" << true;
}

// Leaving every input, Return in every input and, for the slider frames, a
// press and release on the handle: nothing is written, and what the design
// records for Return undoes and redoes to the same texts.
void tst_UntouchedComponents::untouchedControlsWriteNothing()
{
    QFETCH(QString, container);
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, value);
    QFETCH(QString, input);
    QFETCH(bool, popup);
    SoField* edited = prepare(container, field, value);
    QVERIFY(edited);
    QVERIFY(selectShown(edited));
    KalServices::getInstance()->clearHistory();
    const QStringList before = containerTexts(m_container);

    const QList<QLineEdit*> lines = inputs(input, popup);
    QVERIFY(!lines.isEmpty());
    WriteCounter writes(edited);
    for (QLineEdit* line : lines) {
        leave(line);
        processSensors();
        QCOMPARE(containerTexts(m_container), before);
        QTest::keyClick(line, Qt::Key_Return);
        processSensors();
        QCOMPARE(containerTexts(m_container), before);
    }
    if (auto* slider = dock()->widget()->findChild<QSlider*>(QStringLiteral("m_slider"))) {
        pressAndRelease(slider);
        processSensors();
        QCOMPARE(containerTexts(m_container), before);
    }
    if (popup) {
        // Closed as it was opened, by its button.
        QTest::mouseClick(dock()->widget()->findChild<QPushButton*>(QStringLiteral("m_editButton")),
                          Qt::LeftButton);
        processSensors();
    }
    QCOMPARE(writes.count, 0);
    QCOMPARE(containerTexts(m_container), before);

    KalServices* services = KalServices::getInstance();
    while (services->undo())
        QCOMPARE(containerTexts(m_container), before);
    while (services->redo())
        QCOMPARE(containerTexts(m_container), before);
}

void tst_UntouchedComponents::oneComponentChangesOnlyIt_data()
{
    addEditorColumns();
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("typed");
    // Whether undo goes back to the value from before the edit: the slider
    // frames keep it; the other editors record the value after the edit as
    // both of their texts.
    QTest::addColumn<bool>("undoGoesBack");

    QTest::newRow("SFVec2f y") << "AllFields" << QByteArray("sfVec2f") << QByteArray("0.12345679 -98765.433")
                               << "SFVec2fBox" << false << 1 << "7.5" << false;
    QTest::newRow("SFVec3f x") << "AllFields" << QByteArray("sfVec3f")
                               << QByteArray("0.12345679 -98765.433 1.0000001") << "SFVec3fLine" << false << 0
                               << "-2.25" << false;
    QTest::newRow("SFVec4f w") << "AllFields" << QByteArray("sfVec4f")
                               << QByteArray("0.12345679 -98765.433 1.0000001 3.1415927") << "SF4fine"
                               << false << 3 << "0.5" << false;
    QTest::newRow("SFPlane distance")
        << "AllFields" << QByteArray("sfPlane") << QByteArray("0.26726124 0.53452247 0.80178374 1.2345678")
        << "SF4fine" << false << 3 << "4.5" << false;
    QTest::newRow("SFRotation angle") << "AllFields" << QByteArray("sfRotation") << QByteArray(kRotation)
                                      << "SF4fine" << false << 3 << "0.5" << false;
    QTest::newRow("Rotation.rotation angle") << "Rotation" << QByteArray("rotation") << QByteArray(kRotation)
                                             << "SF4fine" << false << 3 << "2.75" << false;
    QTest::newRow("SFColor green") << "AllFields" << QByteArray("sfColor")
                                   << QByteArray("0.12345679 0.98765433 0.50000006") << "SFColorLine" << false
                                   << 1 << "0.25" << false;
    QTest::newRow("SFMatrix [1][2]") << "AllFields" << QByteArray("sfMatrix") << QByteArray(kMatrix)
                                     << "m_cell" << true << 6 << "0.5" << false;
    QTest::newRow("MatrixTransform.matrix [3][0]")
        << "MatrixTransform" << QByteArray("matrix") << QByteArray(kMatrix) << "m_cell" << true << 12 << "-4"
        << false;
    QTest::newRow("SFFloat") << "AllFields" << QByteArray("sfFloat") << QByteArray("0.12345679")
                             << "m_lineEdit" << false << 0 << "2.5" << true;
    QTest::newRow("SFDouble") << "AllFields" << QByteArray("sfDouble") << QByteArray("0.1234567890123456")
                              << "m_lineEdit" << false << 0 << "2.5" << true;
}

void tst_UntouchedComponents::oneComponentChangesOnlyIt()
{
    QFETCH(QString, container);
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, value);
    QFETCH(QString, input);
    QFETCH(bool, popup);
    QFETCH(int, index);
    QFETCH(QString, typed);
    QFETCH(bool, undoGoesBack);
    SoField* edited = prepare(container, field, value);
    QVERIFY(edited);
    QVERIFY(selectShown(edited));
    KalServices::getInstance()->clearHistory();
    const QStringList before = containerTexts(m_container);
    const QStringList tokensBefore = tokensOf(fieldText(edited));

    const QList<QLineEdit*> lines = inputs(input, popup);
    QVERIFY(lines.size() > index);
    typeIntoLine(lines[index], typed);
    processSensors();

    const QStringList after = containerTexts(m_container);
    QCOMPARE(othersOf(after, field), othersOf(before, field));
    const QStringList tokensAfter = tokensOf(fieldText(edited));
    QCOMPARE(tokensAfter.size(), tokensBefore.size());
    for (int i = 0; i < tokensBefore.size(); ++i) {
        if (i == index)
            QVERIFY2(qFuzzyCompare(tokensAfter[i].toDouble(), typed.toDouble()), qPrintable(tokensAfter[i]));
        else
            QCOMPARE(tokensAfter[i], tokensBefore[i]);
    }

    KalServices* services = KalServices::getInstance();
    QVERIFY(services->undo());
    QCOMPARE(containerTexts(m_container), undoGoesBack ? before : after);
    QVERIFY(services->redo());
    QCOMPARE(containerTexts(m_container), after);
}

// The previous value a slider frame keeps for undo is the field's own, not
// its six decimals.
void tst_UntouchedComponents::sliderFrameUndoGivesTheExactValueBack()
{
    m_node->sfFloat.setValue(0.12345679f);
    QVERIFY(selectShown(&m_node->sfFloat));
    KalServices::getInstance()->clearHistory();
    const QString before = fieldText(&m_node->sfFloat);
    auto* line = dock()->widget()->findChild<QLineEdit*>(QStringLiteral("m_lineEdit"));
    QVERIFY(line);
    // The value shown again, as typed, is the value held.
    typeIntoLine(line, line->text());
    processSensors();
    QCOMPARE(fieldText(&m_node->sfFloat), before);
    typeIntoLine(line, QStringLiteral("3"));
    processSensors();
    QCOMPARE(fieldText(&m_node->sfFloat), QStringLiteral("3"));
    while (KalServices::getInstance()->undo()) {
    }
    QCOMPARE(fieldText(&m_node->sfFloat), before);
}

// A refresh that moves both spin boxes (an undo, a change made elsewhere)
// records a command as designed and writes nothing: filled one box at a
// time, the second box's old number went into the field in between.
void tst_UntouchedComponents::spinBoxRefreshWritesNothing()
{
    selectInWindow(&m_node->sfVec2i32);
    WriteCounter writes(&m_node->sfVec2i32);
    m_node->sfVec2i32.setValue(SbVec2i32(20, 30));
    QCOMPARE(writes.count, 1);
    processSensors();
    QCOMPARE(writes.count, 1);
    QCOMPARE(m_node->sfVec2i32.getValue(), SbVec2i32(20, 30));
    QCOMPARE(KalServices::getInstance()->commandCount(), 1);
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

void tst_UntouchedComponents::untouchedListCellsWriteNothing_data()
{
    addListColumns();
    addListRows();
}

// Every cell of the first row opened and left, and given its own text
// again: the field keeps every value as it was.
void tst_UntouchedComponents::untouchedListCellsWriteNothing()
{
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, value);
    QFETCH(int, firstColumn);
    SoField* edited = prepare(QStringLiteral("AllFields"), field, value);
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

void tst_UntouchedComponents::listCellChangesOnlyItsComponent_data()
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
void tst_UntouchedComponents::listCellChangesOnlyItsComponent()
{
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, value);
    QFETCH(int, firstColumn);
    QFETCH(int, component);
    QFETCH(QString, typed);
    SoField* edited = prepare(QStringLiteral("AllFields"), field, value);
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
void tst_UntouchedComponents::listMatrixLineChangesOnlyItsElement()
{
    SoField* edited = prepare(QStringLiteral("AllFields"), "mfMatrix",
                              QByteArray("[") + kMatrix + ", 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1]");
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
void tst_UntouchedComponents::listFloatSliderReleasedUnmovedWritesNothing()
{
    SoField* edited = prepare(QStringLiteral("AllFields"), "mfFloat", "[0.12345679, 0.98765433]");
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

QTEST_MAIN(tst_UntouchedComponents)
#include "tst_UntouchedComponents.moc"
