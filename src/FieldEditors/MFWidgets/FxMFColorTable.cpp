#include "FxMFColorTable.h"

#include "FxMFColorTableItemDelegate.h"
#include "FxMFieldWidget.h"
#include "ModalDialogs.h"

#include <Inventor/SbColor.h>

#include <QPointer>

FxMFColorTable::FxMFColorTable(FxMFieldWidget* fieldWidget, QWidget* parent)
    : FxMFieldTable(fieldWidget, parent, nullptr)
{
    installDelegate(new FxMFColorTableItemDelegate(fieldWidget, this));
    setValueKind(FxMFieldTableItemDelegate::FloatKind);
    setRealRange(0.0, 1.0);
    connect(this, SIGNAL(cellClicked(int, int)), this, SLOT(getColorFromEditor(int, int)));
}

// The dialog starts from the row's components 1, 2 and a third that does not
// exist, so from (green, blue, 0) of the stored colour rather than from the
// colour itself. That is how the list has always opened it; it is kept.
void FxMFColorTable::getColorFromEditor(int row, int column)
{
    if (column != 0 || !m_fieldWidget || m_fieldWidget->getValueText(row, 0).isNull())
        return;
    // A value outside 0..1 read from a file still opens the dialog, at the
    // nearest colour it can show.
    const auto channel = [&](int component) {
        const float value = m_fieldWidget->getValueText(row, component).toFloat() * 255;
        return value >= 255.0f ? 255 : value > 0.0f ? int(value) : 0;
    };
    const QColor initial(channel(1), channel(2), channel(3), 255);

    // The dialog runs its own event loop, in which the field, the editor or
    // this table may go.
    const QPointer<FxMFColorTable> self(this);
    const QPointer<FxMFieldWidget> editor(m_fieldWidget);
    const QColor chosen = ModalDialogs::getColor(initial, this, QStringLiteral("color dialog"));
    if (!self || !editor || !chosen.isValid())
        return;
    const SbColor color(float(chosen.red() / 255.0), float(chosen.green() / 255.0),
                        float(chosen.blue() / 255.0));
    editor->setValueAt(row, &color);
}
