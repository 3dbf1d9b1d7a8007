#pragma once

#include "SceneDocument.h"
#include "SceneReadReport.h"

#include <QObject>
#include <QString>

#include <functional>

class QWidget;
class SceneModel;
class SoField;
class SoFieldContainer;
class SoSeparator;

// The scene a window shows, as a document: opening, saving and dropping it
// (asking first when it has unsaved changes), and telling the plug-ins what
// is selected in it. The history belongs to the scene too: its commands
// point at the scene's fields, so it is emptied when the scene goes.
class SceneSession : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(SceneSession)

public:
    // The file asked for to open or to save the scene as.
    enum class FileQuestion
    {
        Open,
        SaveAs
    };

    // Messages and questions go to a person in boxes over the window when
    // interactive is set; otherwise the questions take their defaults.
    SceneSession(SceneModel* model, QWidget* window, bool interactive, QObject* parent = nullptr);
    ~SceneSession() override;

    void openSample();
    bool openScene(const QString& path);
    // In the format the scene came in (or was last saved in).
    bool saveScene(const QString& path);
    bool saveScene(const QString& path, SceneDocument::Format format);
    // The file the scene came from or was saved to; empty for the sample.
    QString scenePath() const;
    SceneDocument::Format sceneFormat() const;
    // What Coin reported while the shown scene was read.
    const SceneReadReport& readReport() const;
    bool hasUnsavedChanges() const;
    // Asked before unsaved changes are dropped: true goes on.
    bool mayDiscard();

    // The default asks the person in a message box.
    void setDiscardQuestion(std::function<bool()> question);
    // An empty answer cancels. The default asks the person in a file dialog.
    void setFileQuestion(std::function<QString(FileQuestion question, const QString& startPath)> question);

    // The node and field selected in the scene (a node's row has no field).
    void announceSelection(SoFieldContainer* node, SoField* field);
    // The same selection again, to extensions that started since.
    void announceSelectionAgain();
    // Editors and commands let go of the scene's fields, before it goes.
    void letGoOfScene();

public slots:
    bool save();
    bool saveAs();
    void open();

signals:
    // A new scene is about to take the place of the shown one; the tree's
    // selection, which points into the old one, goes first.
    void replacing();
    // The new scene, before the model shows it.
    void arriving(SoSeparator* root);
    // The new scene is shown.
    void replaced();
    void opened(const QString& path, qint64 milliseconds);
    void saved(const QString& path, qint64 milliseconds);
    // The file or the unsaved state changed.
    void documentChanged();
    void failed(const QString& message);

private:
    void setScene(SoSeparator* root, const QString& path);
    // Save As also asks for the format, starting from *format.
    QString askForFile(FileQuestion question, SceneDocument::Format* format);
    QString startDirectory() const;
    void rememberDirectory(const QString& path);

    SceneModel* m_model;
    QWidget* m_window;
    bool m_interactive;
    QString m_path;
    SceneDocument::Format m_format = SceneDocument::Format::Ascii;
    SceneReadReport m_readReport;
    SoFieldContainer* m_selectedNode = nullptr;
    SoField* m_selectedField = nullptr;
    std::function<bool()> m_discardQuestion;
    std::function<QString(FileQuestion, const QString&)> m_fileQuestion;
};
