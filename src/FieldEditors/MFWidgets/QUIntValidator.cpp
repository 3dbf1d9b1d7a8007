#include "QUIntValidator.h"

#include <algorithm>

namespace {
uint32_t clampToUInt32(uint64_t value)
{
    return uint32_t(std::min<uint64_t>(value, 4294967295u));
}
} // namespace

QUIntValidator::QUIntValidator(uint64_t bottom, uint64_t top, QObject* parent)
    : QValidator(parent)
    , bottom(clampToUInt32(bottom))
    , top(clampToUInt32(top))
{}

QValidator::State QUIntValidator::validate(QString& input, int&) const
{
    if (input.isEmpty())
        return Acceptable;
    // Decimal digits only: no sign, no blanks, no group separators, so what
    // is accepted here reads back the same in the field.
    if (!std::all_of(input.cbegin(), input.cend(),
                     [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }))
        return Invalid;
    bool ok = false;
    const qulonglong value = input.toULongLong(&ok, 10);
    if (!ok)
        return Intermediate; // more digits than any 64-bit number: out of range
    return value >= bottom && value <= top ? Acceptable : Intermediate;
}

void QUIntValidator::setRange(uint64_t newBottom, uint64_t newTop)
{
    bottom = clampToUInt32(newBottom);
    top = clampToUInt32(newTop);
    emit changed();
}
