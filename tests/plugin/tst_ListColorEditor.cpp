// The colour list editor: through the real plug-in in the host's dock, its
// swatches, its component cells and the colour dialog a swatch opens (the
// real dialog, answered as a person would); made directly, the same dialog
// through the replaceable dialog seam.
#include "AllFieldsNode.h"
#include "ListEditorTesting.h"
#include "TableTesting.h"

#include <FxMFColorTable.h>
#include <FxMFColorWidget.h>
#include <KalMFSetFieldValueCommand.h>
#include <KalMFSetValueCommand.h>
#include <ModalDialogs.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>

#include <QColorDialog>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>

#include <memory>

using namespace ListEditorTesting;

namespace {

QPoint cellCentre(int row, int column)
{
    FxMFieldTable* shown = table();
    const QModelIndex index = shown->model()->index(row, column);
    shown->scrollTo(index);
    return shown->visualRect(index).center();
}

// The colour the table paints at the centre of a cell.
QColor painted(int row, int column)
{
    const QPoint centre = cellCentre(row, column);
    return table()->viewport()->grab().toImage().pixelColor(centre);
}

// Answers every colour dialog opened while it lives, as a person does:
// notes where the first one started, then picks `choice`, or cancels when
// `choice` is not a colour.
class DialogAnswerer : public QObject
{
public:
    explicit DialogAnswerer(const QColor& choice)
        : m_choice(choice)
    {
        connect(&m_timer, &QTimer::timeout, this, &DialogAnswerer::answer);
        m_timer.start(5);
    }

    int visits = 0;
    QColor started;
    QString title;
    QWidget* parent = nullptr;

private:
    void answer()
    {
        auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible() || dialog->property("answered").toBool())
            return;
        dialog->setProperty("answered", true);
        if (visits++ == 0) {
            started = dialog->currentColor();
            title = dialog->windowTitle();
            parent = dialog->parentWidget();
        }
        if (m_choice.isValid()) {
            dialog->setCurrentColor(m_choice);
            dialog->accept();
        } else {
            dialog->reject();
        }
    }

    QColor m_choice;
    QTimer m_timer;
};

// A click on a component cell, which makes its row current; a click on the
// swatch would open the dialog.
void clickComponent(int row)
{
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, Qt::NoModifier, cellCentre(row, 1));
}

void clickSwatch(int row)
{
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, Qt::NoModifier, cellCentre(row, 0));
    processSensors();
}

} // namespace

class tst_ListColorEditor : public ListEditorFixture
{
    Q_OBJECT

private slots:
    void cleanup();

    void columnsAndTexts();
    void swatchesArePaintedFromTheValues();
    void swatchOfAValueOutsideTheRangeIsNotPainted();
    void swatchOpensNoCellEditor();
    void componentCellsEditOneComponent();
    void componentsOutsideTheRangeAreDropped_data();
    void componentsOutsideTheRangeAreDropped();
    void dialogStartsFromTheShiftedColourAndCancelChangesNothing();
    void chosenColourSetsTheRowWithOneCommand();
    void choosingTheSameColourRecordsNothing();
    void dialogGoesThroughTheSeam();
    void editorTakesAnyFieldButWritesOnlyColours();
    void longListKeepsItsColourTable();
    void rowOperations();
};

void tst_ListColorEditor::cleanup()
{
    ModalDialogs::setColor(nullptr);
    EditorDockFixture::cleanup();
}

void tst_ListColorEditor::columnsAndTexts()
{
    select(&m_node->mfColor);
    QCOMPARE(dock()->widget()->objectName(), QStringLiteral("FxMFColorWidget"));
    QVERIFY(table());
    QVERIFY(table()->inherits("FxMFColorTable"));
    QCOMPARE(table()->objectName(), QStringLiteral("FxMFieldTable"));
    QCOMPARE(headerLabels(), (QStringList{"Color", "R", "G", "B"}));
    // In a dock narrower than the columns' default widths.
    KalShell::getInstance()->getMainWindow()->resize(420, 600);
    QCoreApplication::processEvents();
    QVERIFY(table()->viewport()->width() < 400);
    for (int column = 0; column < 4; ++column) {
        QCOMPARE(table()->horizontalHeader()->sectionResizeMode(column), QHeaderView::Interactive);
        // Blue is in sight as well as the swatch.
        const QRect cell = table()->visualRect(table()->model()->index(0, column));
        QVERIFY(table()->viewport()->rect().contains(cell.center()));
    }
    QCOMPARE(table()->rowCount(), 2);
    FxMFieldWidget* editor = shownEditor();
    QCOMPARE(editor->getValueText(0, 0), QStringLiteral("1"));
    QCOMPARE(editor->getValueText(0, 1), QStringLiteral("0.5"));
    QCOMPARE(editor->getValueText(0, 2), QStringLiteral("0.25"));
    QVERIFY(editor->getValueText(0, 3).isNull());
    QVERIFY(editor->getValueText(2, 0).isNull());
    QCOMPARE(editor->getValueAlignment(), int(Qt::AlignLeft));
    QCOMPARE(elementCount(), QStringLiteral("2 elements"));
    auto* title = child<QLabel>("m_label");
    QVERIFY(title);
    QCOMPARE(QTextDocumentFragment::fromHtml(title->text()).toPlainText(), QStringLiteral("MFColor"));
    // The components sit one column to the right of the swatch.
    QCOMPARE(painted(0, 0), QColor(255, 127, 63));
}

