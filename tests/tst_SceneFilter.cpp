// The filter box above the host's scene tree: typed names, types and field
// names show their rows with their ancestors over the whole scene, selection
// works through the filtered tree, and clearing gives the tree back.
#include "HostWindowTesting.h"
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

Q_DECLARE_METATYPE(SoField*)
Q_DECLARE_METATYPE(SoFieldContainer*)

class tst_SceneFilter : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void boxSitsAboveTheTree();
    void namesTypesAndFieldsShowTheirRows_data();
    void namesTypesAndFieldsShowTheirRows();
    void rowsNoViewHasAskedForAreFound();
    void noMatchShowsNoRows();
    void selectingAFilteredRowSelectsItsField();
    void keysMoveOverShownRowsOnly();
    void downGoesFromTheBoxToTheRows();
    void aRowSelectedElsewhereIsSelectedInTheFilteredTree();
    void aMatchedNodeOpensToAllItsRows();
    void valuesFollowTheirFieldsWhileFiltered();
    void filteredRowsFormAConsistentModel();
    void rowsSelectedElsewhereJoinAConsistentModel();
    void clearingGivesTheTreeBack();
    void theSceneTreeKeepsWhatAPersonOpened();
    void aNewSceneIsFilteredByTheSameText();
    void deepScenesAreSearchedWithoutRecursion();
    void deepScenesAreMappedWithoutRecursion();

private:
    QLineEdit* filter() const;
    SceneFilterBox* box() const;
    // Types a filter text as a person would.
    void typeFilter(const QString& text);
    // The tree in sight: the filtered one while a text is set.
    QTreeView* shownTree() const;
    // The names of the rows in sight, top to bottom.
    QStringList shownRows() const;
    // A row of the scene model, and where the tree in sight shows it.
    QModelIndex row(const QString& path) const;
    QModelIndex shown(const QModelIndex& sceneRow) const;
    // The scene model's row for one of the tree in sight.
    QModelIndex sceneRow(const QModelIndex& shownRow) const;
    void clickRow(const QModelIndex& sceneRow);

    std::unique_ptr<KalHostWindow> m_host;
    QTemporaryDir m_dir;
};

void tst_SceneFilter::initTestCase()
{
    qRegisterMetaType<SoField*>();
    qRegisterMetaType<SoFieldContainer*>();
    HostWindowTesting::setUpScene();
    QVERIFY(m_dir.isValid());
}

void tst_SceneFilter::init()
{
    m_host = HostWindowTesting::sampleWithPlugin(false);
    QVERIFY(m_host);
}

void tst_SceneFilter::cleanup()
{
    m_host.reset();
    KalPluginsManager::getInstance()->unloadAll();
}

QLineEdit* tst_SceneFilter::filter() const
{
    return m_host->window()->findChild<QLineEdit*>(QStringLiteral("SceneFilter"));
}

SceneFilterBox* tst_SceneFilter::box() const
{
    return m_host->window()->findChild<SceneFilterBox*>();
}

void tst_SceneFilter::typeFilter(const QString& text)
{
    QLineEdit* edit = filter();
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Backspace);
    // The rows follow once typing pauses, without Return: callers wait for
    // them.
    QTest::keyClicks(edit, text);
}

QTreeView* tst_SceneFilter::shownTree() const
{
    QTreeView* filtered = box()->filteredTree();
    return filtered->isHidden() ? m_host->tree() : filtered;
}

QStringList tst_SceneFilter::shownRows() const
{
    QTreeView* tree = shownTree();
    QStringList names;
    for (QModelIndex at = tree->model()->index(0, 0); at.isValid(); at = tree->indexBelow(at))
        names << at.data().toString();
    return names;
}

QModelIndex tst_SceneFilter::shown(const QModelIndex& sceneRow) const
{
    return shownTree() == m_host->tree() ? sceneRow : box()->filteredModel()->mapFromSource(sceneRow);
}

QModelIndex tst_SceneFilter::sceneRow(const QModelIndex& shownRow) const
{
    return shownTree() == m_host->tree() ? shownRow : box()->filteredModel()->mapToSource(shownRow);
}

