// Selecting through the filter box's tree: a filtered row selects its field,
// the keys move over the rows in sight, a row selected elsewhere joins the
// filtered ones, and clearing gives the scene tree back as it was left.
#include "SceneFilterFixture.h"

#include <KalHostWindow.h>
#include <KalPluginsManager.h>
#include <KalServices.h>
#include <LargeStack.h>
#include <SceneFilterBox.h>
#include <SceneFilterModel.h>
#include <SceneModel.h>
#include <ScenePath.h>
#include <SceneSearch.h>

#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoMFFloat.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoMaterial.h>

#include <QAbstractItemModelTester>
#include <QAction>
#include <QDockWidget>
#include <QLineEdit>
#include <QMainWindow>
#include <QTemporaryDir>
#include <QTreeView>
#include <QtTest>

#include <memory>
#include <vector>

class tst_SceneFilterSelection : public SceneFilterFixture
{
    Q_OBJECT

private slots:
    void selectingAFilteredRowSelectsItsField();
    void keysMoveOverShownRowsOnly();
    void downGoesFromTheBoxToTheRows();
    void aRowSelectedElsewhereIsSelectedInTheFilteredTree();
    void rowsSelectedElsewhereJoinAConsistentModel();
    void clearingGivesTheTreeBack();
    void theSceneTreeKeepsWhatAPersonOpened();
};

void tst_SceneFilterSelection::selectingAFilteredRowSelectsItsField()
{
    QSignalSpy fields(KalServices::getInstance(), &KalServices::selectedFieldChanged);
    QSignalSpy nodes(KalServices::getInstance(), &KalServices::selectedNodeChanged);
    typeFilter(QStringLiteral("shininess"));
    QTRY_VERIFY(shownRows().contains(QStringLiteral("shininess")));

    const QModelIndex shininess = row(QStringLiteral("Gold.shininess"));
    QVERIFY(shininess.isValid());
    clickRow(shininess);
    QVERIFY(!fields.isEmpty());
    SoField* field = fields.last().at(0).value<SoField*>();
    QVERIFY(field);
    QCOMPARE(field, m_host->sceneModel()->field(shininess));
    QCOMPARE(nodes.last().at(0).value<SoFieldContainer*>(),
             m_host->sceneModel()->container(row(QStringLiteral("Gold"))));
    auto* dock = m_host->window()->findChild<QDockWidget*>(QStringLiteral("KalFieldEditorDock"));
    QVERIFY(dock && !dock->isHidden());
    QCOMPARE(dock->widget()->objectName(), QStringLiteral("FxMFFloatWidget"));

    // A node row as well.
    const QModelIndex stone = row(QStringLiteral("Stone"));
    clickRow(stone);
    QCOMPARE(nodes.last().at(0).value<SoFieldContainer*>(), m_host->sceneModel()->container(stone));
}

void tst_SceneFilterSelection::keysMoveOverShownRowsOnly()
{
    typeFilter(QStringLiteral("diffuseColor"));
    QTRY_COMPARE(shownRows().size(), 10);
    QTreeView* tree = shownTree();
    clickRow(row(QStringLiteral("Stone.diffuseColor")));
    QTest::keyClick(tree, Qt::Key_Down);
    // Past the pedestal's rows the filter left out, to the ornament.
    QCOMPARE(sceneRow(tree->currentIndex()), row(QStringLiteral("Ornament")));
    QTest::keyClick(tree, Qt::Key_Down);
    QTest::keyClick(tree, Qt::Key_Down);
    QCOMPARE(sceneRow(tree->currentIndex()), row(QStringLiteral("Gold.diffuseColor")));
    // The scene tree, out of sight, follows: it is what the host reads.
    QCOMPARE(m_host->tree()->currentIndex(), row(QStringLiteral("Gold.diffuseColor")));
}

void tst_SceneFilterSelection::downGoesFromTheBoxToTheRows()
{
    m_host->window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_host->window()));
    filter()->setFocus();
    // Before typing pauses: the rows are filtered first.
    QTest::keyClicks(filter(), QStringLiteral("Sphere"));
    QTest::keyClick(filter(), Qt::Key_Down);
    QTreeView* tree = shownTree();
    QCOMPARE(tree, box()->filteredTree());
    QVERIFY(tree->hasFocus());
    QCOMPARE(sceneRow(tree->currentIndex()), m_host->sceneModel()->index(0, 0));
    QTest::keyClick(tree, Qt::Key_Down);
    QTest::keyClick(tree, Qt::Key_Down);
    const QModelIndex sphere = sceneRow(tree->currentIndex());
    QCOMPARE(sphere.data().toString(), QStringLiteral("Sphere"));
    QCOMPARE(sphere.parent(), row(QStringLiteral("Ornament")));
    QCOMPARE(m_host->tree()->currentIndex(), sphere);
}

