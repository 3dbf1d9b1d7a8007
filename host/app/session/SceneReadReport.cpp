#include "SceneReadReport.h"

#include <Inventor/SoInput.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/errors/SoReadError.h>

#include <QFileInfo>
#include <QRegularExpression>

namespace {
// Coin's messages for a file it looked for and did not find: a File node's
// or a texture's; the name is in quotes.
const QRegularExpression& missingFilePattern()
{
    static const QRegularExpression pattern(
        QStringLiteral("(?:Could not find|couldn't find|Could not read texture file) '([^']*)'"));
    return pattern;
}

// A file name as the person knows it: Coin says "<memory>" for text it
// was handed in memory, and gives referenced files with their folders.
QString shownName(const QString& coinName, const QString& origin)
{
    const QString name = coinName.trimmed();
    if (name.isEmpty() || name == QLatin1String("<memory>")) {
        const QString file = QFileInfo(origin).fileName();
        return file.isEmpty() ? origin : file;
    }
    return QFileInfo(name).fileName();
}
} // namespace

SceneReadReport::~SceneReadReport()
{
    stopListening();
}

void SceneReadReport::listen(const QString& origin, SoInput* input, Passing passing)
{
    stopListening();
    m_origin = origin;
    m_input = input;
    m_passing = passing;
    m_previousRead = SoReadError::getHandlerCallback();
    m_previousReadData = SoReadError::getHandlerData();
    m_previousDebug = SoDebugError::getHandlerCallback();
    m_previousDebugData = SoDebugError::getHandlerData();
    SoReadError::setHandlerCallback(&SceneReadReport::received, this);
    SoDebugError::setHandlerCallback(&SceneReadReport::received, this);
    m_listening = true;
}

void SceneReadReport::stopListening()
{
    if (!m_listening)
        return;
    SoReadError::setHandlerCallback(m_previousRead, m_previousReadData);
    SoDebugError::setHandlerCallback(m_previousDebug, m_previousDebugData);
    m_listening = false;
    m_input = nullptr;
}

void SceneReadReport::clear()
{
    stopListening();
    m_problems.clear();
    m_missingFiles.clear();
    m_otherProblems = 0;
    m_binary = false;
}

QStringList SceneReadReport::problems() const
{
    return m_problems;
}

int SceneReadReport::missingFiles() const
{
    return m_missingFiles.size();
}

int SceneReadReport::otherProblems() const
{
    return m_otherProblems;
}

bool SceneReadReport::binary() const
{
    return m_binary;
}

void SceneReadReport::setBinary(bool binary)
{
    m_binary = binary;
}

QString SceneReadReport::describe(const QString& coinText, const QString& origin, qint64 binaryByte)
{
    static const QRegularExpression textPlace(QStringLiteral("^\\s*Occurred at line\\s+(\\d+) in (.*)$"));
    static const QRegularExpression binaryPlace(
        QStringLiteral("^\\s*Occurred at position\\s+\\d+ in binary file (.*)$"));
    static const QRegularExpression coinPrefix(QStringLiteral("^Coin [a-z ]+:\\s*"));
    QString place = shownName(QString(), origin);
    QStringList words;
    for (const QString& line : coinText.split(QLatin1Char('\n'))) {
        const QRegularExpressionMatch text = textPlace.match(line);
        if (text.hasMatch()) {
            place = tr("%1, line %2").arg(shownName(text.captured(2), origin), text.captured(1));
            continue;
        }
        const QRegularExpressionMatch binary = binaryPlace.match(line);
        if (binary.hasMatch()) {
            // Coin counts no position in binary files (it always says 0);
            // what its reader had taken in is the nearest place it knows.
            const QString file = shownName(binary.captured(1), origin);
            place = binaryByte > 0 ? tr("%1, near byte %2").arg(file).arg(binaryByte) : file;
            continue;
        }
        words << line;
    }
    QString message = words.join(QLatin1Char(' ')).simplified();
    message.remove(coinPrefix);
    return tr("%1: %2").arg(place, message);
}

void SceneReadReport::received(const SoError* error, void* data)
{
    static_cast<SceneReadReport*>(data)->note(error);
}

void SceneReadReport::note(const SoError* error)
{
    const qint64 byte = m_input && m_input->isBinary() ? qint64(m_input->getNumBytesRead()) : 0;
    const QString text = describe(QString::fromUtf8(error->getDebugString().getString()), m_origin, byte);
    // Scenes with thousands of problems would otherwise keep them all.
    if (m_problems.size() < 1000)
        m_problems << text;
    const QRegularExpressionMatch missing = missingFilePattern().match(text);
    if (!missing.hasMatch())
        ++m_otherProblems;
    else if (!m_missingFiles.contains(missing.captured(1)))
        m_missingFiles << missing.captured(1);
    if (m_passing == Passing::Keep)
        return;
    const bool debug = error->isOfType(SoDebugError::getClassTypeId());
    SoErrorCB* previous = debug ? m_previousDebug : m_previousRead;
    void* previousData = debug ? m_previousDebugData : m_previousReadData;
    if (previous)
        previous(error, previousData);
}
