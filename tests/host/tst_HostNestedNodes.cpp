// Nodes held in fields are nodes of kalhost's tree: a shape's
// vertexProperty, a kit's parts, a VRML group's children and the scene a
// File node read in are rows with their own fields, reached by --select,
// found by the filter, edited by the plug-in's editors and picked in the 3D
// view (tst_HostNestedNodes_xvfb).
#include "FieldTesting.h"
#include "HostWindowFixture.h"
#include "ListEditorTesting.h"
#include "TableTesting.h"

#include <KalServices.h>
#include <SceneFilterBox.h>
#include <SceneModel.h>
#include <ScenePath.h>
#include <SceneRows.h>
#include <SceneSearch.h>
#include <SelectionCaption.h>
#include <TreeSelection.h>
#include <ViewPicker.h>

#include <Inventor/Qt/viewers/SoQtExaminerViewer.h>
#include <Inventor/fields/SoMFVec3f.h>
#include <Inventor/fields/SoSFFloat.h>
#include <Inventor/fields/SoSFNode.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoVertexProperty.h>

#include <QAction>
#include <QLineEdit>
#include <QMainWindow>
#include <QTreeView>
#include <QUndoStack>

using namespace ListEditorTesting;

class tst_HostNestedNodes : public HostWindowFixture
{
    Q_OBJECT

public:
    tst_HostNestedNodes()
        : HostWindowFixture(true)
    {}

private slots:
    void aVertexPropertyIsEditedInItsListAndUndone();
    void aNewValueOfANodeFieldReplacesItsRows();
    void kitPartsAreRowsUnderTheKit();
    void aFileNodesSceneIsUnderIt();
    void vrmlChildrenAreUnderTheirField();
    void nestedNodesAreFoundByTheFilter();
    void aSharedNodeShowsUnderEveryParent();
    void aBillionPlacesAreFilteredInOneWalk();
    void kitPartIsPickedFromTheView();

private:
    void open(const QByteArray& scene);
    QModelIndex row(const QString& path) const;
    QString typeAt(const QModelIndex& index) const;
};

void tst_HostNestedNodes::open(const QByteArray& scene)
{
    const QString path = m_dir.filePath(QStringLiteral("scene.iv"));
    writeFile(path, "#Inventor V2.1 ascii\n" + scene);
    QVERIFY(m_host->openScene(path));
    processSensors();
}

QModelIndex tst_HostNestedNodes::row(const QString& path) const
{
    QString error;
    const QModelIndex index = ScenePath::find(*m_host->sceneModel(), path, &error);
    if (!index.isValid())
        qWarning() << error;
    return index;
}

QString tst_HostNestedNodes::typeAt(const QModelIndex& index) const
{
    return index.siblingAtColumn(SceneModel::TypeColumn).data().toString();
}

void tst_HostNestedNodes::aVertexPropertyIsEditedInItsListAndUndone()
{
    QByteArray vertices;
    for (int i = 0; i < 10000; ++i)
        vertices += QByteArray::number(i % 100) + ' ' + QByteArray::number(i / 100) + " 0,\n";
    open("Separator { DEF Mesh PointSet { vertexProperty VertexProperty { vertex [ " + vertices + " ] } } }");

    // The shape's field holds the VertexProperty as a row of its own.
    const QModelIndex holder = row(QStringLiteral("Mesh.vertexProperty"));
    QVERIFY(holder.isValid());
    QCOMPARE(m_host->sceneModel()->rowCount(holder), 1);
    const QModelIndex property = m_host->sceneModel()->index(0, 0, holder);
    QCOMPARE(typeAt(property), QStringLiteral("VertexProperty"));
    auto* node = static_cast<SoVertexProperty*>(m_host->sceneModel()->container(property));
    QVERIFY(node && node->isOfType(SoVertexProperty::getClassTypeId()));
    QCOMPARE(node->vertex.getNum(), 10000);

    // Its vertex list in the plug-in's vector list editor, from the path
    // the caption shows.
    QVERIFY(m_host->select(QStringLiteral("Mesh.vertexProperty/0.vertex")));
    processSensors();
    QCOMPARE(EditorDockFixture::dock()->widget()->objectName(), QStringLiteral("FxMFVec3fWidget"));
    QCOMPARE(table()->rowCount(), 10000);
    auto* caption = m_host->window()->findChild<SelectionCaption*>(QStringLiteral("SelectionCaption"));
    QVERIFY(caption);
    QVERIFY2(caption->plainText().startsWith(QStringLiteral("Mesh.vertexProperty/0.vertex")),
             qPrintable(caption->plainText()));

    const SbVec3f before = node->vertex[4321];
    QVERIFY(typeIntoTableCell(table(), 4321, 2, QStringLiteral("7.5")));
    processSensors();
    QCOMPARE(node->vertex[4321][2], 7.5f);
    QCOMPARE(node->vertex[4321][0], before[0]);
    // The edit leaves the row selected: the shape's field that holds the
    // node kept its rows.
    QCoreApplication::processEvents();
    QCOMPARE(TreeSelection::selectedRow(m_host->tree()->selectionModel()),
             row(QStringLiteral("Mesh.vertexProperty/0.vertex")));
    QCOMPARE(EditorDockFixture::dock()->widget()->objectName(), QStringLiteral("FxMFVec3fWidget"));
    QUndoStack* stack = KalServices::getInstance()->undoStack();
    QCOMPARE(stack->count(), 1);
    // A list this long is named by its length.
    QCOMPARE(stack->text(0), QStringLiteral("Set VertexProperty.vertex (10000 values)"));
    QVERIFY(m_host->hasUnsavedChanges());

    auto* undo = m_host->window()->findChild<QAction*>(QStringLiteral("UndoAction"));
    QVERIFY(undo && undo->isEnabled());
    undo->trigger();
    processSensors();
    QCOMPARE(node->vertex[4321], before);
    QCOMPARE(node->vertex.getNum(), 10000);
    QCOMPARE(stack->index(), 0);
    QVERIFY(!m_host->hasUnsavedChanges());
}

