#include "FxIntSlider.h"

#include "NumberInput.h"

#include <QIntValidator>
#include <QLineEdit>
#include <QSlider>

#include <algorithm>
#include <limits>

namespace {

// The limits of each kind's type; other kinds take the whole int range.
struct TypeLimits
{
    int kind;
    int32_t lowest;
    int32_t highest;
};

const TypeLimits kTypeLimits[] = {
    {1, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()},
    {3, std::numeric_limits<int16_t>::min(), std::numeric_limits<int16_t>::max()},
};

TypeLimits limitsOf(int kind)
{
    for (const TypeLimits& limits : kTypeLimits) {
        if (limits.kind == kind)
            return limits;
    }
    return {kind, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
}

} // namespace

FxIntSlider::FxIntSlider(int kind, int inTable, KalFieldEditors* editor, QWidget* parent, int row, int column)
    : FxNumberSlider(inTable, editor, parent, row, column)
{
    const TypeLimits limits = limitsOf(kind);
    typeLowest = limits.lowest;
    typeHighest = limits.highest;
    validator = new QIntValidator(typeLowest, typeHighest, this);
    NumberInput::useFieldLocale(validator);
    // The validator goes on the line edit only once the first text has shown
    // the frame works in base 10: it knows no other base.
    quietly([this] { slider->setRange(0, 0); });
}

FxIntSlider::~FxIntSlider() = default;

void FxIntSlider::setRange(int32_t min, int32_t max, bool isBounded)
{
    if (isBounded) {
        validator->setRange(min, max);
    } else {
        // An unbounded span limits nothing: the type's limits are back,
        // whatever bounded field was shown before.
        validator->setRange(typeLowest, typeHighest);
    }
    setSpan(min, max, isBounded);
}

void FxIntSlider::readText()
{
    bool ok = false;
    int32_t number = lineEdit->text().toInt(&ok, base);
    // In base 10 the validator has kept the text in range already.
    if (ok && base != 10)
        number = std::clamp(number, int32_t(validator->bottom()), int32_t(validator->top()));
    takeValue(number);
}

void FxIntSlider::setValueText(QString text)
{
    const bool firstText = detectBase;
    const QString digits = takeBase(text, detectBase);
    if (firstText && base == 10)
        lineEdit->setValidator(validator);
    showValueText(digits);
}

void FxIntSlider::updateText()
{
    showText(QString::number(value, base));
}

void FxIntSlider::storeValueText()
{
    valueText = QString::number(value, base).toLatin1().constData();
}
