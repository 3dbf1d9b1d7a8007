#include "FxSFEnumWidget.h"

#include "FieldWrite.h"
#include "KalSFSetValueCommand.h"

#include <KalServices.h>
#include <SoTypedObject.h>

#include <Inventor/SbName.h>
#include <Inventor/fields/SoSFEnum.h>

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QVariant>

FxSFEnumWidget::FxSFEnumWidget(const char* name)
    : FxSFieldWidget(name ? name : "FxSFEnumWidget")
{
    handledType = SoSFEnum::getClassTypeId();
    this->name = "SFEnum";
}

void FxSFEnumWidget::createWidget()
{
    setFieldLabel(QStringLiteral("SFEnum"));
    FxSFieldWidget::createWidget();
    if (comboBox)
        return;
    comboBox = new QComboBox(frame);
    comboBox->setObjectName(QStringLiteral("comboBox"));
    editLayout->addWidget(comboBox, 1);
    connect(comboBox, SIGNAL(activated(int)), this, SLOT(setCommandValue()));
}

void FxSFEnumWidget::setField(SoField* newField)
{
    if (comboBox) {
        comboBox->clear();
        if (auto* typed = SoTypedObject(newField).cast<SoSFEnum>()) {
            for (int i = 0; i < typed->getNumEnums(); ++i) {
                SbName enumName;
                typed->getEnum(i, enumName);
                comboBox->addItem(QString::fromLatin1(enumName.getString()), QVariant());
            }
        }
    }
    FxSFieldWidget::setField(newField);
}

// A text that names no item renames the current one: the box is not
// editable, and that is how it has always shown an unknown value.
void FxSFEnumWidget::updateWidget()
{
    if (comboBox) {
        SbString text;
        if (field)
            field->get(text);
        const QString current = QString::fromLatin1(text.getString());
        const int index = comboBox->findText(current, Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (index >= 0)
            comboBox->setCurrentIndex(index);
        else if (comboBox->currentIndex() >= 0)
            comboBox->setItemText(comboBox->currentIndex(), current);
    }
    FxSFieldWidget::updateWidget();
}

void FxSFEnumWidget::applyChanges()
{
    auto* typed = SoTypedObject(field).cast<SoSFEnum>();
    if (!typed || !comboBox)
        return;
    // The name the field shows already is no change to write.
    const QByteArray name = comboBox->currentText().toLatin1();
    SbString current;
    typed->get(current);
    if (name != current.getString())
        typed->setValue(SbName(name.constData()));
    SbString none;
    KalServices::getInstance()->pushCommand(new KalSFSetValueCommand(typed, none));
}
