#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QSet>
#include <QString>
#include <QStringList>

// The files a scene pulls in through File nodes (name) and Inline nodes
// (url), and the files those pull in, checked before Coin opens any of them:
// Coin's reader loops on a device such as /dev/zero, blocks opening a pipe
// nobody writes, reads a file that includes itself until it runs out of file
// handles, and meets in an included file the same numbers that overrun it in
// a scene. Every place Coin could find a name (the including file's folder,
// the scene's folder, the folders Coin searches, the current folder) is
// checked, so that no guess about which one Coin takes lets a bad file in.
class SceneIncludes
{
    Q_DECLARE_TR_FUNCTIONS(SceneIncludes)

public:
    // Files included through more levels than this are refused.
    static constexpr int kMaxLevels = 32;
    // Bounds on all included files together, as on a profile file.
    static constexpr int kMaxFiles = 1000;
    static constexpr qint64 kMaxBytes = qint64(64) << 20;

    // True when every file text includes, through any number of levels, may
    // be given to Coin. self is the file text was read from (or will be
    // written to), folder where its relative names are looked for first.
    static bool acceptable(const QByteArray& text, const QString& self, const QString& folder,
                           QString* error);

    // The names text gives its File and Inline nodes, as Coin's reader
    // reads them (quoted with \" escapes, or a word up to white space).
    static QStringList names(const QByteArray& text);

private:
    SceneIncludes(const QString& self, const QString& folder);
    bool check(const QByteArray& text, const QString& folder, QStringList* chain, QString* error);
    bool checkCandidate(const QString& path, QStringList* chain, QString* error);
    QStringList candidates(const QString& name, const QString& folder) const;

    QString m_scene;
    QString m_sceneFolder;
    QSet<QString> m_checked;
    int m_files = 0;
    qint64 m_bytes = 0;
};