void tst_HostNestedNodes::aNewValueOfANodeFieldReplacesItsRows()
{
    open("Separator { DEF Mesh PointSet { vertexProperty DEF Old VertexProperty { vertex [ 0 0 0 ] } } }");
    SceneModel* model = m_host->sceneModel();
    const QModelIndex holder = row(QStringLiteral("Mesh.vertexProperty"));
    m_host->tree()->expand(holder);
    QCOMPARE(model->data(model->index(0, 0, holder)).toString(), QStringLiteral("Old"));

    // A value inside the held node shows in its row.
    const QModelIndex vertex = row(QStringLiteral("Old.vertex"));
    auto* old = static_cast<SoVertexProperty*>(SoNode::getByName("Old"));
    old->vertex.set1Value(0, SbVec3f(5, 6, 7));
    processSensors();
    QCoreApplication::processEvents();
    QCOMPARE(model->data(vertex.siblingAtColumn(SceneModel::ValueColumn)).toString(),
             QStringLiteral("[1] 5 6 7"));
    QCOMPARE(model->data(model->index(0, 0, holder)).toString(), QStringLiteral("Old"));

    // The old node goes from the field and from the tree; the new one takes
    // its row.
    auto* mesh = SoNode::getByName("Mesh");
    auto* field = static_cast<SoSFNode*>(mesh->getField("vertexProperty"));
    auto* replacement = new SoVertexProperty;
    replacement->setName("New");
    field->setValue(replacement);
    processSensors();
    QCoreApplication::processEvents();
    QCOMPARE(model->rowCount(holder), 1);
    QCOMPARE(model->data(model->index(0, 0, holder)).toString(), QStringLiteral("New"));
    QCOMPARE(model->container(model->index(0, 0, holder)), static_cast<SoFieldContainer*>(replacement));

    field->setValue(nullptr);
    processSensors();
    QCoreApplication::processEvents();
    QCOMPARE(model->rowCount(holder), 0);
    QVERIFY(!row(QStringLiteral("Mesh.vertexProperty/0")).isValid());
}

