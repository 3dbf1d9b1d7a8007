// A text control that the user did not change writes nothing that differs
// from its field: clicking into it and out again, or pressing Return, leaves
// every field of the node as it was, to the byte and to the default flag,
// and sets off nothing a write would (an inline texture whose file name is
// set again is reloaded from that file and loses its image). The controls
// hold the field's whole text however long it is, and bytes that are not
// UTF-8 go back as they came.
#include "EditorDockFixture.h"
#include "FieldSnapshot.h"
#include "FieldTesting.h"

#include <FxSFLineWidget.h>
#include <KalServices.h>
#include <KalShell.h>

#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoTexture2.h>
#include <Inventor/nodes/SoVertexProperty.h>

#include <Inventor/lists/SoFieldList.h>

#include <QAbstractSpinBox>
#include <QApplication>
#include <QMainWindow>
#include <QtTest>

#include <limits>
#include <vector>

class tst_UntouchedTexts : public EditorDockFixture
{
    Q_OBJECT

public:
    tst_UntouchedTexts()
        : EditorDockFixture(QSize(900, 600))
    {}

private slots:
    void inlineTextureKeepsItsImage_data();
    void inlineTextureKeepsItsImage();
    void longStringIsWholeAndKept();
    void latin1BytesSurvive_data();
    void latin1BytesSurvive();
    void typingKeepsTheEncoding_data();
    void typingKeepsTheEncoding();
    void genericEditorKeepsLatin1();
    void nodeTextIsWhole();
    void backslashAtTheEndIsLeftAlone();
    void everyLineEditTakesAnyLength();
    void overlongNamesAreRefused_data();
    void overlongNamesAreRefused();
};

namespace {

// The two ways of leaving a control without typing.
enum Leave
{
    FocusOut,
    Return
};

QLineEdit* shownLine()
{
    return EditorDockFixture::child<QLineEdit>(QStringLiteral("lineEdit"));
}

// Clicks into the line edit as a person does, then leaves it as asked.
void visit(QLineEdit* edit, Leave how)
{
    QVERIFY(edit);
    QApplication::setActiveWindow(KalShell::getInstance()->getMainWindow());
    QTest::mouseClick(edit, Qt::LeftButton, Qt::NoModifier, edit->rect().center());
    QVERIFY(edit->hasFocus());
    if (how == Return)
        QTest::keyClick(edit, Qt::Key_Return);
    else
        edit->clearFocus();
    QCoreApplication::processEvents();
    processSensors();
}

// Types at the end of the line edit's text and presses Return.
void append(QLineEdit* edit, const QString& text)
{
    QApplication::setActiveWindow(KalShell::getInstance()->getMainWindow());
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_End);
    // Inserted as a paste or an input method does: a key click cannot make
    // every character.
    edit->insert(text);
    QTest::keyClick(edit, Qt::Key_Return);
    QCoreApplication::processEvents();
    processSensors();
}

