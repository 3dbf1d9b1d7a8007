#include "KalHostWindow.h"

#include "HostStatusBar.h"
#include "ProfilesMenu.h"
#include "RecentFilesMenu.h"
#include "SceneFilterBox.h"
#include "SceneModel.h"
#include "ScenePath.h"
#include "SelectionCaption.h"
#include "TreeSelection.h"
#include "TreeSight.h"
#include "ViewCamera.h"
#include "ViewPicker.h"
#include "WindowLayout.h"
#include "WindowScreenshot.h"

#include <KalEditor.h>
#include <KalPlugin.h>
#include <KalServices.h>
#include <KalShell.h>

#include <Inventor/Qt/viewers/SoQtExaminerViewer.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QAction>
#include <QDockWidget>
#include <QFile>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QTextStream>
#include <QTimer>
#include <QTreeView>
#include <QUndoStack>
#include <QUndoView>
#include <QVBoxLayout>

KalHostWindow::KalHostWindow(const Options& options, QObject* parent)
    : QObject(parent)
    , m_options(options)
    , m_window(KalShell::getInstance()->getMainWindow())
    , m_model(new SceneModel(this))
    , m_session(new SceneSession(m_model, m_window, options.interactive, this))
{
    m_window->setObjectName(QStringLiteral("KalHostMainWindow"));
    m_window->setDockOptions(m_window->dockOptions() | QMainWindow::AllowTabbedDocks);
    buildCentre();
    buildDocks();
    m_layout = new WindowLayout(m_window, m_treeDock, m_caption->dock(), m_historyDock, this);
    m_status = new HostStatusBar(m_window, this);
    buildMenus();
    if (m_viewer) {
        m_picker = new ViewPicker(m_viewer, m_tree, m_model, this);
        m_viewCamera = new ViewCamera(m_viewer, this);
    }
    connectSession();
    m_window->installEventFilter(this);
    m_layout->fitToScreen();
    refreshTitle();
}

KalHostWindow::~KalHostWindow()
{
    m_window->removeEventFilter(this);
    // The editors must let go of the scene's fields before it goes.
    m_session->letGoOfScene();
    if (m_viewer)
        m_viewer->setSceneGraph(nullptr);
    delete m_viewer;
    m_viewer = nullptr;
    m_tree->setModel(nullptr);
    m_model->setRoot(nullptr);
    delete m_treeDock;
    delete m_historyDock;
    delete m_caption->dock();
    delete m_centre;
    delete m_status;
    // The main window outlives this object (the shell keeps it).
    qDeleteAll(m_menus);
}

QMainWindow* KalHostWindow::window() const
{
    return m_window;
}

SceneModel* KalHostWindow::sceneModel() const
{
    return m_model;
}

QTreeView* KalHostWindow::tree() const
{
    return m_tree;
}

SoQtExaminerViewer* KalHostWindow::viewer() const
{
    return m_viewer;
}

ViewCamera* KalHostWindow::viewCamera() const
{
    return m_viewCamera;
}

QString KalHostWindow::lastError() const
{
    return m_lastError;
}

void KalHostWindow::openSample()
{
    m_session->openSample();
}

bool KalHostWindow::openScene(const QString& path)
{
    return m_session->openScene(path);
}

bool KalHostWindow::saveScene(const QString& path)
{
    return m_session->saveScene(path);
}

bool KalHostWindow::saveScene(const QString& path, SceneDocument::Format format)
{
    return m_session->saveScene(path, format);
}

SceneDocument::Format KalHostWindow::sceneFormat() const
{
    return m_session->sceneFormat();
}

QString KalHostWindow::scenePath() const
{
    return m_session->scenePath();
}

bool KalHostWindow::hasUnsavedChanges() const
{
    return m_session->hasUnsavedChanges();
}

void KalHostWindow::setDiscardQuestion(std::function<bool()> question)
{
    m_session->setDiscardQuestion(std::move(question));
}

