#pragma once

#include <QTableWidget>

class FxMFieldTableItemDelegate;
class FxMFieldWidget;
class SoMField;

// The table of a list editor: one value per row, one component per column.
// It holds no values; its delegate asks the editor for every text it paints.
// Adding, deleting and moving rows are recorded as commands in the host's
// history, and the commands change the field.
class FxMFieldTable : public QTableWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFieldTable)

public:
    FxMFieldTable(FxMFieldWidget* fieldWidget, QWidget* parent, const char* name);
    ~FxMFieldTable() override;

    void setValueKind(int kind);
    void setRealRange(double min, double max);
    void setIntRange(int min, int max);
    void setBounded(bool bounded);

    // Takes over another table's columns, headers and value settings: what
    // a concrete editor configured, without the other's rows.
    void copySettingsFrom(const FxMFieldTable& other);

    FxMFieldTableItemDelegate* getDelegate() const { return m_delegate; }
    FxMFieldWidget* getFieldWidget() const { return m_fieldWidget; }
    bool isMultiSelect() const { return m_multiSelect; }

public slots:
    void setNumRows(int rows);
    void swapUpRow();
    void swapDownRow();
    virtual void deleteRow();
    virtual void addRow();
    void showTableRow(int row);
    virtual void swapRows(int row1, int row2);

protected slots:
    void editorDestroyed(QObject* editor) override;

protected:
    // The table owns its delegate; a table that paints its cells its own way
    // hands over the one it made.
    void installDelegate(FxMFieldTableItemDelegate* delegate);

    void keyPressEvent(QKeyEvent* event) override;
    void updateGeometries() override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

    FxMFieldWidget* m_fieldWidget;

private:
    SoMField* field() const;
    // Makes a row current on the table's own account: the access box is
    // left as the operation set it.
    void setCurrentRowQuietly(int row);
    void setAccessRange(int minimum, int maximum);
    // The columns end where the viewport ends: shared out anew when its
    // width or the number of columns changed, the last taking what is left.
    void fitColumns();
    // A column dragged wider takes its room from the last one, never more
    // than leaves the last its minimum.
    void fitDraggedColumn(int column, int size);

    FxMFieldTableItemDelegate* m_delegate;
    bool m_multiSelect = false;
    bool m_movingCurrent = false;
    bool m_fittingColumns = false;
    int m_fittedWidth = -1;
    int m_fittedColumns = -1;
};
