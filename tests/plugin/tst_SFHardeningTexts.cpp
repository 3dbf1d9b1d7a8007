// Texts that Coin takes but cannot give back, or that make it allocate
// without bound, never reach it from an editor: a string ending in a
// backslash (Coin writes it so that it escapes its own closing quote), and
// an image text that declares more pixels than it holds ("30000 30000 4"
// typed into the generic editor asked Coin for gigabytes and took the host
// down). The field keeps its value and no command is pushed.
#include "EditorDockFixture.h"
#include "FieldTesting.h"

#include <FxMFStringWidget.h>
#include <FxSFFilePathStringWidget.h>
#include <FxSFLineWidget.h>
#include <FxSFNameWidget.h>
#include <FxSFStringWidget.h>
#include <KalPluginsManager.h>
#include <KalServices.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>

#include <QLineEdit>
#include <QtTest>

#include <memory>

class tst_SFHardeningTexts : public EditorDockFixture
{
    Q_OBJECT

private slots:
    void stringsEndingInABackslashAreRefused_data();
    void stringsEndingInABackslashAreRefused();
    void listStringEndingInABackslashIsRefused();
    void imagesLargerThanTheirTextAreRefused_data();
    void imagesLargerThanTheirTextAreRefused();
};

namespace {

// Pastes over the whole text and presses Return.
void pasteAndReturn(KalFieldEditors& editor, const QString& text)
{
    auto* edit = editor.getFrame()->findChild<QLineEdit*>(QStringLiteral("lineEdit"));
    QVERIFY(edit);
    edit->setFocus();
    edit->selectAll();
    edit->insert(text);
    QTest::keyClick(edit, Qt::Key_Return);
    processSensors();
}

// The field's text, read into a fresh field of its node, gives the same
// text again.
bool readsBack(SoField* field, SoField* fresh)
{
    return fresh->set(fieldText(field).toUtf8().constData()) && fieldText(fresh) == fieldText(field);
}

std::unique_ptr<KalFieldEditors> textEditor(const QByteArray& field, SoField* target)
{
    if (field == "sfName")
        return editorFor<FxSFNameWidget>(target);
    if (field == "sfFilePath")
        return editorFor<FxSFFilePathStringWidget>(target);
    return editorFor<FxSFStringWidget>(target);
}

} // namespace

void tst_SFHardeningTexts::stringsEndingInABackslashAreRefused_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("stored");
    QTest::newRow("string, folder") << QByteArray("sfString") << "C:\\temp\\" << false;
    QTest::newRow("string, two backslashes") << QByteArray("sfString") << "a\\\\" << false;
    QTest::newRow("name") << QByteArray("sfName") << "name\\" << false;
    QTest::newRow("file path") << QByteArray("sfFilePath") << "C:\\scenes\\" << false;
    // A backslash anywhere else is written and read back as it is.
    QTest::newRow("string, backslash inside") << QByteArray("sfString") << "C:\\temp\\a.iv" << true;
    QTest::newRow("string, escaped quote") << QByteArray("sfString") << "say \\\"hi\\\"" << true;
}

void tst_SFHardeningTexts::stringsEndingInABackslashAreRefused()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, text);
    QFETCH(bool, stored);
    auto* fresh = new AllFieldsNode;
    fresh->ref();
    SoField* target = m_node->getField(SbName(field.constData()));
    const QString before = fieldText(target);
    auto editor = textEditor(field, target);
    pasteAndReturn(*editor, text);
    QVERIFY(readsBack(target, fresh->getField(SbName(field.constData()))));
    if (stored) {
        QVERIFY(fieldText(target) != before);
        QCOMPARE(KalServices::getInstance()->commandCount(), 1);
    } else {
        QCOMPARE(fieldText(target), before);
        QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    }
    editor->deactivate();
    editor->destroyWidget();
    fresh->unref();
}

void tst_SFHardeningTexts::listStringEndingInABackslashIsRefused()
{
    auto editor = editorFor<FxMFStringWidget>(&m_node->mfString);
    const QString before = fieldText(&m_node->mfString);
    editor->setValueFromText(0, 0, QStringLiteral("ab\\"));
    QCOMPARE(fieldText(&m_node->mfString), before);
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    editor->setValueFromText(0, 0, QStringLiteral("a\\b"));
    QCOMPARE(QString::fromUtf8(m_node->mfString[0].getString()), QStringLiteral("a\\b"));
    editor->deactivate();
    editor->destroyWidget();
}

void tst_SFHardeningTexts::imagesLargerThanTheirTextAreRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("stored");
    // Empty: refused, the field keeps its value and no command is pushed.
    QTest::newRow("gigabytes") << "30000 30000 4"
                               << "";
    QTest::newRow("size overflows an int") << "32767 32767 4 0xff"
                                           << "";
    QTest::newRow("hexadecimal size") << "0x7530 0x7530 3"
                                      << "";
    QTest::newRow("one pixel short") << "2 2 1 0xff 0x0 0x80"
                                     << "";
    // Coin writes the pixels on a line of their own.
    QTest::newRow("every pixel given") << "2 1 1 0xff 0x80"
                                       << "2 1 1\n0xff 0x80 ";
}

void tst_SFHardeningTexts::imagesLargerThanTheirTextAreRefused()
{
    QFETCH(QString, text);
    QFETCH(QString, stored);
    const QString before = fieldText(&m_node->sfImage);
    auto editor = editorFor<FxSFLineWidget>(&m_node->sfImage);
    pasteAndReturn(*editor, text);
    if (stored.isEmpty()) {
        QCOMPARE(fieldText(&m_node->sfImage), before);
        QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    } else {
        QCOMPARE(fieldText(&m_node->sfImage), stored);
    }
    editor->deactivate();
    editor->destroyWidget();
}

QTEST_MAIN(tst_SFHardeningTexts)
#include "tst_SFHardeningTexts.moc"
