// Find in the "Console" dock: Ctrl+F opens a bar under the text, typing
// highlights the matches, Return and F3 step through them, Escape hides the
// bar again. The designed widgets stay as they were, the bar comes after.
#include "ConsoleFixture.h"

#include <KalShell.h>

#include <QApplication>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QTextBlock>
#include <QTextDocument>
#include <QVBoxLayout>
#include <QtTest>

#include <iostream>
#include <thread>

using namespace ConsoleTesting;

class tst_ConsoleFind : public ConsoleFixture
{
    Q_OBJECT

private slots:
    void init();
    void barComesAfterTheDesignedForm();
    void ctrlFOpensAndEscapeHides();
    void returnAndF3StepThroughTheMatches();
    void matchesFollowNewLines();
    void noMatchSaysSo();
    void linesShownWhileAMatchIsCurrentKeepTheirColours();
    void matchesInLinesFromAnotherThread();

private:
    QLineEdit* findEdit() const
    {
        return qobject_cast<QLineEdit*>(consoleWidget(QStringLiteral("m_findEdit")));
    }
    QString count() const
    {
        auto* label = qobject_cast<QLabel*>(consoleWidget(QStringLiteral("m_findCount")));
        return label ? label->text() : QStringLiteral("<no label>");
    }
    // The highlighted texts, and the block and text of the current match.
    QStringList highlighted() const;
    QString current() const;
    int currentBlock() const;
    void writeSample();
};

void tst_ConsoleFind::init()
{
    ConsoleFixture::init();
    output()->setFocus();
}

QStringList tst_ConsoleFind::highlighted() const
{
    QStringList result;
    for (const QTextEdit::ExtraSelection& highlight : output()->extraSelections())
        result << highlight.cursor.selectedText();
    return result;
}

QString tst_ConsoleFind::current() const
{
    for (const QTextEdit::ExtraSelection& highlight : output()->extraSelections()) {
        if (highlight.format.background().color() == QColor(255, 150, 50))
            return highlight.cursor.selectedText();
    }
    return QString();
}

int tst_ConsoleFind::currentBlock() const
{
    for (const QTextEdit::ExtraSelection& highlight : output()->extraSelections()) {
        if (highlight.format.background().color() == QColor(255, 150, 50))
            return highlight.cursor.block().blockNumber();
    }
    return -1;
}

void tst_ConsoleFind::writeSample()
{
    // On the UI thread each block written is a line of its own.
    std::cout << "alpha one";
    std::cerr << "beta";
    std::cout << "ALPHA two and alpha three";
    std::cout << "gamma";
}

void tst_ConsoleFind::barComesAfterTheDesignedForm()
{
    auto* frame = qobject_cast<QFrame*>(consoleWidget(QStringLiteral("m_consoleFrame")));
    QVERIFY(frame);
    auto* layout = qobject_cast<QVBoxLayout*>(frame->layout());
    QVERIFY(layout);
    QCOMPARE(layout->objectName(), QStringLiteral("verticalLayout"));
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->itemAt(0)->widget()->objectName(), QStringLiteral("m_consoleScrollArea"));
    QCOMPARE(layout->itemAt(1)->widget()->objectName(), QStringLiteral("m_findBar"));
    QVERIFY(layout->itemAt(1)->widget()->isHidden());
    QVERIFY(findEdit());
}

