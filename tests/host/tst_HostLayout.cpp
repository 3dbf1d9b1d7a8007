// The shape of kalhost's window with the real plug-in: a 3D view that keeps
// its size whatever is selected, a window that fits its screen and comes
// back as it was left, editors that sit together at the top of their dock,
// and a console whose buttons are all in sight. The room each gets in the
// column is tst_HostColumnRoom's; what the caption and the status bar say,
// tst_HostStatusBar's.
#include "HostWindowTesting.h"

#include <KalHostWindow.h>
#include <KalPluginsManager.h>
#include <SceneModel.h>
#include <WindowLayout.h>

#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoMField.h>

#include <QAction>
#include <QDockWidget>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSettings>
#include <QTemporaryDir>
#include <QTreeView>
#include <QtTest>

#include <algorithm>
#include <memory>

class tst_HostLayout : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void viewKeepsItsShapeWhateverIsSelected();
    void viewTakesAtLeastHalfTheWindow();
    void namesAndTypesAreNeverCut();
    void selectedRowStaysInSight();
    void windowFitsItsScreen();
    void layoutIsSavedAndRestored();
    void resetLayoutReturnsToTheDefault();
    void editorsSitTogetherAtTheTopOfTheirDock();
    void componentCaptionsAreNotCut();
    void consoleButtonsAreAllInSight();

private:
    void settle();
    QDockWidget* dock(const char* name) const;
    QWidget* centre() const;
    void clickRow(const QModelIndex& index);
    // Every field row of the scene, the tree fully expanded.
    QList<QPersistentModelIndex> fieldRows();

    std::unique_ptr<KalHostWindow> m_host;
    QTemporaryDir m_dir;
};

void tst_HostLayout::initTestCase()
{
    HostWindowTesting::setUpScene();
    QVERIFY(m_dir.isValid());
}

void tst_HostLayout::init()
{
    QSettings().clear();
    m_host = HostWindowTesting::sampleWithPlugin(QGuiApplication::platformName() == QLatin1String("xcb"));
    QVERIFY(m_host);
    settle();
}

void tst_HostLayout::settle()
{
    // Docks shown and sized after the window is first exposed lay out over
    // several turns of the event loop.
    for (int turn = 0; turn < 5; ++turn) {
        QCoreApplication::processEvents();
        m_host->window()->layout()->activate();
    }
}

void tst_HostLayout::cleanup()
{
    m_host.reset();
    KalPluginsManager::getInstance()->unloadAll();
    QSettings().clear();
}

QDockWidget* tst_HostLayout::dock(const char* name) const
{
    return m_host->window()->findChild<QDockWidget*>(QLatin1String(name));
}

QWidget* tst_HostLayout::centre() const
{
    return m_host->window()->centralWidget();
}

void tst_HostLayout::clickRow(const QModelIndex& index)
{
    QTreeView* tree = m_host->tree();
    tree->scrollTo(index);
    const QRect rect = tree->visualRect(index);
    QVERIFY(rect.isValid());
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(qMin(rect.center().x(), tree->viewport()->width() / 2), rect.center().y()));
}

QList<QPersistentModelIndex> tst_HostLayout::fieldRows()
{
    SceneModel* model = m_host->sceneModel();
    m_host->tree()->expandAll();
    QList<QPersistentModelIndex> rows;
    QList<QModelIndex> pending{QModelIndex()};
    while (!pending.isEmpty()) {
        const QModelIndex parent = pending.takeFirst();
        for (int row = 0; row < model->rowCount(parent); ++row) {
            const QModelIndex index = model->index(row, 0, parent);
            if (model->field(index))
                rows << index;
            else
                pending << index;
        }
    }
    return rows;
}

void tst_HostLayout::viewKeepsItsShapeWhateverIsSelected()
{
    // The right column holds the widest editor on screens from 1000 px wide
    // up; narrower ones give it half their width.
    if (m_host->window()->width() < 1000)
        QSKIP("The window is narrower than 1000 px; tst_HostLayout_xvfb runs this on 1024x768 and 1400x900.");
    QDockWidget* editorDock = dock("KalFieldEditorDock");
    QVERIFY(editorDock);
    QVERIFY(editorDock->isHidden());
    const QRect view = centre()->geometry();
    QVERIFY(view.width() > 100);

    const QList<QPersistentModelIndex> rows = fieldRows();
    QVERIFY(rows.size() > 80);
    int shown = 0;
    for (const QPersistentModelIndex& row : rows) {
        clickRow(row);
        settle();
        QCOMPARE(m_host->tree()->currentIndex().siblingAtColumn(0), QModelIndex(row));
        if (!editorDock->isHidden())
            ++shown;
        QVERIFY2(centre()->geometry() == view, qPrintable(row.data().toString()));

        // A node's row hides the field editor again.
        clickRow(row.parent());
        settle();
        QVERIFY(editorDock->isHidden());
        QVERIFY2(centre()->geometry() == view, qPrintable(row.parent().data().toString()));
    }
    QVERIFY(shown > 80);
}

