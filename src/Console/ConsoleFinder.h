#pragma once

#include <QColor>
#include <QObject>
#include <QTextCursor>
#include <QVector>

class QFrame;
class QLabel;
class QLineEdit;
class QTextEdit;
class QVBoxLayout;

// Find in the console: a bar under the console's text, hidden until Ctrl+F
// in the console asks for it. Typing highlights every match of the kept text
// (case ignored) and selects the first from the top; Return or F3 steps to
// the next match, Shift+Return or Shift+F3 to the previous one, and Escape
// hides the bar and the highlights again.
class ConsoleFinder : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(ConsoleFinder)

public:
    // Puts the bar at the end of `layout`, after the designed widgets.
    ConsoleFinder(QTextEdit* edit, QFrame* frame, QVBoxLayout* layout);

    // The matches of the current text, found anew if the console's text
    // changed since; the current match is -1 when there is none.
    int matchCount();
    int currentMatch() const { return m_current; }
    // The background of the matches, and of the current one.
    static QColor matchColour();
    static QColor currentColour();

public slots:
    void open();
    void close();
    void findNext();
    void findPrevious();

private slots:
    void searchFromTop();
    void textChanged();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void refresh();
    void step(int direction);
    void showCurrent();

    QTextEdit* const m_edit;
    QFrame* m_bar = nullptr;
    QLineEdit* m_findEdit = nullptr;
    QLabel* m_count = nullptr;
    // Where each match starts in the document; all have the text's length.
    QVector<int> m_matches;
    int m_length = 0;
    int m_current = -1;
    // Where the current match starts, moved by the document as lines come
    // and go, so that stepping goes on from it after the text changed.
    QTextCursor m_currentStart;
    bool m_stale = true;
};
