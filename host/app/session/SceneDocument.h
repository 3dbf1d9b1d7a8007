#pragma once

#include <QCoreApplication>
#include <QString>

class SoSeparator;

// Reading and writing scenes in Coin's ASCII format, with what went wrong
// said in words that name the file and the reason.
class SceneDocument
{
    Q_DECLARE_TR_FUNCTIONS(SceneDocument)

public:
    // A new reference-free root (ref it), or null with the reason in *error.
    static SoSeparator* read(const QString& path, QString* error);
    // Reads a scene held in memory, such as the built-in sample.
    static SoSeparator* readBuffer(const QByteArray& text, const QString& origin, QString* error);
    static bool write(SoSeparator* root, const QString& path, QString* error);
};