// A texture with its picture inline and the file it came from named, as
// scenes from the wild hold them: the name is set without notifying, since
// naming a file that is not there would drop the picture here already.
SoTexture2* inlineTexture()
{
    auto* texture = new SoTexture2;
    std::vector<unsigned char> pixels(128 * 128 * 3);
    for (size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<unsigned char>(i * 7 % 251);
    texture->image.setValue(SbVec2s(128, 128), 3, pixels.data());
    texture->filename.enableNotify(FALSE);
    texture->filename.setValue("textures/missing_stone.png");
    texture->filename.enableNotify(TRUE);
    return texture;
}

void compareSnapshots(const FieldSnapshot& before, const FieldSnapshot& after)
{
    const QString difference = before.differenceFrom(after);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

} // namespace

void tst_UntouchedTexts::inlineTextureKeepsItsImage_data()
{
    QTest::addColumn<int>("leave");
    QTest::newRow("focus and leave") << int(FocusOut);
    QTest::newRow("Return") << int(Return);
}

void tst_UntouchedTexts::inlineTextureKeepsItsImage()
{
    QFETCH(int, leave);
    SoTexture2* texture = inlineTexture();
    texture->ref();
    const FieldSnapshot before(texture);
    QVERIFY(!texture->image.isDefault() && !texture->filename.isDefault());

    select(&texture->filename);
    QCOMPARE(dock()->widget()->objectName(), QStringLiteral("FxSFStringWidget"));
    QCOMPARE(shownLine()->text(), QStringLiteral("textures/missing_stone.png"));
    KalServices* services = KalServices::getInstance();
    const int commands = services->commandCount();
    visit(shownLine(), Leave(leave));
    compareSnapshots(before, FieldSnapshot(texture));
    // The editor records its visit as it always has, and the record changes
    // nothing either way.
    QCOMPARE(services->commandCount(), commands + 1);
    services->undo();
    processSensors();
    compareSnapshots(before, FieldSnapshot(texture));
    services->redo();
    processSensors();
    compareSnapshots(before, FieldSnapshot(texture));

    select(nullptr);
    services->clearHistory();
    texture->unref();
}

void tst_UntouchedTexts::longStringIsWholeAndKept()
{
    QString value;
    for (int i = 0; value.size() < 40000; ++i)
        value += QStringLiteral("line %1; ").arg(i);
    value.truncate(40000);
    m_node->sfString.setValue(value.toLatin1().constData());
    const FieldSnapshot before(m_node);
    select(&m_node->sfString);
    QCOMPARE(shownLine()->text().size(), 40000);
    QCOMPARE(shownLine()->text(), value);

    visit(shownLine(), Return);
    compareSnapshots(before, FieldSnapshot(m_node));
    visit(shownLine(), FocusOut);
    compareSnapshots(before, FieldSnapshot(m_node));

    append(shownLine(), QStringLiteral("!"));
    QCOMPARE(QString::fromLatin1(m_node->sfString.getValue().getString()), value + QLatin1Char('!'));
}

void tst_UntouchedTexts::latin1BytesSurvive_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("leave");
    const QString cafe = QStringLiteral("caf") + QChar(0xe9);
    QTest::newRow("string, Latin-1, Return")
        << QByteArray("sfString") << QByteArray("caf\xe9") << cafe << int(Return);
    QTest::newRow("string, Latin-1, focus out")
        << QByteArray("sfString") << QByteArray("caf\xe9") << cafe << int(FocusOut);
    QTest::newRow("string, UTF-8") << QByteArray("sfString") << QByteArray("caf\xc3\xa9") << cafe
                                   << int(Return);
    // Bytes that are neither: a lone lead byte and an overlong slash.
    QTest::newRow("string, broken UTF-8") << QByteArray("sfString") << QByteArray("a\xc3 b\xc0\xaf")
                                          << QString::fromLatin1("a\xc3 b\xc0\xaf") << int(Return);
    QTest::newRow("name, Latin-1") << QByteArray("sfName") << QByteArray("Ma\xdf")
                                   << QString::fromLatin1("Ma\xdf") << int(FocusOut);
    QTest::newRow("file path, Latin-1") << QByteArray("sfFilePath") << QByteArray("C:/m\xfcll.iv")
                                        << QString::fromLatin1("C:/m\xfcll.iv") << int(Return);
}

void tst_UntouchedTexts::latin1BytesSurvive()
{
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, shown);
    QFETCH(int, leave);
    SoField* target = m_node->getField(field.constData());
    QVERIFY(target);
    if (target == &m_node->sfName)
        m_node->sfName.setValue(SbName(bytes.constData()));
    else
        static_cast<SoSFString*>(target)->setValue(bytes.constData());
    const FieldSnapshot before(m_node);
    select(target);
    QCOMPARE(shownLine()->text(), shown);
    visit(shownLine(), Leave(leave));
    compareSnapshots(before, FieldSnapshot(m_node));
    KalServices::getInstance()->undo();
    processSensors();
    compareSnapshots(before, FieldSnapshot(m_node));
}

