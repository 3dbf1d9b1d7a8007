#pragma once

#include <QColor>
#include <QString>
#include <QTextCharFormat>
#include <QTextCursor>

class QTextEdit;

// The console's text, kept to at most a given number of lines. Past that the
// oldest lines go, and a first line, in grey, says how many went. Lines are
// written as QTextEdit::append writes them, in the current colour; a batch
// of them is laid out once instead of once a line.
//
// A paragraph costs the text edit some 500 bytes beside its text, so a
// batch's plain lines of one colour share paragraphs, a few dozen lines each,
// broken by line separators: they look, find, copy and save as lines of their
// own. Such a paragraph's user state is the number of lines it holds.
class ConsoleDocument
{
public:
    // The number of lines kept when the preference does not say.
    static constexpr int kDefaultMaxLines = 100000;
    // The preference that says it, read like KALIBRA_STDOUT_CAPTURE.
    static const char* const kMaxLinesPreference;
    static int maxLinesPreference();

    ConsoleDocument(QTextEdit* edit, int maxLines);
    ConsoleDocument(const ConsoleDocument&) = delete;
    ConsoleDocument& operator=(const ConsoleDocument&) = delete;

    int maxLines() const { return m_maxLines; }
    long long droppedLines() const { return m_dropped; }

    void append(const QColor& colour, const QString& text);
    // Lines appended between these two are laid out, trimmed and scrolled to
    // once, at the end.
    void beginBatch();
    void endBatch();
    // Lines that were dropped before they reached the text.
    void addDropped(long long count);
    void clear();

private:
    bool joinsLastParagraph(const QColor& colour, const QString& text) const;
    void writePending();
    int keptLines() const;
    void trim();
    void writeNote();

    QTextEdit* const m_edit;
    const int m_maxLines;
    // How many lines a shared paragraph holds at most.
    const int m_linesPerParagraph;
    long long m_dropped = 0;
    // The lines beyond one of every shared paragraph.
    int m_sharedLines = 0;
    // The last paragraph is shared and may take more lines of this colour.
    bool m_lastShared = false;
    QColor m_lastColour;
    // Lines that join the last paragraph, not yet inserted, in its format.
    QString m_pendingText;
    int m_pendingLines = 0;
    QTextCharFormat m_pendingFormat;
    bool m_hasNote = false;
    // Lines were dropped during a batch; the note waits for its end.
    bool m_noteDue = false;
    int m_batchDepth = 0;
    bool m_batchAtBottom = false;
    QTextCursor m_batchCursor;
};