void KalHostWindow::setFileQuestion(std::function<QString(FileQuestion, const QString&)> question)
{
    m_session->setFileQuestion(std::move(question));
}

void KalHostWindow::buildCentre()
{
    m_centre = new QWidget;
    m_centre->setObjectName(QStringLiteral("SceneView"));
    auto* layout = new QVBoxLayout(m_centre);
    layout->setContentsMargins(0, 0, 0, 0);
    if (m_options.view) {
        m_viewer = new SoQtExaminerViewer(m_centre);
        m_viewer->setDecoration(TRUE);
        m_viewer->setBackgroundColor(SbColor(0.16f, 0.18f, 0.22f));
        m_viewNote = new QLabel(m_centre);
        m_viewNote->setObjectName(QStringLiteral("ViewNote"));
        m_viewNote->setWordWrap(true);
        m_viewNote->hide();
        layout->addWidget(m_viewNote);
        layout->addWidget(m_viewer->getWidget());
    } else {
        auto* note = new QLabel(tr("The 3D view is off (no OpenGL display)."), m_centre);
        note->setAlignment(Qt::AlignCenter);
        note->setWordWrap(true);
        layout->addWidget(note);
    }
    m_window->setCentralWidget(m_centre);
}

void KalHostWindow::buildDocks()
{
    m_tree = new QTreeView;
    m_tree->setObjectName(QStringLiteral("SceneTree"));
    m_tree->setModel(m_model);
    m_tree->setUniformRowHeights(true);
    m_tree->setAlternatingRowColors(true);
    m_tree->setSelectionMode(QAbstractItemView::SingleSelection);
    m_tree->header()->setStretchLastSection(true);
    // Values are cut in the middle, where a long list or path says least;
    // the tooltip holds the whole value.
    m_tree->setTextElideMode(Qt::ElideMiddle);
    m_tree->setColumnWidth(SceneModel::NameColumn, 200);
    m_tree->setColumnWidth(SceneModel::TypeColumn, 130);
    // Names and types are never cut; see TreeSight.
    new TreeSight(m_tree, {SceneModel::NameColumn, SceneModel::TypeColumn});
    connect(m_tree->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &KalHostWindow::currentRowChanged);
    m_treeDock = new QDockWidget(tr("Scene"));
    m_treeDock->setObjectName(QStringLiteral("SceneTreeDock"));
    m_treeDock->setWidget(new SceneFilterBox(m_tree, m_model));

    m_history = new QUndoView(KalServices::getInstance()->undoStack());
    m_history->setObjectName(QStringLiteral("HistoryView"));
    m_history->setEmptyLabel(tr("<opened scene>"));
    m_historyDock = new QDockWidget(tr("History"));
    m_historyDock->setObjectName(QStringLiteral("HistoryDock"));
    m_historyDock->setWidget(m_history);

    // One column beside the 3D view, as an inspector has it: the tree on
    // top, the caption under it and the plug-ins' editor docks under that.
    // The history goes to the strip below the view, where the console joins
    // it.
    m_caption = new SelectionCaption;
    m_window->addDockWidget(Qt::RightDockWidgetArea, m_treeDock);
    m_window->addDockWidget(Qt::RightDockWidgetArea, m_caption->dock());
    m_window->addDockWidget(Qt::BottomDockWidgetArea, m_historyDock);
}