void tst_HostLayout::viewTakesAtLeastHalfTheWindow()
{
    // Narrower windows give the column the widest editor's width, which
    // may be more than half of theirs.
    const int window = m_host->window()->width();
    if (window < 1000)
        QSKIP("The window is narrower than 1000 px; tst_HostLayout_*_xvfb runs this on 1024x768 and up.");
    // The widest editor of the plug-in shown, then none.
    for (const char* path : {"Sampler.resolution", "Sampler.palette", "Sampler"}) {
        QVERIFY2(m_host->select(QLatin1String(path)), path);
        settle();
        QVERIFY2(2 * centre()->width() >= window,
                 qPrintable(QStringLiteral("%1: a %2 px view in a %3 px window")
                                .arg(QLatin1String(path))
                                .arg(centre()->width())
                                .arg(window)));
    }
    // The tree and the editors share the one column beside the view.
    QWidget* tree = dock("SceneTreeDock");
    QWidget* editor = dock("KalFieldEditorDock");
    QVERIFY(m_host->select(QStringLiteral("Sampler.resolution")));
    settle();
    QVERIFY(!editor->isHidden());
    QCOMPARE(tree->x(), editor->x());
    QVERIFY(tree->x() >= centre()->geometry().right());
}

void tst_HostLayout::namesAndTypesAreNeverCut()
{
    QTreeView* tree = m_host->tree();
    const QList<QPersistentModelIndex> rows = fieldRows();
    QVERIFY(!rows.isEmpty());
    // The longest names of the sample sit deep in the tree; each screenful
    // of rows is looked at as the person scrolls to it.
    const int margin = 2 * (tree->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, tree) + 1);
    int checked = 0;
    for (const QPersistentModelIndex& row : rows) {
        tree->scrollTo(row);
        QCoreApplication::processEvents();
        for (int column : {int(SceneModel::NameColumn), int(SceneModel::TypeColumn)}) {
            for (const QModelIndex index : {QModelIndex(row).siblingAtColumn(column),
                                            QModelIndex(row).parent().siblingAtColumn(column)}) {
                const QString text = index.data().toString();
                // Rows out of sight are not drawn, nor measured.
                if (text.isEmpty() || !tree->viewport()->rect().intersects(tree->visualRect(index)))
                    continue;
                const QVariant font = index.data(Qt::FontRole);
                const QFontMetrics metrics(font.isValid() ? font.value<QFont>() : tree->font());
                // The delegate cuts what does not fit between its margins.
                const int room = tree->visualRect(index).width() - margin;
                QVERIFY2(metrics.elidedText(text, Qt::ElideMiddle, room) == text,
                         qPrintable(QStringLiteral("\"%1\" is cut to \"%2\" in %3 px")
                                        .arg(text, metrics.elidedText(text, Qt::ElideMiddle, room))
                                        .arg(room)));
                ++checked;
            }
        }
    }
    QVERIFY(checked > 100);
}

void tst_HostLayout::selectedRowStaysInSight()
{
    QTreeView* tree = m_host->tree();
    tree->expandAll();
    settle();
    // The last rows of the scene, each the editor of a list or a single
    // value under the tree, then a node's row hiding the editor again.
    const QList<QPersistentModelIndex> rows = fieldRows();
    QVERIFY(rows.size() > 10);
    for (int i = rows.size() - 10; i < rows.size(); ++i) {
        const QPersistentModelIndex row = rows.at(i);
        for (const QModelIndex index : {QModelIndex(row), row.parent()}) {
            tree->setCurrentIndex(index);
            settle();
            const QRect seen = tree->visualRect(tree->currentIndex());
            QVERIFY2(tree->viewport()->rect().contains(seen),
                     qPrintable(QStringLiteral("%1 at %2..%3 in a %4 px tree")
                                    .arg(index.data().toString())
                                    .arg(seen.top())
                                    .arg(seen.bottom())
                                    .arg(tree->viewport()->height())));
        }
    }
    // The row at the bottom of the tree, and the tree made shorter, as the
    // person drags the dock's edge or a taller editor comes.
    // Scrolled to its end, a tall tree's last row may end above its edge.
    QModelIndex bottom;
    for (int y = tree->viewport()->height() - 4; y > 0 && !bottom.isValid(); y -= 4)
        bottom = tree->indexAt(QPoint(4, y));
    QVERIFY(bottom.isValid());
    tree->setCurrentIndex(bottom);
    settle();
    QDockWidget* treeDock = dock("SceneTreeDock");
    m_host->window()->resizeDocks({treeDock}, {treeDock->height() - 120}, Qt::Vertical);
    settle();
    QVERIFY(tree->viewport()->rect().contains(tree->visualRect(tree->currentIndex())));
}

