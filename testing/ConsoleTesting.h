#pragma once
// What the console tests read back: the console's paragraphs with the
// colour each was written in.
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
