// The matrix list editor through the real plug-in in the host's dock: the
// whole field's text in every row, the edit button, the popup grid of
// sixteen lines that writes each keystroke into the current row's matrix,
// and the popup closing when its field goes.
#include "AllFieldsNode.h"
#include "ListEditorTesting.h"

#include <FxMFieldTableItemDelegate.h>
#include <FxTablePopupLineEdit.h>
#include <FxTablePopupWidget.h>
#include <KalMFSetValueCommand.h>
#include <LayoutMetrics.h>
#include <SoKalExtensions.h>

#include <Inventor/SbMatrix.h>
#include <Inventor/SoDB.h>

#include <QDoubleValidator>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QScreen>

#include <algorithm>
#include <limits>

using namespace ListEditorTesting;

namespace {

QString fieldText(SoField& field)
{
    SbString text;
    field.get(text);
    return QString::fromUtf8(text.getString());
}

QFrame* popup()
{
    return EditorDockFixture::child<QFrame>("m_popupFrame");
}

QList<QLineEdit*> popupLines()
{
    return ListEditorTesting::popupLines(popup());
}

QStringList popupTexts()
{
    QStringList texts;
    for (QLineEdit* line : popupLines())
        texts << line->text();
    return texts;
}

void openPopup()
{
    click("m_editButton");
    QCoreApplication::processEvents();
}

QStringList elements(const SbMatrix& matrix)
{
    QStringList texts;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            texts << QString::number(double(matrix[row][column]), 'g', 6);
    }
    return texts;
}

SbMatrix translation(float x, float y, float z)
{
    SbMatrix matrix;
    matrix.setTranslate(SbVec3f(x, y, z));
    return matrix;
}

} // namespace

class tst_ListMatrixEditor : public ListEditorFixture
{
    Q_OBJECT

private slots:
    void everyRowShowsTheWholeField();
    void cellsAreNotEditedInPlace();
    void editButtonSitsAmongTheButtons();
    void editButtonNeedsAValue();
    void popupShowsTheCurrentRowsMatrix();
    void popupSitsBesideTheEditor();
    void openingThePopupWritesNothing();
    void everyKeystrokeWritesThrough();
    void numbersNoFloatHoldsLeaveTheMatrix_data();
    void numbersNoFloatHoldsLeaveTheMatrix();
    void popupClosesWhenAnotherFieldIsSelected();
    void popupClosesWhenItsNodeIsDeleted();
    void hugeFieldShowsItsHead();
};

void tst_ListMatrixEditor::everyRowShowsTheWholeField()
{
    select(&m_node->mfMatrix);
    QCOMPARE(dock()->widget()->objectName(), QStringLiteral("FxMFMatrixWidget"));
    QCOMPARE(table()->columnCount(), 1);
    QCOMPARE(table()->rowCount(), 2);
    QCOMPARE(elementCount(), QStringLiteral("2 elements"));
    FxMFieldWidget* editor = shownEditor();
    const QString whole = fieldText(m_node->mfMatrix);
    QCOMPARE(editor->getValueText(0, 0), whole);
    QCOMPARE(editor->getValueText(1, 0), whole);
    QVERIFY(editor->getValueText(2, 0).isNull());
    QVERIFY(editor->getValueText(0, 1).isNull());
    QCOMPARE(editor->getValueAlignment(), int(Qt::AlignLeft));
    // A change anywhere shows in every row.
    m_node->mfMatrix.set1Value(1, translation(7, 8, 9));
    processSensors();
    QVERIFY(editor->getValueText(0, 0).contains(QStringLiteral("7 8 9 1")));
    QCOMPARE(editor->getValueText(0, 0), fieldText(m_node->mfMatrix));
}