void tst_SceneFilterSelection::aRowSelectedElsewhereIsSelectedInTheFilteredTree()
{
    QSignalSpy fields(KalServices::getInstance(), &KalServices::selectedFieldChanged);
    typeFilter(QStringLiteral("diffuseColor"));
    QTRY_COMPARE(shownRows().size(), 10);
    QTreeView* tree = shownTree();

    // As a pick in the 3D view or a scripted selection does.
    QVERIFY(m_host->select(QStringLiteral("Gold.diffuseColor")));
    QCOMPARE(sceneRow(tree->currentIndex()), row(QStringLiteral("Gold.diffuseColor")));
    QCOMPARE(tree->selectionModel()->selectedRows().size(), 1);
    QCOMPARE(fields.last().at(0).value<SoField*>(),
             m_host->sceneModel()->field(row(QStringLiteral("Gold.diffuseColor"))));

    // A row the filter leaves out joins the filtered rows, in its place
    // among them, selected; the text and the other rows stay.
    QVERIFY(m_host->select(QStringLiteral("Gold.shininess")));
    QCOMPARE(fields.last().at(0).value<SoField*>(),
             m_host->sceneModel()->field(row(QStringLiteral("Gold.shininess"))));
    QCOMPARE(shownTree(), tree);
    QCOMPARE(filter()->text(), QStringLiteral("diffuseColor"));
    QCOMPARE(sceneRow(tree->currentIndex()), row(QStringLiteral("Gold.shininess")));
    QCOMPARE(tree->selectionModel()->selectedRows().size(), 1);
    QCOMPARE(shownRows(), (QStringList{"Separator", "Pedestal", "Stone", "diffuseColor", "Ornament", "Gold",
                                       "diffuseColor", "shininess", "Label", "LabelColor", "diffuseColor"}));

    // A node no filtered row holds comes in with its ancestors, folded,
    // before the rows that follow it in the scene.
    const QModelIndex light = row(QStringLiteral("KeyLight"));
    QVERIFY(light.isValid());
    QVERIFY(m_host->select(QStringLiteral("KeyLight")));
    QCOMPARE(sceneRow(tree->currentIndex()), light);
    QVERIFY(!tree->isExpanded(tree->currentIndex()));
    QVERIFY(tree->visualRect(tree->currentIndex()).isValid());
    // Shown top to bottom in the scene's order: each row's places from the
    // root come after the row above's.
    std::vector<int> above;
    for (QModelIndex at = tree->model()->index(0, 0); at.isValid(); at = tree->indexBelow(at)) {
        std::vector<int> places;
        for (QModelIndex up = sceneRow(at); up.isValid(); up = up.parent())
            places.insert(places.begin(), up.row());
        QVERIFY(above < places);
        above = places;
    }
    QVERIFY(shownRows().contains(QStringLiteral("KeyLight")));
    QVERIFY(shownRows().contains(QStringLiteral("shininess")));

    // A new text shows what it matches, and not the selected row with it;
    // it keeps the selected row selected where it shows it.
    const QStringList shininess{"Separator", "Pedestal",  "Stone", "shininess",  "Ornament",
                                "Gold",      "shininess", "Label", "LabelColor", "shininess"};
    typeFilter(QStringLiteral("shininess"));
    QTRY_COMPARE(shownRows(), shininess);
    QVERIFY(tree->selectionModel()->selectedRows().isEmpty());
    QCOMPARE(m_host->tree()->currentIndex(), light);
    QVERIFY(m_host->select(QStringLiteral("Gold.shininess")));
    QCOMPARE(shownRows(), shininess);
    typeFilter(QStringLiteral("shininess "));
    QTest::keyClick(filter(), Qt::Key_Return);
    QCOMPARE(shownRows(), shininess);
    QCOMPARE(sceneRow(tree->currentIndex()), row(QStringLiteral("Gold.shininess")));
    QVERIFY(tree->selectionModel()->isRowSelected(tree->currentIndex().row(), tree->currentIndex().parent()));
}