void KalHostWindow::buildMenus()
{
    QMenuBar* bar = m_window->menuBar();
    // The host's own menus go before the Extensions menu the shell keeps.
    QAction* before = bar->actions().isEmpty() ? nullptr : bar->actions().first();

    auto* file = new QMenu(tr("&File"), bar);
    file->setObjectName(QStringLiteral("FileMenu"));
    QAction* open = file->addAction(tr("&Open\u2026"), m_session, &SceneSession::open, QKeySequence::Open);
    open->setObjectName(QStringLiteral("OpenAction"));
    m_recent = new RecentFilesMenu(file->addMenu(tr("Open &Recent")), this);
    connect(m_recent, &RecentFilesMenu::chosen, this, [this](const QString& path) {
        if (m_session->mayDiscard())
            m_session->openScene(path);
    });
    file->addSeparator();
    QAction* save = file->addAction(tr("&Save"), m_session, &SceneSession::save, QKeySequence::Save);
    save->setObjectName(QStringLiteral("SaveAction"));
    QAction* saveAs =
        file->addAction(tr("Save &As\u2026"), m_session, &SceneSession::saveAs, QKeySequence::SaveAs);
    saveAs->setObjectName(QStringLiteral("SaveAsAction"));
    file->addSeparator();
    QAction* quit = file->addAction(tr("&Quit"), m_window, &QWidget::close, QKeySequence::Quit);
    quit->setObjectName(QStringLiteral("QuitAction"));
    bar->insertMenu(before, file);

    auto* edit = new QMenu(tr("&Edit"), bar);
    edit->setObjectName(QStringLiteral("EditMenu"));
    QUndoStack* stack = KalServices::getInstance()->undoStack();
    QAction* undo = stack->createUndoAction(edit, tr("&Undo"));
    undo->setObjectName(QStringLiteral("UndoAction"));
    undo->setShortcut(QKeySequence::Undo);
    QAction* redo = stack->createRedoAction(edit, tr("&Redo"));
    redo->setObjectName(QStringLiteral("RedoAction"));
    redo->setShortcut(QKeySequence::Redo);
    edit->addAction(undo);
    edit->addAction(redo);
    bar->insertMenu(before, edit);

    auto* profiles = new QMenu(tr("&Profiles"), bar);
    m_profiles = new ProfilesMenu(profiles, this);
    bar->insertMenu(before, profiles);

    auto* view = new QMenu(tr("&View"), bar);
    view->addAction(m_treeDock->toggleViewAction());
    view->addAction(m_historyDock->toggleViewAction());
    view->addAction(m_caption->dock()->toggleViewAction());
    view->addSeparator();
    QAction* reset = view->addAction(tr("&Reset Layout"), m_layout, &WindowLayout::reset);
    reset->setObjectName(QStringLiteral("ResetLayoutAction"));
    view->setObjectName(QStringLiteral("ViewMenu"));
    bar->insertMenu(before, view);
    m_menus = {file, edit, profiles, view};
}

void KalHostWindow::connectSession()
{
    connect(m_session, &SceneSession::replacing, this,
            [this] { m_tree->selectionModel()->clearSelection(); });
    connect(m_session, &SceneSession::arriving, this, [this](SoSeparator* root) {
        if (!m_viewer)
            return;
        m_viewer->setSceneGraph(m_viewCamera->frame(m_picker->frame(root), root));
        m_picker->setSceneDrawn(m_viewCamera->leftOutReason().isEmpty());
        m_viewNote->setText(m_viewCamera->leftOutReason());
        m_viewNote->setVisible(!m_viewNote->text().isEmpty());
    });
    connect(m_session, &SceneSession::replaced, this, &KalHostWindow::sceneShown);
    connect(m_session, &SceneSession::opened, this, [this](const QString& path, qint64 milliseconds) {
        m_status->showOpened(QFileInfo(path).fileName(), m_model->root(), milliseconds,
                             m_session->readReport());
        m_recent->add(path);
    });
    connect(m_session, &SceneSession::saved, this, [this](const QString& path, qint64 milliseconds) {
        m_status->showSaved(QFileInfo(path).fileName(), m_model->root(), milliseconds);
        m_recent->add(path);
    });
    connect(m_session, &SceneSession::documentChanged, this, &KalHostWindow::refreshTitle);
    connect(m_session, &SceneSession::failed, this, &KalHostWindow::fail);
    connect(m_profiles, &ProfilesMenu::switched, m_session, &SceneSession::announceSelectionAgain);
}

void KalHostWindow::sceneShown()
{
    m_tree->expand(m_model->index(0, 0));
    if (m_viewer)
        m_viewCamera->reset();
    refreshTitle();
    emit sceneReplaced();
}

