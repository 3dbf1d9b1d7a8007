#pragma once
// What the console tests read back: the console's lines with the colour
// each was written in.
#include <QColor>
#include <QList>
#include <QStringList>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>

#include <iostream>
#include <sstream>

namespace ConsoleTesting {

// Points std::cout and std::cerr at the test's own buffers while it lives:
// they stand for the streams the process had before the console, so that
// what gets past the console can be read back. Leaving puts the real
// streams back, in a good state whatever a test did to them.
class StandardStreams
{
public:
    StandardStreams(std::ostringstream& out, std::ostringstream& err)
        : m_realOut(std::cout.rdbuf(out.rdbuf()))
        , m_realErr(std::cerr.rdbuf(err.rdbuf()))
    {}
    ~StandardStreams()
    {
        std::cout.clear();
        std::cerr.clear();
        std::cout.rdbuf(m_realOut);
        std::cerr.rdbuf(m_realErr);
    }
    StandardStreams(const StandardStreams&) = delete;
    StandardStreams& operator=(const StandardStreams&) = delete;

private:
    std::streambuf* m_realOut;
    std::streambuf* m_realErr;
};

struct Line
{
    QString text;
    QColor colour;
};

// A paragraph may hold several lines, broken by line separators; each line
// has the colour of its first character (an empty one, of what follows it).
inline QList<Line> lines(QTextEdit* edit)
{
    QList<Line> result;
    for (QTextBlock block = edit->document()->begin(); block.isValid(); block = block.next()) {
        Line line{QString(), block.charFormat().foreground().color()};
        bool coloured = false;
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
            const QColor colour = it.fragment().charFormat().foreground().color();
            for (const QChar c : it.fragment().text()) {
                if (!coloured) {
                    line.colour = colour;
                    coloured = true;
                }
                if (c == QChar::LineSeparator) {
                    result << line;
                    line = Line{QString(), colour};
                    coloured = false;
                } else {
                    line.text += c;
                }
            }
        }
        result << line;
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
