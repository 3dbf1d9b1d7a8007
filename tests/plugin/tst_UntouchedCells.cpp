// The cells of the string list and of the generic list hold their value
// whole and in the bytes it came in: a cell opened and closed without
// typing records nothing and leaves every field as it was, and a letter
// typed keeps the encoding of the rest of the value.
#include "FieldSnapshot.h"
#include "ListEditorTesting.h"
#include "TableTesting.h"

#include <SoTypedObject.h>

#include <Inventor/fields/SoMFName.h>

using namespace ListEditorTesting;

class tst_UntouchedCells : public ListEditorFixture
{
    Q_OBJECT

private slots:
    void cellsHoldTheWholeValue_data();
    void cellsHoldTheWholeValue();
    void typingKeepsTheEncoding_data();
    void typingKeepsTheEncoding();
};

namespace {

QString longText()
{
    QString text;
    for (int i = 0; text.size() < 40000; ++i)
        text += QStringLiteral("word%1 ").arg(i);
    text.truncate(40000);
    return text;
}

// Types into the text of an open cell, `fromEnd` characters before its
// end, and presses Return.
void typeIntoCell(QLineEdit* edit, int fromEnd, const QString& text)
{
    QTest::keyClick(edit, Qt::Key_End);
    for (int i = 0; i < fromEnd; ++i)
        QTest::keyClick(edit, Qt::Key_Left);
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
    QCoreApplication::processEvents();
    processSensors();
}

void fill(AllFieldsNode* node)
{
    const QByteArray whole = longText().toLatin1();
    const char* strings[] = {"caf\xe9", whole.constData(), "C:\\etemp\\", "caf\xc3\xa9"};
    node->mfString.setValues(0, 4, strings);
    node->mfString.setNum(4);
    node->mfName.set1Value(0, SbName("Ma\xdf"));
    node->mfName.set1Value(1, SbName(whole.constData()));
}

QList<QByteArray> rowBytes(SoMField* list)
{
    QList<QByteArray> rows;
    for (int i = 0; i < list->getNum(); ++i) {
        SbString text;
        list->get1(i, text);
        rows << QByteArray(text.getString());
    }
    return rows;
}

SoMField* listNamed(AllFieldsNode* node, const QByteArray& name)
{
    return static_cast<SoMField*>(node->getField(name.constData()));
}

} // namespace

void tst_UntouchedCells::cellsHoldTheWholeValue_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("shown");
    QTest::newRow("string, Latin-1") << QByteArray("mfString") << 0 << QString::fromLatin1("caf\xe9");
    QTest::newRow("string, 40,000 characters") << QByteArray("mfString") << 1 << longText();
    QTest::newRow("string, ending in a backslash")
        << QByteArray("mfString") << 2 << QStringLiteral("C:\\etemp\\");
    QTest::newRow("string, UTF-8") << QByteArray("mfString") << 3 << QStringLiteral("caf") + QChar(0xe9);
    // The generic list shows a value's own text: a name with more than
    // letters in it is quoted.
    const QString quote = QStringLiteral("\"");
    QTest::newRow("generic, Latin-1")
        << QByteArray("mfName") << 0 << quote + QString::fromLatin1("Ma\xdf") + quote;
    QTest::newRow("generic, 40,000 characters") << QByteArray("mfName") << 1 << quote + longText() + quote;
}

void tst_UntouchedCells::cellsHoldTheWholeValue()
{
    QFETCH(QByteArray, field);
    QFETCH(int, row);
    QFETCH(QString, shown);
    fill(m_node);
    const FieldSnapshot before(m_node);
    select(listNamed(m_node, field));
    KalServices* services = KalServices::getInstance();
    const int commands = services->commandCount();

    QLineEdit* edit = openCellLine(table(), row, 0);
    QVERIFY(edit);
    QCOMPARE(edit->text().size(), shown.size());
    QCOMPARE(edit->text(), shown);
    QTest::keyClick(edit, Qt::Key_Return);
    QCoreApplication::processEvents();
    processSensors();
    const QString difference = before.differenceFrom(FieldSnapshot(m_node));
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
    QCOMPARE(services->commandCount(), commands);
}

void tst_UntouchedCells::typingKeepsTheEncoding_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("fromEnd");
    QTest::addColumn<QByteArray>("stored");
    QTest::newRow("string, Latin-1") << QByteArray("mfString") << 0 << 0 << QByteArray("caf\xe9s");
    QTest::newRow("string, UTF-8") << QByteArray("mfString") << 3 << 0 << QByteArray("caf\xc3\xa9s");
    QTest::newRow("string, 40,000 characters")
        << QByteArray("mfString") << 1 << 0 << longText().toLatin1() + "s";
    // Before the closing quote of the name's text.
    QTest::newRow("generic, Latin-1") << QByteArray("mfName") << 0 << 1 << QByteArray("Ma\xdfs");
}

void tst_UntouchedCells::typingKeepsTheEncoding()
{
    QFETCH(QByteArray, field);
    QFETCH(int, row);
    QFETCH(int, fromEnd);
    QFETCH(QByteArray, stored);
    fill(m_node);
    SoMField* list = listNamed(m_node, field);
    const QList<QByteArray> rowsBefore = rowBytes(list);
    select(list);
    KalServices* services = KalServices::getInstance();
    const int commands = services->commandCount();

    QLineEdit* edit = openCellLine(table(), row, 0);
    QVERIFY(edit);
    typeIntoCell(edit, fromEnd, QStringLiteral("s"));
    QCOMPARE(services->commandCount(), commands + 1);
    if (auto* strings = SoTypedObject(list).cast<SoMFString>())
        QCOMPARE(QByteArray((*strings)[row].getString()), stored);
    else
        QCOMPARE(QByteArray(static_cast<SoMFName*>(list)->getValues(0)[row].getString()), stored);
    // The other rows are what they were, to the byte.
    const QList<QByteArray> rowsAfter = rowBytes(list);
    QCOMPARE(rowsAfter.size(), rowsBefore.size());
    for (int other = 0; other < rowsAfter.size(); ++other) {
        if (other != row)
            QCOMPARE(rowsAfter.at(other), rowsBefore.at(other));
    }
}

QTEST_MAIN(tst_UntouchedCells)
#include "tst_UntouchedCells.moc"
