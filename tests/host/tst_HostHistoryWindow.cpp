// kalhost's history through its window: every change a person makes in an
// editor is one named entry, undo and redo give back exactly what was shown
// before and after, and an edit that changed nothing leaves no entry.
#include "HostWindowFixture.h"
#include "TableTesting.h"

#include <KalServices.h>
#include <SceneModel.h>

#include <Inventor/SbName.h>
#include <Inventor/fields/SoFieldData.h>
#include <Inventor/fields/SoMFInt32.h>
#include <Inventor/fields/SoMField.h>
#include <Inventor/fields/SoSFNode.h>
#include <Inventor/nodes/SoNode.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QTableWidget>
#include <QTreeView>
#include <QUndoStack>
#include <QtTest>

#include <memory>
#include <vector>

namespace {
// Every field of a node, each as a copy of its own type with its flags and
// its text, so that two states compare value for value (0 and -0 apart).
struct NodeState
{
    struct Kept
    {
        std::unique_ptr<SoField> copy;
        QString text;
        bool ignored = false;
        // A field at its default is not written to the file.
        bool isDefault = false;
    };
    std::vector<Kept> fields;

    explicit NodeState(SoFieldContainer* node)
    {
        const SoFieldData* data = node->getFieldData();
        for (int i = 0; i < data->getNumFields(); ++i) {
            SoField* field = data->getField(node, i);
            Kept kept;
            kept.copy.reset(static_cast<SoField*>(field->getTypeId().createInstance()));
            kept.copy->copyFrom(*field);
            kept.text = fieldText(field);
            kept.ignored = field->isIgnored();
            kept.isDefault = field->isDefault();
            fields.push_back(std::move(kept));
        }
    }

    // The first field that differs, by name; empty when none does.
    QString differenceFrom(const NodeState& other, SoFieldContainer* node) const
    {
        const SoFieldData* data = node->getFieldData();
        for (std::size_t i = 0; i < fields.size(); ++i) {
            const Kept& a = fields[i];
            const Kept& b = other.fields[i];
            if (!a.copy->isSame(*b.copy) || a.text != b.text || a.ignored != b.ignored ||
                a.isDefault != b.isDefault)
                return QStringLiteral("%1: %2 / %3")
                    .arg(QString::fromLatin1(data->getFieldName(int(i)).getString()), a.text.left(80),
                         b.text.left(80));
        }
        return QString();
    }
};

QString valueShownInTree(QTreeView* tree)
{
    return tree->currentIndex().siblingAtColumn(SceneModel::ValueColumn).data().toString();
}
} // namespace

class tst_HostHistoryWindow : public HostWindowFixture
{
    Q_OBJECT

private slots:
    void aSingleColumnListEditIsOneEntryThatUndoes();
    void aTypedBurstIsOneEntry();
    void returnWithNothingChangedLeavesNoEntry();
    void colourAndBooleanEntriesAreNamedAndUndo();
    void everyEditorUndoesToTheOpenedFile();

private:
    QUndoStack* stack() const { return KalServices::getInstance()->undoStack(); }
    void trigger(const char* action);
    void openTestScene(const QByteArray& text);
    QWidget* editorFrame() const { return fieldDock()->widget(); }
    // Lets the event loop run: the history records unreported changes and
    // the tree refreshes on its next turn.
    static void settle();
    // One edit of each kind the shown editor offers, each followed by a
    // look at the node: a change must add one entry, no change none.
    void editWithShownEditor(SoFieldContainer* node, std::vector<NodeState>* states);
    void noteOutcome(SoFieldContainer* node, std::vector<NodeState>* states, const QString& what);
};

void tst_HostHistoryWindow::trigger(const char* action)
{
    auto* found = m_host->window()->findChild<QAction*>(QLatin1String(action));
    QVERIFY2(found && found->isEnabled(), action);
    found->trigger();
    settle();
}

void tst_HostHistoryWindow::settle()
{
    QCoreApplication::processEvents();
    processSensors();
    QCoreApplication::processEvents();
}

void tst_HostHistoryWindow::openTestScene(const QByteArray& text)
{
    const QString path = m_dir.filePath(QStringLiteral("scene.iv"));
    writeFile(path, text);
    QVERIFY(m_host->openScene(path));
    QCOMPARE(stack()->count(), 0);
    QVERIFY(!m_host->hasUnsavedChanges());
}

