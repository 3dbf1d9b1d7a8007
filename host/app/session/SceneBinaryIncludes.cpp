#include "SceneBinaryIncludes.h"

#include <QFile>

namespace {

// The string at offset, or nothing when no string of a sane length fits
// there; *next is where what follows it starts.
bool stringAt(const QByteArray& text, int offset, QByteArray* string, int* next)
{
    if (offset < 0 || offset + 4 > text.size())
        return false;
    const auto byte = [&text, offset](int i) { return quint32(quint8(text.at(offset + i))); };
    const quint32 length = byte(0) << 24 | byte(1) << 16 | byte(2) << 8 | byte(3);
    if (length == 0 || length > quint32(SceneBinaryIncludes::kMaxNameBytes) ||
        qint64(offset) + 4 + length > text.size())
        return false;
    *string = text.mid(offset + 4, int(length));
    *next = offset + 4 + int((length + 3) & ~3u);
    return true;
}

quint32 wordAt(const QByteArray& text, int offset)
{
    if (offset < 0 || offset + 4 > text.size())
        return 0;
    quint32 word = 0;
    for (int i = 0; i < 4; ++i)
        word = word << 8 | quint8(text.at(offset + i));
    return word;
}

// The values of the name or url field of the node whose type name ends at
// from: a single string after "name", a count and that many after "url".
void readFieldNames(const QByteArray& text, int from, QStringList* names)
{
    for (int at = from; at < from + SceneBinaryIncludes::kFieldReach && at < text.size(); ++at) {
        QByteArray field;
        int next = 0;
        if (!stringAt(text, at, &field, &next))
            continue;
        QByteArray value;
        if (field == "name") {
            if (stringAt(text, next, &value, &next))
                names->append(QFile::decodeName(value));
        } else if (field == "url") {
            const quint32 count = wordAt(text, next);
            next += 4;
            for (quint32 i = 0; i < count && stringAt(text, next, &value, &next); ++i)
                names->append(QFile::decodeName(value));
        }
    }
}

} // namespace

QStringList SceneBinaryIncludes::names(const QByteArray& text)
{
    // Every place a type name could start is looked at, aligned or not: a
    // name looked at needlessly costs a look, one missed lets Coin open it.
    QStringList names;
    for (int at = 0; at + 8 <= text.size(); ++at) {
        QByteArray type;
        int next = 0;
        if (stringAt(text, at, &type, &next) && (type == "File" || type == "Inline" || type == "WWWInline"))
            readFieldNames(text, next, &names);
    }
    return names;
}
