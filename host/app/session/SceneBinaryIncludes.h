#pragma once

#include <QByteArray>
#include <QStringList>

// The names a binary scene gives its File nodes (name) and Inline nodes
// (url), found in the file's own layout: every string is a 32-bit
// big-endian length and its bytes, padded to four, and a node's type name
// comes before its fields, each field's name before its value. A binary
// scene pulls in files as a text one does, and they reach Coin's reader as
// unchecked as the scene would.
class SceneBinaryIncludes
{
public:
    // Strings longer than this are taken for no name: no file name is.
    static constexpr int kMaxNameBytes = 4096;
    // How far past a node's type name its name or url field is looked for.
    static constexpr int kFieldReach = 64;

    static QStringList names(const QByteArray& text);
};