void tst_HostHistoryWindow::aSingleColumnListEditIsOneEntryThatUndoes()
{
    openTestScene("#Inventor V2.1 ascii\n\nDEF Lines IndexedLineSet {\n  coordIndex [ 0, 1, 2, -1 ]\n}\n");
    if (QTest::currentTestFailed())
        return;
    QVERIFY(m_host->select(QStringLiteral("Lines.coordIndex")));
    settle();
    auto* list = static_cast<SoMFInt32*>(SoNode::getByName("Lines")->getField("coordIndex"));
    auto* table = editorFrame()->findChild<QTableWidget*>();
    QVERIFY(table);
    QWidget* cell = openCell(table, 1, 0);
    QVERIFY(cell);
    QLineEdit* line = qobject_cast<QLineEdit*>(cell);
    if (!line)
        line = cell->findChild<QLineEdit*>();
    QVERIFY(line);
    line->selectAll();
    QTest::keyClicks(line, QStringLiteral("7"));
    QTest::keyClick(line, Qt::Key_Return);
    settle();
    QCOMPARE((*list)[1], 7);
    // The cell's editor reports nothing by design; the history made the
    // entry all the same.
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(stack()->text(0), QStringLiteral("Set row 2 of Lines.coordIndex: 1 \u2192 7"));
    QVERIFY(m_host->hasUnsavedChanges());

    trigger("UndoAction");
    QCOMPARE(fieldText(list), QStringLiteral("[ 0, 1, 2, -1 ]"));
    QVERIFY(!m_host->hasUnsavedChanges());
    trigger("RedoAction");
    QCOMPARE((*list)[1], 7);
    QCOMPARE(stack()->count(), 1);
}

void tst_HostHistoryWindow::aTypedBurstIsOneEntry()
{
    openTestScene("#Inventor V2.1 ascii\n\nDEF Shape IndexedFaceSet {\n  coordIndex [ 0, 1, 2, -1 ]\n}\n");
    if (QTest::currentTestFailed())
        return;
    QVERIFY(m_host->select(QStringLiteral("Shape.vertexProperty")));
    settle();
    QCOMPARE(editorFrame()->objectName(), QStringLiteral("FxSFLineWidget"));
    auto* line = editorFrame()->findChild<QLineEdit*>(QStringLiteral("lineEdit"));
    QVERIFY(line);
    line->setFocus();
    line->selectAll();
    // Two commands a keystroke, most of them on text that does not parse
    // yet: one entry in the end.
    QTest::keyClicks(line, QStringLiteral("VertexProperty { }"));
    settle();
    SoField* field = SoNode::getByName("Shape")->getField("vertexProperty");
    QVERIFY(static_cast<SoSFNode*>(field)->getValue());
    QCOMPARE(stack()->count(), 1);
    QVERIFY2(stack()->text(0).startsWith(QStringLiteral("Set Shape.vertexProperty: NULL \u2192 ")),
             qPrintable(stack()->text(0)));
    const QString typed = fieldText(field);

    trigger("UndoAction");
    QCOMPARE(fieldText(field), QStringLiteral("NULL"));
    QVERIFY(!m_host->hasUnsavedChanges());
    trigger("RedoAction");
    QCOMPARE(fieldText(field), typed);

    // Return ends the burst: what is typed after it is an entry of its own.
    QTest::keyClick(line, Qt::Key_Return);
    line->selectAll();
    QTest::keyClicks(line, QStringLiteral("VertexProperty { vertex 1 2 3 }"));
    settle();
    QVERIFY(fieldText(field).contains(QStringLiteral("vertex 1 2 3")));
    QCOMPARE(stack()->count(), 2);
    QVERIFY2(stack()->text(1).startsWith(QStringLiteral("Set Shape.vertexProperty: VertexProperty")),
             qPrintable(stack()->text(1)));
    trigger("UndoAction");
    QCOMPARE(fieldText(field), typed);
}

void tst_HostHistoryWindow::returnWithNothingChangedLeavesNoEntry()
{
    QVERIFY(m_host->select(QStringLiteral("PedestalTransform.translation")));
    settle();
    QVERIFY(!m_host->hasUnsavedChanges());
    const QList<QLineEdit*> lines = editorFrame()->findChildren<QLineEdit*>();
    QVERIFY(!lines.isEmpty());
    for (QLineEdit* line : lines) {
        if (!line->isVisible())
            continue;
        line->setFocus();
        QTest::keyClick(line, Qt::Key_Return);
    }
    settle();
    QCOMPARE(stack()->count(), 0);
    QVERIFY(!m_host->hasUnsavedChanges());
    QVERIFY(!m_host->window()->findChild<QAction*>(QStringLiteral("UndoAction"))->isEnabled());
}