void tst_ListMatrixEditor::cellsAreNotEditedInPlace()
{
    select(&m_node->mfMatrix);
    FxMFieldTable* shown = table();
    const QModelIndex cell = shown->model()->index(0, 0);
    const QPoint centre = shown->visualRect(cell).center();
    QTest::mouseClick(shown->viewport(), Qt::LeftButton, Qt::NoModifier, centre);
    QTest::mouseDClick(shown->viewport(), Qt::LeftButton, Qt::NoModifier, centre);
    QTest::keyClick(shown, Qt::Key_F2);
    QVERIFY(!shown->indexWidget(cell));
    QCOMPARE(commands(), 0);
}

void tst_ListMatrixEditor::editButtonSitsAmongTheButtons()
{
    select(&m_node->mfMatrix);
    auto* edit = child<QPushButton>("m_editButton");
    QVERIFY(edit);
    QCOMPARE(edit->maximumSize(), QSize(LayoutMetrics::value(QStringLiteral("buttonWidth")),
                                        LayoutMetrics::value(QStringLiteral("buttonHeight"))));
    QVERIFY(!edit->icon().isNull());
    QCOMPARE(edit->focusPolicy(), Qt::NoFocus);
    // Fifth in the row of buttons, after the access box and its spacer.
    auto* grid = qobject_cast<QGridLayout*>(dock()->widget()->layout());
    QVERIFY(grid);
    auto* buttons = qobject_cast<QHBoxLayout*>(grid->itemAtPosition(0, 2)->layout());
    QVERIFY(buttons);
    QCOMPARE(buttons->indexOf(edit), 4);
    QCOMPARE(buttons->indexOf(accessBox()), 2);
}

void tst_ListMatrixEditor::editButtonNeedsAValue()
{
    select(&m_node->mfMatrix);
    auto* edit = child<QPushButton>("m_editButton");
    QVERIFY(edit->isEnabled());
    m_node->mfMatrix.setNum(0);
    processSensors();
    QVERIFY(!edit->isEnabled());
    // Its slot with nothing to edit opens an empty grid and writes nothing.
    QMetaObject::invokeMethod(dock()->widget()->findChild<QPushButton*>(QStringLiteral("m_editButton")),
                              "click");
    QCOMPARE(m_node->mfMatrix.getNum(), 0);
    QCOMPARE(commands(), 0);
}

void tst_ListMatrixEditor::popupShowsTheCurrentRowsMatrix()
{
    select(&m_node->mfMatrix);
    QFrame* frame = popup();
    QVERIFY(frame);
    QVERIFY(frame->isHidden());
    QVERIFY(frame->windowFlags() & Qt::Popup);
    QCOMPARE(frame->frameShape(), QFrame::StyledPanel);
    QCOMPARE(frame->frameShadow(), QFrame::Raised);
    auto* grid = frame->findChild<QGridLayout*>(QStringLiteral("m_popupFrameLayout"));
    QVERIFY(grid);
    QCOMPARE(grid->spacing(), LayoutMetrics::value(QStringLiteral("PopupLayoutSpacing")));
    QCOMPARE(grid->contentsMargins().left(), LayoutMetrics::value(QStringLiteral("PopupLayoutMargin")));
    QCOMPARE(popupLines().size(), 16);
    for (QLineEdit* line : popupLines()) {
        QVERIFY(line->inherits("FxTablePopupLineEdit"));
        auto* numbers = qobject_cast<const QDoubleValidator*>(line->validator());
        QVERIFY(numbers);
        // The largest float itself, so that what the line takes, a float
        // holds.
        QCOMPARE(numbers->top(), double(std::numeric_limits<float>::max()));
        QCOMPARE(numbers->bottom(), -double(std::numeric_limits<float>::max()));
        QCOMPARE(numbers->decimals(), 6);
    }
    // Each line's index is its place in the grid, row by row.
    for (int i = 0; i < 16; ++i)
        QCOMPARE(static_cast<FxTablePopupLineEdit*>(popupLines().at(i))->getIndex(), i);

    // No row picked: the grid opens on the first.
    openPopup();
    QVERIFY(frame->isVisible());
    QCOMPARE(popupTexts(), elements(SbMatrix::identity()));
    openPopup();
    QVERIFY(frame->isHidden());

    clickCell(1);
    openPopup();
    QVERIFY(frame->isVisible());
    QCOMPARE(popupTexts(), elements(translation(1, 2, 3)));
    QCOMPARE(popupTexts().at(12), QStringLiteral("1"));
    QCOMPARE(popupTexts().at(14), QStringLiteral("3"));
}

