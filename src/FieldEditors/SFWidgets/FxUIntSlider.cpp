#include "FxUIntSlider.h"

#include <QLineEdit>
#include <QSlider>

#include <algorithm>
#include <cstring>

namespace {
constexpr uint32_t kOffset = 0x80000000u;
}

FxUIntSlider::FxUIntSlider(int kind, int inTable, KalFieldEditors* editor, QWidget* parent, int row,
                           int column)
    : FxNumberSlider(inTable, editor, parent, row, column)
    , typeMax(kind == 4 ? 65535u : 4294967295u)
    , typeLimit(typeMax)
{
    quietly([this] { slider->setRange(positionOf(0), positionOf(0)); });
}

FxUIntSlider::~FxUIntSlider() = default;

int FxUIntSlider::positionOf(uint32_t number)
{
    const uint32_t shifted = number + kOffset;
    int position;
    std::memcpy(&position, &shifted, sizeof position);
    return position;
}

uint32_t FxUIntSlider::valueOf(int position)
{
    uint32_t bits;
    std::memcpy(&bits, &position, sizeof bits);
    return bits + kOffset;
}

void FxUIntSlider::setRange(uint32_t min, uint32_t max, bool isBounded)
{
    // An unbounded span narrows nothing: the limits a bounded one left are
    // the type's again.
    if (!isBounded) {
        typeMin = 0;
        typeMax = typeLimit;
    }
    min = std::max(min, typeMin);
    max = std::min(max, typeMax);
    bounded = isBounded;
    if (bounded) {
        typeMin = min;
        typeMax = max;
    }
    setTopValue(max);
    setBottomValue(min);
}

void FxUIntSlider::readText()
{
    bool ok = false;
    uint32_t number = lineEdit->text().toUInt(&ok, base);
    if (!ok)
        return;
    number = std::min(number, typeMax);
    number = std::max(number, typeMin);
    takeValue(number);
}

void FxUIntSlider::setValueText(QString text)
{
    showValueText(takeBase(text, detectBase));
}

void FxUIntSlider::updateText()
{
    showText(QString::number(value, base));
}

// The value's text with its base's prefix, made from the value itself: when
// a typed change begins, the line edit already holds the new text.
void FxUIntSlider::storeValueText()
{
    const char* prefix = base == 16 ? "0x" : base == 8 ? "0" : "";
    valueText = (QLatin1String(prefix) + QString::number(value, base)).toLatin1().constData();
}
