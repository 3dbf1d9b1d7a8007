#include "SceneTextCheck.h"

#include <QCoreApplication>

namespace {

// Everything Coin's number reader gathers into its buffer before it looks at
// what it has: digits, hexadecimal digits and the marks of signs, points,
// exponents and "0x".
bool isNumberCharacter(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F') || c == 'x' ||
           c == 'X' || c == '.' || c == '+' || c == '-';
}

} // namespace

bool SceneTextCheck::isBinary(const QByteArray& text)
{
    const int end = text.indexOf('\n');
    const QByteArray header = text.left(end < 0 ? 80 : end);
    return header.startsWith("#Inventor") && header.contains(" binary");
}

bool SceneTextCheck::acceptable(const QByteArray& text, const QString& origin, QString* error)
{
    if (isBinary(text))
        return true;
    int line = 1;
    int run = 0;
    int depth = 0;
    bool quoted = false;
    bool comment = false;
    const char* const data = text.constData();
    const int size = text.size();
    for (int i = 0; i < size; ++i) {
        const char c = data[i];
        if (c == '\n') {
            ++line;
            comment = false;
            run = 0;
            continue;
        }
        if (comment)
            continue;
        if (quoted) {
            if (c == '\\' && i + 1 < size && data[i + 1] != '\n')
                ++i;
            else if (c == '"')
                quoted = false;
            continue;
        }
        if (isNumberCharacter(c)) {
            if (++run > kMaxNumberLength) {
                *error = tr("Cannot read \"%1\": line %2 holds a number of more than %3 characters, "
                            "longer than any value a scene needs; the file is refused.")
                             .arg(origin)
                             .arg(line)
                             .arg(kMaxNumberLength);
                return false;
            }
            continue;
        }
        run = 0;
        switch (c) {
        case '"':
            quoted = true;
            break;
        case '#':
            comment = true;
            break;
        case '{':
        case '[':
            if (++depth > kMaxDepth) {
                *error = tr("Cannot read \"%1\": line %2 nests the scene more than %3 levels deep; "
                            "the file is refused.")
                             .arg(origin)
                             .arg(line)
                             .arg(kMaxDepth);
                return false;
            }
            break;
        case '}':
        case ']':
            depth = depth > 0 ? depth - 1 : 0;
            break;
        default:
            break;
        }
    }
    return true;
}