QModelIndex tst_SceneFilter::row(const QString& path) const
{
    QString error;
    const QModelIndex index = ScenePath::find(*m_host->sceneModel(), path, &error);
    if (!index.isValid())
        qWarning() << error;
    return index;
}

void tst_SceneFilter::clickRow(const QModelIndex& sceneRow)
{
    QTreeView* tree = shownTree();
    const QModelIndex index = shown(sceneRow);
    QVERIFY(index.isValid());
    tree->scrollTo(index);
    const QRect rect = tree->visualRect(index);
    QVERIFY(rect.isValid());
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
}

void tst_SceneFilter::boxSitsAboveTheTree()
{
    QLineEdit* edit = filter();
    QVERIFY(edit);
    QVERIFY(edit->isVisible());
    auto* clearText = edit->findChild<QAction*>(QStringLiteral("SceneFilterClear"));
    QVERIFY(clearText);
    QVERIFY(!clearText->isVisible());
    QCOMPARE(edit->placeholderText(), QStringLiteral("Filter by name, type or field"));
    auto* dock = m_host->window()->findChild<QDockWidget*>(QStringLiteral("SceneTreeDock"));
    QVERIFY(dock);
    QVERIFY(dock->isAncestorOf(edit));
    QVERIFY(dock->isAncestorOf(m_host->tree()));
    const QRect editRect(edit->mapTo(dock, QPoint()), edit->size());
    const QRect treeRect(m_host->tree()->mapTo(dock, QPoint()), m_host->tree()->size());
    QVERIFY(editRect.bottom() < treeRect.top());
    QCOMPARE(editRect.width(), treeRect.width());
}

void tst_SceneFilter::namesTypesAndFieldsShowTheirRows_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<int>("matches");
    // The root has no name and shows its type.
    QTest::newRow("node name") << "Gold" << QStringList{"Separator", "Ornament", "Gold"} << 1;
    QTest::newRow("part of a name, other case")
        << "pedestal"
        << QStringList{"Separator", "Pedestal", "PedestalTransform", "PedestalCoordinates", "PedestalFaces"}
        << 4;
    QTest::newRow("node type") << "Sphere" << QStringList{"Separator", "Ornament", "Sphere"} << 1;
    QTest::newRow("field name") << "diffuseColor"
                                << QStringList{"Separator",  "Pedestal",    "Stone",        "diffuseColor",
                                               "Ornament",   "Gold",        "diffuseColor", "Label",
                                               "LabelColor", "diffuseColor"}
                                << 3;
    QTest::newRow("field type") << "SFVec4f" << QStringList{"Separator", "Sampler", "weights"} << 1;
}

void tst_SceneFilter::namesTypesAndFieldsShowTheirRows()
{
    QFETCH(QString, text);
    QFETCH(QStringList, shown);
    QFETCH(int, matches);
    typeFilter(text);
    QTRY_COMPARE(shownRows(), shown);
    QCOMPARE(box()->matchCount(), matches);
}

