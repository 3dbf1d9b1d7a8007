#include "KalHostWindow.h"

#include "CommandNamer.h"
#include "HostStatusBar.h"
#include "RecentFilesMenu.h"
#include "SceneDocument.h"
#include "SceneFilterBox.h"
#include "SceneModel.h"
#include "ScenePath.h"
#include "SelectionCaption.h"
#include "TreeSelection.h"
#include "ViewPicker.h"
#include "WindowLayout.h"

#include <KalEditor.h>
#include <KalPlugin.h>
#include <KalPluginsManager.h>
#include <KalProfile.h>
#include <KalServices.h>
#include <KalShell.h>

#include <Inventor/Qt/viewers/SoQtExaminerViewer.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QList>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>
#include <QTextStream>
#include <QTimer>
#include <QTreeView>
#include <QUndoStack>
#include <QUndoView>
#include <QVBoxLayout>
#include <QWindow>

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
} // namespace

KalHostWindow::KalHostWindow(const Options& options, QObject* parent)
    : QObject(parent)
    , m_options(options)
    , m_window(KalShell::getInstance()->getMainWindow())
    , m_model(new SceneModel(this))
    , m_namer(new CommandNamer(KalServices::getInstance()->undoStack(), this))
{
    initHostResources();
    m_window->setObjectName(QStringLiteral("KalHostMainWindow"));
    m_window->setDockOptions(m_window->dockOptions() | QMainWindow::AllowTabbedDocks);
    buildCentre();
    buildDocks();
    m_layout = new WindowLayout(m_window, {m_treeDock, m_historyDock}, m_caption->dock(), this);
    m_status = new HostStatusBar(m_window, this);
    buildMenus();
    if (m_viewer)
        m_picker = new ViewPicker(m_viewer, m_tree, m_model, this);
    connect(m_model, &SceneModel::fieldChanged, this, &KalHostWindow::fieldChanged);
    connect(m_model, &SceneModel::fieldChanged, m_namer, &CommandNamer::noteChange);
    connect(KalServices::getInstance(), &KalServices::selectedNodeChanged, m_namer,
            &CommandNamer::noteSelection);
    m_window->installEventFilter(this);
    m_layout->fitToScreen();
    refreshTitle();
}

KalHostWindow::~KalHostWindow()
{
    m_window->removeEventFilter(this);
    // The editors must let go of the scene's fields before it goes.
    emit KalServices::getInstance()->selectedFieldChanged(nullptr);
    emit KalServices::getInstance()->selectedNodeChanged(nullptr);
    KalServices::getInstance()->clearHistory();
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

QString KalHostWindow::lastError() const
{
    return m_lastError;
}

QString KalHostWindow::scenePath() const
{
    return m_path;
}

bool KalHostWindow::hasUnsavedChanges() const
{
    return m_changedSinceSave;
}

void KalHostWindow::setDiscardQuestion(std::function<bool()> question)
{
    m_discardQuestion = std::move(question);
}

void KalHostWindow::setFileQuestion(std::function<QString(FileQuestion, const QString&)> question)
{
    m_fileQuestion = std::move(question);
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
    connect(m_tree->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &KalHostWindow::currentRowChanged);
    m_treeDock = new QDockWidget(tr("Scene"));
    m_treeDock->setObjectName(QStringLiteral("SceneTreeDock"));
    m_treeDock->setWidget(new SceneFilterBox(m_tree, m_model));
    m_window->addDockWidget(Qt::LeftDockWidgetArea, m_treeDock);

    m_history = new QUndoView(KalServices::getInstance()->undoStack());
    m_history->setObjectName(QStringLiteral("HistoryView"));
    m_history->setEmptyLabel(tr("<opened scene>"));
    m_historyDock = new QDockWidget(tr("History"));
    m_historyDock->setObjectName(QStringLiteral("HistoryDock"));
    m_historyDock->setWidget(m_history);
    m_window->addDockWidget(Qt::LeftDockWidgetArea, m_historyDock);
    // Room for names, types and a glance at the values.
    m_window->resizeDocks({m_treeDock}, {WindowLayout::kLeftWidth}, Qt::Horizontal);
    m_window->resizeDocks({m_treeDock, m_historyDock}, {560, 160}, Qt::Vertical);

    // The right column opens with the caption, before the plug-ins put
    // their editor docks under it.
    m_caption = new SelectionCaption;
    m_window->addDockWidget(Qt::RightDockWidgetArea, m_caption->dock());
}

void KalHostWindow::buildMenus()
{
    QMenuBar* bar = m_window->menuBar();
    // The host's own menus go before the Extensions menu the shell keeps.
    QAction* before = bar->actions().isEmpty() ? nullptr : bar->actions().first();

    auto* file = new QMenu(tr("&File"), bar);
    file->setObjectName(QStringLiteral("FileMenu"));
    QAction* open = file->addAction(tr("&Open\u2026"), this, &KalHostWindow::open, QKeySequence::Open);
    open->setObjectName(QStringLiteral("OpenAction"));
    m_recent = new RecentFilesMenu(file->addMenu(tr("Open &Recent")), this);
    connect(m_recent, &RecentFilesMenu::chosen, this, [this](const QString& path) {
        if (mayDiscard())
            openScene(path);
    });
    file->addSeparator();
    QAction* save = file->addAction(tr("&Save"), this, &KalHostWindow::save, QKeySequence::Save);
    save->setObjectName(QStringLiteral("SaveAction"));
    QAction* saveAs =
        file->addAction(tr("Save &As\u2026"), this, &KalHostWindow::saveAs, QKeySequence::SaveAs);
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

    m_profilesMenu = new QMenu(tr("&Profiles"), bar);
    m_profilesMenu->setObjectName(QStringLiteral("ProfilesMenu"));
    // The plug-in's selector may have switched the profile since.
    connect(m_profilesMenu, &QMenu::aboutToShow, this, &KalHostWindow::refreshProfilesMenu);
    bar->insertMenu(before, m_profilesMenu);

    auto* view = new QMenu(tr("&View"), bar);
    view->addAction(m_treeDock->toggleViewAction());
    view->addAction(m_historyDock->toggleViewAction());
    view->addAction(m_caption->dock()->toggleViewAction());
    view->addSeparator();
    QAction* reset = view->addAction(tr("&Reset Layout"), this, &KalHostWindow::resetLayout);
    reset->setObjectName(QStringLiteral("ResetLayoutAction"));
    view->setObjectName(QStringLiteral("ViewMenu"));
    bar->insertMenu(before, view);
    m_menus = {file, edit, m_profilesMenu, view};
}

void KalHostWindow::refreshProfilesMenu()
{
    qDeleteAll(m_profilesMenu->findChildren<QActionGroup*>(QString(), Qt::FindDirectChildrenOnly));
    m_profilesMenu->clear();
    auto* group = new QActionGroup(m_profilesMenu);
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    for (KalProfile* profile : manager->getProfilesList()) {
        QAction* action = m_profilesMenu->addAction(QString::fromUtf8(profile->getName().getString()));
        action->setCheckable(true);
        action->setChecked(profile == manager->getActiveProfile());
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, profile] { switchProfile(profile); });
    }
}

