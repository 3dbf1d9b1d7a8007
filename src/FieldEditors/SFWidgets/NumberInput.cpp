#include "NumberInput.h"

#include <QAbstractSpinBox>
#include <QValidator>

QLocale NumberInput::fieldLocale()
{
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::RejectGroupSeparator);
    return locale;
}

void NumberInput::useFieldLocale(QValidator* validator)
{
    if (validator)
        validator->setLocale(fieldLocale());
}

void NumberInput::useFieldLocale(QAbstractSpinBox* spinBox)
{
    if (spinBox)
        spinBox->setLocale(fieldLocale());
}
