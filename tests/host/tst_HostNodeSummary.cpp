// A selected node shows itself in kalhost's Selection dock: its type, name
// and path, how many of its fields differ from their defaults, what drives
// them and what they drive, and its children. The plug-in's Node Editor
// stays as it is designed: hidden, since none of its editors edits nodes.
#include "HostWindowFixture.h"
#include "MarksScene.h"

#include <NodeSummary.h>

#include <QAction>
#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QStringList>
#include <QTreeView>
#include <QtTest>

class tst_HostNodeSummary : public HostWindowFixture
{
    Q_OBJECT

private slots:
    void init();

    void selectedNodeIsSummarised_data();
    void selectedNodeIsSummarised();
    void longListsAreCut();
    void summaryFollowsTheFieldsAtTheNextSelection();
    void summaryFollowsTheNodeAsItChanges();
    void fieldOrNothingSelectedHidesTheSummary();
    void nodeEditorKeepsItsDesignedBehaviour();
    void summaryNeverWidensTheColumn();

private:
    NodeSummary* summary() const;
    // The summary's line that starts with the label, without the label.
    QString line(const QString& label) const;
};

void tst_HostNodeSummary::init()
{
    HostWindowFixture::init();
    if (QTest::currentTestFailed())
        return;
    const QString path = m_dir.filePath(QStringLiteral("summary.iv"));
    writeFile(path, MarksScene::kText);
    QVERIFY(m_host->openScene(path));
    // The main window outlives each test's host window and stays shown: the
    // docks a later host adds to it are hidden until something shows them,
    // where a person's only window shows them with itself.
    auto* dock = m_host->window()->findChild<QDockWidget*>(QStringLiteral("SelectionDock"));
    QVERIFY(dock);
    dock->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_host->window()));
}

NodeSummary* tst_HostNodeSummary::summary() const
{
    auto* dock = m_host->window()->findChild<QDockWidget*>(QStringLiteral("SelectionDock"));
    return dock ? dock->findChild<NodeSummary*>(QStringLiteral("NodeSummary")) : nullptr;
}

QString tst_HostNodeSummary::line(const QString& label) const
{
    const QString prefix = label + QStringLiteral(": ");
    for (const QString& text : summary()->plainText().split(QLatin1Char('\n'))) {
        if (text.startsWith(prefix))
            return text.mid(prefix.size());
    }
    return QStringLiteral("(no %1 line)").arg(label);
}

void tst_HostNodeSummary::selectedNodeIsSummarised_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("expected");
    QTest::newRow("type") << "Moved"
                          << "Type"
                          << "Transform";
    QTest::newRow("name") << "Moved"
                          << "Name"
                          << "Moved";
    QTest::newRow("no name") << "/"
                             << "Name"
                             << "(none)";
    QTest::newRow("path") << "Moved"
                          << "Path"
                          << "Moved";
    QTest::newRow("set fields") << "Moved"
                                << "Fields"
                                << "2 of 5 differ from their defaults: translation, scaleFactor";
    QTest::newRow("no set field") << "Detail"
                                  << "Fields"
                                  << "all 3 at their defaults";
    QTest::newRow("driven by an engine") << "Moved"
                                         << "Driven"
                                         << "translation \u2190 Mover.vector";
    QTest::newRow("driving a field") << "Moved"
                                     << "Drives"
                                     << "rotation \u2192 Follower.rotation";
    QTest::newRow("driven by a field") << "Follower"
                                       << "Driven"
                                       << "rotation \u2190 Moved.rotation";
    QTest::newRow("driving nothing") << "Follower"
                                     << "Drives"
                                     << "none";
    QTest::newRow("ignored") << "Skipped"
                             << "Ignored"
                             << "diffuseColor";
    QTest::newRow("none ignored") << "Moved"
                                  << "Ignored"
                                  << "none";
    QTest::newRow("no children") << "Moved"
                                 << "Children"
                                 << "none";
    QTest::newRow("unknown type") << "Named"
                                  << "Type"
                                  << "MyNode";
    QTest::newRow("unknown type's field") << "/5"
                                          << "Fields"
                                          << "1 of 1 differ from their defaults: size";
}

void tst_HostNodeSummary::selectedNodeIsSummarised()
{
    QFETCH(QString, path);
    QFETCH(QString, label);
    QFETCH(QString, expected);
    QVERIFY(summary());
    QVERIFY(m_host->select(path));
    QVERIFY(summary()->isVisible());
    QCOMPARE(line(label), expected);
    // What the plain text says, the label shows.
    QVERIFY2(summary()->text().contains(expected.toHtmlEscaped()), qPrintable(summary()->text()));
}

