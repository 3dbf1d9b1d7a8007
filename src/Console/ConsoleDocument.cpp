#include "ConsoleDocument.h"

#include <SoPreferences.h>

#include <QCoreApplication>
#include <QFont>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>

#include <algorithm>

const char* const ConsoleDocument::kMaxLinesPreference = "KALIBRA_CONSOLE_MAX_LINES";

namespace {

// A shared paragraph is laid out again whole when a line joins it, so it
// stays short; and the lines dropped at once past the limit are whole
// paragraphs, so a paragraph holds no more than a small part of the limit.
constexpr int kMostLinesPerParagraph = 64;
constexpr int kLimitPartPerParagraph = 1024;

// A line that QTextEdit::append would show as one plain paragraph: no breaks
// of its own, nothing append would read as markup.
bool isPlainLine(const QString& text)
{
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        if (u == u'\n' || u == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator ||
            u == 0xfdd0 || u == 0xfdd1)
            return false;
    }
    return !Qt::mightBeRichText(text);
}

int linesIn(const QTextBlock& block)
{
    return std::max(1, block.userState());
}

} // namespace

int ConsoleDocument::maxLinesPreference()
{
    return SoPreferences::getInt(kMaxLinesPreference, kDefaultMaxLines, 1);
}

ConsoleDocument::ConsoleDocument(QTextEdit* edit, int maxLines)
    : m_edit(edit)
    , m_maxLines(std::max(1, maxLines))
    , m_linesPerParagraph(std::clamp(m_maxLines / kLimitPartPerParagraph, 1, kMostLinesPerParagraph))
{
    // Nobody undoes what a read-only console shows, and the undo history
    // kept a copy of every line.
    m_edit->setUndoRedoEnabled(false);
    // Shaping took four fifths of the time a flood of output spends in the
    // console, for lines that need no ligatures or kerning to be read.
    // Scripts that need shaping are still shaped; the family and size stay
    // the application's, since only the strategy is set.
    QFont unshaped;
    unshaped.setStyleStrategy(QFont::PreferNoShaping);
    m_edit->setFont(unshaped);
}

void ConsoleDocument::append(const QColor& colour, const QString& text)
{
    if (joinsLastParagraph(colour, text)) {
        // Inserted with the rest of its paragraph when the paragraph is full
        // or the batch ends: each insertion is a change the layout hears of.
        m_pendingText += QChar::LineSeparator;
        m_pendingText += text;
        ++m_pendingLines;
        ++m_sharedLines;
        return;
    }
    writePending();
    m_edit->setTextColor(colour);
    m_edit->append(text);
    // Lines from the UI thread keep a paragraph each: a line joining a
    // paragraph lays all of it out again, which a batch pays once and a
    // single line every time.
    m_lastShared = m_batchDepth > 0 && m_linesPerParagraph > 1 && isPlainLine(text);
    if (m_lastShared) {
        m_edit->document()->lastBlock().setUserState(1);
        m_lastColour = colour;
        m_pendingFormat = m_edit->currentCharFormat();
    }
    if (m_batchDepth == 0)
        trim();
}

void ConsoleDocument::writePending()
{
    if (m_pendingLines == 0)
        return;
    QTextCursor end(m_edit->document());
    end.movePosition(QTextCursor::End);
    end.insertText(m_pendingText, m_pendingFormat);
    QTextBlock last = m_edit->document()->lastBlock();
    last.setUserState(last.userState() + m_pendingLines);
    m_pendingText.clear();
    m_pendingLines = 0;
}

bool ConsoleDocument::joinsLastParagraph(const QColor& colour, const QString& text) const
{
    return m_batchDepth > 0 && m_lastShared && colour == m_lastColour &&
           linesIn(m_edit->document()->lastBlock()) + m_pendingLines < m_linesPerParagraph &&
           isPlainLine(text);
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
    writePending();
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
    m_pendingText.clear();
    m_pendingLines = 0;
    m_dropped = 0;
    m_hasNote = false;
    m_noteDue = false;
    m_sharedLines = 0;
    m_lastShared = false;
}

int ConsoleDocument::keptLines() const
{
    const QTextDocument* document = m_edit->document();
    if (document->isEmpty())
        return 0;
    return document->blockCount() + m_sharedLines - (m_hasNote ? 1 : 0);
}

// Each removal at the top moves every line below it, so lines go a
// sixteenth of the limit at a time rather than one by one: the console keeps
// between 15/16 of its limit and the limit itself once it is full. Lines go
// in whole paragraphs; a shared one is small enough to fit in that sixteenth.
void ConsoleDocument::trim()
{
    const int excess = keptLines() - m_maxLines;
    if (excess <= 0)
        return;
    const int count = excess + m_maxLines / 16;
    QTextDocument* document = m_edit->document();
    const int first = m_hasNote ? 1 : 0;
    const QTextBlock from = document->findBlockByNumber(first);
    const QTextBlock last = document->lastBlock();
    QTextBlock to = from;
    int removed = 0;
    int shared = 0;
    while (to != last && (removed < excess || removed + linesIn(to) <= count)) {
        removed += linesIn(to);
        shared += linesIn(to) - 1;
        to = to.next();
    }
    // Which paragraph's own data outlives the removal is Qt's business: the
    // line count of the one that stays first is set again.
    const int keptState = to.userState();
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    cursor.setPosition(from.position());
    cursor.setPosition(to.position(), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    document->findBlockByNumber(first).setUserState(keptState);
    m_sharedLines -= shared;
    m_dropped += removed;
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
        // A new first paragraph; the one that was first keeps its format and
        // its line count.
        const QTextBlock first = document->begin();
        const int firstState = first.userState();
        if (document->isEmpty()) {
            m_lastShared = false;
        } else {
            cursor.insertBlock(first.blockFormat(), first.charFormat());
            document->begin().next().setUserState(firstState);
        }
        document->begin().setUserState(-1);
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
