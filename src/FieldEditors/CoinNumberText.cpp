#include "CoinNumberText.h"

#include <charconv>
#include <cstring>

namespace {

template <class Real>
QString format(Real value, int precision)
{
    char text[64];
    const std::to_chars_result end =
        std::to_chars(text, text + sizeof text - 4, value, std::chars_format::general, precision);
    *end.ptr = '\0';
    // Coin pads the exponent to three digits.
    if (char* exponent = std::strchr(text, 'e')) {
        char* digits = exponent + 2;
        const size_t length = std::strlen(digits);
        if (length < 3) {
            std::memmove(digits + (3 - length), digits, length + 1);
            std::memset(digits, '0', 3 - length);
        }
    }
    return QString::fromLatin1(text);
}

} // namespace

QString CoinNumberText::of(float value)
{
    return format(value, 8);
}

QString CoinNumberText::of(double value)
{
    return format(value, 16);
}