void tst_SceneFilter::rowsNoViewHasAskedForAreFound()
{
    // Thirty levels of groups with a named cube at the bottom, and
    // neighbours at every level; only the root's row is open.
    QString text = QStringLiteral("#Inventor V2.1 ascii\n");
    for (int level = 0; level < 30; ++level)
        text += QStringLiteral("Group { DEF Beside%1 Cube { }\n").arg(level);
    text += QStringLiteral("DEF Bottom Cube { }\n");
    text += QString(30, QLatin1Char('}')) + QLatin1Char('\n');
    const QString path = m_dir.filePath(QStringLiteral("deep.iv"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text.toUtf8());
    file.close();
    QVERIFY(m_host->openScene(path));

    typeFilter(QStringLiteral("Bottom"));
    // The file's top groups are held by the separator the reader adds.
    QStringList expected{QStringLiteral("Separator")};
    for (int level = 0; level < 30; ++level)
        expected << QStringLiteral("Group");
    expected << QStringLiteral("Bottom");
    QTRY_COMPARE(shownRows(), expected);
    // Laid out in the tree, not only reachable in the model (at 31 levels,
    // indented past the column's width, so its rectangle has a height only).
    QVERIFY(shownTree()->visualRect(shown(row(QStringLiteral("Bottom")))).height() > 0);
}

void tst_SceneFilter::noMatchShowsNoRows()
{
    typeFilter(QStringLiteral("NothingIsCalledThis"));
    QTRY_VERIFY(shownRows().isEmpty());
    QCOMPARE(box()->matchCount(), 0);
}

void tst_SceneFilter::selectingAFilteredRowSelectsItsField()
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

void tst_SceneFilter::keysMoveOverShownRowsOnly()
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

void tst_SceneFilter::downGoesFromTheBoxToTheRows()
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

void tst_SceneFilter::aRowSelectedElsewhereIsSelectedInTheFilteredTree()
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

void tst_SceneFilter::aMatchedNodeOpensToAllItsRows()
{
    typeFilter(QStringLiteral("Gold"));
    QTRY_COMPARE(shownRows(), (QStringList{"Separator", "Ornament", "Gold"}));
    QTreeView* tree = shownTree();
    const QModelIndex gold = shown(row(QStringLiteral("Gold")));
    // Matched by its own name: folded, with every field it has.
    QVERIFY(!tree->isExpanded(gold));
    QCOMPARE(tree->model()->rowCount(gold), m_host->sceneModel()->rowCount(row(QStringLiteral("Gold"))));
    tree->expand(gold);
    const QStringList rows = shownRows();
    for (const char* name :
         {"ambientColor", "diffuseColor", "specularColor", "emissiveColor", "shininess", "transparency"})
        QVERIFY2(rows.contains(QLatin1String(name)), name);
    QCOMPARE(rows.size(), 3 + m_host->sceneModel()->rowCount(row(QStringLiteral("Gold"))));
    clickRow(row(QStringLiteral("Gold.transparency")));
    QCOMPARE(m_host->tree()->currentIndex(), row(QStringLiteral("Gold.transparency")));
}

void tst_SceneFilter::valuesFollowTheirFieldsWhileFiltered()
{
    typeFilter(QStringLiteral("shininess"));
    QTRY_VERIFY(shownRows().contains(QStringLiteral("shininess")));
    const QModelIndex field = row(QStringLiteral("Gold.shininess"));
    const QModelIndex value = shown(field.siblingAtColumn(SceneModel::ValueColumn));
    QVERIFY(value.isValid());
    QSignalSpy changed(shownTree()->model(), &QAbstractItemModel::dataChanged);
    auto* shininess = static_cast<SoMFFloat*>(m_host->sceneModel()->field(field));
    shininess->setValue(0.25f);
    QTRY_VERIFY(!changed.isEmpty());
    QCOMPARE(changed.last().at(0).toModelIndex(), value);
    QCOMPARE(value.data().toString(), QStringLiteral("[1] 0.25"));
}

void tst_SceneFilter::filteredRowsFormAConsistentModel()
{
    QAbstractItemModelTester tester(box()->filteredModel(),
                                    QAbstractItemModelTester::FailureReportingMode::QtTest);
    for (const char* text : {"diffuseColor", "Gold", "Sphere", "NothingIsCalledThis", "e"}) {
        typeFilter(QLatin1String(text));
        QTRY_COMPARE(box()->filteredModel()->rowCount(),
                     QLatin1String(text) == QLatin1String("NothingIsCalledThis") ? 0 : 1);
        QVERIFY(!QTest::currentTestFailed());
        // Every row shown maps to the scene model and back.
        QTreeView* tree = shownTree();
        for (QModelIndex at = tree->model()->index(0, 0); at.isValid(); at = tree->indexBelow(at)) {
            const QModelIndex source = sceneRow(at);
            QVERIFY(source.isValid());
            QCOMPARE(shown(source), at);
            QCOMPARE(at.data(), source.data());
        }
    }
    QTest::keyClick(filter(), Qt::Key_Escape);
    QTRY_COMPARE(box()->filteredModel()->rowCount(), 0);
}

void tst_SceneFilter::rowsSelectedElsewhereJoinAConsistentModel()
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

void tst_SceneFilter::clearingGivesTheTreeBack()
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

void tst_SceneFilter::theSceneTreeKeepsWhatAPersonOpened()
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

void tst_SceneFilter::aNewSceneIsFilteredByTheSameText()
{
    typeFilter(QStringLiteral("Marked"));
    QTRY_VERIFY(shownRows().isEmpty());
    const QString path = m_dir.filePath(QStringLiteral("marked.iv"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("#Inventor V2.1 ascii\nSeparator { Cube { } Separator { DEF Marked Cube { } Sphere { } } }\n");
    file.close();
    QVERIFY(m_host->openScene(path));
    QTRY_COMPARE(shownRows(), (QStringList{"Separator", "Separator", "Marked"}));
    QCOMPARE(box()->matchCount(), 1);
}

void tst_SceneFilter::deepScenesAreSearchedWithoutRecursion()
{
    // Far deeper than a recursive walk could go on the GUI thread's stack.
    constexpr int kLevels = 200000;
    // Built from the bottom up, so that no addition notifies a long chain.
    SoNode* below = new SoCube;
    below->setName("Deepest");
    for (int level = 0; level < kLevels; ++level) {
        auto* group = new SoGroup;
        group->addChild(below);
        below = group;
    }
    SoNode* root = below;
    root->ref();

    const SceneSearch::Result found = SceneSearch::run(root, QStringLiteral("deepest"));
    QCOMPARE(found.matches, 1);
    QCOMPARE(int(found.rows.size()), kLevels + 1);
    QVERIFY(found.rows.front().narrowed);
    QVERIFY(!found.rows.back().narrowed);
    QCOMPARE(found.rows.back().parent, kLevels - 1);
    LargeStack::unref(root);
}

void tst_SceneFilter::deepScenesAreMappedWithoutRecursion()
{
    // The top matches by its name and nothing below it does, so every row
    // under it is shown as the scene model has it, and reaching the deepest
    // one makes a listing per level.
    constexpr int kLevels = 200000;
    SoNode* below = new SoCube;
    for (int level = 0; level < kLevels; ++level) {
        auto* group = new SoGroup;
        group->addChild(below);
        below = group;
    }
    below->setName("Top");
    SceneModel model;
    model.setRoot(below);
    {
        SceneFilterModel filtered(&model);
        filtered.setFound(SceneSearch::run(model.root(), QStringLiteral("top")));
        QCOMPARE(filtered.rowCount(), 1);
        QVERIFY(filtered.openedRows().empty());
        const QModelIndex deepest = model.nodeIndex(std::vector<int>(kLevels, 0));
        QVERIFY(deepest.isValid());
        QCOMPARE(deepest.data().toString(), QStringLiteral("Cube"));
        const QModelIndex shownDeepest = filtered.mapFromSource(deepest);
        QVERIFY(shownDeepest.isValid());
        QCOMPARE(shownDeepest.data().toString(), QStringLiteral("Cube"));
        QCOMPARE(filtered.mapToSource(shownDeepest), deepest);

        // Brought in by itself, the deepest row comes with every level above
        // it, each listing one row.
        filtered.setFound(SceneSearch::run(model.root(), QStringLiteral("nothing here")));
        QCOMPARE(filtered.rowCount(), 0);
        const QModelIndex revealed = filtered.reveal(deepest);
        QVERIFY(revealed.isValid());
        QCOMPARE(filtered.mapToSource(revealed), deepest);
        QCOMPARE(filtered.rowCount(), 1);
        QCOMPARE(filtered.rowCount(filtered.parent(revealed)), 1);
    }
    // The rows go level by level as well.
    model.setRoot(nullptr);
}

QTEST_MAIN(tst_SceneFilter)
#include "tst_SceneFilter.moc"