void tst_UntouchedTexts::typingKeepsTheEncoding_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QByteArray>("stored");
    QTest::newRow("Latin-1 stays Latin-1")
        << QByteArray("caf\xe9") << QStringLiteral("s") << QByteArray("caf\xe9s");
    QTest::newRow("UTF-8 stays UTF-8")
        << QByteArray("caf\xc3\xa9") << QStringLiteral("s") << QByteArray("caf\xc3\xa9s");
    // Latin-1 cannot hold the euro sign: the value goes in UTF-8 whole.
    QTest::newRow("a character Latin-1 lacks")
        << QByteArray("caf\xe9") << QString(QChar(0x20ac)) << QByteArray("caf\xc3\xa9\xe2\x82\xac");
}

void tst_UntouchedTexts::typingKeepsTheEncoding()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, typed);
    QFETCH(QByteArray, stored);
    m_node->sfString.setValue(bytes.constData());
    select(&m_node->sfString);
    append(shownLine(), typed);
    QCOMPARE(QByteArray(m_node->sfString.getValue().getString()), stored);
}

// The generic editor shows the field's own text, quotes and all, and writes
// it back as the user types: a letter typed before the closing quote keeps
// the Latin-1 bytes around it.
void tst_UntouchedTexts::genericEditorKeepsLatin1()
{
    m_node->sfString.setValue("caf\xe9");
    const FieldSnapshot before(m_node);
    auto editor = editorFor<FxSFLineWidget>(&m_node->sfString);
    auto* edit = editor->getFrame()->findChild<QLineEdit*>(QStringLiteral("lineEdit"));
    QVERIFY(edit);
    QCOMPARE(edit->text(), QStringLiteral("\"caf") + QChar(0xe9) + QLatin1Char('"'));
    editor->getFrame()->show();
    QVERIFY(QTest::qWaitForWindowExposed(editor->getFrame()));
    QApplication::setActiveWindow(editor->getFrame());
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_Return);
    edit->clearFocus();
    processSensors();
    compareSnapshots(before, FieldSnapshot(m_node));

    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_End);
    QTest::keyClick(edit, Qt::Key_Left);
    QTest::keyClicks(edit, QStringLiteral("s"));
    processSensors();
    QCOMPARE(QByteArray(m_node->sfString.getValue().getString()), QByteArray("caf\xe9s"));
    editor->deactivate();
    KalServices::getInstance()->clearHistory();
}

// A terrain's vertices in one node field, two megabytes of text: the
// generic editor holds all of it, and leaving it writes nothing.
void tst_UntouchedTexts::nodeTextIsWhole()
{
    auto* shape = new SoIndexedFaceSet;
    shape->ref();
    auto* vertices = new SoVertexProperty;
    std::vector<SbVec3f> points;
    for (int i = 0; i < 55000; ++i)
        points.emplace_back(0.12345678f * float(i % 997), -1.2345678f * float(i % 89), 12.345678f + float(i));
    vertices->vertex.setValues(0, int(points.size()), points.data());
    shape->vertexProperty.setValue(vertices);
    const FieldSnapshot before(shape);
    const QString whole = fieldText(&shape->vertexProperty);
    QVERIFY2(whole.size() > 2000000, qPrintable(QString::number(whole.size())));

    select(&shape->vertexProperty);
    QCOMPARE(dock()->widget()->objectName(), QStringLiteral("FxSFLineWidget"));
    QCOMPARE(shownLine()->text().size(), whole.size());
    QVERIFY(shownLine()->text() == whole);
    visit(shownLine(), Return);
    visit(shownLine(), FocusOut);
    compareSnapshots(before, FieldSnapshot(shape));
    QCOMPARE(shape->vertexProperty.getValue(), static_cast<SoNode*>(vertices));

    select(nullptr);
    KalServices::getInstance()->clearHistory();
    shape->unref();
}

