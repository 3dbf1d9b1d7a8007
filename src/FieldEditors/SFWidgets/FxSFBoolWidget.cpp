#include "FxSFBoolWidget.h"

#include "FieldWrite.h"
#include "KalSFSetValueCommand.h"
#include "LayoutMetrics.h"

#include <KalServices.h>
#include <SoTypedObject.h>

#include <Inventor/fields/SoSFBool.h>

#include <QCheckBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QSpacerItem>

FxSFBoolWidget::FxSFBoolWidget(const char* name)
    : FxSFieldWidget(name ? name : "FxSFBoolWidget")
{
    handledType = SoSFBool::getClassTypeId();
    this->name = "SFBool";
}

void FxSFBoolWidget::createWidget()
{
    setFieldLabel(QStringLiteral("SFBool"));
    FxSFieldWidget::createWidget();
    if (checkBox)
        return;
    checkBox = new QCheckBox(frame);
    checkBox->setObjectName(QStringLiteral("m_box"));
    checkBox->setFixedSize(LayoutMetrics::value(QStringLiteral("SFBoolWidth")),
                           LayoutMetrics::value(QStringLiteral("SFComponentHeight")));
    editLayout->addWidget(checkBox, 0);
    // The box sits at the label; the rest of the row is space.
    leadingSpacer->changeSize(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum);
    trailingSpacer->changeSize(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum);
    connect(checkBox, SIGNAL(clicked()), this, SLOT(setCommandValue()));
}

void FxSFBoolWidget::updateWidget()
{
    if (auto* typed = SoTypedObject(field).cast<SoSFBool>()) {
        if (checkBox)
            checkBox->setChecked(typed->getValue() != 0);
    }
    FxSFieldWidget::updateWidget();
}

void FxSFBoolWidget::applyChanges()
{
    auto* typed = SoTypedObject(field).cast<SoSFBool>();
    if (!typed || !checkBox)
        return;
    FieldWrite::setValue(typed, SbBool(checkBox->isChecked()));
    SbString none;
    KalServices::getInstance()->pushCommand(new KalSFSetValueCommand(typed, none));
}