void tst_HostNodeSummary::longListsAreCut()
{
    QVERIFY(summary());
    QVERIFY(m_host->select(QStringLiteral("/")));
    QCOMPARE(line(QStringLiteral("Children")),
             QStringLiteral("7: Moved, Follower, Drifter, Skipped, Detail and 2 more"));
}

void tst_HostNodeSummary::summaryFollowsTheFieldsAtTheNextSelection()
{
    QVERIFY(summary());
    typeIntoFloatEditor(QStringLiteral("Detail.value"), QStringLiteral("0.25"));
    if (QTest::currentTestFailed())
        return;
    QVERIFY(m_host->select(QStringLiteral("Detail")));
    QCOMPARE(line(QStringLiteral("Fields")), QStringLiteral("1 of 3 differ from their defaults: value"));
}

void tst_HostNodeSummary::summaryFollowsTheNodeAsItChanges()
{
    QVERIFY(summary());
    QVERIFY(m_host->select(QStringLiteral("Detail.value")));
    auto* ignore = fieldDock()->findChild<QPushButton*>(QStringLiteral("m_ignoreButton"));
    QVERIFY(ignore);
    QTest::mouseClick(ignore, Qt::LeftButton);
    QVERIFY(m_host->select(QStringLiteral("Detail")));
    QCOMPARE(line(QStringLiteral("Ignored")), QStringLiteral("value"));

    // Taken back from the Edit menu while the node is shown.
    auto* undo = m_host->window()->findChild<QAction*>(QStringLiteral("UndoAction"));
    QVERIFY(undo && undo->isEnabled());
    undo->trigger();
    QTRY_COMPARE(line(QStringLiteral("Ignored")), QStringLiteral("none"));
    QVERIFY(summary()->isVisible());
}

void tst_HostNodeSummary::fieldOrNothingSelectedHidesTheSummary()
{
    QVERIFY(summary());
    QVERIFY(!summary()->isVisible());
    QVERIFY(m_host->select(QStringLiteral("Moved")));
    QVERIFY(summary()->isVisible());
    QVERIFY(m_host->select(QStringLiteral("Moved.scaleFactor")));
    QVERIFY(!summary()->isVisible());
    QVERIFY(fieldDock()->isVisible());
    QVERIFY(m_host->select(QStringLiteral("Moved")));
    QVERIFY(summary()->isVisible());
    m_host->tree()->selectionModel()->clearSelection();
    QVERIFY(!summary()->isVisible());
    QVERIFY(summary()->plainText().isEmpty());
}

void tst_HostNodeSummary::nodeEditorKeepsItsDesignedBehaviour()
{
    auto* nodeEditor = m_host->window()->findChild<QDockWidget*>(QStringLiteral("KalNodeEditorDock"));
    QVERIFY(nodeEditor);
    QVERIFY(m_host->select(QStringLiteral("Moved")));
    QVERIFY(summary()->isVisible());
    // None of the plug-in's editors edits a node: its dock stays hidden.
    QVERIFY(!nodeEditor->isVisible());
    QVERIFY(!fieldDock()->isVisible());
}

void tst_HostNodeSummary::summaryNeverWidensTheColumn()
{
    // A node with a name far wider than the column.
    const QString name = QStringLiteral("A") + QString(240, QLatin1Char('x'));
    const QString path = m_dir.filePath(QStringLiteral("long.iv"));
    writeFile(path, "#Inventor V2.1 ascii\nSeparator { DEF " + name.toLatin1() + " Cube { } }\n");
    QVERIFY(m_host->openScene(path));
    auto* dock = m_host->window()->findChild<QDockWidget*>(QStringLiteral("SelectionDock"));
    QVERIFY(dock);
    QWidget* centre = m_host->window()->centralWidget();
    QTest::qWait(50);
    const int viewWidth = centre->width();
    const int dockWidth = dock->width();
    QVERIFY(m_host->select(name));
    QVERIFY(summary()->isVisible());
    QTest::qWait(50);
    QCOMPARE(dock->width(), dockWidth);
    QCOMPARE(centre->width(), viewWidth);
    QVERIFY(summary()->width() <= dock->width());
}

QTEST_MAIN(tst_HostNodeSummary)
#include "tst_HostNodeSummary.moc"