void KalHostWindow::switchProfile(KalProfile* profile)
{
    // Extensions both profiles enable would stay running and keep showing
    // the old profile; every extension starts again under the new one.
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    if (profile == manager->getActiveProfile())
        return;
    manager->setActiveProfile(nullptr);
    manager->setActiveProfile(profile);
    refreshProfilesMenu();
    KalServices* services = KalServices::getInstance();
    emit services->selectedNodeChanged(m_selectedNode);
    emit services->selectedFieldChanged(m_selectedField);
}

void KalHostWindow::profilesChanged()
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    KalProfile* active = manager->getActiveProfile();
    if (active) {
        manager->setActiveProfile(nullptr);
        switchProfile(active);
    }
    refreshProfilesMenu();
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

void KalHostWindow::openSample()
{
    QFile sample(QStringLiteral(":/scenes/sample.iv"));
    QString error;
    SoSeparator* root =
        sample.open(QIODevice::ReadOnly)
            ? SceneDocument::readBuffer(sample.readAll(), QLatin1String(kSampleOrigin), &error)
            : nullptr;
    if (!root) {
        fail(error.isEmpty() ? tr("The built-in sample scene is missing.") : error);
        return;
    }
    setScene(root, QString());
}

bool KalHostWindow::openScene(const QString& path)
{
    QString error;
    QElapsedTimer timer;
    timer.start();
    SoSeparator* root = SceneDocument::read(path, &error);
    if (!root) {
        // The scene that was open stays open.
        fail(error);
        return false;
    }
    setScene(root, QFileInfo(path).absoluteFilePath());
    m_status->showOpened(QFileInfo(path).fileName(), root, timer.elapsed());
    m_recent->add(path);
    rememberDirectory(path);
    return true;
}

void KalHostWindow::setScene(SoSeparator* root, const QString& path)
{
    root->ref();
    // Commands hold raw field pointers and editors watch fields: both let
    // go of the old scene before it can be freed.
    m_tree->selectionModel()->clearSelection();
    emit KalServices::getInstance()->selectedFieldChanged(nullptr);
    emit KalServices::getInstance()->selectedNodeChanged(nullptr);
    m_selectedField = nullptr;
    m_selectedNode = nullptr;
    KalServices::getInstance()->clearHistory();
    m_namer->reset();
    if (m_viewer)
        m_viewer->setSceneGraph(m_picker->frame(root));
    m_model->setRoot(root);
    root->unrefNoDelete();
    m_tree->expand(m_model->index(0, 0));
    m_path = path;
    m_changedSinceSave = false;
    KalServices::getInstance()->undoStack()->setClean();
    if (m_viewer)
        m_viewer->viewAll();
    refreshTitle();
    emit sceneReplaced();
}