void tst_ListColorEditor::swatchesArePaintedFromTheValues()
{
    select(&m_node->mfColor);
    // Truncated, not rounded: 0.5 * 255 is 127.5.
    QCOMPARE(painted(0, 0), QColor(255, 127, 63));
    QCOMPARE(painted(1, 0), QColor(51, 102, 153));
    // A new value repaints its swatch.
    m_node->mfColor.set1Value(1, SbColor(0, 1, 0));
    processSensors();
    QCOMPARE(painted(1, 0), QColor(0, 255, 0));
}

void tst_ListColorEditor::swatchOfAValueOutsideTheRangeIsNotPainted()
{
    // As a file may hold it.
    m_node->mfColor.set1Value(0, SbColor(1.5f, -1.0f, 1e30f));
    select(&m_node->mfColor);
    const QColor background = table()->palette().color(QPalette::Base);
    QCOMPARE(painted(0, 0), background);
    QCOMPARE(painted(1, 0), QColor(51, 102, 153));
    // The dialog still opens, at the nearest colour it can show (the shift
    // of components included).
    DialogAnswerer cancel{QColor()};
    clickSwatch(0);
    QCOMPARE(cancel.visits, 1);
    QCOMPARE(cancel.started, QColor(0, 255, 0));
    QCOMPARE(m_node->mfColor[0], SbColor(1.5f, -1.0f, 1e30f));
}

void tst_ListColorEditor::swatchOpensNoCellEditor()
{
    select(&m_node->mfColor);
    DialogAnswerer cancel{QColor()};
    FxMFieldTable* shown = table();
    QTest::mouseDClick(shown->viewport(), Qt::LeftButton, Qt::NoModifier, cellCentre(0, 0));
    QCoreApplication::processEvents();
    QVERIFY(!shown->indexWidget(shown->model()->index(0, 0)));
    QCOMPARE(values(m_node->mfColor), (QStringList{"1 0.5 0.25", "0.2 0.40000001 0.60000002"}));
}

void tst_ListColorEditor::componentCellsEditOneComponent()
{
    select(&m_node->mfColor);
    QVERIFY(typeIntoTableCell(table(), 0, 2, QStringLiteral("0.75")));
    QCOMPARE(m_node->mfColor[0], SbColor(1.0f, 0.75f, 0.25f));
    QCOMPARE(m_node->mfColor[1], SbColor(0.2f, 0.4f, 0.6f));
    QCOMPARE(commands(), 1);
    QVERIFY(lastCommandIs<KalMFSetValueCommand>());
    QCOMPARE(painted(0, 0), QColor(255, 191, 63));
    // The line edit opens on the component of its column, not the swatch's.
    QVERIFY(typeIntoTableCell(table(), 1, 3, QStringLiteral("0")));
    QCOMPARE(m_node->mfColor[1], SbColor(0.2f, 0.4f, 0.0f));
    QCOMPARE(commands(), 2);
}

void tst_ListColorEditor::componentsOutsideTheRangeAreDropped_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("1.5") << "1.5";
    QTest::newRow("just past 1") << "1.0001";
    QTest::newRow("negative") << "-0.1";
    QTest::newRow("nan") << "nan";
    QTest::newRow("inf") << "inf";
    QTest::newRow("1e999") << "1e999";
    QTest::newRow("letters") << "red";
    QTest::newRow("empty") << "";
    QTest::newRow("3000 digits") << QString(3000, QLatin1Char('7'));
}

void tst_ListColorEditor::componentsOutsideTheRangeAreDropped()
{
    QFETCH(QString, text);
    select(&m_node->mfColor);
    const QStringList before = values(m_node->mfColor);
    QVERIFY(typeIntoTableCell(table(), 0, 1, text));
    shownEditor()->setValueFromText(0, 0, text);
    QCOMPARE(values(m_node->mfColor), before);
    QCOMPARE(commands(), 0);
    // The bounds themselves are colours.
    shownEditor()->setValueFromText(0, 0, QStringLiteral("0"));
    shownEditor()->setValueFromText(0, 2, QStringLiteral("1"));
    QCOMPARE(m_node->mfColor[0], SbColor(0.0f, 0.5f, 1.0f));
}

