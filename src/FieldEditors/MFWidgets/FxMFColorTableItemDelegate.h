#pragma once

#include "FxMFieldTableItemDelegate.h"

// Paints and edits a colour list's table: column 0 is a swatch of the row's
// colour and opens no editor; columns 1 to 3 are the editor's components 0
// to 2, edited as the plain table edits a value.
class FxMFColorTableItemDelegate : public FxMFieldTableItemDelegate
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFColorTableItemDelegate)

public:
    FxMFColorTableItemDelegate(FxMFieldWidget* fieldWidget, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
};
