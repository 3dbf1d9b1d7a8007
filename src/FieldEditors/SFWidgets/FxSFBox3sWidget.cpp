#include "FxSFBox3sWidget.h"

#include "FieldWrite.h"
#include "KalSFSetValueCommand.h"

#include <KalServices.h>
#include <SoTypedObject.h>

#include <Inventor/SbBox3s.h>
#include <Inventor/SbMatrix.h>

#include <QLineEdit>

FxSFBox3sWidget::FxSFBox3sWidget(const char* name)
    : FxPopupWidget(2, 3, name ? name : "FxSFBox3sWidget")
{
    handledType = SoSFBox3s::getClassTypeId();
    this->name = "SFBox3s";
}

void FxSFBox3sWidget::createWidget()
{
    setFieldLabel(QStringLiteral("SFBox3s"));
    FxPopupWidget::createWidget();
    setCellValidator(1);
}

void FxSFBox3sWidget::updateWidget()
{
    auto* typed = SoTypedObject(field).cast<SoSFBox3s>();
    if (!typed || cells.empty())
        return;
    short bounds[6];
    typed->getValue().getBounds(bounds[0], bounds[1], bounds[2], bounds[3], bounds[4], bounds[5]);
    for (int i = 0; i < 6; ++i)
        cells[size_t(i)]->setText(QString::number(bounds[i], 10));
    resetCellCursors();
    FxSFLineWidget::updateWidget();
}

// An unparsable or empty cell is written as 0.
void FxSFBox3sWidget::applyChanges()
{
    auto* typed = SoTypedObject(field).cast<SoSFBox3s>();
    if (!typed || cells.empty())
        return;
    short bounds[6];
    for (int i = 0; i < 6; ++i)
        bounds[i] = cells[size_t(i)]->text().toShort(nullptr, 10);
    FieldWrite::setValue(typed, SbBox3s(bounds[0], bounds[1], bounds[2], bounds[3], bounds[4], bounds[5]));
    for (QLineEdit* cell : cells)
        cell->setModified(false);
    SbString none;
    KalServices::getInstance()->pushCommand(new KalSFSetValueCommand(typed, none));
}