// Coin writes a string ending in a backslash so that it escapes its own
// closing quote; such a value, read from a file, is shown and left as it is,
// by the typed editors and by the undo of what they recorded.
void tst_UntouchedTexts::backslashAtTheEndIsLeftAlone()
{
    m_node->sfString.setValue("C:\\etemp\\");
    m_node->sfFilePath.setValue("D:\\scenes\\");
    m_node->sfName.setValue(SbName("name\\"));
    const FieldSnapshot before(m_node);
    KalServices* services = KalServices::getInstance();
    for (SoField* field :
         {static_cast<SoField*>(&m_node->sfString), static_cast<SoField*>(&m_node->sfFilePath),
          static_cast<SoField*>(&m_node->sfName)}) {
        select(field);
        QVERIFY(shownLine()->text().endsWith(QLatin1Char('\\')));
        const int commands = services->commandCount();
        visit(shownLine(), FocusOut);
        QCOMPARE(services->commandCount(), commands + 1);
        services->undo();
        processSensors();
        services->redo();
        processSensors();
        compareSnapshots(before, FieldSnapshot(m_node));
    }
}

// Every line edit of every single-value editor, its slider frame and its
// popup grid included, holds a text of any length. A spin box's own line
// edit holds an integer, not a field's text.
void tst_UntouchedTexts::everyLineEditTakesAnyLength()
{
    SoFieldList fields;
    m_node->getFields(fields);
    int seen = 0;
    for (int i = 0; i < fields.getLength(); ++i) {
        if (fields[i]->isOfType(SoMField::getClassTypeId()))
            continue;
        select(fields[i]);
        for (QLineEdit* edit : dock()->findChildren<QLineEdit*>()) {
            if (qobject_cast<QAbstractSpinBox*>(edit->parentWidget()))
                continue;
            ++seen;
            QVERIFY2(edit->maxLength() == std::numeric_limits<int>::max(),
                     qPrintable(dock()->widget()->objectName() + QLatin1Char('/') + edit->objectName()));
        }
    }
    QVERIFY(seen > 20);
}

void tst_UntouchedTexts::overlongNamesAreRefused_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("stored");
    QTest::newRow("name of 60,000") << QByteArray("sfName") << 60000 << true;
    QTest::newRow("name of 70,000") << QByteArray("sfName") << 70000 << false;
    QTest::newRow("enumeration of 70,000") << QByteArray("sfEnum") << 70000 << false;
    QTest::newRow("string of 70,000") << QByteArray("sfString") << 70000 << true;
}

// Coin's name table overruns its block on a name of more than 64 KiB and
// corrupts the heap; a line edit that holds any length must not hand it one.
void tst_UntouchedTexts::overlongNamesAreRefused()
{
    QFETCH(QByteArray, field);
    QFETCH(int, length);
    QFETCH(bool, stored);
    SoField* target = m_node->getField(field.constData());
    QVERIFY(target);
    select(target);
    const QString before = fieldText(target);
    const QString text(length, QLatin1Char('N'));
    QLineEdit* edit = shownLine();
    if (!edit) {
        // An enumeration's own editor is a combo box: the generic one takes text.
        auto editor = editorFor<FxSFLineWidget>(target);
        edit = editor->getFrame()->findChild<QLineEdit*>(QStringLiteral("lineEdit"));
        QVERIFY(edit);
        edit->setFocus();
        edit->selectAll();
        edit->insert(text);
        processSensors();
        QCOMPARE(fieldText(target), before);
        editor->deactivate();
        return;
    }
    edit->setFocus();
    edit->selectAll();
    edit->insert(text);
    QTest::keyClick(edit, Qt::Key_Return);
    processSensors();
    QCOMPARE(fieldText(target).size() >= length, stored);
    if (!stored)
        QCOMPARE(fieldText(target), before);
}

QTEST_MAIN(tst_UntouchedTexts)
#include "tst_UntouchedTexts.moc"