void tst_ListColorEditor::dialogStartsFromTheShiftedColourAndCancelChangesNothing()
{
    select(&m_node->mfColor);
    DialogAnswerer cancel{QColor()};
    clickSwatch(0);
    QCOMPARE(cancel.visits, 1);
    // (green, blue, 0) of (1, 0.5, 0.25), as the list has always opened it.
    QCOMPARE(cancel.started, QColor(127, 63, 0));
    QCOMPARE(cancel.title, QStringLiteral("color dialog"));
    QCOMPARE(cancel.parent, static_cast<QWidget*>(table()));
    QCOMPARE(m_node->mfColor[0], SbColor(1.0f, 0.5f, 0.25f));
    QCOMPARE(commands(), 0);
    // A component cell opens no dialog.
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, Qt::NoModifier, cellCentre(0, 1));
    QTest::qWait(50);
    QCOMPARE(cancel.visits, 1);
}

void tst_ListColorEditor::chosenColourSetsTheRowWithOneCommand()
{
    select(&m_node->mfColor);
    auto red = std::make_unique<DialogAnswerer>(QColor(255, 0, 0));
    clickSwatch(0);
    QCOMPARE(red->visits, 1);
    QCOMPARE(m_node->mfColor[0], SbColor(1.0f, 0.0f, 0.0f));
    QCOMPARE(m_node->mfColor[1], SbColor(0.2f, 0.4f, 0.6f));
    QCOMPARE(commands(), 1);
    QVERIFY(lastCommandIs<KalMFSetFieldValueCommand>());
    QCOMPARE(painted(0, 0), QColor(255, 0, 0));
    // The command read the new colour as both its texts: undo and redo
    // leave it, as a chosen colour has always been recorded.
    QVERIFY(KalServices::getInstance()->undo());
    processSensors();
    QCOMPARE(m_node->mfColor[0], SbColor(1.0f, 0.0f, 0.0f));
    QVERIFY(KalServices::getInstance()->redo());
    QCOMPARE(m_node->mfColor[0], SbColor(1.0f, 0.0f, 0.0f));
    // The second row's swatch edits the second row.
    red.reset();
    DialogAnswerer blue{QColor(0, 0, 255)};
    clickSwatch(1);
    QCOMPARE(m_node->mfColor[1], SbColor(0.0f, 0.0f, 1.0f));
    QCOMPARE(commands(), 2);
}

void tst_ListColorEditor::choosingTheSameColourRecordsNothing()
{
    m_node->mfColor.set1Value(0, SbColor(0.0f, 1.0f, 0.0f));
    select(&m_node->mfColor);
    DialogAnswerer green{QColor(0, 255, 0)};
    clickSwatch(0);
    QCOMPARE(green.visits, 1);
    QCOMPARE(m_node->mfColor[0], SbColor(0.0f, 1.0f, 0.0f));
    QCOMPARE(commands(), 0);
}

// The editor made directly, as the plug-in makes it, with the dialog
// replaced: what it is asked, and what its answer does.
void tst_ListColorEditor::dialogGoesThroughTheSeam()
{
    FxMFColorWidget editor;
    editor.createWidget();
    editor.setEditedObject(&m_node->mfColor);
    editor.activate();
    editor.getFrame()->resize(500, 300);
    editor.getFrame()->show();
    QVERIFY(QTest::qWaitForWindowExposed(editor.getFrame()));
    FxMFieldTable* colours = editor.getTable();
    QVERIFY(qobject_cast<FxMFColorTable*>(colours));
    QColor offered;
    QString title;
    QWidget* parent = nullptr;
    int asked = 0;
    ModalDialogs::setColor([&](const QColor& initial, QWidget* from, const QString& caption) {
        ++asked;
        offered = initial;
        parent = from;
        title = caption;
        return asked == 1 ? QColor() : QColor(255, 0, 0);
    });
    const QPoint swatch = colours->visualRect(colours->model()->index(0, 0)).center();
    QTest::mouseClick(colours->viewport(), Qt::LeftButton, Qt::NoModifier, swatch);
    QCOMPARE(asked, 1);
    QCOMPARE(offered, QColor(127, 63, 0));
    QCOMPARE(offered.alpha(), 255);
    QCOMPARE(parent, static_cast<QWidget*>(colours));
    QCOMPARE(title, QStringLiteral("color dialog"));
    QCOMPARE(m_node->mfColor[0], SbColor(1.0f, 0.5f, 0.25f));
    QCOMPARE(commands(), 0);

    QTest::mouseClick(colours->viewport(), Qt::LeftButton, Qt::NoModifier, swatch);
    QCOMPARE(asked, 2);
    QCOMPARE(m_node->mfColor[0], SbColor(1.0f, 0.0f, 0.0f));
    QCOMPARE(commands(), 1);
    QVERIFY(lastCommandIs<KalMFSetFieldValueCommand>());

    // Other columns and rows past the list open nothing.
    emit colours->cellClicked(0, 2);
    emit colours->cellClicked(7, 0);
    QCOMPARE(asked, 2);
    editor.deactivate();
    editor.destroyWidget();
}

