#include "SceneSession.h"

#include "CommandNamer.h"
#include "SceneDocument.h"
#include "SceneModel.h"

#include <KalServices.h>

#include <Inventor/nodes/SoSeparator.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QSettings>
#include <QUndoStack>

static void initHostResources()
{
    Q_INIT_RESOURCE(kalhost);
}

namespace {
const char* const kDirectoryKey = "lastDirectory";
const char* const kSampleOrigin = "built-in sample scene";

QString sceneFilter()
{
    return QObject::tr("Scenes (*.iv *.ivx);;All files (*)");
}

// Save As offers both of Coin's formats; the file's own is chosen first.
QString formatFilter(SceneDocument::Format format)
{
    return format == SceneDocument::Format::Binary ? QObject::tr("Scenes, binary (*.iv *.ivx)")
                                                   : QObject::tr("Scenes, text (*.iv *.ivx)");
}
} // namespace

SceneSession::SceneSession(SceneModel* model, QWidget* window, bool interactive, QObject* parent)
    : QObject(parent)
    , m_model(model)
    , m_window(window)
    , m_interactive(interactive)
{
    initHostResources();
    // The plug-in's commands run as designed; the history around them
    // keeps what the user saw, so that undo and redo give it back, one
    // entry per change, named, and none for a change that changed nothing.
    KalServices* services = KalServices::getInstance();
    services->setHistoryOptions(KalServices::RestoreValues | KalServices::MergeTyping |
                                KalServices::HideNoOps | KalServices::RecordUnreported);
    services->setEntryNamer(&CommandNamer::nameEntry);
    connect(m_model, &SceneModel::fieldChanged, services, &KalServices::noteFieldChange);
    // Every change the user makes is an entry: the file is modified exactly
    // when the history is away from where it was opened or saved.
    connect(services->undoStack(), &QUndoStack::cleanChanged, this, &SceneSession::documentChanged);
}

SceneSession::~SceneSession()
{
    KalServices* services = KalServices::getInstance();
    services->setHistoryOptions({});
    services->setEntryNamer(nullptr);
}

QString SceneSession::scenePath() const
{
    return m_path;
}

SceneDocument::Format SceneSession::sceneFormat() const
{
    return m_format;
}

const SceneReadReport& SceneSession::readReport() const
{
    return m_readReport;
}

bool SceneSession::hasUnsavedChanges() const
{
    return !KalServices::getInstance()->undoStack()->isClean();
}

void SceneSession::setDiscardQuestion(std::function<bool()> question)
{
    m_discardQuestion = std::move(question);
}

void SceneSession::setFileQuestion(std::function<QString(FileQuestion, const QString&)> question)
{
    m_fileQuestion = std::move(question);
}

void SceneSession::openSample()
{
    QFile sample(QStringLiteral(":/scenes/sample.iv"));
    QString error;
    m_readReport.clear();
    SoSeparator* root =
        sample.open(QIODevice::ReadOnly)
            ? SceneDocument::readBuffer(sample.readAll(), QLatin1String(kSampleOrigin), &error, &m_readReport)
            : nullptr;
    if (!root) {
        emit failed(error.isEmpty() ? tr("The built-in sample scene is missing.") : error);
        return;
    }
    setScene(root, QString());
    m_format = SceneDocument::Format::Ascii;
}

bool SceneSession::openScene(const QString& path)
{
    QString error;
    QElapsedTimer timer;
    timer.start();
    m_readReport.clear();
    SoSeparator* root = SceneDocument::read(path, &error, &m_readReport);
    if (!root) {
        // The scene that was open stays open.
        emit failed(error);
        return false;
    }
    setScene(root, QFileInfo(path).absoluteFilePath());
    // Saved again, the file keeps the format it came in.
    m_format = m_readReport.binary() ? SceneDocument::Format::Binary : SceneDocument::Format::Ascii;
    emit opened(path, timer.elapsed());
    rememberDirectory(path);
    return true;
}

void SceneSession::setScene(SoSeparator* root, const QString& path)
{
    root->ref();
    // Commands hold raw field pointers and editors watch fields: both let
    // go of the old scene before it can be freed.
    emit replacing();
    letGoOfScene();
    emit arriving(root);
    m_model->setRoot(root);
    root->unrefNoDelete();
    m_path = path;
    KalServices::getInstance()->undoStack()->setClean();
    emit replaced();
}