void tst_SceneFilterSelection::rowsSelectedElsewhereJoinAConsistentModel()
{
    SceneFilterModel* model = box()->filteredModel();
    QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QSignalSpy inserted(model, &QAbstractItemModel::rowsInserted);
    QSignalSpy reset(model, &QAbstractItemModel::modelReset);
    typeFilter(QStringLiteral("NothingIsCalledThis"));
    QTRY_COMPARE(shownTree(), box()->filteredTree());
    QCOMPARE(model->rowCount(), 0);
    const int resets = reset.count();

    // Into an empty filter, a row below one the next selection shares
    // ancestors with, one before it, a field above, the root, a row shown
    // already.
    const QStringList picks{"Gold.shininess", "KeyLight", "Label", "Stone.diffuseColor", "Gold.shininess"};
    QPersistentModelIndex goldShininess;
    for (const QString& pick : picks) {
        QVERIFY(m_host->select(pick));
        QVERIFY(!QTest::currentTestFailed());
        const QModelIndex current = shownTree()->currentIndex();
        QCOMPARE(sceneRow(current), row(pick));
        if (!goldShininess.isValid())
            goldShininess = current;
        // Held across the rows that came in before it.
        QCOMPARE(sceneRow(goldShininess), row(QStringLiteral("Gold.shininess")));
    }
    const QModelIndex root = m_host->sceneModel()->index(0, 0);
    QCOMPARE(model->reveal(root), model->index(0, 0));
    QVERIFY(!model->reveal(QModelIndex()).isValid());
    // Each pick came in by an insert of its own; the model was not reset.
    QCOMPARE(reset.count(), resets);
    QCOMPARE(inserted.count(), 4);
    QTreeView* tree = shownTree();
    QStringList expected{"Separator", "KeyLight", "Pedestal",  "Stone", "diffuseColor",
                         "Ornament",  "Gold",     "shininess", "Label"};
    QCOMPARE(shownRows(), expected);
    for (QModelIndex at = tree->model()->index(0, 0); at.isValid(); at = tree->indexBelow(at)) {
        const QModelIndex source = sceneRow(at);
        QVERIFY(source.isValid());
        QCOMPARE(shown(source), at);
        QCOMPARE(at.data(), source.data());
    }
    // A value changing in a row that came in is repainted.
    QSignalSpy changed(model, &QAbstractItemModel::dataChanged);
    SoField* shininess = m_host->sceneModel()->field(row(QStringLiteral("Gold.shininess")));
    QVERIFY(shininess);
    shininess->set("0.25");
    QTRY_VERIFY(!changed.isEmpty());
    QCOMPARE(shown(row(QStringLiteral("Gold.shininess")))
                 .siblingAtColumn(SceneModel::ValueColumn)
                 .data()
                 .toString(),
             QStringLiteral("[1] 0.25"));
}

void tst_SceneFilterSelection::clearingGivesTheTreeBack()
{
    const QStringList before = shownRows();
    QVERIFY(before.contains(QStringLiteral("KeyLight")));
    QVERIFY(!before.contains(QStringLiteral("Gold")));

    typeFilter(QStringLiteral("Gold"));
    QTRY_COMPARE(shownRows().size(), 3);
    QTest::keyClick(filter(), Qt::Key_Escape);
    QVERIFY(filter()->text().isEmpty());
    QTRY_COMPARE(shownRows(), before);

    // The row picked while filtering stays in sight: what holds it stays
    // open, the rest folds again.
    typeFilter(QStringLiteral("shininess"));
    QTRY_VERIFY(shownRows().contains(QStringLiteral("shininess")));
    clickRow(row(QStringLiteral("Gold.shininess")));
    auto* clearText = filter()->findChild<QAction*>(QStringLiteral("SceneFilterClear"));
    QVERIFY(clearText && clearText->isVisible());
    clearText->trigger();
    QVERIFY(filter()->text().isEmpty());
    QVERIFY(!clearText->isVisible());
    QTRY_VERIFY(shownRows().contains(QStringLiteral("KeyLight")));
    QTreeView* tree = m_host->tree();
    QVERIFY(tree->isExpanded(row(QStringLiteral("Ornament"))));
    QVERIFY(tree->isExpanded(row(QStringLiteral("Gold"))));
    QVERIFY(!tree->isExpanded(row(QStringLiteral("Pedestal"))));
    QVERIFY(!tree->isExpanded(row(QStringLiteral("Stone"))));
    QCOMPARE(tree->currentIndex(), row(QStringLiteral("Gold.shininess")));
    QVERIFY(tree->visualRect(tree->currentIndex()).isValid());
    for (const char* name : {"OrnamentTransform", "Gold", "ambientColor", "transparency", "Sphere", "Label"})
        QVERIFY2(shownRows().contains(QLatin1String(name)), name);
    QVERIFY(!shownRows().contains(QStringLiteral("Stone")));
}

void tst_SceneFilterSelection::theSceneTreeKeepsWhatAPersonOpened()
{
    QTreeView* tree = m_host->tree();
    const QModelIndex pedestal = row(QStringLiteral("Pedestal"));
    tree->expand(pedestal);
    const QStringList before = shownRows();
    QVERIFY(before.contains(QStringLiteral("Stone")));

    typeFilter(QStringLiteral("Sphere"));
    QTRY_COMPARE(shownRows(), (QStringList{"Separator", "Ornament", "Sphere"}));
    // Folding a row in the filtered tree leaves the scene tree alone.
    shownTree()->collapse(shown(row(QStringLiteral("Ornament"))));
    QTest::keyClick(filter(), Qt::Key_Escape);
    QTRY_COMPARE(shownTree(), tree);
    QVERIFY(tree->isExpanded(pedestal));
    QVERIFY(!tree->isExpanded(row(QStringLiteral("Ornament"))));
    QCOMPARE(shownRows(), before);
}

QTEST_MAIN(tst_SceneFilterSelection)
#include "tst_SceneFilterSelection.moc"