void KalHostWindow::refreshProfilesMenu()
{
    m_profiles->refresh();
}

void KalHostWindow::profilesChanged()
{
    m_profiles->restartActive();
}

void KalHostWindow::fail(const QString& message)
{
    m_lastError = message;
    m_status->showFailure(message);
    QTextStream(stderr) << "kalhost: " << message << '\n';
    if (!m_options.interactive)
        return;
    auto* box = new QMessageBox(QMessageBox::Warning, tr("Kalibra"), message, QMessageBox::Ok, m_window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

bool KalHostWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_window && event->type() == QEvent::Show && m_viewer) {
        // The camera frames the scene once the view has its real shape.
        QTimer::singleShot(0, this, [this] {
            if (m_viewer)
                m_viewCamera->reset();
        });
        m_viewDrawn = false;
    }
    if (watched == m_window && event->type() == QEvent::Paint && m_viewer && !m_viewDrawn) {
        // SoQt's GL area is exposed while it still has the size it was made
        // with, and until something draws it straight away (a drag, a
        // resize) its own redraws leave it black on an X server without a
        // compositor. The window's first paint comes once the window is laid
        // out at its real size: the view draws its first frame right after.
        m_viewDrawn = true;
        QTimer::singleShot(0, this, [this] {
            if (m_viewer && m_viewer->getGLWidget()->isVisible())
                m_viewer->render();
        });
    }
    if (watched == m_window && event->type() == QEvent::Close) {
        if (!m_session->mayDiscard()) {
            event->ignore();
            return true;
        }
        m_layout->save();
    }
    return QObject::eventFilter(watched, event);
}

void KalHostWindow::currentRowChanged()
{
    const QModelIndex row = TreeSelection::selectedRow(m_tree->selectionModel());
    SoField* field = m_model->field(row);
    m_caption->showRow(row, field != nullptr);
    m_status->showSelection(row.isValid() ? m_caption->plainText() : QString());
    m_session->announceSelection(m_model->container(row), field);
}

void KalHostWindow::arrangeDocks()
{
    m_layout->arrange();
}

bool KalHostWindow::restoreLayout()
{
    return m_layout->restore();
}

void KalHostWindow::pluginLoaded(KalPlugin* plugin, const QString& error)
{
    m_status->showPlugin(plugin, error);
    if (!plugin)
        return;
    for (KalExtension* extension : plugin->getExtensions()) {
        auto* editor = qobject_cast<KalEditor*>(extension);
        if (editor && editor->getWidget())
            m_layout->noteEditorWidth(editor->getWidget()->minimumSizeHint().width());
    }
}

bool KalHostWindow::select(const QString& path)
{
    QString error;
    const QModelIndex row = ScenePath::find(*m_model, path, &error);
    if (!row.isValid()) {
        fail(error);
        return false;
    }
    m_tree->scrollTo(row);
    TreeSelection::selectRow(m_tree->selectionModel(), row);
    return true;
}

bool KalHostWindow::writeScreenshot(const QString& path)
{
    QString why;
    QFile file(path);
    if (QFileInfo(path).isDir())
        why = tr("it is a folder");
    else if (!file.open(QIODevice::WriteOnly))
        why = file.errorString();
    else if (!WindowScreenshot::take(m_window, m_viewer).save(&file, "PNG"))
        why = tr("the picture could not be made");
    if (why.isEmpty())
        return true;
    fail(tr("Cannot write the screenshot \"%1\": %2.").arg(path, why));
    return false;
}

void KalHostWindow::refreshTitle()
{
    const QString path = m_session->scenePath();
    const QString name = path.isEmpty() ? tr("Sample scene") : QFileInfo(path).fileName();
    m_window->setWindowTitle(
        tr("%1%2 \u2014 Kalibra")
            .arg(name, m_session->hasUnsavedChanges() ? QStringLiteral("*") : QString()));
}