void tst_HostNestedNodes::kitPartsAreRowsUnderTheKit()
{
    open(
        "Separator { DEF LEFT_THIGH ShapeKit { transform Transform { translation 1 2 3 } shape Cube { } } }");
    SceneModel* model = m_host->sceneModel();
    const QModelIndex kit = row(QStringLiteral("LEFT_THIGH"));
    QVERIFY(kit.isValid());
    // The kit's own groups are not listed beside its parts: neither as its
    // children nor under their (private) part fields.
    auto* kitNode = static_cast<SoNode*>(model->container(kit));
    QCOMPARE(model->rowCount(kit), SceneRows::fieldCount(kitNode));
    const QModelIndex top = row(QStringLiteral("LEFT_THIGH.topSeparator"));
    QVERIFY(top.isValid());
    QVERIFY(static_cast<SoSFNode*>(model->field(top))->getValue());
    QCOMPARE(model->rowCount(top), 0);

    // The part as the command line reaches it: its field, and the node.
    QVERIFY(m_host->select(QStringLiteral("LEFT_THIGH.transform")));
    const QModelIndex part = TreeSelection::selectedRow(m_host->tree()->selectionModel());
    QCOMPARE(part.data().toString(), QStringLiteral("transform"));
    QCOMPARE(model->rowCount(part), 1);
    QCOMPARE(typeAt(model->index(0, 0, part)), QStringLiteral("Transform"));

    QVERIFY(m_host->select(QStringLiteral("LEFT_THIGH.transform/0.translation")));
    processSensors();
    QCOMPARE(EditorDockFixture::dock()->widget()->objectName(), QStringLiteral("FxSFVec3fWidget"));
    QCOMPARE(model->field(TreeSelection::selectedRow(m_host->tree()->selectionModel()))->getTypeId(),
             SoSFVec3f::getClassTypeId());
    // A part the kit does not have has no row.
    QVERIFY(!row(QStringLiteral("LEFT_THIGH.appearance/0")).isValid());
}

void tst_HostNestedNodes::aFileNodesSceneIsUnderIt()
{
    writeFile(m_dir.filePath(QStringLiteral("part.iv")), "#Inventor V2.1 ascii\nDEF Part Cube { width 3 }\n");
    open("Separator { File { name \"part.iv\" } }");
    QVERIFY(m_host->select(QStringLiteral("Part.width")));
    processSensors();
    const QModelIndex width = TreeSelection::selectedRow(m_host->tree()->selectionModel());
    auto* cube = static_cast<SoCube*>(m_host->sceneModel()->container(width));
    QVERIFY(cube && cube->isOfType(SoCube::getClassTypeId()));
    QCOMPARE(cube->width.getValue(), 3.0f);
    QCOMPARE(typeAt(width.parent().parent()), QStringLiteral("File"));
    QCOMPARE(EditorDockFixture::dock()->widget()->objectName(), QStringLiteral("FxSFFloatWidget"));
}

void tst_HostNestedNodes::vrmlChildrenAreUnderTheirField()
{
    open("Separator { DEF Top VRMLGroup { children [ DEF First VRMLShape { }, VRMLTransform { } ] } }");
    SceneModel* model = m_host->sceneModel();
    const QModelIndex group = row(QStringLiteral("Top"));
    auto* top = static_cast<SoNode*>(model->container(group));
    // Once, under "children", not a second time as the group's own.
    QCOMPARE(model->rowCount(group), SceneRows::fieldCount(top));
    const QModelIndex children = row(QStringLiteral("Top.children"));
    QCOMPARE(model->rowCount(children), 2);
    QCOMPARE(row(QStringLiteral("Top.children/First")), model->index(0, 0, children));
    QCOMPARE(typeAt(row(QStringLiteral("Top.children/1"))), QStringLiteral("VRMLTransform"));
}

void tst_HostNestedNodes::nestedNodesAreFoundByTheFilter()
{
    open("Separator { DEF Mesh PointSet { vertexProperty VertexProperty { vertex [ 0 0 0 ] } } "
         "DEF LEFT_THIGH ShapeKit { transform DEF ThighMove Transform { } } }");
    auto* box = m_host->window()->findChild<SceneFilterBox*>();
    QVERIFY(box);
    box->edit()->setText(QStringLiteral("ThighMove"));
    box->apply();
    QCOMPARE(box->matchCount(), 1);
    // Found under the kit's field, with the rows above it.
    QTreeView* filtered = box->filteredTree();
    QAbstractItemModel* rows = filtered->model();
    const QModelIndex root = rows->index(0, 0);
    QCOMPARE(rows->rowCount(root), 1);
    const QModelIndex kit = rows->index(0, 0, root);
    QCOMPARE(kit.data().toString(), QStringLiteral("LEFT_THIGH"));
    QCOMPARE(rows->rowCount(kit), 1);
    const QModelIndex part = rows->index(0, 0, kit);
    QCOMPARE(part.data().toString(), QStringLiteral("transform"));
    QCOMPARE(rows->index(0, 0, part).data().toString(), QStringLiteral("ThighMove"));

    // The node by its type, and the shape's field that holds it by its name.
    box->edit()->setText(QStringLiteral("VertexProperty"));
    box->apply();
    QCOMPARE(box->matchCount(), 2);
    const QModelIndex mesh = rows->index(0, 0, rows->index(0, 0));
    QCOMPARE(mesh.data().toString(), QStringLiteral("Mesh"));
    QCOMPARE(typeAt(rows->index(0, 0, rows->index(0, 0, mesh))), QStringLiteral("VertexProperty"));
}

