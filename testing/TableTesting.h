#pragma once
// Typing into a cell of a table, as a person does it.
#include "FieldTesting.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QTableWidget>
#include <QtTest>

// Opens a cell's editor as a person does: a click on the cell, then a
// double click.
inline QWidget* openCell(QTableWidget* table, int row, int column)
{
    if (!table)
        return nullptr;
    const QModelIndex index = table->model()->index(row, column);
    table->scrollTo(index);
    const QPoint centre = table->visualRect(index).center();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, centre);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, centre);
    return table->indexWidget(index);
}

// The line edit a text cell opens; null for a cell that opens another editor.
inline QLineEdit* openCellLine(QTableWidget* table, int row, int column)
{
    return qobject_cast<QLineEdit*>(openCell(table, row, column));
}

// Types the text over the cell's value and presses Return. The table
// commits the cell on its next turn of the event loop, which is run, and
// the field sensors due after it.
inline bool typeIntoTableCell(QTableWidget* table, int row, int column, const QString& text)
{
    QLineEdit* edit = openCellLine(table, row, column);
    if (!edit)
        return false;
    edit->selectAll();
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
    QCoreApplication::processEvents();
    processSensors();
    return true;
}
