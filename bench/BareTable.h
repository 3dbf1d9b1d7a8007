#pragma once
// The floor the list editors are measured against: a bare QTableWidget in
// the editors' own dock, with as many columns as the list it is compared
// with, emptied out of the dock again when done.
#include <KalServices.h>

#include <QDockWidget>
#include <QTableWidget>

struct BareTable
{
    explicit BareTable(QDockWidget* dock, int columns = 1)
        : dock(dock)
    {
        emit KalServices::getInstance()->selectedFieldChanged(nullptr);
        table->setColumnCount(columns);
        dock->setWidget(table);
        dock->show();
        table->show();
    }
    ~BareTable()
    {
        dock->setWidget(nullptr);
        table->setParent(nullptr);
        delete table;
        dock->hide();
    }
    BareTable(const BareTable&) = delete;
    BareTable& operator=(const BareTable&) = delete;

    QDockWidget* dock;
    QTableWidget* table = new QTableWidget;
};
