#include "FxMFColorTableItemDelegate.h"

#include "FxMFieldWidget.h"

#include <QLineEdit>
#include <QPainter>

FxMFColorTableItemDelegate::FxMFColorTableItemDelegate(FxMFieldWidget* fieldWidget, QObject* parent)
    : FxMFieldTableItemDelegate(fieldWidget, parent)
{}

// Components are truncated, not rounded, to 0..255: 0.5 paints as 127.
void FxMFColorTableItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                       const QModelIndex& index) const
{
    if (index.column() != 0) {
        paintValue(painter, option, index.row(), index.column() - 1);
        return;
    }
    FxMFieldWidget* editor = fieldWidget();
    if (!editor || editor->getValueText(index.row(), 0).isNull())
        return;
    int channels[3];
    for (int component = 0; component < 3; ++component) {
        const float channel = editor->getValueText(index.row(), component).toFloat() * 255;
        // A value outside 0..1 (read from a file) makes no colour, and no
        // swatch; asking QColor would also warn on every paint.
        if (!(channel >= 0.0f && channel < 256.0f))
            return;
        channels[component] = int(channel);
    }
    painter->save();
    painter->fillRect(option.rect, QColor(channels[0], channels[1], channels[2]));
    painter->restore();
}

QWidget* FxMFColorTableItemDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                                  const QModelIndex& index) const
{
    if (index.column() == 0)
        return nullptr;
    return FxMFieldTableItemDelegate::createEditor(parent, option, index);
}

void FxMFColorTableItemDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    auto* line = qobject_cast<QLineEdit*>(editor);
    if (!line || !fieldWidget()) {
        FxMFieldTableItemDelegate::setEditorData(editor, index);
        return;
    }
    line->setText(fieldWidget()->getValueText(index.row(), index.column() - 1));
}

void FxMFColorTableItemDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                              const QModelIndex& index) const
{
    auto* line = qobject_cast<QLineEdit*>(editor);
    if (!line) {
        FxMFieldTableItemDelegate::setModelData(editor, model, index);
        return;
    }
    commitText(line, model, index, index.column() - 1);
}
