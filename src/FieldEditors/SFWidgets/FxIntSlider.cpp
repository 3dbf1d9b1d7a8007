#include "FxIntSlider.h"

#include "NumberInput.h"

#include <QIntValidator>
#include <QLineEdit>
#include <QSlider>

#include <algorithm>

FxIntSlider::FxIntSlider(int kind, int inTable, KalFieldEditors* editor, QWidget* parent, int row, int column)
    : FxSlider(inTable, editor, parent, row, column)
{
    switch (kind) {
    case 1:
        validator = new QIntValidator(-2147483647 - 1, 2147483647, this);
        break;
    case 3:
        validator = new QIntValidator(-32768, 32767, this);
        break;
    default:
        validator = new QIntValidator(this);
        break;
    }
    NumberInput::useFieldLocale(validator);
    // The validator goes on the line edit only once the first text has shown
    // the frame works in base 10: it knows no other base.
    quietly([this] { slider->setRange(0, 0); });
}

FxIntSlider::~FxIntSlider() = default;

void FxIntSlider::setRange(int32_t min, int32_t max, bool isBounded)
{
    bounded = isBounded;
    if (bounded) {
        bottomValue = min;
        topValue = max;
        validator->setRange(min, max);
        quietly([this, min, max] { slider->setRange(min, max); });
        return;
    }
    setTopValue(max);
    setBottomValue(min);
}

void FxIntSlider::setTopValue(int32_t top)
{
    if (bounded)
        return;
    topValue = top;
    quietly([this] { slider->setMaximum(topValue); });
}

void FxIntSlider::setBottomValue(int32_t bottom)
{
    if (bounded)
        return;
    bottomValue = bottom;
    quietly([this] { slider->setMinimum(bottomValue); });
}

void FxIntSlider::readText()
{
    bool ok = false;
    int32_t number = lineEdit->text().toInt(&ok, base);
    // In base 10 the validator has kept the text in range already.
    if (ok && base != 10)
        number = std::clamp(number, int32_t(validator->bottom()), int32_t(validator->top()));
    if (bounded) {
        if (number > topValue)
            number = topValue;
        if (number < bottomValue)
            number = bottomValue;
    } else {
        if (number > topValue)
            setTopValue(number);
        if (number < bottomValue)
            setBottomValue(number);
    }
    position = number;
    value = number;
}

void FxIntSlider::setValueText(QString text)
{
    const bool firstText = detectBase;
    const QString digits = takeBase(text, detectBase);
    if (firstText && base == 10)
        lineEdit->setValidator(validator);
    showText(digits);
    readText();
    syncSlider();
}

void FxIntSlider::updateText()
{
    showText(QString::number(value, base));
}

void FxIntSlider::setPosition(int newPosition)
{
    position = newPosition;
    value = newPosition;
}

void FxIntSlider::storeValueText()
{
    valueText = QString::number(value, base).toLatin1().constData();
}
