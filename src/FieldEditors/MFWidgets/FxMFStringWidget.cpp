#include "FxMFStringWidget.h"

#include "FieldText.h"
#include "FieldTextGuard.h"
#include "FieldWrite.h"
#include "KalMFSetValueCommand.h"

#include <KalServices.h>

#include <Inventor/fields/SoMFString.h>

namespace {
SoMFString* asString(SoMField* field)
{
    return field && field->isOfType(SoMFString::getClassTypeId()) ? static_cast<SoMFString*>(field) : nullptr;
}
} // namespace

FxMFStringWidget::FxMFStringWidget(const char* name)
    : FxMFieldWidget(name ? name : "FxMFStringWidget")
{
    handledType = SoMFString::getClassTypeId();
    this->name = "MFString";
}

void FxMFStringWidget::createWidget()
{
    setTypeLabel(QStringLiteral("MFString"));
    FxMFieldWidget::createWidget();
    prepareSingleColumn();
}

bool FxMFStringWidget::acceptField(SoField* field)
{
    return field && field->isOfType(SoMFString::getClassTypeId());
}

QString FxMFStringWidget::getValueText(int row, int column)
{
    if (column >= 1 || !holdsRow(row))
        return QString();
    if (SoMFString* strings = asString(getField()))
        return FieldText::toText((*strings)[row]);
    return rowText(row);
}

void FxMFStringWidget::setValueFromText(int row, int, QString text)
{
    if (!holdsRow(row))
        return;
    SoMField* field = getField();
    if (SoMFString* strings = asString(field)) {
        const SbString value(FieldText::toBytes(text, (*strings)[row]).constData());
        if (value == (*strings)[row] || !FieldTextGuard::quotable(text))
            return;
        FieldWrite::set1Value(strings, row, value);
    } else {
        SbString current;
        field->get1(row, current);
        const QByteArray bytes = FieldText::toBytes(text, current);
        if (bytes == current.getString() || !FieldWrite::set1Text(field, row, bytes.constData()))
            return;
    }
    SbString none;
    KalServices::getInstance()->pushCommand(new KalMFSetValueCommand(field, row, none));
}

void FxMFStringWidget::swapValues(int first, int second)
{
    exchangeValues(first, second);
}
