#include "SceneDocument.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/SoOutput.h>
#include <Inventor/actions/SoWriteAction.h>
#include <Inventor/errors/SoReadError.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringList>

#include <cstdlib>

namespace {

// Coin reports read errors through its error handler; while a scene is read
// they are collected here instead of going wherever the handler points.
class ReadErrorCollector
{
public:
    ReadErrorCollector()
    {
        m_previous = SoReadError::getHandlerCallback();
        m_previousData = SoReadError::getHandlerData();
        SoReadError::setHandlerCallback(&ReadErrorCollector::collect, this);
    }
    ~ReadErrorCollector() { SoReadError::setHandlerCallback(m_previous, m_previousData); }
    ReadErrorCollector(const ReadErrorCollector&) = delete;
    ReadErrorCollector& operator=(const ReadErrorCollector&) = delete;

    QString reason() const { return m_messages.isEmpty() ? QString() : m_messages.first(); }

private:
    static void collect(const SoError* error, void* data)
    {
        auto* self = static_cast<ReadErrorCollector*>(data);
        if (self->m_messages.size() < 8)
            self->m_messages << QString::fromUtf8(error->getDebugString().getString()).simplified();
    }

    SoErrorCB* m_previous = nullptr;
    void* m_previousData = nullptr;
    QStringList m_messages;
};

QString tr(const char* text)
{
    return QCoreApplication::translate("SceneDocument", text);
}

SoSeparator* readFrom(SoInput& input, const QString& origin, QString* error)
{
    ReadErrorCollector errors;
    SoSeparator* root = SoDB::readAll(&input);
    if (!root) {
        const QString reason = errors.reason();
        *error = reason.isEmpty()
                     ? tr("Cannot read \"%1\": it is not a scene in a format this program knows.").arg(origin)
                     : tr("Cannot read \"%1\": %2").arg(origin, reason);
        return nullptr;
    }
    if (root->getNumChildren() == 0) {
        root->ref();
        root->unref();
        *error = tr("Cannot read \"%1\": it holds no scene.").arg(origin);
        return nullptr;
    }
    return root;
}

} // namespace

SoSeparator* SceneDocument::read(const QString& path, QString* error)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        *error = tr("Cannot open \"%1\": there is no such file.").arg(path);
        return nullptr;
    }
    if (!info.isFile() || !info.isReadable()) {
        *error = tr("Cannot open \"%1\": it is not a readable file.").arg(path);
        return nullptr;
    }
    if (info.size() == 0) {
        *error = tr("Cannot read \"%1\": the file is empty.").arg(path);
        return nullptr;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = tr("Cannot open \"%1\": %2").arg(path, file.errorString());
        return nullptr;
    }
    // Read through memory: Coin's own file reader takes a locale-encoded
    // path and searches its directory list, where we mean this one file.
    return readBuffer(file.readAll(), path, error);
}

SoSeparator* SceneDocument::readBuffer(const QByteArray& text, const QString& origin, QString* error)
{
    if (text.isEmpty()) {
        *error = tr("Cannot read \"%1\": the file is empty.").arg(origin);
        return nullptr;
    }
    if (!text.startsWith("#Inventor") && !text.startsWith("#VRML")) {
        *error =
            tr("Cannot read \"%1\": it does not start with a scene file header (\"#Inventor V2.1 ascii\").")
                .arg(origin);
        return nullptr;
    }
    SoInput input;
    input.setBuffer(text.constData(), size_t(text.size()));
    return readFrom(input, origin, error);
}

bool SceneDocument::write(SoSeparator* root, const QString& path, QString* error)
{
    if (!root) {
        *error = tr("There is no scene to save.");
        return false;
    }
    SoOutput output;
    output.setBuffer(malloc(4096), 4096, &realloc);
    SoWriteAction writer(&output);
    writer.apply(root);
    void* buffer = nullptr;
    size_t size = 0;
    output.getBuffer(buffer, size);
    // Written aside and moved into place, so that a failed save never
    // leaves half a scene where the old one was.
    const QByteArray text(static_cast<const char*>(buffer), int(size));
    // The buffer grew through realloc and is ours to release.
    free(buffer);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit()) {
        *error = tr("Cannot save \"%1\": %2").arg(path, file.errorString());
        return false;
    }
    return true;
}