namespace {

// Thirty groups, each using the one below twice: 2^30 places for the cube
// at the bottom, 31 nodes.
QByteArray doublingScene()
{
    QByteArray group = "DEF L0 Cube { }";
    for (int level = 1; level <= 30; ++level)
        group = "DEF L" + QByteArray::number(level) + " Group {\n" + group + "\nUSE L" +
                QByteArray::number(level - 1) + " }";
    return "Separator {\n" + group + "\n}\n";
}

} // namespace

void tst_HostNestedNodes::aSharedNodeShowsUnderEveryParent()
{
    open(doublingScene());
    SceneModel* model = m_host->sceneModel();
    // Down the second use at every level: each place has rows of its own,
    // made as they are reached.
    QString places = QStringLiteral("/0");
    for (int level = 30; level > 0; --level) {
        const QModelIndex group = row(places);
        QCOMPARE(group.data().toString(), QStringLiteral("L%1").arg(level));
        QCOMPARE(model->rowCount(group), 2);
        QCOMPARE(model->container(model->index(0, 0, group)), model->container(model->index(1, 0, group)));
        places += QStringLiteral("/1");
    }
    QCOMPARE(typeAt(row(places)), QStringLiteral("Cube"));
    QVERIFY(m_host->select(places + QStringLiteral(".width")));
    processSensors();
    QCOMPARE(EditorDockFixture::dock()->widget()->objectName(), QStringLiteral("FxSFFloatWidget"));
}

void tst_HostNestedNodes::aBillionPlacesAreFilteredInOneWalk()
{
    open(doublingScene());
    const SceneSearch::Result found = SceneSearch::run(m_host->sceneModel()->root(), QStringLiteral("width"));
    // The cube's field, where the walk first meets it; each group is kept
    // once opened and once folded (the second use of the one below).
    QCOMPARE(found.matches, 1);
    QVERIFY2(found.rows.size() < 100, qPrintable(QString::number(found.rows.size())));

    auto* box = m_host->window()->findChild<SceneFilterBox*>();
    box->edit()->setText(QStringLiteral("width"));
    box->apply();
    QAbstractItemModel* rows = box->filteredTree()->model();
    // The way down the first uses, opened to the cube's width.
    QModelIndex at = rows->index(0, 0);
    QCOMPARE(rows->rowCount(at), 1);
    at = rows->index(0, 0, at);
    for (int level = 30; level > 0; --level) {
        QCOMPARE(at.data().toString(), QStringLiteral("L%1").arg(level));
        // Both uses are there: the first opened, the second folded whole.
        QCOMPARE(rows->rowCount(at), 2);
        at = rows->index(0, 0, at);
    }
    QCOMPARE(at.data().toString(), QStringLiteral("L0"));
    QCOMPARE(rows->rowCount(at), 1);
    QCOMPARE(rows->index(0, 0, at).data().toString(), QStringLiteral("width"));
}

void tst_HostNestedNodes::kitPartIsPickedFromTheView()
{
    if (!m_host->viewer())
        QSKIP("The 3D view needs an X server (this test runs under Xvfb).");
    open("Separator { DEF LEFT_THIGH ShapeKit { shape Cube { width 4 height 4 } } }");
    QTest::qWait(200);
    auto* picker = m_host->findChild<ViewPicker*>();
    QVERIFY(picker);
    QWidget* area = m_host->viewer()->getGLWidget();
    QVERIFY(picker->pickAt(area->rect().center()));
    // The cube under the kit's "shape" part, not inside the kit's groups.
    const QModelIndex picked = TreeSelection::selectedRow(m_host->tree()->selectionModel());
    QCOMPARE(picked, row(QStringLiteral("LEFT_THIGH.shape/0")));
    QCOMPARE(typeAt(picked), QStringLiteral("Cube"));
    // Outlined where the kit draws it.
    QCOMPARE(picker->highlighted(), static_cast<SoNode*>(m_host->sceneModel()->container(picked)));
}

QTEST_MAIN(tst_HostNestedNodes)
#include "tst_HostNestedNodes.moc"
