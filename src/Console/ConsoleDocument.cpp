#include "ConsoleDocument.h"

#include <SoPreferences.h>

#include <QCoreApplication>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>

#include <algorithm>

const char* const ConsoleDocument::kMaxLinesPreference = "KALIBRA_CONSOLE_MAX_LINES";

int ConsoleDocument::maxLinesPreference()
{
    return SoPreferences::getInt(kMaxLinesPreference, kDefaultMaxLines, 1);
}

ConsoleDocument::ConsoleDocument(QTextEdit* edit, int maxLines)
    : m_edit(edit)
    , m_maxLines(std::max(1, maxLines))
{
    // Nobody undoes what a read-only console shows, and the undo history
    // kept a copy of every line.
    m_edit->setUndoRedoEnabled(false);
}

void ConsoleDocument::append(const QColor& colour, const QString& text)
{
    m_edit->setTextColor(colour);
    m_edit->append(text);
    if (m_batchDepth == 0)
        trim();
}

void ConsoleDocument::beginBatch()
{
    if (m_batchDepth++ > 0)
        return;
    const QScrollBar* bar = m_edit->verticalScrollBar();
    m_batchAtBottom = bar->value() >= bar->maximum();
    m_batchCursor = QTextCursor(m_edit->document());
    m_batchCursor.beginEditBlock();
}

void ConsoleDocument::endBatch()
{
    if (m_batchDepth == 0 || --m_batchDepth > 0)
        return;
    // The lines at the end are laid out first, on their own: a change at the
    // top inside the same edit block would make the whole text be laid out
    // again, as one change from the top to the end.
    m_batchCursor.endEditBlock();
    m_batchCursor = QTextCursor();
    trim();
    if (m_noteDue)
        writeNote();
    if (m_batchAtBottom) {
        QScrollBar* bar = m_edit->verticalScrollBar();
        bar->setValue(bar->maximum());
    }
}

void ConsoleDocument::addDropped(long long count)
{
    if (count <= 0)
        return;
    m_dropped += count;
    if (m_batchDepth > 0)
        m_noteDue = true;
    else
        writeNote();
}

void ConsoleDocument::clear()
{
    m_edit->clear();
    m_dropped = 0;
    m_hasNote = false;
    m_noteDue = false;
}

int ConsoleDocument::keptLines() const
{
    const QTextDocument* document = m_edit->document();
    if (document->isEmpty())
        return 0;
    return document->blockCount() - (m_hasNote ? 1 : 0);
}

// Each removal at the top moves every line below it, so lines go a
// sixteenth of the limit at a time rather than one by one: the console keeps
// between 15/16 of its limit and the limit itself once it is full.
void ConsoleDocument::trim()
{
    const int excess = keptLines() - m_maxLines;
    if (excess <= 0)
        return;
    const int count = excess + m_maxLines / 16;
    QTextDocument* document = m_edit->document();
    const int first = m_hasNote ? 1 : 0;
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    cursor.setPosition(document->findBlockByNumber(first).position());
    cursor.setPosition(document->findBlockByNumber(first + count).position(), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    m_dropped += count;
    // In the same edit block: each change at the top moves every line.
    writeNote();
    cursor.endEditBlock();
}

void ConsoleDocument::writeNote()
{
    m_noteDue = false;
    QTextDocument* document = m_edit->document();
    QTextCharFormat format;
    format.setForeground(QColor(Qt::gray));
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    if (!m_hasNote) {
        // A new first paragraph; the one that was first keeps its format.
        const QTextBlock first = document->begin();
        if (!document->isEmpty())
            cursor.insertBlock(first.blockFormat(), first.charFormat());
        cursor.movePosition(QTextCursor::Start);
        m_hasNote = true;
    } else {
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    }
    cursor.setBlockCharFormat(format);
    cursor.insertText(QCoreApplication::translate(
                          "KalConsole", "%1 earlier lines were dropped: the console keeps the last %2.")
                          .arg(m_dropped)
                          .arg(m_maxLines),
                      format);
    cursor.endEditBlock();
}
