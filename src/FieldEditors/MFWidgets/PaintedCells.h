#pragma once

#include <QString>

#include <functional>
#include <vector>

class QTableView;

// What a list editor's cells showed when they were last painted, for the
// rows in sight. A refresh repaints the cells whose value now reads
// otherwise rather than the whole table: an engine or another program that
// changes one value of a million at a time repaints one cell, not every one
// in sight. What is recorded is what was painted, not what was last read, so
// a value changed and changed back between two refreshes is never left
// showing the value in between.
class PaintedCells
{
public:
    // Nothing is known to be painted: the next refresh repaints everything.
    void forget();
    // The cell showed this text (its value's text, before any elision).
    void note(int row, int column, const QString& text);
    // Repaints the cells in sight whose text, as textOf gives it now, is not
    // the one they were painted with; every cell when the rows or columns
    // in sight are not the ones recorded.
    void repaintChanged(QTableView* table, const std::function<QString(int, int)>& textOf);

private:
    int index(int row, int column) const;

    int m_first = -1;
    int m_rows = 0;
    int m_columns = 0;
    std::vector<QString> m_texts;
    std::vector<bool> m_painted;
};
