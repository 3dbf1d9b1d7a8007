#include "PaintedCells.h"

#include <QAbstractItemModel>
#include <QTableView>

void PaintedCells::forget()
{
    m_first = -1;
    m_rows = 0;
    m_columns = 0;
    m_texts.clear();
    m_painted.clear();
}

int PaintedCells::index(int row, int column) const
{
    if (row < m_first || row >= m_first + m_rows || column < 0 || column >= m_columns)
        return -1;
    return (row - m_first) * m_columns + column;
}

void PaintedCells::note(int row, int column, const QString& text)
{
    const int at = index(row, column);
    if (at < 0)
        return;
    m_texts[size_t(at)] = text;
    m_painted[size_t(at)] = true;
}

void PaintedCells::repaintChanged(QTableView* table, const std::function<QString(int, int)>& textOf)
{
    QWidget* viewport = table->viewport();
    const int count = table->model() ? table->model()->rowCount() : 0;
    const int first = table->rowAt(0);
    int last = table->rowAt(viewport->height() - 1);
    if (last < 0)
        last = count - 1;
    const int columns = table->model() ? table->model()->columnCount() : 0;
    if (first < 0 || last < first || first != m_first || last - first + 1 != m_rows || columns != m_columns) {
        // Other rows in sight (scrolled, resized, a new count): all of them
        // are painted anew, and noted as they are.
        forget();
        if (first >= 0 && last >= first) {
            m_first = first;
            m_rows = last - first + 1;
            m_columns = columns;
            m_texts.assign(size_t(m_rows * m_columns), QString());
            m_painted.assign(size_t(m_rows * m_columns), false);
        }
        viewport->update();
        return;
    }
    for (int row = first; row <= last; ++row) {
        for (int column = 0; column < columns; ++column) {
            const size_t at = size_t(index(row, column));
            if (m_painted[at] && m_texts[at] == textOf(row, column))
                continue;
            m_painted[at] = false;
            viewport->update(table->visualRect(table->model()->index(row, column)));
        }
    }
}