void tst_HostLayout::windowFitsItsScreen()
{
    QScreen* screen = m_host->window()->screen();
    QVERIFY(screen);
    const QRect available = screen->availableGeometry();
    QVERIFY2(available.contains(m_host->window()->frameGeometry()),
             qPrintable(QStringLiteral("%1x%2 on %3x%4")
                            .arg(m_host->window()->frameGeometry().width())
                            .arg(m_host->window()->frameGeometry().height())
                            .arg(available.width())
                            .arg(available.height())));
    // Wide enough screens get the full preferred size, and larger ones a
    // share of their area, the 3D view taking what the window gained.
    const int share = WindowLayout::kScreenSharePercent;
    if (available.width() >= 1400 && available.height() >= 900) {
        const QSize expected(std::max(1280, available.width() * share / 100),
                             std::max(800, available.height() * share / 100));
        QCOMPARE(m_host->window()->size(), expected);
        QVERIFY2(centre()->width() >= expected.width() - 1280 + 300,
                 qPrintable(QString::number(centre()->width())));
    }
}

void tst_HostLayout::layoutIsSavedAndRestored()
{
    QDockWidget* history = dock("HistoryDock");
    QDockWidget* editorDock = dock("KalFieldEditorDock");
    QVERIFY(history && editorDock);

    // Left with the history closed and a field's editor open.
    history->hide();
    QVERIFY(m_host->select(QStringLiteral("Sampler.opacity")));
    QVERIFY(!editorDock->isHidden());
    QVERIFY(m_host->window()->close());
    QVERIFY(QSettings().contains(QStringLiteral("window/state")));
    QVERIFY(QSettings().contains(QStringLiteral("window/geometry")));

    // The next run comes back without the history, and without an empty
    // field editor: that dock shows when the plug-in has something to show.
    m_host.reset();
    KalPluginsManager::getInstance()->unloadAll();
    m_host = HostWindowTesting::sampleWithPlugin(false);
    QVERIFY(m_host);
    history = dock("HistoryDock");
    editorDock = dock("KalFieldEditorDock");
    QVERIFY(!history->isHidden());
    QVERIFY(m_host->restoreLayout());
    QVERIFY(history->isHidden());
    QVERIFY(editorDock->isHidden());
    QVERIFY(!dock("KalConsoleDock")->isHidden());

    // Nothing saved: nothing restored.
    QSettings().clear();
    QVERIFY(!m_host->restoreLayout());
}

void tst_HostLayout::resetLayoutReturnsToTheDefault()
{
    QAction* reset = m_host->window()->findChild<QAction*>(QStringLiteral("ResetLayoutAction"));
    QVERIFY(reset);
    // The main window is the shell's and has held earlier windows of this
    // test; the default is what a reset gives, every time.
    reset->trigger();
    settle();
    const QRect view = centre()->geometry();
    dock("SceneTreeDock")->hide();
    dock("SelectionDock")->hide();
    settle();
    QVERIFY(centre()->geometry() != view);

    QMenu* viewMenu = m_host->window()->findChild<QMenu*>(QStringLiteral("ViewMenu"));
    QVERIFY(viewMenu);
    QVERIFY(viewMenu->actions().contains(reset));
    reset->trigger();
    settle();
    QVERIFY(!dock("SceneTreeDock")->isHidden());
    QVERIFY(!dock("SelectionDock")->isHidden());
    QCOMPARE(centre()->geometry(), view);
}

