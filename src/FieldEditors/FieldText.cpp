#include "FieldText.h"

#include <Inventor/SbString.h>

#include <algorithm>
#include <cstring>

namespace {

// Plain ASCII is both encodings at once and is most of every scene: it is
// told apart without decoding.
bool isAscii(const char* bytes, size_t length)
{
    return std::all_of(bytes, bytes + length,
                       [](char c) { return (static_cast<unsigned char>(c) & 0x80) == 0; });
}

} // namespace

bool FieldText::isUtf8(const char* bytes)
{
    if (!bytes)
        return true;
    const size_t length = std::strlen(bytes);
    if (isAscii(bytes, length))
        return true;
    // Qt's decoder takes overlong forms and encoded surrogates for errors and
    // replaces them: bytes are UTF-8 here when they survive the round trip.
    const QByteArray again = QString::fromUtf8(bytes, int(length)).toUtf8();
    return size_t(again.size()) == length && std::memcmp(again.constData(), bytes, length) == 0;
}

QString FieldText::toText(const char* bytes)
{
    if (!bytes)
        return QString();
    return isUtf8(bytes) ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
}

QString FieldText::toText(const SbString& bytes)
{
    return toText(bytes.getString());
}

bool FieldText::fitsLatin1(const QString& text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x100; });
}

QByteArray FieldText::toBytes(const QString& text, const char* original)
{
    if (!isUtf8(original) && fitsLatin1(text))
        return text.toLatin1();
    return text.toUtf8();
}

QByteArray FieldText::toBytes(const QString& text, const SbString& original)
{
    return toBytes(text, original.getString());
}
