// The column beside kalhost's 3D view at the window's default size: a list
// editor has room for rows of its table beside a tree that keeps rows of its
// own, and no line of the caption's note on a driven field is cut. Run at
// 1280x800 under Xvfb as well (tst_HostColumnRoom_xvfb).
#include "HostWindowFixture.h"

#include <KalHostWindow.h>

#include <QCoreApplication>
#include <QDockWidget>
#include <QLabel>
#include <QLayout>
#include <QMainWindow>
#include <QTableWidget>
#include <QTreeView>
#include <QtTest>

#include <algorithm>

class tst_HostColumnRoom : public HostWindowFixture
{
    Q_OBJECT

public:
    tst_HostColumnRoom()
        : HostWindowFixture(true)
    {}

private slots:
    void aListEditorHasRoomBesideTheTree();
    void aDrivenFieldsCaptionIsNotCut();

private:
    // The window at the size it opens with on a 1280x800 screen, the
    // default layout applied, whatever screen the test runs on.
    void atDefaultSize();
    // Docks shown and sized lay out over several turns of the event loop.
    void settle();
    QDockWidget* dock(const char* name) const;
    QWidget* centre() const;
    // Rows of the scene tree that fit in its viewport, whole.
    int wholeTreeRows() const;
};

void tst_HostColumnRoom::settle()
{
    for (int turn = 0; turn < 5; ++turn) {
        QCoreApplication::processEvents();
        m_host->window()->layout()->activate();
    }
}

QDockWidget* tst_HostColumnRoom::dock(const char* name) const
{
    return m_host->window()->findChild<QDockWidget*>(QLatin1String(name));
}

QWidget* tst_HostColumnRoom::centre() const
{
    return m_host->window()->centralWidget();
}

void tst_HostColumnRoom::atDefaultSize()
{
    QMainWindow* window = m_host->window();
    const QSize size(1280 - 24, 800 - 64);
    // The main window is the shell's and has held earlier windows of this
    // test, in other shapes.
    window->resize(size);
    settle();
    m_host->arrangeDocks();
    settle();
    QCOMPARE(window->size(), size);
}

int tst_HostColumnRoom::wholeTreeRows() const
{
    QTreeView* tree = m_host->tree();
    const QModelIndex first = tree->indexAt(QPoint(4, 4));
    const int rowHeight = first.isValid() ? tree->visualRect(first).height() : 0;
    return rowHeight > 0 ? tree->viewport()->height() / rowHeight : 0;
}

void tst_HostColumnRoom::aListEditorHasRoomBesideTheTree()
{
    atDefaultSize();
    QVERIFY(wholeTreeRows() >= 8);
    const int view = centre()->width();
    // Eight points, one per table row.
    QVERIFY(m_host->select(QStringLiteral("PedestalCoordinates.point")));
    settle();
    QDockWidget* editorDock = dock("KalFieldEditorDock");
    QVERIFY(!editorDock->isHidden());
    auto* table = editorDock->findChild<QTableWidget*>(QStringLiteral("m_table"));
    QVERIFY(table);
    QCOMPARE(table->rowCount(), 8);
    int whole = 0;
    for (int row = 0; row < table->rowCount(); ++row) {
        const QRect cell = table->visualRect(table->model()->index(row, 0));
        if (!cell.isEmpty() && table->viewport()->rect().contains(cell))
            ++whole;
    }
    QVERIFY2(whole >= 6, qPrintable(QStringLiteral("%1 whole rows in a %2 px table, the tree %3 px")
                                        .arg(whole)
                                        .arg(table->viewport()->height())
                                        .arg(dock("SceneTreeDock")->height())));
    // The tree keeps a screenful to choose from, and the view its width.
    QVERIFY2(wholeTreeRows() >= 8, qPrintable(QString::number(wholeTreeRows())));
    QCOMPARE(centre()->width(), view);
}

void tst_HostColumnRoom::aDrivenFieldsCaptionIsNotCut()
{
    atDefaultSize();
    auto* caption = m_host->window()->findChild<QLabel*>(QStringLiteral("SelectionCaption"));
    QVERIFY(caption);
    // The label's translation, driven by an engine: its path and the note
    // on what drives it.
    QVERIFY(m_host->select(QStringLiteral("/5/1.translation")));
    settle();
    QVERIFY2(caption->text().contains(QStringLiteral("overwritten")), qPrintable(caption->text()));
    QVERIFY2(caption->height() >= caption->heightForWidth(caption->width()),
             qPrintable(QStringLiteral("%1 px of the %2 its text needs at %3 px wide")
                            .arg(caption->height())
                            .arg(caption->heightForWidth(caption->width()))
                            .arg(caption->width())));
    // The dock is asked for the height of the text as wrapped at the
    // caption's width, not for that of a line at no width at all.
    QCOMPARE(caption->sizeHint().height(),
             std::min(caption->heightForWidth(caption->width()), caption->maximumHeight()));
    QVERIFY2(wholeTreeRows() >= 8, qPrintable(QString::number(wholeTreeRows())));
}

QTEST_MAIN(tst_HostColumnRoom)
#include "tst_HostColumnRoom.moc"
