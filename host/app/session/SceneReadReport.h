#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <Inventor/errors/SoError.h>

class SoInput;

// What Coin said while a scene was read: each report in words that name the
// file and the place ("scene.iv, line 12: ..."), how many referenced files
// it could not find, and whether the file was binary.
//
// While a report is open (between listen() and stopListening()) it is the
// handler of Coin's read errors and debug messages. Each report is still
// handed on to the handler that was there before (the console's, when the
// plug-in shows one), since hiding what Coin found wrong left a user with a
// silently incomplete scene. Reports of checks the person did not ask for
// (reading back a saved file) need not be handed on.
class SceneReadReport
{
    Q_DECLARE_TR_FUNCTIONS(SceneReadReport)

public:
    enum class Passing
    {
        HandOn,
        Keep
    };

    SceneReadReport() = default;
    ~SceneReadReport();
    SceneReadReport(const SceneReadReport&) = delete;
    SceneReadReport& operator=(const SceneReadReport&) = delete;

    // origin names the text read from memory (Coin says "<memory>"); input
    // is asked where a binary file's reader is when Coin reports.
    void listen(const QString& origin, SoInput* input, Passing passing);
    void stopListening();
    // Forgets what an earlier read found.
    void clear();

    // Everything Coin reported, one line each, in order.
    QStringList problems() const;
    int missingFiles() const;
    // Reports other than files not found.
    int otherProblems() const;
    bool binary() const;
    void setBinary(bool binary);

    // One report of Coin's in this form, for the text read from origin.
    static QString describe(const QString& coinText, const QString& origin, qint64 binaryByte);

private:
    static void received(const SoError* error, void* data);
    void note(const SoError* error);

    QString m_origin;
    SoInput* m_input = nullptr;
    Passing m_passing = Passing::HandOn;
    bool m_listening = false;
    QStringList m_problems;
    QStringList m_missingFiles;
    int m_otherProblems = 0;
    bool m_binary = false;
    SoErrorCB* m_previousRead = nullptr;
    void* m_previousReadData = nullptr;
    SoErrorCB* m_previousDebug = nullptr;
    void* m_previousDebugData = nullptr;
};