void SceneSession::letGoOfScene()
{
    KalServices* services = KalServices::getInstance();
    emit services->selectedFieldChanged(nullptr);
    emit services->selectedNodeChanged(nullptr);
    m_selectedField = nullptr;
    m_selectedNode = nullptr;
    services->clearHistory();
}

bool SceneSession::saveScene(const QString& path)
{
    return saveScene(path, m_format);
}

bool SceneSession::saveScene(const QString& path, SceneDocument::Format format)
{
    QString error;
    QElapsedTimer timer;
    timer.start();
    if (!SceneDocument::write(static_cast<SoSeparator*>(m_model->root()), path, format, &error)) {
        emit failed(error);
        return false;
    }
    const qint64 milliseconds = timer.elapsed();
    rememberDirectory(path);
    m_path = QFileInfo(path).absoluteFilePath();
    m_format = format;
    KalServices::getInstance()->undoStack()->setClean();
    emit saved(path, milliseconds);
    emit documentChanged();
    return true;
}

bool SceneSession::save()
{
    return m_path.isEmpty() ? saveAs() : saveScene(m_path);
}

bool SceneSession::saveAs()
{
    SceneDocument::Format format = m_format;
    const QString path = askForFile(FileQuestion::SaveAs, &format);
    return !path.isEmpty() && saveScene(path, format);
}

void SceneSession::open()
{
    if (!mayDiscard())
        return;
    SceneDocument::Format unused = m_format;
    const QString path = askForFile(FileQuestion::Open, &unused);
    if (!path.isEmpty())
        openScene(path);
}

QString SceneSession::askForFile(FileQuestion question, SceneDocument::Format* format)
{
    const QString start = m_path.isEmpty() ? startDirectory() : m_path;
    if (m_fileQuestion)
        return m_fileQuestion(question, start);
    if (question == FileQuestion::Open)
        return QFileDialog::getOpenFileName(m_window, tr("Open Scene"), start, sceneFilter());
    QFileDialog dialog(m_window, tr("Save Scene"), start);
    dialog.setObjectName(QStringLiteral("SaveSceneDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("iv"));
    const QString text = formatFilter(SceneDocument::Format::Ascii);
    const QString binary = formatFilter(SceneDocument::Format::Binary);
    dialog.setNameFilters({text, binary});
    dialog.selectNameFilter(formatFilter(*format));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    *format =
        dialog.selectedNameFilter() == binary ? SceneDocument::Format::Binary : SceneDocument::Format::Ascii;
    return dialog.selectedFiles().constFirst();
}

QString SceneSession::startDirectory() const
{
    const QString remembered = QSettings().value(QLatin1String(kDirectoryKey)).toString();
    return !remembered.isEmpty() && QFileInfo(remembered).isDir() ? remembered : QDir::homePath();
}

void SceneSession::rememberDirectory(const QString& path)
{
    QSettings().setValue(QLatin1String(kDirectoryKey), QFileInfo(path).absolutePath());
}

bool SceneSession::mayDiscard()
{
    if (!hasUnsavedChanges())
        return true;
    if (m_discardQuestion)
        return m_discardQuestion();
    if (!m_interactive)
        return true;
    const auto answer = QMessageBox::question(
        m_window, tr("Kalibra"), tr("The scene has unsaved changes. Save them first?"),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Save)
        return save();
    return answer == QMessageBox::Discard;
}

void SceneSession::announceSelection(SoFieldContainer* node, SoField* field)
{
    KalServices* services = KalServices::getInstance();
    if (node != m_selectedNode) {
        m_selectedNode = node;
        emit services->selectedNodeChanged(node);
    }
    if (field != m_selectedField || field) {
        m_selectedField = field;
        emit services->selectedFieldChanged(field);
    }
}

void SceneSession::announceSelectionAgain()
{
    KalServices* services = KalServices::getInstance();
    emit services->selectedNodeChanged(m_selectedNode);
    emit services->selectedFieldChanged(m_selectedField);
}
