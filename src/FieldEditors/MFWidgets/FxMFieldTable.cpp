#include "FxMFieldTable.h"

#include "AccessButtonPrivate.h"
#include "FxMFieldTableItemDelegate.h"
#include "FxMFieldWidget.h"
#include "KalMFAddRowsCommand.h"
#include "KalMFDeleteRowsCommand.h"
#include "KalMFSwapRowsCommand.h"

#include <KalServices.h>

#include <Inventor/fields/SoMField.h>

#include <QCursor>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>

#include <algorithm>
#include <cstdio>
#include <iostream>

FxMFieldTable::FxMFieldTable(FxMFieldWidget* fieldWidget, QWidget* parent, const char* name)
    : QTableWidget(parent)
    , m_fieldWidget(fieldWidget)
    , m_delegate(new FxMFieldTableItemDelegate(fieldWidget, this))
{
    setObjectName(QLatin1String(name ? name : "FxMFieldTable"));
    setItemDelegate(m_delegate);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The columns are fitted to the viewport here rather than by stretching
    // the header's last section: a stretched last section stops shrinking at
    // the header's default width (100 px), and in a narrow dock a colour's B
    // or a rotation's angle went on under the vertical scroll bar.
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column, int, int size) { fitDraggedColumn(column, size); });
    setCurrentCell(0, 0);
}

FxMFieldTable::~FxMFieldTable()
{
    setItemDelegate(nullptr);
    delete m_delegate;
}

void FxMFieldTable::installDelegate(FxMFieldTableItemDelegate* delegate)
{
    if (!delegate || delegate == m_delegate)
        return;
    setItemDelegate(delegate);
    delete m_delegate;
    m_delegate = delegate;
}

SoMField* FxMFieldTable::field() const
{
    return m_fieldWidget ? m_fieldWidget->getField() : nullptr;
}

void FxMFieldTable::copySettingsFrom(const FxMFieldTable& other)
{
    setColumnCount(other.columnCount());
    for (int column = 0; column < other.columnCount(); ++column) {
        if (const QTableWidgetItem* header = other.horizontalHeaderItem(column))
            setHorizontalHeaderItem(column, header->clone());
        horizontalHeader()->setSectionResizeMode(column, other.horizontalHeader()->sectionResizeMode(column));
    }
    const FxMFieldTableItemDelegate* settings = other.getDelegate();
    m_delegate->setValueKind(settings->getValueKind());
    m_delegate->setIntRange(settings->intMinimum(), settings->intMaximum());
    m_delegate->setRealRange(settings->realMinimum(), settings->realMaximum());
    m_delegate->setBounded(settings->isBounded());
    setEditTriggers(other.editTriggers());
    setMinimumHeight(other.minimumHeight());
}

void FxMFieldTable::setValueKind(int kind)
{
    m_delegate->setValueKind(kind);
}

void FxMFieldTable::setRealRange(double min, double max)
{
    m_delegate->setRealRange(min, max);
}

void FxMFieldTable::setIntRange(int min, int max)
{
    m_delegate->setIntRange(min, max);
}

void FxMFieldTable::setBounded(bool bounded)
{
    m_delegate->setBounded(bounded);
}

// Range changes are bookkeeping, not the user's choice of a row: the box must
// not take a clamped value for a request to show that row. An unchanged range
// is left alone: setting it lays the editor out and repaints it again, the
// larger part of a refresh that changed only a value.
void FxMFieldTable::setAccessRange(int minimum, int maximum)
{
    AccessButtonPrivate* box = m_fieldWidget ? m_fieldWidget->getAccessBox() : nullptr;
    if (!box || (box->minimum() == minimum && box->maximum() == maximum))
        return;
    const QSignalBlocker blocker(box);
    box->setRange(minimum, maximum);
}

void FxMFieldTable::setNumRows(int rows)
{
    if (rows < 0)
        return;
    setAccessRange(rows != 0 ? 1 : 0, rows);
    setRowCount(rows);
}

