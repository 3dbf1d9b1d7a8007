#include "FxMFDefaultFieldWidget.h"

#include "KalMFSetValueCommand.h"

#include <KalServices.h>

#include <Inventor/fields/SoMField.h>

FxMFDefaultFieldWidget::FxMFDefaultFieldWidget(const char* name)
    : FxMFLineWidget(name ? name : "FxMFDefaultFieldWidget")
{
    handledType = SoMField::getClassTypeId();
    this->name = "MField";
}

void FxMFDefaultFieldWidget::createWidget()
{
    setTypeLabel(QStringLiteral("MField"));
    FxMFLineWidget::createWidget();
}

// The command is made after the write with no previous text, so it reads
// the new value as its old one too: undo leaves the value as it is. Edits
// have always been recorded this way.
void FxMFDefaultFieldWidget::setValueFromText(int row, int, QString text)
{
    const QString before = getValueText(row, 0);
    if (!writeText(row, text) || getValueText(row, 0) == before)
        return;
    SbString none;
    KalServices::getInstance()->pushCommand(new KalMFSetValueCommand(getField(), row, none));
}
