#include "SceneTextCheck.h"

#include <SbImageSize.h>

#include <Inventor/SbString.h>
#include <Inventor/SoDB.h>

#include <QCoreApplication>

#include <algorithm>

namespace {

// Everything Coin's number reader gathers into its buffer before it looks at
// what it has: digits, hexadecimal digits and the marks of signs, points,
// exponents and "0x".
bool isNumberCharacter(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F') || c == 'x' ||
           c == 'X' || c == '.' || c == '+' || c == '-';
}

bool isNameCharacter(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool isSeparator(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v' || c == ',';
}

} // namespace

bool SceneTextCheck::isBinary(const QByteArray& text)
{
    // Coin decides from the first line alone (up to a line feed or a
    // carriage return), against the headers it knows, allowing a longer
    // line that starts with one; a file it does not take for binary is
    // read as text, and so scanned as text here.
    int end = 0;
    while (end < text.size() && end < kMaxHeaderLength && text.at(end) != '\n' && text.at(end) != '\r')
        ++end;
    if (end == text.size() || !text.startsWith('#'))
        return false;
    SbBool binary = FALSE;
    float version = 0.0f;
    SoDBHeaderCB* before = nullptr;
    SoDBHeaderCB* after = nullptr;
    void* data = nullptr;
    return SoDB::getHeaderData(SbString(text.left(end).constData()), binary, version, before, after, data,
                               TRUE) &&
           binary;
}

bool SceneTextCheck::acceptable(const QByteArray& text, const QString& origin, QString* error)
{
    if (isBinary(text))
        return true;
    return numbersFit(text, origin, error) && nestingFits(text, origin, error) &&
           imagesFit(text, origin, error);
}

bool SceneTextCheck::imagesFit(const QByteArray& text, const QString& origin, QString* error)
{
    // Every word "image" is taken for an image field wherever it stands,
    // in strings and comments too, for the reason long numbers are.
    const int size = text.size();
    int from = 0;
    while ((from = text.indexOf("image", from)) >= 0) {
        const int at = from;
        from += 5;
        if ((at > 0 && isNameCharacter(text.at(at - 1))) || (from < size && isNameCharacter(text.at(from))))
            continue;
        int next = from;
        const auto token = [&text, size, &next] {
            while (next < size && isSeparator(text.at(next)))
                ++next;
            const int start = next;
            while (next < size && !isSeparator(text.at(next)))
                ++next;
            return text.mid(start, next - start);
        };
        bool readWidth = false;
        bool readHeight = false;
        const qlonglong width = token().toLongLong(&readWidth, 0);
        const qlonglong height = token().toLongLong(&readHeight, 0);
        const QByteArray components = token();
        if (!readWidth || !readHeight)
            continue;
        qlonglong values = 0;
        const qlonglong declared = width > size || height > size ? qlonglong(size) + 1 : width * height;
        while (values < declared && next < size) {
            const QByteArray value = token();
            if (value.isEmpty() || !std::all_of(value.begin(), value.end(), isNumberCharacter))
                break;
            ++values;
        }
        if (!SbImageSize::fits(width, height, values)) {
            *error =
                tr("Cannot read \"%1\": line %2 declares an image %3×%4×%5, which is too large: the file "
                   "gives values for %6 of its pixels.")
                    .arg(origin)
                    .arg(text.left(at).count('\n') + 1)
                    .arg(width)
                    .arg(height)
                    .arg(QString::fromLatin1(components.left(20)))
                    .arg(values);
            return false;
        }
    }
    return true;
}

bool SceneTextCheck::numbersFit(const QByteArray& text, const QString& origin, QString* error)
{
    // Whether a quote opens a string, or a # a comment, depends on what
    // Coin's reader expects at that point (a word such as abc" holds its
    // quote), which only a full reader knows. A long run is refused
    // wherever it stands, inside quotes and comments too: no scene needs
    // one, and a guess about quotes let such a number through.
    int line = 1;
    int run = 0;
    for (const char c : text) {
        if (c == '\n')
            ++line;
        if (!isNumberCharacter(c)) {
            run = 0;
            continue;
        }
        if (++run > kMaxNumberLength) {
            *error = tr("Cannot read \"%1\": line %2 holds a number of more than %3 characters, "
                        "longer than any value a scene needs; the file is refused (such runs are "
                        "refused inside quotes and comments too).")
                         .arg(origin)
                         .arg(line)
                         .arg(kMaxNumberLength);
            return false;
        }
    }
    return true;
}

bool SceneTextCheck::nestingFits(const QByteArray& text, const QString& origin, QString* error)
{
    int line = 1;
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
