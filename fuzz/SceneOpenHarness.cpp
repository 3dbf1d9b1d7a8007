#include "SceneOpenHarness.h"

#include <LargeStack.h>
#include <SceneDocument.h>
#include <SceneReadReport.h>

#include <Inventor/nodes/SoSeparator.h>

#include <QDir>
#include <QFile>

#include <cstdio>
#include <cstdlib>

namespace {

// Between the files of one input.
const QByteArray kFileSeparator("\n#%%file\n");
// A scene with more parts than this is cut: the include checks count files,
// and a folder of thousands of parts would only slow the run.
constexpr int kMaxFiles = 8;

[[noreturn]] void broken(const char* what, const QString& detail)
{
    std::fprintf(stderr, "SceneOpenHarness: %s: %s\n", what, qPrintable(detail));
    std::abort();
}

} // namespace

SceneOpenHarness::SceneOpenHarness()
{
    if (!m_folder.isValid())
        broken("no temporary folder", m_folder.errorString());
}

void SceneOpenHarness::clearFolder() const
{
    QDir folder(m_folder.path());
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden | QDir::System))
        folder.remove(name);
}

QString SceneOpenHarness::writeFiles(const QByteArray& input) const
{
    clearFolder();
    QString scenePath;
    int start = 0;
    for (int index = 0; index < kMaxFiles && start <= input.size(); ++index) {
        int end = input.indexOf(kFileSeparator, start);
        if (end < 0 || index == kMaxFiles - 1)
            end = input.size();
        const QString name = index == 0 ? QStringLiteral("scene.iv") : QStringLiteral("part%1.iv").arg(index);
        QFile file(m_folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(input.mid(start, end - start)) != end - start)
            broken("cannot write", file.fileName());
        if (index == 0)
            scenePath = file.fileName();
        start = end + kFileSeparator.size();
    }
    return scenePath;
}

void SceneOpenHarness::run(const uint8_t* data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char*>(data), int(size));
    const QString scenePath = writeFiles(input);
    QString error;
    SceneReadReport report;
    SoSeparator* const root = SceneDocument::read(scenePath, &error, &report);
    if (!root) {
        if (error.isEmpty())
            broken("a refused scene, no reason given", scenePath);
        return;
    }
    root->ref();
    saveAndReopen(root, scenePath);
    LargeStack::unref(root);
}

void SceneOpenHarness::saveAndReopen(SoSeparator* root, const QString& scenePath) const
{
    for (const SceneDocument::Format format : {SceneDocument::Format::Ascii, SceneDocument::Format::Binary}) {
        const QString savedPath = m_folder.filePath(QStringLiteral("saved.iv"));
        QString error;
        // Save refuses what would not read back (a float written as nan);
        // what it wrote must open again.
        if (!SceneDocument::write(root, savedPath, format, &error)) {
            if (error.isEmpty())
                broken("a refused save, no reason given", scenePath);
            continue;
        }
        SoSeparator* const reopened = SceneDocument::read(savedPath, &error);
        if (!reopened)
            broken("a saved scene does not open again", error);
        reopened->ref();
        LargeStack::unref(reopened);
    }
}
