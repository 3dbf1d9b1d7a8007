#pragma once

#include <QCoreApplication>
#include <QString>

#include "SceneReadReport.h"

class SoSeparator;

// Reading and writing scenes in Coin's text and binary formats, with what
// went wrong said in words that name the file, the place and the reason.
class SceneDocument
{
    Q_DECLARE_TR_FUNCTIONS(SceneDocument)

public:
    enum class Format
    {
        Ascii,
        Binary
    };

    // A new reference-free root (ref it), or null with the reason in *error.
    // What Coin reported on the way, and the file's format, go to *report
    // when one is given, and on to whoever handled Coin's reports before.
    static SoSeparator* read(const QString& path, QString* error, SceneReadReport* report = nullptr);
    // Reads a scene held in memory, such as the built-in sample.
    static SoSeparator* readBuffer(const QByteArray& text, const QString& origin, QString* error,
                                   SceneReadReport* report = nullptr,
                                   SceneReadReport::Passing passing = SceneReadReport::Passing::HandOn);
    // Replaces the file only once what was written reads back.
    static bool write(SoSeparator* root, const QString& path, Format format, QString* error);

private:
    // The checks made before Coin is given a file's text: self is the file
    // it comes from (or goes to), folder where its relative names are found.
    static bool acceptable(const QByteArray& text, const QString& origin, const QString& self,
                           const QString& folder, QString* error);
    static SoSeparator* readChecked(const QByteArray& text, const QString& origin, const QString& self,
                                    const QString& folder, QString* error, SceneReadReport* report,
                                    SceneReadReport::Passing passing);
};
