#include "ConsoleFinder.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTextDocument>
#include <QTextEdit>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// Highlighting every match of a common word in 100,000 lines would give the
// document as many cursors, each moved by every line that arrives; the
// highlights cover the matches around the current one instead.
constexpr int kHighlightedMatches = 1000;

} // namespace

ConsoleFinder::ConsoleFinder(QTextEdit* edit, QFrame* frame, QVBoxLayout* layout)
    : QObject(frame)
    , m_edit(edit)
{
    m_bar = new QFrame(frame);
    m_bar->setObjectName(QStringLiteral("m_findBar"));
    auto* row = new QHBoxLayout(m_bar);
    row->setObjectName(QStringLiteral("m_findLayout"));
    row->setContentsMargins(0, 0, 0, 0);
    m_findEdit = new QLineEdit(m_bar);
    m_findEdit->setObjectName(QStringLiteral("m_findEdit"));
    m_findEdit->setPlaceholderText(tr("Find in the console"));
    m_findEdit->installEventFilter(this);
    m_count = new QLabel(m_bar);
    m_count->setObjectName(QStringLiteral("m_findCount"));
    row->addWidget(m_findEdit, 1);
    row->addWidget(m_count);
    layout->addWidget(m_bar);
    m_bar->hide();

    // The keys are taken from the text and the bar themselves rather than
    // through shortcuts, so that a host's own Ctrl+F or F3 elsewhere in the
    // window is left alone and the console's work wherever the window is.
    m_edit->installEventFilter(this);
    connect(m_findEdit, SIGNAL(textChanged(QString)), this, SLOT(searchFromTop()));
    connect(m_findEdit, SIGNAL(returnPressed()), this, SLOT(findNext()));
    connect(m_edit->document(), SIGNAL(contentsChanged()), this, SLOT(textChanged()));
}

void ConsoleFinder::open()
{
    m_bar->show();
    m_findEdit->setFocus(Qt::ShortcutFocusReason);
    m_findEdit->selectAll();
}

void ConsoleFinder::close()
{
    m_bar->hide();
    m_edit->setExtraSelections({});
    m_edit->setFocus(Qt::OtherFocusReason);
}

void ConsoleFinder::textChanged()
{
    m_stale = true;
}

int ConsoleFinder::matchCount()
{
    refresh();
    return m_matches.size();
}

// Positions in the plain text are positions in the document (a paragraph
// break is one character in both), so one scan of one string finds them all.
void ConsoleFinder::refresh()
{
    if (!m_stale)
        return;
    m_stale = false;
    m_matches.clear();
    const QString needle = m_findEdit->text();
    m_length = needle.size();
    if (needle.isEmpty())
        return;
    const QString text = m_edit->document()->toPlainText();
    for (int at = text.indexOf(needle, 0, Qt::CaseInsensitive); at >= 0;
         at = text.indexOf(needle, at + m_length, Qt::CaseInsensitive))
        m_matches.append(at);
}

void ConsoleFinder::searchFromTop()
{
    m_stale = true;
    refresh();
    m_current = m_matches.isEmpty() ? -1 : 0;
    showCurrent();
}

void ConsoleFinder::findNext()
{
    step(1);
}

void ConsoleFinder::findPrevious()
{
    step(-1);
}

// After the text changed the current match is found again from where it
// started, so that lines arriving or dropped do not make it jump.
void ConsoleFinder::step(int direction)
{
    if (m_bar->isHidden()) {
        open();
        return;
    }
    if (m_stale) {
        refresh();
        const int from = m_currentStart.isNull() ? 0 : m_currentStart.position();
        const auto at = std::lower_bound(m_matches.cbegin(), m_matches.cend(), from);
        m_current = m_matches.isEmpty() ? -1 : int(at - m_matches.cbegin()) - (direction > 0 ? 0 : 1);
        if (m_current >= 0 && m_current < m_matches.size() && m_matches[m_current] == from)
            m_current += direction;
    } else if (!m_matches.isEmpty()) {
        m_current += direction;
    }
    if (!m_matches.isEmpty())
        m_current = (m_current % m_matches.size() + m_matches.size()) % m_matches.size();
    showCurrent();
}

void ConsoleFinder::showCurrent()
{
    QList<QTextEdit::ExtraSelection> highlights;
    if (m_current < 0 || m_matches.isEmpty()) {
        m_current = -1;
        m_currentStart = QTextCursor();
        m_count->setText(m_findEdit->text().isEmpty() ? QString() : tr("No match"));
        m_edit->setExtraSelections(highlights);
        return;
    }
    QTextDocument* document = m_edit->document();
    const int first = std::max(0, m_current - kHighlightedMatches / 2);
    const int last = std::min(m_matches.size(), first + kHighlightedMatches);
    for (int i = first; i < last; ++i) {
        QTextEdit::ExtraSelection highlight;
        highlight.cursor = QTextCursor(document);
        highlight.cursor.setPosition(m_matches[i]);
        highlight.cursor.setPosition(m_matches[i] + m_length, QTextCursor::KeepAnchor);
        highlight.format.setBackground(i == m_current ? currentColour() : matchColour());
        highlights.append(highlight);
    }
    m_edit->setExtraSelections(highlights);
    // The current match is not made the text edit's selection: each line
    // shown sets the text colour, which would recolour a selection.
    m_currentStart = QTextCursor(document);
    m_currentStart.setPosition(m_matches[m_current]);
    QTextCursor cursor(document);
    cursor.setPosition(m_matches[m_current] + m_length);
    m_edit->setTextCursor(cursor);
    m_edit->ensureCursorVisible();
    m_count->setText(tr("%1 of %2").arg(m_current + 1).arg(m_matches.size()));
}

QColor ConsoleFinder::matchColour()
{
    return QColor(Qt::yellow);
}

QColor ConsoleFinder::currentColour()
{
    return QColor(255, 150, 50);
}

bool ConsoleFinder::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_findEdit && watched != m_edit)
        return QObject::eventFilter(watched, event);
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    const bool escape = watched == m_findEdit && key->key() == Qt::Key_Escape;
    const bool shiftReturn = watched == m_findEdit &&
                             (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) &&
                             key->modifiers().testFlag(Qt::ShiftModifier);
    const bool find = key->matches(QKeySequence::Find);
    const bool next = key->matches(QKeySequence::FindNext);
    const bool previous = key->matches(QKeySequence::FindPrevious);
    if (!(escape || shiftReturn || find || next || previous))
        return QObject::eventFilter(watched, event);
    // Claimed before the window's shortcuts see it; acted on as a key press.
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    if (escape)
        close();
    else if (find)
        open();
    else if (next)
        findNext();
    else
        findPrevious();
    return true;
}