void tst_ConsoleFind::ctrlFOpensAndEscapeHides()
{
    writeSample();
    QWidget* bar = consoleWidget(QStringLiteral("m_findBar"));
    QTest::keyClick(output(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(!bar->isHidden());
    QCOMPARE(output()->window()->focusWidget(), static_cast<QWidget*>(findEdit()));
    QTest::keyClicks(findEdit(), QStringLiteral("alpha"));
    QCOMPARE(highlighted(), (QStringList{"alpha", "ALPHA", "alpha"}));
    QTest::keyClick(findEdit(), Qt::Key_Escape);
    QVERIFY(bar->isHidden());
    QVERIFY(output()->extraSelections().isEmpty());
    QCOMPARE(output()->window()->focusWidget(), static_cast<QWidget*>(output()));
    // Opening again keeps the text, selected, and its matches.
    QTest::keyClick(output(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(!bar->isHidden());
    QCOMPARE(findEdit()->selectedText(), QStringLiteral("alpha"));
    QTest::keyClick(findEdit(), Qt::Key_Return);
    QCOMPARE(highlighted().size(), 3);
    // The console's text is untouched by all of it.
    QCOMPARE(texts(output()), (QStringList{"alpha one", "beta", "ALPHA two and alpha three", "gamma"}));
}

void tst_ConsoleFind::returnAndF3StepThroughTheMatches()
{
    writeSample();
    QTest::keyClick(output(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(findEdit(), QStringLiteral("Alpha"));
    QCOMPARE(count(), QStringLiteral("1 of 3"));
    QCOMPARE(currentBlock(), 0);
    QCOMPARE(current(), QStringLiteral("alpha"));
    QTest::keyClick(findEdit(), Qt::Key_Return);
    QCOMPARE(count(), QStringLiteral("2 of 3"));
    QCOMPARE(currentBlock(), 2);
    QCOMPARE(current(), QStringLiteral("ALPHA"));
    QTest::keyClick(findEdit(), Qt::Key_F3);
    QCOMPARE(count(), QStringLiteral("3 of 3"));
    QCOMPARE(currentBlock(), 2);
    QCOMPARE(current(), QStringLiteral("alpha"));
    // Past the last it goes round to the first, and Shift steps back.
    QTest::keyClick(findEdit(), Qt::Key_F3);
    QCOMPARE(count(), QStringLiteral("1 of 3"));
    QTest::keyClick(findEdit(), Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(count(), QStringLiteral("3 of 3"));
    QTest::keyClick(findEdit(), Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(count(), QStringLiteral("2 of 3"));
    // F3 works from the text too, and the text cursor follows the match.
    output()->setFocus();
    QTest::keyClick(output(), Qt::Key_F3);
    QCOMPARE(count(), QStringLiteral("3 of 3"));
    QCOMPARE(output()->textCursor().blockNumber(), 2);
}

void tst_ConsoleFind::matchesFollowNewLines()
{
    writeSample();
    QTest::keyClick(output(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(findEdit(), QStringLiteral("gamma"));
    QCOMPARE(count(), QStringLiteral("1 of 1"));
    std::cout << "gamma again";
    QTest::keyClick(findEdit(), Qt::Key_Return);
    QCOMPARE(count(), QStringLiteral("2 of 2"));
    QCOMPARE(currentBlock(), 4);
}

void tst_ConsoleFind::noMatchSaysSo()
{
    writeSample();
    QTest::keyClick(output(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(findEdit(), QStringLiteral("delta"));
    QCOMPARE(count(), QStringLiteral("No match"));
    QVERIFY(output()->extraSelections().isEmpty());
    QTest::keyClick(findEdit(), Qt::Key_Return);
    QCOMPARE(count(), QStringLiteral("No match"));
    findEdit()->clear();
    QCOMPARE(count(), QString());
}

void tst_ConsoleFind::linesShownWhileAMatchIsCurrentKeepTheirColours()
{
    writeSample();
    QTest::keyClick(output(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(findEdit(), QStringLiteral("beta"));
    QCOMPARE(count(), QStringLiteral("1 of 1"));
    std::cout << "info";
    std::cerr << "error";
    const QList<Line> shown = lines(output());
    QCOMPARE(shown[1].text, QStringLiteral("beta"));
    QCOMPARE(shown[1].colour, QColor(Qt::darkRed));
    QCOMPARE(shown[4].colour, QColor(Qt::darkGreen));
    QCOMPARE(shown[5].colour, QColor(Qt::darkRed));
    QCOMPARE(texts(output()).mid(4), (QStringList{"info", "error"}));
}

// Lines from another thread share paragraphs: their matches are found and
// stepped through line by line all the same.
void tst_ConsoleFind::matchesInLinesFromAnotherThread()
{
    std::thread writer([] {
        for (int n = 0; n < 200; ++n)
            std::cout << "line " << n << (n % 50 == 7 ? " needle" : " hay") << '\n';
    });
    writer.join();
    QTRY_COMPARE(texts(output()).size(), 200);
    QVERIFY(output()->document()->blockCount() < 200);
    QTest::keyClick(output(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(findEdit(), QStringLiteral("needle"));
    QCOMPARE(count(), QStringLiteral("1 of 4"));
    QCOMPARE(highlighted(), (QStringList{"needle", "needle", "needle", "needle"}));
    QTest::keyClick(findEdit(), Qt::Key_Return);
    QCOMPARE(count(), QStringLiteral("2 of 4"));
    // The current match is in the line that holds it.
    const QString text = output()->toPlainText();
    const int at = output()->textCursor().position();
    QCOMPARE(text.left(at).section(QLatin1Char('\n'), -1), QStringLiteral("line 57 needle"));
}

QTEST_MAIN(tst_ConsoleFind)
#include "tst_ConsoleFind.moc"