bool KalHostWindow::saveScene(const QString& path)
{
    QString error;
    QElapsedTimer timer;
    timer.start();
    if (!SceneDocument::write(static_cast<SoSeparator*>(m_model->root()), path, &error)) {
        fail(error);
        return false;
    }
    m_status->showSaved(QFileInfo(path).fileName(), m_model->root(), timer.elapsed());
    rememberDirectory(path);
    m_path = QFileInfo(path).absoluteFilePath();
    m_changedSinceSave = false;
    KalServices::getInstance()->undoStack()->setClean();
    m_recent->add(path);
    refreshTitle();
    return true;
}

bool KalHostWindow::save()
{
    return m_path.isEmpty() ? saveAs() : saveScene(m_path);
}

bool KalHostWindow::saveAs()
{
    const QString path = askForFile(FileQuestion::SaveAs);
    return !path.isEmpty() && saveScene(path);
}

void KalHostWindow::open()
{
    if (!mayDiscard())
        return;
    const QString path = askForFile(FileQuestion::Open);
    if (!path.isEmpty())
        openScene(path);
}

QString KalHostWindow::askForFile(FileQuestion question)
{
    const QString start = m_path.isEmpty() ? startDirectory() : m_path;
    if (m_fileQuestion)
        return m_fileQuestion(question, start);
    if (question == FileQuestion::Open)
        return QFileDialog::getOpenFileName(m_window, tr("Open Scene"), start, sceneFilter());
    return QFileDialog::getSaveFileName(m_window, tr("Save Scene"), start, sceneFilter());
}

QString KalHostWindow::startDirectory() const
{
    const QString remembered = QSettings().value(QLatin1String(kDirectoryKey)).toString();
    return !remembered.isEmpty() && QFileInfo(remembered).isDir() ? remembered : QDir::homePath();
}

void KalHostWindow::rememberDirectory(const QString& path)
{
    QSettings().setValue(QLatin1String(kDirectoryKey), QFileInfo(path).absolutePath());
}

bool KalHostWindow::mayDiscard()
{
    if (!m_changedSinceSave)
        return true;
    if (m_discardQuestion)
        return m_discardQuestion();
    if (!m_options.interactive)
        return true;
    const auto answer = QMessageBox::question(
        m_window, tr("Kalibra"), tr("The scene has unsaved changes. Save them first?"),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Save)
        return save();
    return answer == QMessageBox::Discard;
}

bool KalHostWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_window && event->type() == QEvent::Show && m_viewer) {
        // The camera frames the scene once the view has its real shape.
        QTimer::singleShot(0, this, [this] {
            if (m_viewer)
                m_viewer->viewAll();
        });
    }
    if (watched == m_window && event->type() == QEvent::Close) {
        if (!mayDiscard()) {
            event->ignore();
            return true;
        }
        saveLayout();
    }
    return QObject::eventFilter(watched, event);
}

void KalHostWindow::currentRowChanged()
{
    const QModelIndex row = TreeSelection::selectedRow(m_tree->selectionModel());
    SoField* field = m_model->field(row);
    SoFieldContainer* node = m_model->container(row);
    m_caption->showRow(row, field != nullptr);
    m_status->showSelection(row.isValid() ? m_caption->plainText() : QString());
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

void KalHostWindow::fieldChanged(SoField*)
{
    if (!m_changedSinceSave) {
        m_changedSinceSave = true;
        refreshTitle();
    }
}

void KalHostWindow::arrangeDocks()
{
    m_layout->arrange();
}

bool KalHostWindow::restoreLayout()
{
    return m_layout->restore();
}

void KalHostWindow::saveLayout()
{
    m_layout->save();
}

void KalHostWindow::resetLayout()
{
    m_layout->reset();
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
    // The screen's own pixels where there is one, so that the 3D view's
    // OpenGL drawing is in the picture; the widgets' rendering otherwise.
    QPixmap picture;
    if (m_viewer)
        m_viewer->render();
    QScreen* screen = m_window->screen();
    if (m_viewer && screen && m_window->windowHandle() &&
        QGuiApplication::platformName() == QLatin1String("xcb"))
        picture = screen->grabWindow(m_window->winId());
    if (picture.isNull())
        picture = m_window->grab();
    if (picture.isNull() || !picture.save(path, "PNG")) {
        fail(tr("Cannot write the screenshot \"%1\".").arg(path));
        return false;
    }
    return true;
}

void KalHostWindow::refreshTitle()
{
    const QString name = m_path.isEmpty() ? tr("Sample scene") : QFileInfo(m_path).fileName();
    m_window->setWindowTitle(
        tr("%1%2 \u2014 Kalibra").arg(name, m_changedSinceSave ? QStringLiteral("*") : QString()));
}
