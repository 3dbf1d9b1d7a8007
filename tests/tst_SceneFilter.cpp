// The filter box above the host's scene tree: typed names, types and field
// names show their rows with their ancestors over the whole scene, selection
// works through the filtered tree, and clearing gives the tree back.
#include "HostWindowTesting.h"
#include <KalHostWindow.h>
#include <KalPluginsManager.h>
#include <KalServices.h>
#include <LargeStack.h>
#include <SceneFilterBox.h>
#include <SceneModel.h>
#include <ScenePath.h>
#include <SceneSearch.h>

#include <Inventor/fields/SoField.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoGroup.h>

#include <QAction>
#include <QDockWidget>
#include <QLineEdit>
#include <QMainWindow>
#include <QTemporaryDir>
#include <QTreeView>
#include <QtTest>

#include <memory>

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
    void clearingGivesTheTreeBack();
    void aNewSceneIsFilteredByTheSameText();
    void deepScenesAreSearchedWithoutRecursion();

private:
    QLineEdit* filter() const;
    SceneFilterBox* box() const;
    // Types a filter text as a person would.
    void typeFilter(const QString& text);
    // The names of the rows in sight, top to bottom.
    QStringList shownRows() const;
    QModelIndex row(const QString& path) const;
    void clickRow(const QModelIndex& index);

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

QStringList tst_SceneFilter::shownRows() const
{
    QTreeView* tree = m_host->tree();
    QStringList names;
    QModelIndex at = tree->model()->index(0, 0);
    if (at.isValid() && tree->isRowHidden(0, QModelIndex()))
        return names;
    for (; at.isValid(); at = tree->indexBelow(at))
        names << at.data().toString();
    return names;
}

QModelIndex tst_SceneFilter::row(const QString& path) const
{
    QString error;
    const QModelIndex index = ScenePath::resolve(*m_host->model(), path, &error);
    if (!index.isValid())
        qWarning() << error;
    return index;
}

void tst_SceneFilter::clickRow(const QModelIndex& index)
{
    QTreeView* tree = m_host->tree();
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
    QVERIFY(m_host->tree()->visualRect(row(QStringLiteral("Bottom"))).height() > 0);
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
    QCOMPARE(field, m_host->model()->field(shininess));
    QCOMPARE(nodes.last().at(0).value<SoFieldContainer*>(),
             m_host->model()->container(row(QStringLiteral("Gold"))));
    auto* dock = m_host->window()->findChild<QDockWidget*>(QStringLiteral("KalFieldEditorDock"));
    QVERIFY(dock && !dock->isHidden());
    QCOMPARE(dock->widget()->objectName(), QStringLiteral("FxMFFloatWidget"));

    // A node row as well.
    const QModelIndex stone = row(QStringLiteral("Stone"));
    clickRow(stone);
    QCOMPARE(nodes.last().at(0).value<SoFieldContainer*>(), m_host->model()->container(stone));
}

void tst_SceneFilter::keysMoveOverShownRowsOnly()
{
    typeFilter(QStringLiteral("diffuseColor"));
    QTRY_COMPARE(shownRows().size(), 10);
    QTreeView* tree = m_host->tree();
    clickRow(row(QStringLiteral("Stone.diffuseColor")));
    QTest::keyClick(tree, Qt::Key_Down);
    // Past the pedestal's hidden rows, to the ornament.
    QCOMPARE(tree->currentIndex(), row(QStringLiteral("Ornament")));
    QTest::keyClick(tree, Qt::Key_Down);
    QTest::keyClick(tree, Qt::Key_Down);
    QCOMPARE(tree->currentIndex(), row(QStringLiteral("Gold.diffuseColor")));
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

QTEST_MAIN(tst_SceneFilter)
#include "tst_SceneFilter.moc"