void tst_ListColorEditor::editorTakesAnyFieldButWritesOnlyColours()
{
    FxMFColorWidget editor;
    editor.createWidget();
    QVERIFY(editor.acceptField(&m_node->mfFloat));
    QVERIFY(editor.acceptField(&m_node->mfColor));
    editor.setEditedObject(&m_node->mfFloat);
    editor.activate();
    QVERIFY(editor.getValueText(0, 0).isNull());
    editor.setValueFromText(0, 0, QStringLiteral("0.5"));
    editor.setComponentValue(0.5f, 0, 0);
    const SbColor red(1, 0, 0);
    editor.setValueAt(0, &red);
    editor.swapValues(0, 1);
    QCOMPARE(values(m_node->mfFloat), (QStringList{"1.5", "2.5", "3.5"}));
    QCOMPARE(commands(), 0);

    // On its own field: a colour through setValueAt, components within 0..1.
    editor.deactivate();
    editor.setEditedObject(&m_node->mfColor);
    editor.activate();
    editor.setValueAt(1, &red);
    QCOMPARE(m_node->mfColor[1], red);
    editor.setValueAt(2, &red);
    editor.setValueAt(-1, &red);
    editor.setValueAt(0, nullptr);
    QCOMPARE(m_node->mfColor.getNum(), 2);
    editor.setComponentValue(1.5f, 0, 0);
    editor.setComponentValue(0.5f, 0, 3);
    QCOMPARE(m_node->mfColor[0], SbColor(1.0f, 0.5f, 0.25f));
    editor.setComponentValue(1.0f, 0, 2);
    QCOMPARE(m_node->mfColor[0], SbColor(1.0f, 0.5f, 1.0f));
    QCOMPARE(commands(), 2);
    editor.swapValues(0, 1);
    QCOMPARE(m_node->mfColor[0], red);
    editor.deactivate();
    editor.destroyWidget();
}

// A hidden editor replaces a table that held a long list; the colour list
// gets a colour table again, with its columns.
void tst_ListColorEditor::longListKeepsItsColourTable()
{
    m_node->mfColor.setNum(FxMFieldWidget::keptRowsLimit + 10);
    for (int i = 0; i < m_node->mfColor.getNum(); ++i)
        m_node->mfColor.set1Value(i, SbColor(0.0f, 0.0f, float(i % 2)));
    select(&m_node->mfColor);
    const QPointer<FxMFieldTable> first = table();
    select(&m_node->mfFloat);
    select(&m_node->mfColor);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // The long list's table went; a fresh one took its place.
    QVERIFY(first.isNull());
    QVERIFY(table());
    QVERIFY(table()->inherits("FxMFColorTable"));
    QCOMPARE(headerLabels(), (QStringList{"Color", "R", "G", "B"}));
    QCOMPARE(table()->rowCount(), m_node->mfColor.getNum());
    QCOMPARE(painted(1, 0), QColor(0, 0, 255));
    DialogAnswerer white{QColor(255, 255, 255)};
    clickSwatch(3);
    QCOMPARE(white.visits, 1);
    QCOMPARE(m_node->mfColor[3], SbColor(1, 1, 1));
}

void tst_ListColorEditor::rowOperations()
{
    select(&m_node->mfColor);
    clickComponent(0);
    click("m_addButton");
    QCOMPARE(m_node->mfColor.getNum(), 3);
    QCOMPARE(m_node->mfColor[2], SbColor(0.2f, 0.4f, 0.6f));
    QCOMPARE(table()->rowCount(), 3);
    clickComponent(2);
    click("m_upButton");
    QCOMPARE(m_node->mfColor[1], SbColor(0.2f, 0.4f, 0.6f));
    clickComponent(0);
    click("m_deleteButton");
    QCOMPARE(m_node->mfColor.getNum(), 2);
    QVERIFY(KalServices::getInstance()->undo());
    QCOMPARE(m_node->mfColor[0], SbColor(1.0f, 0.5f, 0.25f));
    QCOMPARE(m_node->mfColor.getNum(), 3);
}

QTEST_MAIN(tst_ListColorEditor)
#include "tst_ListColorEditor.moc"
