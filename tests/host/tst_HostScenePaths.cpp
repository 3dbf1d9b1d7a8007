// One path a person can copy: the caption shows the path --select takes,
// with places where names are missing or repeated, "Copy Path" puts it on
// the clipboard, and --select takes every path the caption shows back to
// the row it was shown for.
#include "FieldTesting.h"
#include "HostWindowFixture.h"

#include <SceneModel.h>
#include <ScenePath.h>
#include <SelectionCaption.h>
#include <TreeSelection.h>

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMainWindow>
#include <QTreeView>

#include <vector>

class tst_HostScenePaths : public HostWindowFixture
{
    Q_OBJECT

private slots:
    void init();
    void pathsUseNamesOrPlaces_data();
    void pathsUseNamesOrPlaces();
    void everyCaptionPathSelectsItsRow();
    void copyPathPutsThePathOnTheClipboard();
    void pathsThatNameNothingSayWhy_data();
    void pathsThatNameNothingSayWhy();

private:
    QModelIndex row(const QString& path) const;
    SelectionCaption* caption() const;
};

namespace {

// Repeated names in the scene and among siblings, unnamed nodes, a node
// used twice, a node held in a field, a kit's part and a VRML group's
// children.
const QByteArray kScene = R"(#Inventor V2.1 ascii
Separator {
  DEF Gold Material { }
  Separator { DEF Gold Material { } Cube { } }
  DEF Ornament Separator { DEF Shine Material { } DEF Shine Material { } Sphere { } }
  DEF Shared Group { Cube { } }
  USE Shared
  PointSet { vertexProperty VertexProperty { vertex [ 0 0 0, 1 0 0 ] } }
  DEF Kit ShapeKit { transform Transform { } }
  VRMLGroup { children [ VRMLShape { }, DEF Lone VRMLShape { } ] }
}
)";

} // namespace

void tst_HostScenePaths::init()
{
    HostWindowFixture::init();
    const QString path = m_dir.filePath(QStringLiteral("paths.iv"));
    writeFile(path, kScene);
    QVERIFY(m_host->openScene(path));
    processSensors();
}

QModelIndex tst_HostScenePaths::row(const QString& path) const
{
    QString error;
    return ScenePath::find(*m_host->sceneModel(), path, &error);
}

SelectionCaption* tst_HostScenePaths::caption() const
{
    return m_host->window()->findChild<SelectionCaption*>(QStringLiteral("SelectionCaption"));
}

void tst_HostScenePaths::pathsUseNamesOrPlaces_data()
{
    QTest::addColumn<QString>("reached");
    QTest::addColumn<QString>("shown");
    QTest::newRow("the root") << "/"
                              << "/";
    QTest::newRow("a field of the root") << "/.renderCaching"
                                         << "/.renderCaching";
    QTest::newRow("a name used twice, first") << "/0"
                                              << "/Gold";
    QTest::newRow("a name used twice, second") << "/1/0.diffuseColor"
                                               << "/1/Gold.diffuseColor";
    QTest::newRow("an unnamed node") << "/1/1"
                                     << "/1/1";
    QTest::newRow("from a named node") << "/2/2"
                                       << "Ornament/2";
    QTest::newRow("siblings of one name") << "/2/1.diffuseColor"
                                          << "Ornament/1.diffuseColor";
    QTest::newRow("a shared node where first met") << "/3/0"
                                                   << "Shared/0";
    QTest::newRow("a shared node met again") << "/4/0.width"
                                             << "/4/0.width";
    QTest::newRow("a node in a field") << "/5.vertexProperty/0.vertex"
                                       << "/5.vertexProperty/0.vertex";
    QTest::newRow("a kit's part") << "Kit.transform/0.translation"
                                  << "Kit.transform/0.translation";
    QTest::newRow("a VRML group's child") << "/7.children/0"
                                          << "/7.children/0";
    QTest::newRow("a named VRML child") << "/7.children/1.appearance"
                                        << "Lone.appearance";
}

void tst_HostScenePaths::pathsUseNamesOrPlaces()
{
    QFETCH(QString, reached);
    QFETCH(QString, shown);
    const QModelIndex index = row(reached);
    QVERIFY2(index.isValid(), qPrintable(reached));
    QCOMPARE(ScenePath::of(*m_host->sceneModel(), index), shown);
    QCOMPARE(row(shown), index);
}

void tst_HostScenePaths::everyCaptionPathSelectsItsRow()
{
    // Every row of the scene, the kit's many parts included, as a person
    // would select it in the tree.
    SceneModel* model = m_host->sceneModel();
    QTreeView* tree = m_host->tree();
    std::vector<QModelIndex> rows{model->index(0, 0)};
    for (size_t i = 0; i < rows.size(); ++i) {
        for (int r = 0; r < model->rowCount(rows[i]); ++r)
            rows.push_back(model->index(r, 0, rows[i]));
    }
    QVERIFY(rows.size() > 100);
    for (const QModelIndex& index : rows) {
        tree->scrollTo(index);
        TreeSelection::selectRow(tree->selectionModel(), index);
        const QString path = SelectionCaption::pathOf(index);
        QVERIFY(!path.isEmpty());
        QVERIFY2(caption()->plainText().startsWith(path + QLatin1Char(' ')),
                 qPrintable(caption()->plainText()));
        TreeSelection::selectRow(tree->selectionModel(), QModelIndex());
        QVERIFY2(m_host->select(path), qPrintable(path));
        QCOMPARE(TreeSelection::selectedRow(tree->selectionModel()), index);
    }
}

void tst_HostScenePaths::copyPathPutsThePathOnTheClipboard()
{
    QTreeView* tree = m_host->tree();
    // On the rows' context menu.
    QCOMPARE(tree->contextMenuPolicy(), Qt::ActionsContextMenu);
    QAction* copy = nullptr;
    for (QAction* action : tree->actions()) {
        if (action->objectName() == QLatin1String("CopyPathAction"))
            copy = action;
    }
    QVERIFY(copy);
    QCOMPARE(copy->text(), QStringLiteral("Copy Path"));
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));

    QVERIFY(m_host->select(QStringLiteral("/2/1.diffuseColor")));
    copy->trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("Ornament/1.diffuseColor"));

    QVERIFY(m_host->select(QStringLiteral("/5.vertexProperty/0")));
    copy->trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("/5.vertexProperty/0"));
}

void tst_HostScenePaths::pathsThatNameNothingSayWhy_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("error");
    QTest::newRow("no such child") << "Ornament/7"
                                   << "The scene has no node \"Ornament/7\".";
    QTest::newRow("no such name among children") << "Ornament/Gold"
                                                 << "The scene has no node \"Ornament/Gold\".";
    QTest::newRow("an empty field") << "Kit.appearance/0"
                                    << "The scene has no node \"Kit.appearance/0\".";
    QTest::newRow("a field of a field") << "Kit.transform.translation"
                                        << "The node \"Kit.transform\" has no field \"translation\".";
    QTest::newRow("no field after a dot") << "Kit.transform/0."
                                          << "The path \"Kit.transform/0.\" names no field after its dot.";
}

void tst_HostScenePaths::pathsThatNameNothingSayWhy()
{
    QFETCH(QString, path);
    QFETCH(QString, error);
    QString said;
    QVERIFY(!ScenePath::find(*m_host->sceneModel(), path, &said).isValid());
    QCOMPARE(said, error);
}

QTEST_MAIN(tst_HostScenePaths)
#include "tst_HostScenePaths.moc"
