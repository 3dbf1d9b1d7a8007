#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

// kalhost's Open, as the session makes it, on a scene made of fuzz input:
// the input is the scene file and, after each line "#%%file", one more
// file beside it (part1.iv, part2.iv, ...), which the scene can pull in with
// File or Inline. What Open accepts is saved as text and as binary and
// opened again, as Save and a later Open would; what Open refuses must say
// why. A broken promise aborts, so that the fuzzer keeps the input.
class SceneOpenHarness
{
public:
    SceneOpenHarness();

    void run(const uint8_t* data, size_t size);

private:
    // Writes the input's files into the folder, the scene first; returns
    // the scene's path.
    QString writeFiles(const QByteArray& input) const;
    void clearFolder() const;
    void saveAndReopen(class SoSeparator* root, const QString& scenePath) const;

    QTemporaryDir m_folder;
};
