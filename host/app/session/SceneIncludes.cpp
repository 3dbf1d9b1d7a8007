#include "SceneIncludes.h"

#include "SceneBinaryIncludes.h"
#include "SceneTextCheck.h"

#include <Inventor/SbString.h>
#include <Inventor/SoInput.h>
#include <Inventor/lists/SbStringList.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <string_view>

#include <sys/stat.h>

namespace {

bool isWhiteSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

// Between values, a comma counts as white space.
bool isSpace(char c)
{
    return isWhiteSpace(c) || c == ',';
}

// A word ends at white space for Coin; a name ending in a comma or a
// bracket is looked for without it too.
void appendName(const QByteArray& word, QStringList* names)
{
    names->append(QFile::decodeName(word));
    int end = word.size();
    while (end > 0 && (word.at(end - 1) == ',' || word.at(end - 1) == ']' || word.at(end - 1) == '}'))
        --end;
    if (end != word.size() && end > 0)
        names->append(QFile::decodeName(word.left(end)));
}

bool isNameCharacter(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

// Walks a scene's text as Coin's reader does inside a node: white space and
// comments between tokens, words, and strings.
class Cursor
{
public:
    explicit Cursor(const QByteArray& text)
        : m_text(text)
    {}

    bool atEnd() const { return m_at >= m_text.size(); }
    char peek() const { return atEnd() ? '\0' : m_text.at(m_at); }
    void step() { ++m_at; }
    void moveTo(int at) { m_at = at; }
    int position() const { return m_at; }

    void skipSpace()
    {
        while (!atEnd()) {
            if (peek() == '#') {
                while (!atEnd() && peek() != '\n')
                    step();
            } else if (isSpace(peek())) {
                step();
            } else {
                return;
            }
        }
    }

    // A view into the text, not a copy: every word and number of a scene of
    // megabytes is looked at, and all but a few are passed over.
    std::string_view word()
    {
        const int start = m_at;
        while (!atEnd() && isNameCharacter(peek()))
            step();
        return std::string_view(m_text.constData() + start, size_t(m_at - start));
    }

    // A quoted string keeps what its backslashes escape; a word ends at
    // white space.
    QByteArray string()
    {
        QByteArray value;
        if (peek() != '"') {
            while (!atEnd() && !isWhiteSpace(peek()))
                value += m_text.at(m_at++);
            return value;
        }
        step();
        while (!atEnd() && peek() != '"') {
            if (peek() == '\\' && m_at + 1 < m_text.size() && m_text.at(m_at + 1) == '"')
                step();
            value += m_text.at(m_at++);
        }
        step();
        return value;
    }

    // Any other token: a word, or a run of characters up to white space.
    void skipToken()
    {
        if (peek() == '"') {
            string();
            return;
        }
        const int start = m_at;
        while (!atEnd() && !isSpace(peek()) && peek() != '}' && peek() != ']')
            step();
        if (m_at == start)
            step();
    }

private:
    const QByteArray& m_text;
    int m_at = 0;
};

bool isIncludingNode(std::string_view word)
{
    return word == "File" || word == "Inline" || word == "WWWInline";
}

// The names given by one node's name and url fields, from just after its
// opening brace up to its closing one.
void readNodeNames(Cursor* cursor, QStringList* names)
{
    for (;;) {
        cursor->skipSpace();
        if (cursor->atEnd() || cursor->peek() == '}')
            return;
        const std::string_view field = cursor->word();
        if (field.empty()) {
            cursor->skipToken();
            continue;
        }
        if (field != "name" && field != "url")
            continue;
        cursor->skipSpace();
        if (cursor->peek() != '[') {
            appendName(cursor->string(), names);
            continue;
        }
        cursor->step();
        for (;;) {
            cursor->skipSpace();
            if (cursor->atEnd() || cursor->peek() == ']' || cursor->peek() == '}')
                break;
            appendName(cursor->string(), names);
        }
        if (cursor->peek() == ']')
            cursor->step();
    }
}

// What stat says, without opening: opening a pipe waits for a writer.
bool isRegularFile(const QString& path, qint64* size)
{
    struct stat status;
    if (stat(QFile::encodeName(path).constData(), &status) != 0)
        return false;
    *size = qint64(status.st_size);
    return S_ISREG(status.st_mode);
}

bool exists(const QString& path)
{
    struct stat status;
    return stat(QFile::encodeName(path).constData(), &status) == 0;
}

} // namespace

SceneIncludes::SceneIncludes(const QString& self, const QString& folder)
    : m_scene(self.isEmpty() ? tr("the scene") : self)
    , m_sceneFolder(folder)
{}

QStringList SceneIncludes::names(const QByteArray& text)
{
    // Every File or Inline word is taken for a node, wherever it stands
    // (in a string or a comment too): a name looked at needlessly costs a
    // look, one missed lets Coin open it.
    QStringList names;
    Cursor cursor(text);
    for (int at = 0; at < text.size(); ++at) {
        if (!isNameCharacter(text.at(at)) || (at > 0 && isNameCharacter(text.at(at - 1))))
            continue;
        cursor.moveTo(at);
        const std::string_view word = cursor.word();
        if (!isIncludingNode(word))
            continue;
        cursor.skipSpace();
        if (cursor.peek() != '{')
            continue;
        cursor.step();
        readNodeNames(&cursor, &names);
        // What the node held is not looked at again, so that a text of
        // many unclosed nodes costs one pass.
        at = cursor.position() - 1;
    }
    return names;
}

bool SceneIncludes::acceptable(const QByteArray& text, const QString& self, const QString& folder,
                               QString* error)
{
    SceneIncludes includes(self, folder);
    QStringList chain;
    if (!self.isEmpty())
        chain.append(QFileInfo(self).absoluteFilePath());
    return includes.check(text, folder, &chain, error);
}

QStringList SceneIncludes::candidates(const QString& name, const QString& folder) const
{
    // Coin also looks for the name's last part alone in each folder it
    // searches, an absolute name's too.
    const QString last = QFileInfo(name).fileName();
    const QStringList tried = last.isEmpty() || last == name ? QStringList{name} : QStringList{name, last};
    QStringList folders{folder, m_sceneFolder};
    const SbStringList& searched = SoInput::getDirectories();
    for (int i = 0; i < searched.getLength(); ++i)
        folders.append(QFile::decodeName(searched[i]->getString()));
    folders.append(QDir::currentPath());
    QStringList paths;
    if (QDir::isAbsolutePath(name))
        paths.append(QDir::cleanPath(name));
    for (const QString& where : folders) {
        for (const QString& tail : tried) {
            if (QDir::isAbsolutePath(tail))
                continue;
            const QString path =
                QDir::cleanPath(QDir(where.isEmpty() ? QDir::currentPath() : where).filePath(tail));
            if (!paths.contains(path))
                paths.append(path);
        }
    }
    return paths;
}

bool SceneIncludes::check(const QByteArray& text, const QString& folder, QStringList* chain, QString* error)
{
    const QStringList included =
        SceneTextCheck::isBinary(text) ? SceneBinaryIncludes::names(text) : names(text);
    for (const QString& name : included) {
        if (name.isEmpty())
            continue;
        for (const QString& path : candidates(name, folder)) {
            if (exists(path) && !checkCandidate(path, chain, error))
                return false;
        }
    }
    return true;
}

bool SceneIncludes::checkCandidate(const QString& path, QStringList* chain, QString* error)
{
    const QString including = chain->isEmpty() ? m_scene : chain->constLast();
    qint64 size = 0;
    if (!isRegularFile(path, &size)) {
        *error = tr("Cannot read \"%1\": included file %2 is not a regular file (a folder, a device or a "
                    "pipe, which Coin would read forever or wait on).")
                     .arg(including, path);
        return false;
    }
    const QString canonical = QFileInfo(path).canonicalFilePath();
    QStringList canonicalChain;
    for (const QString& file : *chain)
        canonicalChain.append(QFileInfo(file).exists() ? QFileInfo(file).canonicalFilePath() : file);
    if (canonicalChain.contains(canonical)) {
        *error = tr("Cannot read \"%1\": the scene includes itself at %2 (%3).")
                     .arg(m_scene, path, (*chain + QStringList{path}).join(QStringLiteral(" → ")));
        return false;
    }
    if (m_checked.contains(canonical))
        return true;
    if (chain->size() > kMaxLevels) {
        *error = tr("Cannot read \"%1\": files are included more than %2 levels deep, at %3.")
                     .arg(m_scene)
                     .arg(kMaxLevels)
                     .arg(path);
        return false;
    }
    m_bytes += size;
    if (++m_files > kMaxFiles || m_bytes > kMaxBytes) {
        *error = tr("Cannot read \"%1\": it includes more than %2 files or %3 MiB, at %4.")
                     .arg(m_scene)
                     .arg(kMaxFiles)
                     .arg(kMaxBytes >> 20)
                     .arg(path);
        return false;
    }
    m_checked.insert(canonical);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return true; // Coin cannot open it either, and says so.
    const QByteArray text = file.read(size);
    if (!SceneTextCheck::acceptable(text, tr("included file %1").arg(path), error))
        return false;
    chain->append(path);
    const bool fine = check(text, QFileInfo(path).absolutePath(), chain, error);
    chain->removeLast();
    return fine;
}
