#include "FxRealSlider.h"

#include "CoinNumberText.h"
#include "NumberInput.h"

#include <QDoubleValidator>
#include <QLineEdit>
#include <QSlider>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// The type limits and decimals of each precision.
struct Precision
{
    double lowest;
    double highest;
    int decimals;
};

const Precision kFloatPrecision = {-3.4028234663852886e38, 3.4028234663852886e38, 6};
const Precision kDoublePrecision = {-1.7976931348623157e308, 1.7976931348623157e308, 15};

const Precision& precisionOf(bool isFloat)
{
    return isFloat ? kFloatPrecision : kDoublePrecision;
}

} // namespace

FxRealSlider::FxRealSlider(int inTable, KalFieldEditors* editor, QWidget* parent, bool isFloat, int row,
                           int column)
    : FxNumberSlider(inTable, editor, parent, row, column)
    , isFloat(isFloat)
{
    const Precision& precision = precisionOf(isFloat);
    validator = new QDoubleValidator(precision.lowest, precision.highest, precision.decimals, this);
    NumberInput::useFieldLocale(validator);
    lineEdit->setValidator(validator);
    quietly([this] { slider->setRange(0, 100); });
}

FxRealSlider::~FxRealSlider() = default;

QString FxRealSlider::format(double number) const
{
    QString text;
    if (isFloat)
        text.setNum(number, 'f', 6);
    else
        text.setNum(number, 'g', 15);
    return text;
}

int FxRealSlider::positionOf(double number) const
{
    // An empty span has no position mapping; the slider rests at its start.
    const double span = topValue - bottomValue;
    if (span == 0.0 || !std::isfinite(span) || !std::isfinite(number))
        return 0;
    const double place = 100.0 * (number - bottomValue) / span + 0.5;
    const double limit = double(std::numeric_limits<int>::max());
    return int(std::clamp(place, -limit, limit));
}

double FxRealSlider::valueOf(int position) const
{
    return bottomValue + position * (topValue - bottomValue) / 100.0;
}

void FxRealSlider::setRange(double min, double max, bool isBounded)
{
    if (isBounded) {
        validator->setBottom(min);
        validator->setTop(max);
    } else {
        // An unbounded span limits nothing: whatever bounded field was shown
        // before, the whole range of the type can be typed again.
        const Precision& precision = precisionOf(isFloat);
        validator->setRange(precision.lowest, precision.highest, precision.decimals);
    }
    setSpan(min, max, isBounded);
}

QString FxRealSlider::fieldText() const
{
    return isFloat ? CoinNumberText::of(float(value)) : CoinNumberText::of(value);
}

void FxRealSlider::readText()
{
    if (!shownText.isNull() && lineEdit->text() == shownText) {
        takeValue(shownValue);
        return;
    }
    double number = lineEdit->text().toDouble();
    // Infinities and NaN would break the span; they read as nothing typed.
    if (!std::isfinite(number))
        number = 0.0;
    takeValue(number);
}

void FxRealSlider::setValue(double number)
{
    shownText = format(number);
    shownValue = std::isfinite(number) ? number : 0.0;
    showValueText(shownText);
}

void FxRealSlider::setValueText(QString text)
{
    shownText = QString();
    showValueText(text);
}

void FxRealSlider::updateText()
{
    showText(format(value));
}

// The previous value is what undo writes back: in the field's own form,
// not in six decimals, which would round it.
void FxRealSlider::storeValueText()
{
    valueText = fieldText().toLatin1().constData();
}
