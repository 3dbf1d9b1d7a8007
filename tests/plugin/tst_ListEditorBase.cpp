// The list editors' common controls, through the real plug-in module in the
// host's "Field Editor" dock: the editor for each type, the buttons, the
// quick-access box, reset and ignore, each followed through the host's
// history on the field's values; and the editor's life beside its field.
// Adding, deleting and moving rows is tst_ListEditorRows'.
#include "AllFieldsNode.h"
#include "ListEditorTesting.h"

#include <FxMFFloatWidget.h>
#include <KalFieldIgnoredCommand.h>
#include <KalFieldSetDefaultCommand.h>
#include <KalMFAddRowsCommand.h>
#include <KalMFDeleteRowsCommand.h>
#include <KalMFSwapRowsCommand.h>
#include <LayoutMetrics.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>

#include <QPointer>
#include <QScrollBar>

using namespace ListEditorTesting;

namespace {

// Counts the paints of a widget.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget* widget) { widget->installEventFilter(this); }
    int paints = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return false;
    }
};

const QStringList kSix = {"a", "b", "c", "d", "e", "f"};

} // namespace

class tst_ListEditorBase : public ListEditorFixture
{
    Q_OBJECT

private slots:
    void eachListTypeHasItsEditor_data();
    void eachListTypeHasItsEditor();
    void emptyFieldShowsNoRows();
    void buttonsAndTooltips();
    void titleAlreadySetIsKept();

    void accessBoxShowsTheRowBelowItsNumber();
    void accessBoxEnterShowsTheRowAgain();
    void accessBoxLastNumberShowsNothing();

    void setToDefaultWithAnEmptyDefault();
    void ignoreToggleUndoesAndRedoes();

    void changesElsewhereShowAtOnce();
    void unchangedCountOnlyRepaints();
    void refreshDisabledChangesNothing();
    void deactivatedEditorKeepsNoRows();
    void longListTableIsReplacedWhenHidden();

    void nodeDeletedWhileShown();
    void undoAfterTheNodeIsGone();
};

void tst_ListEditorBase::eachListTypeHasItsEditor_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("editor");
    QTest::addColumn<QString>("title");
    QTest::newRow("float") << QByteArray("mfFloat") << "FxMFFloatWidget"
                           << "MFFloat";
    QTest::newRow("double") << QByteArray("mfDouble") << "FxMFDoubleWidget"
                            << "MFDouble";
    QTest::newRow("int32") << QByteArray("mfInt32") << "FxMFInt32Widget"
                           << "MFInt32";
    QTest::newRow("short") << QByteArray("mfShort") << "FxMFShortWidget"
                           << "MFShort";
    QTest::newRow("uint32") << QByteArray("mfUInt32") << "FxMFUInt32Widget"
                            << "MFUInt32";
    QTest::newRow("ushort") << QByteArray("mfUShort") << "FxMFUShortWidget"
                            << "MFUShort";
    QTest::newRow("string") << QByteArray("mfString") << "FxMFStringWidget"
                            << "MFString";
    QTest::newRow("name, generic") << QByteArray("mfName") << "FxMFDefaultFieldWidget"
                                   << "MField";
    QTest::newRow("time, generic") << QByteArray("mfTime") << "FxMFDefaultFieldWidget"
                                   << "MField";
}

void tst_ListEditorBase::eachListTypeHasItsEditor()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, editor);
    QFETCH(QString, title);
    auto* list = static_cast<SoMField*>(m_node->getField(field.constData()));
    select(list);
    QVERIFY(dock()->isVisible());
    QCOMPARE(dock()->widget()->objectName(), editor);
    QLabel* label = child<QLabel>("m_label");
    QVERIFY(label);
    QCOMPARE(label->text(), QStringLiteral("<p align=\"center\">%1</p>").arg(title));
    QCOMPARE(table()->rowCount(), list->getNum());
    QCOMPARE(table()->columnCount(), 1);
    QCOMPARE(elementCount(), QStringLiteral("%1 elements").arg(list->getNum()));
    QCOMPARE(accessBox()->minimum(), 1);
    QCOMPARE(accessBox()->maximum(), list->getNum());
    // Every cell shows the value the field holds.
    for (int row = 0; row < list->getNum(); ++row)
        QVERIFY(!shownEditor()->getValueText(row, 0).isEmpty());
}

