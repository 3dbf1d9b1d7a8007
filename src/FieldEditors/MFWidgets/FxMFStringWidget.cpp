#include "FxMFStringWidget.h"

#include "FieldTextGuard.h"
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
        return QString::fromUtf8((*strings)[row].getString());
    return rowText(row);
}

void FxMFStringWidget::setValueFromText(int row, int, QString text)
{
    if (!holdsRow(row))
        return;
    SoMField* field = getField();
    const QByteArray utf8 = text.toUtf8();
    if (SoMFString* strings = asString(field)) {
        if ((*strings)[row] == SbString(utf8.constData()) || !FieldTextGuard::quotable(text))
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