void FxMFieldTable::setCurrentRowQuietly(int row)
{
    m_movingCurrent = true;
    setCurrentCell(row, 0);
    m_movingCurrent = false;
}

// The access box's number is used unchanged as a row index, so choosing k
// shows the row below the k-th and choosing the last number shows nothing.
// That is how the box has always behaved; it is kept.
void FxMFieldTable::showTableRow(int row)
{
    if (row < 0 || row >= rowCount())
        return;
    scrollTo(model()->index(row, 0));
    setCurrentRowQuietly(row);
}

// A row the user clicks or walks to becomes the box's number, so that the
// move buttons act on it.
void FxMFieldTable::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableWidget::currentChanged(current, previous);
    AccessButtonPrivate* box = m_fieldWidget ? m_fieldWidget->getAccessBox() : nullptr;
    if (m_movingCurrent || !box || !current.isValid())
        return;
    const QSignalBlocker blocker(box);
    box->setNewValue(current.row());
}

void FxMFieldTable::addRow()
{
    SoMField* target = field();
    if (!target)
        return;
    const int current = currentRow();
    const int newRow = current + 1;

    clearContents();
    insertRow(newRow);
    for (int column = 0; column < columnCount(); ++column)
        setItem(newRow, column, new QTableWidgetItem);
    if (AccessButtonPrivate* box = m_fieldWidget->getAccessBox())
        setAccessRange(1, box->maximum() + 1);

    KalServices::getInstance()->pushCommand(new KalMFAddRowsCommand(target, newRow, 1));

    // The current row stays on the row above the new one.
    if (newRow < 1) {
        setCurrentRowQuietly(newRow);
        emit currentCellChanged(newRow, 0, 0, 0);
    } else {
        setCurrentRowQuietly(current);
        emit currentCellChanged(current, 0, newRow, 0);
    }
}

void FxMFieldTable::deleteRow()
{
    SoMField* target = field();
    AccessButtonPrivate* box = m_fieldWidget ? m_fieldWidget->getAccessBox() : nullptr;
    if (!target || rowCount() == 0)
        return;
    int start = -1;
    int count = 0;
    if (m_multiSelect) {
        // Only the first selected range goes.
        const QList<QTableWidgetSelectionRange> ranges = selectedRanges();
        if (ranges.isEmpty())
            return;
        start = ranges.first().topRow();
        count = ranges.first().bottomRow() - ranges.first().topRow() + 1;
    } else {
        start = currentRow();
        count = 1;
    }
    if (start < 0 || start >= rowCount())
        return;
    if (box)
        setAccessRange(box->minimum(), std::max(0, box->maximum() - count));
    KalServices::getInstance()->pushCommand(new KalMFDeleteRowsCommand(target, start, count));
    model()->removeRows(start, count);
    if (rowCount() == 0 && box)
        setAccessRange(0, 0);
}

namespace {
// Each move prints its row on the error stream, moved or not; the console
// shows it as it shows any output.
void traceMove(const char* format, int row)
{
    char line[64];
    std::snprintf(line, sizeof line, format, row);
    std::cerr << line << std::flush;
}
} // namespace

void FxMFieldTable::swapUpRow()
{
    AccessButtonPrivate* box = m_fieldWidget ? m_fieldWidget->getAccessBox() : nullptr;
    const int row = box ? box->value() - 1 : -1;
    traceMove("FxMFieldTable::swapUpRow() %d\n", row);
    if (row > 0 && row < rowCount()) {
        swapRows(row, row - 1);
        setCurrentRowQuietly(row - 1);
        box->setNewValue(row - 1);
    }
}