void tst_ListMatrixEditor::popupSitsBesideTheEditor()
{
    select(&m_node->mfMatrix);
    QFrame* frame = popup();
    QMainWindow* window = KalShell::getInstance()->getMainWindow();
    const QRect screen = dock()->widget()->screen()->availableGeometry();
    // The offscreen platform adds a frame of 2 pixels round a popup.
    const auto near = [](int actual, int expected) { return qAbs(actual - expected) <= 2; };
    for (const int left : {0, 400}) {
        window->move(left, 20);
        QCoreApplication::processEvents();
        openPopup();
        QVERIFY(frame->isVisible());
        // As wide as the metric says; as tall as four rows of lines need.
        QCOMPARE(frame->width(), LayoutMetrics::value(QStringLiteral("PopupFrameWidth")));
        QVERIFY(frame->height() >= LayoutMetrics::value(QStringLiteral("PopupFrameHeight")));
        // Its right edge meets the editor's top-left corner, unless that
        // would put it off the screen.
        const QPoint corner = dock()->widget()->mapToGlobal(QPoint(0, 0));
        const int wanted = corner.x() - frame->width();
        if (left == 400)
            QVERIFY(wanted >= screen.left());
        QVERIFY2(near(frame->pos().x(), std::max(wanted, screen.left())),
                 qPrintable(QString::number(wanted)));
        QVERIFY(near(frame->pos().y(), corner.y()));
        openPopup();
        QVERIFY(frame->isHidden());
    }
}

void tst_ListMatrixEditor::openingThePopupWritesNothing()
{
    select(&m_node->mfMatrix);
    const QStringList before = values(m_node->mfMatrix);
    clickCell(1);
    openPopup();
    openPopup();
    openPopup();
    QCOMPARE(values(m_node->mfMatrix), before);
    QCOMPARE(commands(), 0);
}

void tst_ListMatrixEditor::everyKeystrokeWritesThrough()
{
    select(&m_node->mfMatrix);
    clickCell(1);
    openPopup();
    // Row 1, column 1 of the translation matrix: 1.
    QLineEdit* line = popupLines().at(5);
    line->setFocus();
    line->selectAll();
    QTest::keyClick(line, Qt::Key_2);
    QCOMPARE(m_node->mfMatrix[1][1][1], 2.0f);
    QCOMPARE(commands(), 1);
    // "2." reads as 2: no change, no command.
    QTest::keyClicks(line, QStringLiteral("."));
    QCOMPARE(commands(), 1);
    QTest::keyClicks(line, QStringLiteral("5"));
    QCOMPARE(m_node->mfMatrix[1][1][1], 2.5f);
    QCOMPARE(commands(), 2);
    QVERIFY(lastCommandIs<KalMFSetValueCommand>());
    // Everything else of the matrix, and the other row, stays.
    SbMatrix expected = translation(1, 2, 3);
    expected[1][1] = 2.5f;
    QVERIFY(m_node->mfMatrix[1] == expected);
    QVERIFY(m_node->mfMatrix[0] == SbMatrix::identity());
    // The popup is not refilled under the typing.
    processSensors();
    QCOMPARE(line->text(), QStringLiteral("2.5"));
    // A half-typed "-" is 0 until the number follows.
    line->selectAll();
    QTest::keyClicks(line, QStringLiteral("-"));
    QCOMPARE(m_node->mfMatrix[1][1][1], 0.0f);
    QTest::keyClicks(line, QStringLiteral("4"));
    QCOMPARE(m_node->mfMatrix[1][1][1], -4.0f);
    // The command was made after the write: undo keeps the value, as every
    // list editor's value commands do.
    QVERIFY(KalServices::getInstance()->undo());
    QCOMPARE(m_node->mfMatrix[1][1][1], -4.0f);
}

