// Numbers long enough to overrun Coin's number reader never reach it from a
// single-value editor: typed into the generic editor, which writes on every
// keystroke, or into a text editor showing a field of another type. The
// field keeps its value and no command is pushed, so undo and redo only
// replay what Coin wrote itself.
#include "EditorDockFixture.h"
#include "FieldTesting.h"

#include <FieldTextGuard.h>
#include <FxSFLineWidget.h>
#include <FxSFStringWidget.h>
#include <KalPluginsManager.h>
#include <KalServices.h>
#include <KalShell.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>

#include <QDockWidget>
#include <QLineEdit>
#include <QMainWindow>
#include <QtTest>

#include <memory>

class tst_SFHardeningLongNumbers : public EditorDockFixture
{
    Q_OBJECT

private slots:
    void genericEditorRefusesLongNumbers_data();
    void genericEditorRefusesLongNumbers();
    void genericEditorInTheDockThenUndoAndRedo();
    void textEditorOnANumberFieldRefusesLongNumbers_data();
    void textEditorOnANumberFieldRefusesLongNumbers();
    void ordinaryLongTextStillArrives();
};

namespace {

// A run of digits just past what the editors hand Coin, and runs at which
// Coin's reader overran its buffer (a few hundred digits for integers,
// thousands for reals).
QString digits(int count)
{
    return QString(count, QLatin1Char('7'));
}

// Pastes over the whole text: one edit, as a paste from the clipboard is.
void paste(QLineEdit* edit, const QString& text)
{
    edit->setFocus();
    edit->selectAll();
    edit->insert(text);
}

template <class Editor>
void closeEditor(Editor& editor)
{
    editor.deactivate();
    editor.destroyWidget();
}

} // namespace

void tst_SFHardeningLongNumbers::genericEditorRefusesLongNumbers_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("text");
    const int justPast = FieldTextGuard::maxNumberRun + 1;
    QTest::newRow("int32, just past") << QByteArray("sfInt32") << digits(justPast);
    QTest::newRow("int32, overrun") << QByteArray("sfInt32") << digits(600);
    QTest::newRow("float, just past") << QByteArray("sfFloat") << digits(justPast);
    QTest::newRow("float, overrun") << QByteArray("sfFloat") << digits(4200);
    QTest::newRow("time, overrun") << QByteArray("sfTime") << digits(4200);
    QTest::newRow("time, point inside") << QByteArray("sfTime") << digits(200) + "." + digits(200);
    QTest::newRow("vector, one long component") << QByteArray("sfVec3f") << "1 2 " + digits(600);
    QTest::newRow("double, long exponent") << QByteArray("sfDouble") << "1e-" + digits(600);
}

void tst_SFHardeningLongNumbers::genericEditorRefusesLongNumbers()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, text);
    SoField* target = m_node->getField(SbName(field.constData()));
    QVERIFY(target);
    const QString before = fieldText(target);
    auto editor = editorFor<FxSFLineWidget>(target);
    auto* edit = editor->getFrame()->findChild<QLineEdit*>(QStringLiteral("lineEdit"));
    QVERIFY(edit);

    paste(edit, text);
    QCOMPARE(fieldText(target), before);
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    // What was typed stays where the user can shorten it.
    QCOMPARE(edit->text(), text);
    closeEditor(*editor);
}

void tst_SFHardeningLongNumbers::genericEditorInTheDockThenUndoAndRedo()
{
    KalServices* services = KalServices::getInstance();
    emit services->selectedFieldChanged(&m_node->sfTime);
    QCOMPARE(dock()->widget()->objectName(), QStringLiteral("FxSFLineWidget"));
    auto* edit = dock()->findChild<QLineEdit*>(QStringLiteral("lineEdit"));
    QVERIFY(edit);

    // An ordinary keystroke writes as it always has...
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_8);
    QCOMPARE(m_node->sfTime.getValue().getValue(), 8.0);
    const int commands = services->commandCount();
    QCOMPARE(commands, 2);

    // ...a paste that makes the number too long does not, nor does the
    // keystroke after it.
    edit->end(false);
    edit->insert(digits(4200));
    QTest::keyClick(edit, Qt::Key_1);
    QCOMPARE(m_node->sfTime.getValue().getValue(), 8.0);
    QCOMPARE(services->commandCount(), commands);

    // The generic editor's commands record the text Coin wrote after the
    // edit (that is how it has always undone), so the history holds only
    // short texts and replaying it changes nothing.
    while (services->undo()) {
    }
    QCOMPARE(fieldText(&m_node->sfTime), QStringLiteral("8"));
    while (services->redo()) {
    }
    QCOMPARE(fieldText(&m_node->sfTime), QStringLiteral("8"));
}

void tst_SFHardeningLongNumbers::textEditorOnANumberFieldRefusesLongNumbers_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("text");
    QTest::newRow("int32") << QByteArray("sfInt32") << digits(600);
    QTest::newRow("float") << QByteArray("sfFloat") << digits(4200);
    QTest::newRow("time") << QByteArray("sfTime") << "-" + digits(300);
}

void tst_SFHardeningLongNumbers::textEditorOnANumberFieldRefusesLongNumbers()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, text);
    SoField* target = m_node->getField(SbName(field.constData()));
    const QString before = fieldText(target);
    auto editor = editorFor<FxSFStringWidget>(target);
    auto* edit = editor->getFrame()->findChild<QLineEdit*>(QStringLiteral("lineEdit"));
    QVERIFY(edit);
    paste(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(fieldText(target), before);
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    closeEditor(*editor);
}

void tst_SFHardeningLongNumbers::ordinaryLongTextStillArrives()
{
    // Long texts are fine as long as no run of number characters is long:
    // the string editor writes its value, not text for Coin to read.
    const QString words = QStringLiteral("word ").repeated(400) + digits(600);
    auto editor = editorFor<FxSFStringWidget>(&m_node->sfString);
    auto* edit = editor->getFrame()->findChild<QLineEdit*>(QStringLiteral("lineEdit"));
    paste(edit, words);
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(QString::fromUtf8(m_node->sfString.getValue().getString()), words);
    QCOMPARE(KalServices::getInstance()->commandCount(), 1);
    closeEditor(*editor);

    // A number of ordinary length typed into the generic editor arrives.
    auto generic = editorFor<FxSFLineWidget>(&m_node->sfInt32);
    auto* line = generic->getFrame()->findChild<QLineEdit*>(QStringLiteral("lineEdit"));
    paste(line, QStringLiteral("123456"));
    QCOMPARE(m_node->sfInt32.getValue(), 123456);
    closeEditor(*generic);
}

QTEST_MAIN(tst_SFHardeningLongNumbers)
#include "tst_SFHardeningLongNumbers.moc"
