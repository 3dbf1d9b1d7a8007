// The filter box above the host's scene tree: typed names, types and field
// names show their rows with their ancestors over the whole scene, however
// deep. Selecting through the filtered tree is tst_SceneFilterSelection's.
#include "MarksScene.h"
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

class tst_SceneFilter : public SceneFilterFixture
{
    Q_OBJECT

private slots:
    void boxSitsAboveTheTree();
    void namesTypesAndFieldsShowTheirRows_data();
    void namesTypesAndFieldsShowTheirRows();
    void rowsNoViewHasAskedForAreFound();
    void noMatchShowsNoRows();
    void aMatchedNodeOpensToAllItsRows();
    void aFieldFoundByItsNameStaysFolded_data();
    void aFieldFoundByItsNameStaysFolded();
    void unknownNodesAreFoundByTheNameTheTreeShows();
    void valuesFollowTheirFieldsWhileFiltered();
    void filteredRowsFormAConsistentModel();
    void aNewSceneIsFilteredByTheSameText();
    void deepScenesAreSearchedWithoutRecursion();
    void deepScenesAreMappedWithoutRecursion();
};

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

void tst_SceneFilter::aFieldFoundByItsNameStaysFolded_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<int>("matches");
    // The rows the person then opens, and what the tree shows after.
    QTest::addColumn<QStringList>("open");
    QTest::addColumn<QStringList>("opened");
    // The field that holds the node matched by its name: it is shown
    // folded, the node it holds one click away.
    QTest::newRow("field and node by type")
        << "VertexProperty" << QStringList{"Separator", "Mesh", "vertexProperty"} << 2
        << QStringList{"vertexProperty"} << QStringList{"Separator", "Mesh", "vertexProperty", "Corners"};
    // What matched inside it is counted, and found when the field is
    // opened, in a node kept whole.
    QTest::newRow("field, node and the node's field")
        << "vertex" << QStringList{"Separator", "Mesh", "vertexProperty"} << 3
        << QStringList{"vertexProperty"} << QStringList{"Separator", "Mesh", "vertexProperty", "Corners"};
    // A field that did not match itself opens to what it holds.
    QTest::newRow("the node alone") << "Corners"
                                    << QStringList{"Separator", "Mesh", "vertexProperty", "Corners"} << 1
                                    << QStringList{}
                                    << QStringList{"Separator", "Mesh", "vertexProperty", "Corners"};
}

void tst_SceneFilter::aFieldFoundByItsNameStaysFolded()
{
    QFETCH(QString, text);
    QFETCH(QStringList, shown);
    QFETCH(int, matches);
    QFETCH(QStringList, open);
    QFETCH(QStringList, opened);
    const QString path = m_dir.filePath(QStringLiteral("held.iv"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(
        "#Inventor V2.1 ascii\nSeparator { DEF Mesh PointSet { vertexProperty DEF Corners VertexProperty "
        "{ vertex [ 0 0 0, 1 0 0 ] normal [ 0 0 1 ] } } }\n");
    file.close();
    QVERIFY(m_host->openScene(path));

    typeFilter(text);
    QTRY_COMPARE(shownRows(), shown);
    QCOMPARE(box()->matchCount(), matches);
    QTreeView* tree = shownTree();
    for (const QString& name : open) {
        QModelIndex at = tree->model()->index(0, 0);
        while (at.isValid() && at.data().toString() != name)
            at = tree->indexBelow(at);
        QVERIFY2(at.isValid(), qPrintable(name));
        QVERIFY(!tree->isExpanded(at));
        // By the keyboard, as a person opens a row.
        tree->setCurrentIndex(at);
        QTest::keyClick(tree, Qt::Key_Right);
    }
    QCOMPARE(shownRows(), opened);
    // The node under the field is kept whole: every row the scene has.
    const QModelIndex corners = SceneFilterFixture::shown(row(QStringLiteral("Corners")));
    QVERIFY(corners.isValid());
    QVERIFY(!tree->isExpanded(corners));
    QCOMPARE(tree->model()->rowCount(corners),
             m_host->sceneModel()->rowCount(row(QStringLiteral("Corners"))));
}

void tst_SceneFilter::unknownNodesAreFoundByTheNameTheTreeShows()
{
    const QString path = m_dir.filePath(QStringLiteral("marks.iv"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(MarksScene::kText);
    file.close();
    QVERIFY(m_host->openScene(path));

    // Both nodes of the file's own type: one by that name and its type, the
    // other, without a name, by its type alone.
    typeFilter(QStringLiteral("mynode"));
    QTRY_COMPARE(shownRows(), (QStringList{"Separator", "MyNode", "Named"}));
    QCOMPARE(box()->matchCount(), 2);
    QCOMPARE(shown(row(QStringLiteral("Named"))).siblingAtColumn(SceneModel::TypeColumn).data().toString(),
             QStringLiteral("MyNode"));

    // What the tree never shows finds nothing.
    typeFilter(QStringLiteral("UnknownNode"));
    QTRY_VERIFY(shownRows().isEmpty());
    QCOMPARE(box()->matchCount(), 0);
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
    // The whole row changes: its name's mark follows the field too.
    QCOMPARE(changed.last().at(1).toModelIndex(), value);
    QCOMPARE(changed.last().at(0).toModelIndex(), value.siblingAtColumn(SceneModel::NameColumn));
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