void tst_HostHistoryWindow::colourAndBooleanEntriesAreNamedAndUndo()
{
    QVERIFY(m_host->select(QStringLiteral("Sampler.tint")));
    settle();
    const QString before = fieldText(&sampler()->tint);
    const QString shownBefore = valueShownInTree(m_host->tree());
    auto* green = editorFrame()->findChildren<QLineEdit*>(QStringLiteral("SFColorLine")).value(1);
    QVERIFY(green);
    green->setFocus();
    green->selectAll();
    QTest::keyClicks(green, QStringLiteral("0.1"));
    QTest::keyClick(green, Qt::Key_Return);
    settle();
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(stack()->text(0), QStringLiteral("Set Sampler.tint: 0.9 0.55 0.2 \u2192 0.9 0.1 0.2"));
    // The tree shows the colour the field holds now.
    QCOMPARE(valueShownInTree(m_host->tree()), QStringLiteral("0.9 0.1 0.2"));
    const QString after = fieldText(&sampler()->tint);

    trigger("UndoAction");
    QCOMPARE(fieldText(&sampler()->tint), before);
    QCOMPARE(valueShownInTree(m_host->tree()), shownBefore);
    QCOMPARE(green->text(), QStringLiteral("0.55"));
    trigger("RedoAction");
    QCOMPARE(fieldText(&sampler()->tint), after);
    QCOMPARE(valueShownInTree(m_host->tree()), QStringLiteral("0.9 0.1 0.2"));

    QVERIFY(m_host->select(QStringLiteral("Sampler.visible")));
    settle();
    const bool visible = sampler()->visible.getValue();
    auto* box = editorFrame()->findChild<QCheckBox*>();
    QVERIFY(box);
    QTest::mouseClick(box, Qt::LeftButton);
    settle();
    QCOMPARE(sampler()->visible.getValue(), !visible);
    QCOMPARE(stack()->count(), 2);
    QCOMPARE(stack()->text(1),
             QStringLiteral("Set Sampler.visible: %1 \u2192 %2")
                 .arg(QLatin1String(visible ? "TRUE" : "FALSE"), QLatin1String(visible ? "FALSE" : "TRUE")));
    trigger("UndoAction");
    QCOMPARE(sampler()->visible.getValue(), visible);
    QCOMPARE(box->isChecked(), visible);
    for (int i = 0; i < stack()->count(); ++i)
        QVERIFY2(!stack()->text(i).startsWith(QStringLiteral("Edit ")), qPrintable(stack()->text(i)));
}

void tst_HostHistoryWindow::noteOutcome(SoFieldContainer* node, std::vector<NodeState>* states,
                                        const QString& what)
{
    settle();
    NodeState now(node);
    const int entries = stack()->index();
    const QString changed = now.differenceFrom(states->back(), node);
    if (changed.isEmpty()) {
        // An edit that changed nothing is no entry.
        QVERIFY2(entries == int(states->size()) - 1, qPrintable(what));
        return;
    }
    if (entries != int(states->size()))
        for (int i = 0; i < stack()->count(); ++i)
            qDebug() << "ENTRY" << i << stack()->text(i) << stack()->index();
    QVERIFY2(entries == int(states->size()), qPrintable(what + QLatin1String(": ") + changed));
    QVERIFY2(!stack()->text(entries - 1).startsWith(QStringLiteral("Edit ")), qPrintable(what));
    states->push_back(std::move(now));
}

