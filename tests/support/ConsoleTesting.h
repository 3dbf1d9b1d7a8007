#pragma once
// What the console tests read back: the console's paragraphs with the
// colour each was written in.
#include <QColor>
#include <QList>
#include <QStringList>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>

namespace ConsoleTesting {

struct Line
{
    QString text;
    QColor colour;
};

inline QList<Line> lines(QTextEdit* edit)
{
    QList<Line> result;
    for (QTextBlock block = edit->document()->begin(); block.isValid(); block = block.next()) {
        QColor colour = block.charFormat().foreground().color();
        if (block.begin() != block.end())
            colour = block.begin().fragment().charFormat().foreground().color();
        result << Line{block.text(), colour};
    }
    // An untouched document has one empty paragraph that nobody wrote.
    if (result.size() == 1 && result.first().text.isEmpty() && edit->document()->isEmpty())
        result.clear();
    return result;
}

inline QStringList texts(QTextEdit* edit)
{
    QStringList result;
    for (const Line& line : lines(edit))
        result << line.text;
    return result;
}

} // namespace ConsoleTesting
