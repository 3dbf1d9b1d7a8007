#pragma once

class QItemSelectionModel;
class QModelIndex;

// The scene trees select one whole row at a time. Every place that selects
// a row for a person (a typed path, a click in the 3D view, the filtered
// tree passing its selection on) does it here, so that they all select
// alike.
class TreeSelection
{
public:
    // The selected row; invalid when none is.
    static QModelIndex selectedRow(const QItemSelectionModel* selection);
    // Makes the row the current and only selected one; an invalid row
    // clears the selection.
    static void selectRow(QItemSelectionModel* selection, const QModelIndex& row);
};