void tst_HostHistoryWindow::editWithShownEditor(SoFieldContainer* node, std::vector<NodeState>* states)
{
    QWidget* frame = editorFrame();
    const QString editor = frame->objectName();
    if (auto* table = frame->findChild<QTableWidget*>()) {
        auto* add = frame->findChild<QPushButton*>(QStringLiteral("m_addButton"));
        QVERIFY(add);
        QTest::mouseClick(add, Qt::LeftButton);
        noteOutcome(node, states, editor + QLatin1String(" add"));
        // The last column: a colour list's first one opens the colour dialog.
        QWidget* cell = table->rowCount() > 0 ? openCell(table, 0, table->columnCount() - 1) : nullptr;
        QLineEdit* line = cell ? qobject_cast<QLineEdit*>(cell) : nullptr;
        if (cell && !line)
            line = cell->findChild<QLineEdit*>();
        if (line && line->isVisible()) {
            line->selectAll();
            QTest::keyClicks(line, QStringLiteral("1"));
            QTest::keyClick(line, Qt::Key_Return);
            noteOutcome(node, states, editor + QLatin1String(" cell"));
        }
        auto* remove = frame->findChild<QPushButton*>(QStringLiteral("m_deleteButton"));
        QVERIFY(remove);
        if (table->rowCount() > 1) {
            const QModelIndex second = table->model()->index(1, table->columnCount() - 1);
            QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier,
                              table->visualRect(second).center());
            QTest::mouseClick(remove, Qt::LeftButton);
            noteOutcome(node, states, editor + QLatin1String(" delete"));
        }
    } else if (auto* box = frame->findChild<QCheckBox*>()) {
        QTest::mouseClick(box, Qt::LeftButton);
        noteOutcome(node, states, editor + QLatin1String(" check"));
    } else if (auto* combo = frame->findChild<QComboBox*>()) {
        combo->setFocus();
        QTest::keyClick(combo, Qt::Key_Down);
        noteOutcome(node, states, editor + QLatin1String(" choice"));
    } else {
        for (QLineEdit* line : frame->findChildren<QLineEdit*>()) {
            if (!line->isVisible())
                continue;
            line->setFocus();
            line->selectAll();
            QTest::keyClicks(line, QStringLiteral("1"));
            QTest::keyClick(line, Qt::Key_Return);
            noteOutcome(node, states, editor + QLatin1String(" typed"));
            break;
        }
    }
    auto* reset = frame->findChild<QPushButton*>(QStringLiteral("m_defaultButton"));
    auto* ignore = frame->findChild<QPushButton*>(QStringLiteral("m_ignoreButton"));
    QVERIFY(reset && ignore);
    QTest::mouseClick(reset, Qt::LeftButton);
    noteOutcome(node, states, editor + QLatin1String(" default"));
    QTest::mouseClick(ignore, Qt::LeftButton);
    noteOutcome(node, states, editor + QLatin1String(" ignore"));
}

void tst_HostHistoryWindow::everyEditorUndoesToTheOpenedFile()
{
    // The sample scene as a file of its own, opened from there. Coin writes
    // a rotation read from axis and angle text back a little apart once
    // (through its quaternion), so the file opened is the second written.
    const QString first = m_dir.filePath(QStringLiteral("first.iv"));
    const QString opened = m_dir.filePath(QStringLiteral("opened.iv"));
    QVERIFY(m_host->saveScene(first));
    QVERIFY(m_host->openScene(first));
    QVERIFY(m_host->saveScene(opened));
    QVERIFY(m_host->openScene(opened));
    SoFieldContainer* node = sampler();
    QVERIFY(node);
    std::vector<NodeState> states;
    states.emplace_back(node);

    const SoFieldData* data = node->getFieldData();
    for (int i = 0; i < data->getNumFields(); ++i) {
        const QString name = QString::fromLatin1(data->getFieldName(i).getString());
        QVERIFY(m_host->select(QStringLiteral("Sampler.") + name));
        settle();
        editWithShownEditor(node, &states);
        if (QTest::currentTestFailed())
            return;
    }
    const int entries = stack()->count();
    QCOMPARE(entries, int(states.size()) - 1);
    QVERIFY2(entries > 2 * data->getNumFields(), qPrintable(QString::number(entries)));

    // Back through the history, each step to the state before its entry,
    // then forward again, each step to the state after it.
    for (int i = entries; i > 0; --i) {
        trigger("UndoAction");
        const QString wrong = NodeState(node).differenceFrom(states[std::size_t(i - 1)], node);
        QVERIFY2(wrong.isEmpty(), qPrintable(stack()->text(i - 1) + QLatin1String(" undone: ") + wrong));
    }
    QVERIFY(!m_host->hasUnsavedChanges());
    for (int i = 1; i <= entries; ++i) {
        trigger("RedoAction");
        const QString wrong = NodeState(node).differenceFrom(states[std::size_t(i)], node);
        QVERIFY2(wrong.isEmpty(), qPrintable(stack()->text(i - 1) + QLatin1String(" redone: ") + wrong));
    }
    for (int i = entries; i > 0; --i)
        trigger("UndoAction");

    const QString saved = m_dir.filePath(QStringLiteral("saved.iv"));
    QVERIFY(m_host->saveScene(saved));
    QFile a(opened);
    QFile b(saved);
    QVERIFY(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly));
    QCOMPARE(b.readAll(), a.readAll());
}

QTEST_MAIN(tst_HostHistoryWindow)
#include "tst_HostHistoryWindow.moc"