void FxMFieldTable::swapDownRow()
{
    AccessButtonPrivate* box = m_fieldWidget ? m_fieldWidget->getAccessBox() : nullptr;
    const int row = box ? box->value() - 1 : -1;
    traceMove("FxMFieldTable::swapDownRow() %d\n", row);
    if (row > -1 && row < rowCount() - 1) {
        swapRows(row, row + 1);
        setCurrentRowQuietly(row + 1);
        box->setNewValue(row + 1);
    }
}

void FxMFieldTable::swapRows(int row1, int row2)
{
    if (SoMField* target = field())
        KalServices::getInstance()->pushCommand(new KalMFSwapRowsCommand(target, row1, row2));
}

void FxMFieldTable::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Plus:
        addRow();
        break;
    case Qt::Key_Minus:
    case Qt::Key_Delete:
        deleteRow();
        break;
    case Qt::Key_Shift:
        setSelectionMode(QAbstractItemView::ContiguousSelection);
        m_multiSelect = true;
        break;
    default:
        QAbstractItemView::keyPressEvent(event);
        break;
    }
    event->accept();
}

// The table never scrolls sideways, so its columns share the viewport's
// width: a fourth component (a rotation's angle, a colour's blue) would
// otherwise sit past the edge, out of reach, and the slider frame a numeric
// cell opens needs all of a single column. The viewport narrows without the
// table being resized when a longer list widens the row numbers; every
// change of its geometry comes through here.
void FxMFieldTable::updateGeometries()
{
    QTableWidget::updateGeometries();
    fitColumns();
}

void FxMFieldTable::fitColumns()
{
    const int columns = columnCount();
    const int width = viewport()->width();
    if (columns < 1 || width <= 0 || m_fittingColumns)
        return;
    m_fittingColumns = true;
    // Widths set by hand are kept while the viewport keeps its width.
    if (width != m_fittedWidth || columns != m_fittedColumns) {
        const int share = width / columns;
        for (int column = 0; column < columns - 1; ++column) {
            if (columnWidth(column) != share)
                setColumnWidth(column, share);
        }
        m_fittedWidth = width;
        m_fittedColumns = columns;
    }
    int used = 0;
    for (int column = 0; column < columns - 1; ++column)
        used += columnWidth(column);
    const int last = std::max(width - used, 0);
    if (columnWidth(columns - 1) != last)
        setColumnWidth(columns - 1, last);
    m_fittingColumns = false;
}

void FxMFieldTable::fitDraggedColumn(int column, int size)
{
    const int columns = columnCount();
    if (m_fittingColumns || column < 0 || column >= columns - 1) {
        // The last column's own edge is the viewport's: dragging it snaps
        // back.
        if (!m_fittingColumns && column == columns - 1)
            fitColumns();
        return;
    }
    int others = 0;
    for (int index = 0; index < columns - 1; ++index)
        others += columnWidth(index);
    const int minimum = horizontalHeader()->minimumSectionSize();
    const int room = viewport()->width() - minimum;
    if (others > room) {
        m_fittingColumns = true;
        setColumnWidth(column, std::max(size - (others - room), minimum));
        m_fittingColumns = false;
    }
    fitColumns();
}

// After the first Shift release the table has no selection mode until Shift
// is pressed again: rows are picked only while Shift is held.
void FxMFieldTable::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Shift) {
        setSelectionMode(QAbstractItemView::NoSelection);
        m_multiSelect = false;
    } else {
        QWidget::keyReleaseEvent(event);
    }
    event->accept();
}

// A slider frame under the pointer or holding the focus stays open. By the
// time a destroyed() signal arrives the frame's own class is gone and the
// object is only a QObject, so a real destruction always reaches the view's
// bookkeeping.
void FxMFieldTable::editorDestroyed(QObject* editor)
{
    if (editor && editor->inherits("FxSlider")) {
        auto* slider = static_cast<QWidget*>(editor);
        if (slider->rect().contains(slider->mapFromGlobal(QCursor::pos())) || slider->hasFocus())
            return;
    }
    QAbstractItemView::editorDestroyed(editor);
}
