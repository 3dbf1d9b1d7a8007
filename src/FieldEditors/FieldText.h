#pragma once

#include <QByteArray>
#include <QString>

class SbString;

// The one conversion between a field's bytes and a control's text. Scenes
// are written in UTF-8 and in Latin-1 alike, and Coin keeps whatever bytes
// it read: bytes that are UTF-8 are shown as such, any others as Latin-1,
// and an edited text goes back in the encoding its field's bytes came in, so
// that a value shown and written back is the same bytes.
class FieldText
{
public:
    // The bytes as a control shows them.
    static QString toText(const char* bytes);
    static QString toText(const SbString& bytes);

    // The text as bytes in the encoding of `original` (what the field held
    // when it was shown). A text Latin-1 cannot hold, a character typed that
    // is not in it, goes in UTF-8 rather than losing that character.
    static QByteArray toBytes(const QString& text, const char* original);
    static QByteArray toBytes(const QString& text, const SbString& original);

    // Whether the bytes read as UTF-8 and give the same bytes again.
    static bool isUtf8(const char* bytes);

private:
    static bool fitsLatin1(const QString& text);
};