void tst_HostLayout::editorsSitTogetherAtTheTopOfTheirDock()
{
    // A dock with room to spare below the editor's rows. The shell's main
    // window outlives each test's host, and a later host's window gives the
    // height it gains to the console; the console is put back to its
    // default height so that the editor's dock has the room.
    m_host->window()->resize(1100, 900);
    settle();
    m_host->window()->resizeDocks({dock("KalConsoleDock")}, {WindowLayout::kConsoleHeight}, Qt::Vertical);
    // The tree above the editors takes what the editors leave; without it
    // the editor's dock has the column's height.
    dock("SceneTreeDock")->hide();
    settle();
    QDockWidget* editorDock = dock("KalFieldEditorDock");
    int checked = 0;
    for (const QPersistentModelIndex& row : fieldRows()) {
        SoField* field = m_host->sceneModel()->field(row);
        // Lists fill their dock with their table; the rest stays compact.
        if (field->isOfType(SoMField::getClassTypeId()))
            continue;
        m_host->tree()->selectionModel()->setCurrentIndex(row, QItemSelectionModel::ClearAndSelect |
                                                                   QItemSelectionModel::Rows);
        settle();
        if (editorDock->isHidden())
            continue;
        QWidget* editor = editorDock->widget();
        QVERIFY(editor);
        const QString name = editor->objectName();
        QVERIFY2(editor->height() > 2 * editor->sizeHint().height(), qPrintable(name));
        int bottom = 0;
        for (QWidget* child : editor->findChildren<QWidget*>()) {
            if (child->isVisible() && child->isWindow() == false && child->parentWidget() == editor)
                bottom = qMax(bottom, child->geometry().bottom());
        }
        // The rows end within the editor's own height, not the dock's.
        QVERIFY2(bottom > 0 && bottom <= editor->sizeHint().height() + 8,
                 qPrintable(QStringLiteral("%1: rows reach %2 px, the editor needs %3")
                                .arg(name)
                                .arg(bottom)
                                .arg(editor->sizeHint().height())));
        ++checked;
    }
    QVERIFY(checked > 20);
}

void tst_HostLayout::componentCaptionsAreNotCut()
{
    for (const char* path :
         {"Sampler.orientation", "Sampler.clipPlane", "Sampler.tileCount", "Sampler.resolution"}) {
        QVERIFY2(m_host->select(QLatin1String(path)), path);
        QWidget* editor = dock("KalFieldEditorDock")->widget();
        QVERIFY(editor);
        const QList<QLabel*> captions = editor->findChildren<QLabel*>(QStringLiteral("SF4flabel"));
        QVERIFY2(!captions.isEmpty(), path);
        for (QLabel* caption : captions) {
            QVERIFY2(caption->fontMetrics().height() <= caption->contentsRect().height(),
                     qPrintable(QStringLiteral("%1: a %2 px line in a %3 px caption")
                                    .arg(QLatin1String(path))
                                    .arg(caption->fontMetrics().height())
                                    .arg(caption->contentsRect().height())));
        }
    }
}

void tst_HostLayout::consoleButtonsAreAllInSight()
{
    QDockWidget* console = dock("KalConsoleDock");
    QVERIFY(console && !console->isHidden());
    auto* scroll = console->findChild<QScrollArea*>(QStringLiteral("m_consoleScrollArea"));
    QVERIFY(scroll);
    const char* const buttons[] = {"m_errorsButton", "m_warningsButton", "m_infosButton", "m_clearButton",
                                   "m_saveButton"};
    const auto allInSight = [&](const char* when) {
        QWidget* viewport = scroll->viewport();
        for (const char* name : buttons) {
            auto* button = console->findChild<QPushButton*>(QLatin1String(name));
            QVERIFY2(button, name);
            const QRect seen(button->mapTo(viewport, QPoint()), button->size());
            QVERIFY2(viewport->rect().contains(seen),
                     qPrintable(QStringLiteral("%1 at %2 height: %3 px down in a %4 px view")
                                    .arg(QLatin1String(name), QLatin1String(when))
                                    .arg(seen.bottom())
                                    .arg(viewport->height())));
        }
    };
    allInSight("the default");
    if (QTest::currentTestFailed())
        return;
    // As short as the person can drag it.
    m_host->window()->resizeDocks({console}, {1}, Qt::Vertical);
    settle();
    QVERIFY(console->height() <= console->minimumSizeHint().height() + 2);
    allInSight("the minimum");
}

QTEST_MAIN(tst_HostLayout)
#include "tst_HostLayout.moc"
