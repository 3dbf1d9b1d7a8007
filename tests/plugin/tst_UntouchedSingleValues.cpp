// Numbers are shown shortened (six digits, six decimals); what the user did
// not change must still go back to the field as the field holds it. The
// single-value editors of numbers, on values of eight significant digits
// and on a MatrixTransform and a Rotation node: leaving a control, Return,
// a slider released where it was pressed and a popup opened and closed
// write nothing that differs, and editing one component leaves every other
// one, and every other field of the node, as it was, through undo and redo.
#include "ListEditorFixture.h"
#include "UntouchedTesting.h"

#include <KalServices.h>

#include <QPushButton>
#include <QtTest>

#include <Inventor/nodes/SoMatrixTransform.h>
#include <Inventor/nodes/SoRotation.h>

class tst_UntouchedSingleValues : public ListEditorFixture
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

private:
    // The container a row names and its field, set to `value`.
    SoField* prepare(const QString& container, const QByteArray& fieldName, const QByteArray& value);
    // The editor's line edits of that name, in reading order; a popup's
    // cells are opened first.
    QList<QLineEdit*> inputs(const QString& name, bool popup);

    SoMatrixTransform* m_matrixTransform = nullptr;
    SoRotation* m_rotation = nullptr;
    SoFieldContainer* m_container = nullptr;
};

void tst_UntouchedSingleValues::init()
{
    ListEditorFixture::init();
    m_matrixTransform = new SoMatrixTransform;
    m_matrixTransform->ref();
    m_rotation = new SoRotation;
    m_rotation->ref();
}

void tst_UntouchedSingleValues::cleanup()
{
    ListEditorFixture::cleanup();
    m_matrixTransform->unref();
    m_rotation->unref();
}

SoField* tst_UntouchedSingleValues::prepare(const QString& container, const QByteArray& fieldName,
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

QList<QLineEdit*> tst_UntouchedSingleValues::inputs(const QString& name, bool popup)
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

void tst_UntouchedSingleValues::untouchedControlsWriteNothing_data()
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
    QTest::newRow("SFRotation") << "AllFields" << QByteArray("sfRotation") << QByteArray(kEightDigitRotation)
                                << "SF4fine" << false;
    QTest::newRow("Rotation.rotation")
        << "Rotation" << QByteArray("rotation") << QByteArray(kEightDigitRotation) << "SF4fine" << false;
    QTest::newRow("SFColor") << "AllFields" << QByteArray("sfColor")
                             << QByteArray("0.12345679 0.98765433 0.50000006") << "SFColorLine" << false;
    QTest::newRow("SFMatrix") << "AllFields" << QByteArray("sfMatrix") << QByteArray(kEightDigitMatrix)
                              << "m_cell" << true;
    QTest::newRow("MatrixTransform.matrix")
        << "MatrixTransform" << QByteArray("matrix") << QByteArray(kEightDigitMatrix) << "m_cell" << true;
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
void tst_UntouchedSingleValues::untouchedControlsWriteNothing()
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

void tst_UntouchedSingleValues::oneComponentChangesOnlyIt_data()
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
    QTest::newRow("SFRotation angle")
        << "AllFields" << QByteArray("sfRotation") << QByteArray(kEightDigitRotation) << "SF4fine" << false
        << 3 << "0.5" << false;
    QTest::newRow("Rotation.rotation angle")
        << "Rotation" << QByteArray("rotation") << QByteArray(kEightDigitRotation) << "SF4fine" << false << 3
        << "2.75" << false;
    QTest::newRow("SFColor green") << "AllFields" << QByteArray("sfColor")
                                   << QByteArray("0.12345679 0.98765433 0.50000006") << "SFColorLine" << false
                                   << 1 << "0.25" << false;
    QTest::newRow("SFMatrix [1][2]") << "AllFields" << QByteArray("sfMatrix") << QByteArray(kEightDigitMatrix)
                                     << "m_cell" << true << 6 << "0.5" << false;
    QTest::newRow("MatrixTransform.matrix [3][0]")
        << "MatrixTransform" << QByteArray("matrix") << QByteArray(kEightDigitMatrix) << "m_cell" << true
        << 12 << "-4" << false;
    QTest::newRow("SFFloat") << "AllFields" << QByteArray("sfFloat") << QByteArray("0.12345679")
                             << "m_lineEdit" << false << 0 << "2.5" << true;
    QTest::newRow("SFDouble") << "AllFields" << QByteArray("sfDouble") << QByteArray("0.1234567890123456")
                              << "m_lineEdit" << false << 0 << "2.5" << true;
}

void tst_UntouchedSingleValues::oneComponentChangesOnlyIt()
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
void tst_UntouchedSingleValues::sliderFrameUndoGivesTheExactValueBack()
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
void tst_UntouchedSingleValues::spinBoxRefreshWritesNothing()
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
QTEST_MAIN(tst_UntouchedSingleValues)
#include "tst_UntouchedSingleValues.moc"
