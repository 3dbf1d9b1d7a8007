#pragma once

#include "KalFieldEditors.h"
#include "PaintedCells.h"

#include <QPixmap>

class AccessButtonPrivate;
class FxMFieldTable;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QSpacerItem;
class SoMField;

// Base of every editor of a multiple-value field: a title, a table with one
// row per value, and the buttons that add, delete and move rows, jump to a
// row, reset the field and ignore it. Every change made through the table is
// written into the field at once and recorded as a command in the host's
// history. Concrete editors say which fields they take, how many columns the
// table has, and how a cell's value becomes text and back.
class FxMFieldWidget : public KalFieldEditors
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFieldWidget)

public:
    // Above this many rows, a table is replaced rather than emptied when its
    // editor is hidden.
    static constexpr int keptRowsLimit = 4096;

    // What kind of table an editor shows its values in.
    enum TableKind
    {
        PlainTable = 0,
        ColorTable = 1,
    };

    explicit FxMFieldWidget(const char* name = nullptr);
    // A table kind of ColorTable gives the editor a table of colour swatches;
    // any other kind, the plain table.
    FxMFieldWidget(int tableKind, const char* name);
    ~FxMFieldWidget() override;

    void createWidget() override;
    void deactivate() override;

    void setField(SoField* field) override;
    void updateWidget() override;
    void setRefreshEnabled(bool enabled) override;
    void swapValues(int first, int second) override;
    void cellOperation(int row, int column) override;
    void setValueFromText(int row, int column, QString text) override;
    void setValueAt(int index, const void* value) override;
    void applyChanges() override;

    // The text of one cell; null where there is no value.
    virtual QString getValueText(int row, int column);
    virtual int getValueAlignment();
    // True when the editor takes the field; an editor that takes it also
    // prepares its table for it (columns, value kind, span).
    virtual bool acceptField(SoField* field);

    // The delegate says what text it painted in a cell, so that a refresh
    // repaints only the cells whose value changed since.
    void notePainted(int row, int column, const QString& text) { m_paintedCells.note(row, column, text); }

    void setTypeLabel(const QString& typeName);
    void updateElementCount();

    // The edited field, or null until a field was taken or once it is gone.
    SoMField* getField() const;
    FxMFieldTable* getTable() const { return m_table; }
    AccessButtonPrivate* getAccessBox() const { return m_accessBox; }
    bool isRefreshEnabled() const { return m_refreshEnabled; }

public slots:
    virtual void languageChange();
    void ignoreButtonStateChanged();
    virtual void setDefaultFieldValue();

protected:
    // One column, its header section resizable by the user, no rows until
    // the next refresh counts them.
    void prepareSingleColumn();
    // Exchanges two values through their texts, when both are the field's.
    void exchangeValues(int first, int second);
    // True when the row is one of the edited field's values.
    bool holdsRow(int row) const;
    // The value's text form (SoMField::get1), or null where there is none.
    QString rowText(int row) const;

    AccessButtonPrivate* m_accessBox = nullptr;
    QPushButton* m_upButton = nullptr;
    QPushButton* m_downButton = nullptr;
    QPushButton* m_defaultButton = nullptr;
    QPushButton* m_ignoreButton = nullptr;
    QPushButton* m_deleteButton = nullptr;
    QPushButton* m_addButton = nullptr;
    QLabel* m_label = nullptr;
    QLabel* m_labelNumElement = nullptr;
    FxMFieldTable* m_table = nullptr;
    SoField* m_field = nullptr;
    QGridLayout* m_globalLayout = nullptr;
    QHBoxLayout* m_buttonsLayout = nullptr;
    QHBoxLayout* m_manageButtonsLayout = nullptr;
    QHBoxLayout* m_moveButtonsLayout = nullptr;
    QHBoxLayout* m_fieldButtonsLayout = nullptr;
    QSpacerItem* m_manageAccessSpacer = nullptr;
    QSpacerItem* m_accessMoveSpacer = nullptr;
    QPixmap m_deleteIcon;
    QPixmap m_addIcon;
    QPixmap m_upIcon;
    QPixmap m_downIcon;
    QPixmap m_defaultIcon;
    QPixmap m_ignoreIcon;
    bool m_refreshEnabled = true;
    int m_tableKind = PlainTable;

private:
    PaintedCells m_paintedCells;

    FxMFieldTable* makeTable();
    void connectTable();
    // A table keeps the bookkeeping of the most rows it ever had, even when
    // emptied; after a long list it is replaced by a fresh one.
    void releaseTableRows();
};
