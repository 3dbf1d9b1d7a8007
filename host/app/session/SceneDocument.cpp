#include "SceneDocument.h"

#include "LargeStack.h"
#include "SceneGraphSurvey.h"
#include "SceneIncludes.h"
#include "SceneTextCheck.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/SoOutput.h>
#include <Inventor/actions/SoWriteAction.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cstdlib>

namespace {

// Referenced files (File nodes, textures) are looked for in the scene's own
// folder first, then where Coin looks by itself (the current folder), as
// Coin's own viewers do. The folder is Coin's to search only while the scene
// is read.
class SceneFolderFirst
{
public:
    explicit SceneFolderFirst(const QString& folder)
        : m_folder(QFile::encodeName(folder))
    {
        if (!m_folder.isEmpty())
            SoInput::addDirectoryFirst(m_folder.constData());
    }
    ~SceneFolderFirst()
    {
        if (!m_folder.isEmpty())
            SoInput::removeDirectory(m_folder.constData());
    }
    SceneFolderFirst(const SceneFolderFirst&) = delete;
    SceneFolderFirst& operator=(const SceneFolderFirst&) = delete;

private:
    QByteArray m_folder;
};

// Deeper scenes are written without indentation.
constexpr int kMaxIndentedDepth = 100;

SoSeparator* readFrom(SoInput& input, const QString& origin, QString* error, SceneReadReport* report,
                      SceneReadReport::Passing passing)
{
    SceneReadReport ownReport;
    SceneReadReport* const reports = report ? report : &ownReport;
    reports->listen(origin, &input, passing);
    SoSeparator* root = nullptr;
    // Coin's reader recurses once per level of nesting. What it reports on
    // its way reaches the report from that thread, while this one waits.
    const bool completed = LargeStack::run([&input, &root] { root = SoDB::readAll(&input); });
    reports->stopListening();
    if (!completed) {
        *error =
            SceneDocument::tr("Cannot read \"%1\": it asks for more memory than can be had.").arg(origin);
        return nullptr;
    }
    reports->setBinary(input.isBinary());
    if (!root) {
        const QString reason = reports->problems().value(0);
        *error =
            reason.isEmpty()
                ? SceneDocument::tr("Cannot read \"%1\": it is not a scene in a format this program knows.")
                      .arg(origin)
                : SceneDocument::tr("Cannot read \"%1\": %2").arg(origin, reason);
        return nullptr;
    }
    if (root->getNumChildren() == 0) {
        root->ref();
        root->unref();
        *error = SceneDocument::tr("Cannot read \"%1\": it holds no scene.").arg(origin);
        return nullptr;
    }
    // Coin makes `DEF A Separator { USE A }` a node that is its own child:
    // drawn, searched or written, it recurses until the stack is gone.
    const SceneGraphSurvey survey(root);
    if (survey.cycle()) {
        *error = SceneDocument::tr("Cannot read \"%1\": the scene contains itself: %2.")
                     .arg(origin, survey.cycleText());
        root->ref();
        SceneGraphSurvey::dismantle(root);
        return nullptr;
    }
    return root;
}

} // namespace

SoSeparator* SceneDocument::read(const QString& path, QString* error, SceneReadReport* report)
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
    if (!acceptable(file.readAll(), path, info.absoluteFilePath(), info.absolutePath(), error))
        return nullptr;
    file.close();
    // Coin opens the file itself, so that what it reports names the file
    // and the line; given the whole path, it searches no folder for it.
    const SceneFolderFirst folder(info.absolutePath());
    SoInput input;
    if (!input.openFile(QFile::encodeName(info.absoluteFilePath()).constData(), TRUE)) {
        *error = tr("Cannot open \"%1\": it is not a readable file.").arg(path);
        return nullptr;
    }
    return readFrom(input, path, error, report, SceneReadReport::Passing::HandOn);
}

