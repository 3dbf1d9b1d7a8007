#include "FxMFStringWidget.h"

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
    SoMField* field = getField();
    if (!field || column >= 1 || row < 0 || row >= field->getNum())
        return QString();
    if (SoMFString* strings = asString(field))
        return QString::fromUtf8((*strings)[row].getString());
    SbString text;
    field->get1(row, text);
    return QString::fromUtf8(text.getString());
}

void FxMFStringWidget::setValueFromText(int row, int, QString text)
{
    SoMField* field = getField();
    if (!field || row < 0 || row >= field->getNum())
        return;
    const QByteArray utf8 = text.toUtf8();
    if (SoMFString* strings = asString(field)) {
        if ((*strings)[row] == SbString(utf8.constData()))
            return;
        strings->set1Value(row, SbString(utf8.constData()));
    } else if (!field->set1(row, utf8.constData())) {
        return;
    }
    SbString none;
    KalServices::getInstance()->pushCommand(new KalMFSetValueCommand(field, row, none));
}

void FxMFStringWidget::swapValues(int first, int second)
{
    exchangeValues(first, second);
}