void tst_ListMatrixEditor::numbersNoFloatHoldsLeaveTheMatrix_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("past the largest float") << "1e39";
    QTest::newRow("1e999") << "1e999";
    QTest::newRow("400 digits") << QString(400, QLatin1Char('9'));
}

void tst_ListMatrixEditor::numbersNoFloatHoldsLeaveTheMatrix()
{
    QFETCH(QString, text);
    select(&m_node->mfMatrix);
    openPopup();
    QLineEdit* line = popupLines().at(0);
    const QStringList before = values(m_node->mfMatrix);
    // Set as a paste sets it: the validator does not see it.
    line->setText(text);
    QCOMPARE(values(m_node->mfMatrix), before);
    QCOMPARE(commands(), 0);
    // Text past the grid's lines, or rows past the list, change nothing.
    shownEditor()->setValueFromText(0, 16, QStringLiteral("1"));
    shownEditor()->setValueFromText(5, 0, QStringLiteral("1"));
    shownEditor()->setValueFromText(-1, 0, QStringLiteral("1"));
    QCOMPARE(values(m_node->mfMatrix), before);
    QCOMPARE(commands(), 0);
}

void tst_ListMatrixEditor::popupClosesWhenAnotherFieldIsSelected()
{
    select(&m_node->mfMatrix);
    openPopup();
    QFrame* frame = popup();
    QVERIFY(frame->isVisible());
    select(&m_node->mfFloat);
    QVERIFY(frame->isHidden());
    // Back on the matrices, closed, and the grid still edits.
    select(&m_node->mfMatrix);
    QVERIFY(frame->isHidden());
    openPopup();
    QVERIFY(frame->isVisible());
    popupLines().at(3)->setText(QStringLiteral("6"));
    QCOMPARE(m_node->mfMatrix[0][0][3], 6.0f);
}

void tst_ListMatrixEditor::popupClosesWhenItsNodeIsDeleted()
{
    select(&m_node->mfMatrix);
    openPopup();
    QFrame* frame = popup();
    QVERIFY(frame->isVisible());
    QLineEdit* line = popupLines().at(0);
    m_node->unref();
    m_node = nullptr;
    processSensors();
    QVERIFY(frame->isHidden());
    // A keystroke that still reaches the grid writes nowhere.
    line->setText(QStringLiteral("3"));
    QCOMPARE(commands(), 0);
}

// Every row shows the head of a text of megabytes; painting it measures
// only the head.
void tst_ListMatrixEditor::hugeFieldShowsItsHead()
{
    m_node->mfMatrix.setNum(20000);
    select(&m_node->mfMatrix);
    QCOMPARE(table()->rowCount(), 20000);
    const QString whole = shownEditor()->getValueText(0, 0);
    QVERIFY(whole.size() > 20000 * 16);
    const QImage painted = table()->viewport()->grab().toImage();
    QVERIFY(!painted.isNull());
    table()->scrollToBottom();
    QCoreApplication::processEvents();
    QCOMPARE(shownEditor()->getValueText(19999, 0), whole);
    const QFontMetrics metrics(table()->font());
    const QString shown = FxMFieldTableItemDelegate::elided(metrics, whole, 100);
    QVERIFY(shown.endsWith(QStringLiteral("...")));
    QVERIFY(whole.startsWith(shown.chopped(3)));
    QVERIFY(metrics.horizontalAdvance(shown) <= 100);
}

QTEST_MAIN(tst_ListMatrixEditor)
#include "tst_ListMatrixEditor.moc"
