#include "TreeSelection.h"

#include <QItemSelectionModel>

QModelIndex TreeSelection::selectedRow(const QItemSelectionModel* selection)
{
    const QModelIndexList rows = selection->selectedRows();
    return rows.isEmpty() ? QModelIndex() : rows.first();
}

void TreeSelection::selectRow(QItemSelectionModel* selection, const QModelIndex& row)
{
    if (row.isValid())
        selection->setCurrentIndex(row, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    else
        selection->clearSelection();
}