bool SceneDocument::acceptable(const QByteArray& text, const QString& origin, const QString& self,
                               const QString& folder, QString* error)
{
    if (text.isEmpty()) {
        *error = tr("Cannot read \"%1\": the file is empty.").arg(origin);
        return false;
    }
    if (!text.startsWith("#Inventor") && !text.startsWith("#VRML")) {
        *error =
            tr("Cannot read \"%1\": it does not start with a scene file header (\"#Inventor V2.1 ascii\").")
                .arg(origin);
        return false;
    }
    return SceneTextCheck::acceptable(text, origin, error) &&
           SceneIncludes::acceptable(text, self, folder, error);
}

SoSeparator* SceneDocument::readBuffer(const QByteArray& text, const QString& origin, QString* error,
                                       SceneReadReport* report, SceneReadReport::Passing passing)
{
    return readChecked(text, origin, QString(), QString(), error, report, passing);
}

SoSeparator* SceneDocument::readChecked(const QByteArray& text, const QString& origin, const QString& self,
                                        const QString& folder, QString* error, SceneReadReport* report,
                                        SceneReadReport::Passing passing)
{
    if (!acceptable(text, origin, self, folder, error))
        return nullptr;
    SoInput input;
    input.setBuffer(text.constData(), size_t(text.size()));
    return readFrom(input, origin, error, report, passing);
}

bool SceneDocument::write(SoSeparator* root, const QString& path, Format format, QString* error)
{
    if (!root) {
        *error = tr("There is no scene to save.");
        return false;
    }
    // Coin would write a scene that contains itself as one that reads
    // back the same way, and this program could not open it again.
    const SceneGraphSurvey survey(root);
    if (survey.cycle()) {
        *error = tr("Cannot save \"%1\": the scene contains itself: %2.").arg(path, survey.cycleText());
        return false;
    }
    QByteArray text;
    // Coin indents each line by its level: written as it is, a scene
    // 20,000 levels deep would take 400 MB of spaces.
    const bool compact = survey.depth() > kMaxIndentedDepth;
    // The write action recurses once per level of the scene.
    const bool written = LargeStack::run([root, compact, format, &text] {
        SoOutput output;
        output.setBuffer(malloc(4096), 4096, &realloc);
        output.setBinary(format == Format::Binary ? TRUE : FALSE);
        output.setCompact(compact ? TRUE : FALSE);
        SoWriteAction writer(&output);
        writer.apply(root);
        void* buffer = nullptr;
        size_t size = 0;
        output.getBuffer(buffer, size);
        text = QByteArray(static_cast<const char*>(buffer), int(size));
        // The buffer grew through realloc and is ours to release.
        free(buffer);
    });
    if (!written) {
        *error = tr("Cannot save \"%1\": there is not enough memory to write the scene.").arg(path);
        return false;
    }
    // Written aside and moved into place only once it is known to read
    // back, so that a save never leaves half a scene, or one this program
    // cannot open again, where the old one was.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) {
        *error = tr("Cannot save \"%1\": %2").arg(path, file.errorString());
        return false;
    }
    QString reason;
    // Read back as it will be opened: references from the file's folder.
    // What Coin says on the way is only for the check.
    // The files it includes are checked as on open, from where it is saved.
    const QFileInfo target(path);
    const SceneFolderFirst folder(target.absolutePath());
    SoSeparator* again = readChecked(text, tr("the scene as written"), target.absoluteFilePath(),
                                     target.absolutePath(), &reason, nullptr, SceneReadReport::Passing::Keep);
    if (!again) {
        file.cancelWriting();
        *error = tr("Cannot save \"%1\": the scene would not read back, so the file was left as it was. %2")
                     .arg(path, reason);
        return false;
    }
    again->ref();
    LargeStack::unref(again);
    if (!file.commit()) {
        *error = tr("Cannot save \"%1\": %2").arg(path, file.errorString());
        return false;
    }
    return true;
}