void tst_ListEditorBase::emptyFieldShowsNoRows()
{
    select(&m_node->emptyStrings);
    QCOMPARE(elementCount(), QStringLiteral("0 elements"));
    QCOMPARE(accessBox()->minimum(), 0);
    QCOMPARE(accessBox()->maximum(), 0);
    QCOMPARE(table()->rowCount(), 0);
}

void tst_ListEditorBase::buttonsAndTooltips()
{
    select(&m_node->mfFloat);
    const struct
    {
        const char* name;
        const char* tip;
    } buttons[] = {
        {"m_deleteButton", "Delete current row"},   {"m_upButton", "Bring up current row"},
        {"m_downButton", "Bring down current row"}, {"m_defaultButton", "Set to default"},
        {"m_ignoreButton", "Ignore this field"},    {"m_addButton", "Add a row"},
    };
    for (const auto& expected : buttons) {
        QPushButton* button = child<QPushButton>(expected.name);
        QVERIFY2(button, expected.name);
        QCOMPARE(button->toolTip(), QLatin1String(expected.tip));
        QVERIFY(button->text().isEmpty());
        QVERIFY(!button->icon().isNull());
        QCOMPARE(button->focusPolicy(), Qt::NoFocus);
        QCOMPARE(button->isCheckable(), QByteArray(expected.name) == "m_ignoreButton");
    }
    QCOMPARE(accessBox()->toolTip(), QStringLiteral("Quick access to rows"));
    QCOMPARE(table()->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    QCOMPARE(table()->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

void tst_ListEditorBase::titleAlreadySetIsKept()
{
    FxMFFloatWidget editor;
    editor.setTypeLabel(QStringLiteral("Ramp"));
    editor.createWidget();
    auto* label = editor.getFrame()->findChild<QLabel*>(QStringLiteral("m_label"));
    QVERIFY(label);
    QCOMPARE(label->text(), QStringLiteral("<p align=\"center\">Ramp</p>"));
    editor.setTypeLabel(QStringLiteral("Other"));
    QCOMPARE(label->text(), QStringLiteral("<p align=\"center\">Ramp</p>"));
    editor.destroyWidget();
}

void tst_ListEditorBase::accessBoxShowsTheRowBelowItsNumber()
{
    fill(m_node->mfString, kSix);
    select(&m_node->mfString);
    accessBox()->setValue(3);
    QCOMPARE(table()->currentRow(), 3);
}

void tst_ListEditorBase::accessBoxEnterShowsTheRowAgain()
{
    QStringList many;
    for (int i = 0; i < 2000; ++i)
        many << QString::number(i);
    fill(m_node->mfString, many);
    select(&m_node->mfString);
    AccessButtonPrivate* box = accessBox();
    box->setValue(1500);
    QCOMPARE(table()->currentRow(), 1500);
    // The user scrolls away and clicks a row near the top; the box keeps its
    // number only if Enter is pressed on an unchanged value.
    table()->verticalScrollBar()->setValue(0);
    table()->setCurrentCell(0, 0);
    const QSignalBlocker quiet(box);
    box->setValue(1500);
    QCOMPARE(table()->currentRow(), 0);
    box->blockSignals(false);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Return);
    QCOMPARE(box->value(), 1500);
    QCOMPARE(table()->currentRow(), 1500);
    const QRect cell = table()->visualRect(table()->model()->index(1500, 0));
    QVERIFY(table()->viewport()->rect().intersects(cell));
}

void tst_ListEditorBase::accessBoxLastNumberShowsNothing()
{
    fill(m_node->mfString, {"a", "b", "c"});
    select(&m_node->mfString);
    clickCell(0);
    accessBox()->setValue(3);
    QCOMPARE(table()->currentRow(), 0);
}

void tst_ListEditorBase::setToDefaultWithAnEmptyDefault()
{
    fill(m_node->emptyStrings, {"x", "y"});
    select(&m_node->emptyStrings);
    QCOMPARE(table()->rowCount(), 2);
    click("m_defaultButton");
    QCOMPARE(m_node->emptyStrings.getNum(), 0);
    QCOMPARE(commands(), 1);
    QVERIFY(lastCommandIs<KalFieldSetDefaultCommand>());
    QCOMPARE(table()->rowCount(), 0);
    QCOMPARE(elementCount(), QStringLiteral("0 elements"));
    // The command read the field after the reset, so undo keeps the
    // default: resets have always been recorded that way.
    QVERIFY(KalServices::getInstance()->undo());
    processSensors();
    QCOMPARE(m_node->emptyStrings.getNum(), 0);
    QVERIFY(KalServices::getInstance()->redo());
    processSensors();
    QCOMPARE(m_node->emptyStrings.getNum(), 0);
}

void tst_ListEditorBase::ignoreToggleUndoesAndRedoes()
{
    select(&m_node->mfFloat);
    QPushButton* ignore = child<QPushButton>("m_ignoreButton");
    QVERIFY(!ignore->isChecked());
    click("m_ignoreButton");
    QVERIFY(m_node->mfFloat.isIgnored());
    QCOMPARE(commands(), 1);
    QVERIFY(lastCommandIs<KalFieldIgnoredCommand>());
    QVERIFY(KalServices::getInstance()->undo());
    processSensors();
    QVERIFY(!m_node->mfFloat.isIgnored());
    QVERIFY(!ignore->isChecked());
    QVERIFY(KalServices::getInstance()->redo());
    processSensors();
    QVERIFY(m_node->mfFloat.isIgnored());
    QVERIFY(ignore->isChecked());
}

void tst_ListEditorBase::changesElsewhereShowAtOnce()
{
    select(&m_node->mfFloat);
    FxMFieldWidget* editor = shownEditor();
    m_node->mfFloat.set1Value(3, 9.5f);
    processSensors();
    QCOMPARE(table()->rowCount(), 4);
    QCOMPARE(elementCount(), QStringLiteral("4 elements"));
    QCOMPARE(editor->getValueText(3, 0), QStringLiteral("9.5"));
    QCOMPARE(accessBox()->maximum(), 4);
}

void tst_ListEditorBase::unchangedCountOnlyRepaints()
{
    select(&m_node->mfFloat);
    QTest::qWait(20);
    PaintCounter counter(table()->viewport());
    QSignalSpy rowsAdded(table()->model(), &QAbstractItemModel::rowsInserted);
    QSignalSpy rowsRemoved(table()->model(), &QAbstractItemModel::rowsRemoved);
    m_node->mfFloat.set1Value(1, 8.0f);
    processSensors();
    QTRY_VERIFY(counter.paints > 0);
    QCOMPARE(rowsAdded.count(), 0);
    QCOMPARE(rowsRemoved.count(), 0);
    QCOMPARE(shownEditor()->getValueText(1, 0), QStringLiteral("8"));
}

void tst_ListEditorBase::refreshDisabledChangesNothing()
{
    select(&m_node->mfFloat);
    FxMFieldWidget* editor = shownEditor();
    editor->setRefreshEnabled(false);
    m_node->mfFloat.set1Value(3, 4.5f);
    processSensors();
    QCOMPARE(table()->rowCount(), 3);
    QCOMPARE(elementCount(), QStringLiteral("3 elements"));
    editor->setRefreshEnabled(true);
    m_node->mfFloat.set1Value(4, 5.5f);
    processSensors();
    QCOMPARE(table()->rowCount(), 5);
}

void tst_ListEditorBase::deactivatedEditorKeepsNoRows()
{
    select(&m_node->mfFloat);
    FxMFieldTable* shown = table();
    QCOMPARE(shown->rowCount(), 3);
    select(&m_node->mfString);
    QCOMPARE(shown->rowCount(), 0);
    // Its field goes on changing; the hidden editor does not follow.
    m_node->mfFloat.set1Value(5, 1.0f);
    processSensors();
    QCOMPARE(shown->rowCount(), 0);
}

// A table emptied keeps what its rows took; one that showed a long list is
// replaced by a fresh one that works as the old did.
void tst_ListEditorBase::longListTableIsReplacedWhenHidden()
{
    QStringList many;
    for (int i = 0; i <= FxMFieldWidget::keptRowsLimit; ++i)
        many << QString::number(i);
    fill(m_node->mfString, many);
    select(&m_node->mfString);
    QPointer<FxMFieldTable> first = table();
    QCOMPARE(first->rowCount(), many.size());
    select(&m_node->mfFloat);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(first.isNull());
    select(&m_node->mfString);
    FxMFieldTable* second = table();
    QVERIFY(second);
    QCOMPARE(second->rowCount(), many.size());
    QCOMPARE(second->columnCount(), 1);
    QCOMPARE(second->minimumHeight(), LayoutMetrics::value(QStringLiteral("MFTableMinHeightWin")));
    // The buttons and the box drive the new table.
    clickCell(1);
    click("m_addButton");
    QCOMPARE(m_node->mfString.getNum(), many.size() + 1);
    QCOMPARE(QString::fromUtf8(m_node->mfString[2].getString()), QString());
    accessBox()->setValue(10);
    QCOMPARE(second->currentRow(), 10);

    // A float list's table keeps its value kind and span through it.
    m_node->mfFloat.setNum(FxMFieldWidget::keptRowsLimit + 1);
    select(&m_node->mfFloat);
    const int kind = table()->getDelegate()->getValueKind();
    const bool bounded = table()->getDelegate()->isBounded();
    select(&m_node->mfString);
    select(&m_node->mfFloat);
    QCOMPARE(table()->getDelegate()->getValueKind(), kind);
    QCOMPARE(table()->getDelegate()->isBounded(), bounded);
}

void tst_ListEditorBase::nodeDeletedWhileShown()
{
    select(&m_node->mfString);
    FxMFieldTable* shown = table();
    clickCell(1);
    m_node->unref();
    m_node = nullptr;
    processSensors();
    QCOMPARE(shown->rowCount(), 0);
    QCOMPARE(shownEditor()->getField(), static_cast<SoMField*>(nullptr));
    // Every control is harmless now.
    click("m_addButton");
    click("m_deleteButton");
    click("m_upButton");
    click("m_downButton");
    click("m_defaultButton");
    click("m_ignoreButton");
    key(Qt::Key_Plus);
    QVERIFY(!dock()->grab().isNull());
    QCOMPARE(commands(), 0);
}

void tst_ListEditorBase::undoAfterTheNodeIsGone()
{
    fill(m_node->mfString, {"a", "b", "c"});
    select(&m_node->mfString);
    clickCell(0);
    click("m_addButton");
    click("m_deleteButton");
    clickCell(1);
    click("m_upButton");
    click("m_ignoreButton");
    click("m_defaultButton");
    QCOMPARE(commands(), 5);
    emit KalServices::getInstance()->selectedFieldChanged(nullptr);
    m_node->unref();
    m_node = nullptr;
    // Every command finds its field gone and does nothing.
    for (int i = 0; i < 5; ++i)
        QVERIFY(KalServices::getInstance()->undo());
    for (int i = 0; i < 5; ++i)
        QVERIFY(KalServices::getInstance()->redo());
}

QTEST_MAIN(tst_ListEditorBase)
#include "tst_ListEditorBase.moc"
