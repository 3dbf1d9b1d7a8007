#include "FxMFColorWidget.h"

#include "KalMFSetFieldValueCommand.h"

#include <Inventor/fields/SoMFColor.h>

FxMFColorWidget::FxMFColorWidget(const char* name)
    : FxMFVec3fWidget(ColorTable, name, "FxMFColorWidget")
{
    handledType = SoMFColor::getClassTypeId();
    this->name = "MFColor";
}

void FxMFColorWidget::createWidget()
{
    setTypeLabel(QStringLiteral("MFColor"));
    FxMFVec3fWidget::createWidget();
    m_table->setColumnCount(4);
    for (int row = 0; row < m_table->rowCount(); ++row) {
        for (int column = 0; column < 4; ++column)
            m_table->setItem(row, column, new QTableWidgetItem);
        m_table->item(row, 0)->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    }
    for (int column = 0; column < 4; ++column)
        m_table->horizontalHeader()->setSectionResizeMode(column, QHeaderView::Interactive);
    m_table->setHorizontalHeaderLabels(
        {QStringLiteral("Color"), QStringLiteral("R"), QStringLiteral("G"), QStringLiteral("B")});
}

// The command is made after the write and reads the new value as both its
// texts: undoing it leaves the colour chosen. That is how a chosen colour
// has always been recorded; it is kept.
void FxMFColorWidget::setValueAt(int index, const void* value)
{
    auto* colors = SoTypedObject(getField()).cast<SoMFColor>();
    if (!colors || !value || !holdsRow(index))
        return;
    const SbColor& color = *static_cast<const SbColor*>(value);
    if ((*colors)[index] == color)
        return;
    colors->set1Value(index, color);
    KalServices::getInstance()->pushCommand(new KalMFSetFieldValueCommand(colors, index));
}

// Every field is taken as it comes; the reading and writing of values check
// that it holds colours.
bool FxMFColorWidget::acceptField(SoField*)
{
    return true;
}

// A component outside 0..1 is no colour component and is dropped without a
// word.
void FxMFColorWidget::setComponentValue(float value, int row, int component)
{
    if (value >= 0.0f && value <= 1.0f)
        FxMFVec3fWidget::setComponentValue(value, row, component);
}
