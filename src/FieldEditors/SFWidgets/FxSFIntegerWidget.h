#pragma once

#include "FieldRange.h"
#include "FieldRangeMap.h"
#include "FieldTextGuard.h"
#include "FieldWrite.h"
#include "FxIntSlider.h"
#include "FxSFieldWidget.h"
#include "FxUIntSlider.h"
#include "KalSFSetValueCommand.h"

#include <KalServices.h>

#include <Inventor/fields/SoField.h>

#include <QLineEdit>

#include <cstdint>

// The editor of an integer field: a slider frame of the integer kind, its
// span the table's integer row, chosen once when the widget is built. Values
// travel as text, so the frame's base prefixes reach the field as typed.
// Slider is FxIntSlider or FxUIntSlider; Written is the type the value is
// narrowed to before it is written (only the unsigned short editor narrows).
template <class Slider, class Written>
class FxSFIntegerWidget : public FxSFieldWidget
{
    Q_DISABLE_COPY(FxSFIntegerWidget)

public:
    void createWidget() override
    {
        setFieldLabel(QLatin1String(typeText));
        FxSFieldWidget::createWidget();
        valueRange = fieldRange(buildFieldRangeMap(), "DefaultNode", "intField");
        integerSlider->setRange(valueRange.intMin(), valueRange.intMax(), valueRange.isBounded());
    }

    void updateWidget() override
    {
        if (!field)
            return;
        SbString text;
        field->get(text);
        integerSlider->setValueText(QString::fromUtf8(text.getString()));
        FxSFieldWidget::updateWidget();
    }

    void applyChanges() override
    {
        const QString text = QString::number(Written(integerSlider->getValue()), 10);
        if (!field || !FieldTextGuard::acceptable(text))
            return;
        FieldWrite::setText(field, text.toLatin1().constData());
        KalServices::getInstance()->pushCommand(
            new KalSFSetValueCommand(field, integerSlider->previousValueText()));
    }

    bool edited() override { return integerSlider->getLineEdit()->isModified(); }

protected:
    FxSFIntegerWidget(int sliderKind, const char* name, const char* className, SoType handled,
                      const char* extensionName)
        : FxSFieldWidget(sliderKind, name ? name : className)
        , integerSlider(static_cast<Slider*>(sliderFrame))
        , typeText(extensionName)
    {
        handledType = handled;
        this->name = extensionName;
    }

private:
    Slider* integerSlider = nullptr;
    FieldRange valueRange;
    const char* typeText;
};
