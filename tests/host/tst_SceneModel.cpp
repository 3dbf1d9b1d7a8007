// The host's scene tree model: Qt's model checks on the sample scene and on
// a scene of 100,000 nodes, rows made on demand, value texts that follow
// the fields, and the paths --select understands.
#include <KalFieldSampler.h>
#include <RoundTripText.h>
#include <SceneDocument.h>
#include <SceneModel.h>
#include <ScenePath.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoInfo.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QAbstractItemModelTester>
#include <QFile>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

namespace {

SoSeparator* sampleScene()
{
    QFile file(QStringLiteral(":/scenes/sample.iv"));
    if (!file.open(QIODevice::ReadOnly))
        return nullptr;
    QString error;
    return SceneDocument::readBuffer(file.readAll(), QStringLiteral("sample"), &error);
}

// 100,000 nodes: a root of 1,000 groups of 99 nodes each. With fields, the
// children alternate materials and cubes; without, they are empty groups,
// so that Qt's model tester, which walks every row it can reach, checks the
// shape of a tree that big without walking half a million field rows.
SoNode* hugeScene(bool withFields = true)
{
    SoGroup* root = withFields ? new SoSeparator : new SoGroup;
    for (int group = 0; group < 1000; ++group) {
        SoGroup* parent = withFields ? new SoSeparator : new SoGroup;
        for (int i = 0; i < 99; ++i) {
            if (!withFields)
                parent->addChild(new SoGroup);
            else
                parent->addChild((i % 2) ? static_cast<SoNode*>(new SoCube) : new SoMaterial);
        }
        root->addChild(parent);
    }
    return root;
}

void walk(QAbstractItemModel& model, const QModelIndex& parent, int depth, int* rows)
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        ++*rows;
        const QModelIndex index = model.index(row, 0, parent);
        QVERIFY(index.isValid());
        model.data(model.index(row, SceneModel::ValueColumn, parent));
        if (depth > 0)
            walk(model, index, depth - 1, rows);
    }
}

} // namespace

class tst_SceneModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void sampleSceneIsAValidModel();
    void hugeSceneIsAValidModel();
    void hugeSceneReachesDeepRowsByPlaces();
    void rowsShowNodesThenFieldsThenChildren();
    void valueTextsFollowTheFields();
    void longListsAreSummarised();
    void pathsByNameAndByPlaces();
    void unknownPathsSayWhy();
    void numbersAreShownInTheirShortestForm_data();
    void numbersAreShownInTheirShortestForm();
    void tooltipsHoldWhatTheCellCuts();
};

void tst_SceneModel::initTestCase()
{
    Q_INIT_RESOURCE(kalhost);
    SoDB::init();
    SoKalExtensions::init();
    KalFieldSampler::initClass();
}

void tst_SceneModel::sampleSceneIsAValidModel()
{
    SceneModel model;
    SoSeparator* root = sampleScene();
    QVERIFY(root);
    model.setRoot(root);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    int rows = 0;
    walk(model, QModelIndex(), 6, &rows);
    QVERIFY(rows > 80);
    model.setRoot(nullptr);
    QCOMPARE(model.rowCount(), 0);
}

void tst_SceneModel::hugeSceneIsAValidModel()
{
    SceneModel model;
    model.setRoot(hugeScene(false));
    // Fatal: a broken check ends the program, and a passing one costs no
    // Qt Test bookkeeping, which over 100,000 rows is most of the run.
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QModelIndex top = model.index(0, 0);
    QCOMPARE(model.rowCount(top), 1000);
    const QModelIndex last = model.index(999, 0, top);
    QCOMPARE(model.rowCount(last), 99);
    int rows = 0;
    walk(model, top, 2, &rows);
    QCOMPARE(rows, 1000 + 1000 * 99);

    // With fields: four of the separator's, then its thousand children.
    model.setRoot(hugeScene());
    const QModelIndex separator = model.index(0, 0);
    QCOMPARE(model.rowCount(separator), 4 + 1000);
    QCOMPARE(model.rowCount(model.index(4 + 999, 0, separator)), 4 + 99);
}

void tst_SceneModel::hugeSceneReachesDeepRowsByPlaces()
{
    SceneModel model;
    model.setRoot(hugeScene());
    // A row deep in the last group is reached straight from its child places,
    // as --select does, without a view having expanded anything on the way.
    const QModelIndex top = model.index(0, 0);
    QCOMPARE(model.rowCount(top), 1004);
    const QModelIndex node = model.nodeIndex({999, 97});
    QVERIFY(node.isValid());
    QCOMPARE(model.data(node.siblingAtColumn(SceneModel::TypeColumn)).toString(), QStringLiteral("Cube"));
}

void tst_SceneModel::rowsShowNodesThenFieldsThenChildren()
{
    SceneModel model;
    model.setRoot(sampleScene());
    const QModelIndex stone = model.nodeIndex({3, 1});
    QCOMPARE(model.data(stone).toString(), QStringLiteral("Stone"));
    QCOMPARE(model.data(stone.siblingAtColumn(SceneModel::TypeColumn)).toString(),
             QStringLiteral("Material"));
    const QModelIndex diffuse = model.index(1, 0, stone);
    QCOMPARE(model.data(diffuse).toString(), QStringLiteral("diffuseColor"));
    QCOMPARE(model.data(diffuse.siblingAtColumn(SceneModel::TypeColumn)).toString(),
             QStringLiteral("MFColor"));
    QCOMPARE(model.data(diffuse.siblingAtColumn(SceneModel::ValueColumn)).toString(),
             QStringLiteral("[1] 0.8 0.75 0.65"));
    QVERIFY(model.field(diffuse));
    QCOMPARE(model.container(diffuse), model.container(stone));
    QVERIFY(!model.hasChildren(diffuse));
    // The separator's four fields come before its children.
    const QModelIndex pedestal = model.nodeIndex({3});
    QCOMPARE(model.data(model.index(4, 0, pedestal)).toString(), QStringLiteral("PedestalTransform"));
}

void tst_SceneModel::valueTextsFollowTheFields()
{
    SceneModel model;
    model.setRoot(sampleScene());
    QString error;
    const QModelIndex opacity = ScenePath::find(model, QStringLiteral("Sampler.opacity"), &error);
    QVERIFY2(opacity.isValid(), qPrintable(error));
    const QModelIndex value = opacity.siblingAtColumn(SceneModel::ValueColumn);
    QCOMPARE(model.data(value).toString(), QStringLiteral("0.75"));
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QSignalSpy fieldChanged(&model, &SceneModel::fieldChanged);
    auto* sampler = static_cast<KalFieldSampler*>(model.container(opacity));
    sampler->opacity.setValue(0.25f);
    sampler->opacity.setValue(0.5f);
    QCOMPARE(fieldChanged.count(), 2);
    QTRY_COMPARE(changed.count(), 1);
    // The whole row: its name's mark follows the field too.
    QCOMPARE(changed.first().at(0).toModelIndex(), value.siblingAtColumn(SceneModel::NameColumn));
    QCOMPARE(changed.first().at(1).toModelIndex(), value);
    QCOMPARE(model.data(value).toString(), QStringLiteral("0.5"));
}

void tst_SceneModel::longListsAreSummarised()
{
    SceneModel model;
    model.setRoot(sampleScene());
    QString error;
    const QModelIndex ramp = ScenePath::find(model, QStringLiteral("Sampler.ramp"), &error);
    auto* sampler = static_cast<KalFieldSampler*>(model.container(ramp));
    std::vector<float> values(100000, 0.5f);
    sampler->ramp.setValues(0, int(values.size()), values.data());
    const QString text = model.data(ramp.siblingAtColumn(SceneModel::ValueColumn)).toString();
    QVERIFY(text.startsWith(QStringLiteral("[100000] 0.5, 0.5")));
    QVERIFY(text.size() < 170);
}

void tst_SceneModel::pathsByNameAndByPlaces()
{
    SceneModel model;
    model.setRoot(sampleScene());
    QString error;
    const QModelIndex byName = ScenePath::find(model, QStringLiteral("Stone.diffuseColor"), &error);
    const QModelIndex byPlaces = ScenePath::find(model, QStringLiteral("/3/1.diffuseColor"), &error);
    QVERIFY(byName.isValid());
    QCOMPARE(byName, byPlaces);
    QCOMPARE(ScenePath::find(model, QStringLiteral("/"), &error), model.index(0, 0));
    QCOMPARE(model.data(ScenePath::find(model, QStringLiteral("Gold"), &error)).toString(),
             QStringLiteral("Gold"));
}

void tst_SceneModel::unknownPathsSayWhy()
{
    SceneModel model;
    model.setRoot(sampleScene());
    QString error;
    QVERIFY(!ScenePath::find(model, QStringLiteral("Nobody.value"), &error).isValid());
    QCOMPARE(error, QStringLiteral("The scene has no node \"Nobody\"."));
    QVERIFY(!ScenePath::find(model, QStringLiteral("Stone.nothing"), &error).isValid());
    QCOMPARE(error, QStringLiteral("The node \"Stone\" has no field \"nothing\"."));
    QVERIFY(!ScenePath::find(model, QStringLiteral("/99/1"), &error).isValid());
    QVERIFY(!ScenePath::find(model, QStringLiteral("/x"), &error).isValid());
    model.setRoot(nullptr);
    QVERIFY(!ScenePath::find(model, QStringLiteral("Stone"), &error).isValid());
}

void tst_SceneModel::numbersAreShownInTheirShortestForm_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("float") << "SoSFFloat"
                           << "0.6"
                           << "0.6";
    QTest::newRow("float needs all digits") << "SoSFFloat"
                                            << "0.123456789"
                                            << "0.12345679";
    QTest::newRow("float exponent") << "SoSFFloat"
                                    << "3e-12"
                                    << "3e-12";
    QTest::newRow("float huge") << "SoSFFloat"
                                << "3.4028235e38"
                                << "3.4028235e+38";
    QTest::newRow("colour") << "SoSFColor"
                            << "0.9 0.55 0.2"
                            << "0.9 0.55 0.2";
    QTest::newRow("rotation") << "SoSFRotation"
                              << "0 1 0 0.785398"
                              << "0 1 0 0.785398";
    QTest::newRow("matrix") << "SoSFMatrix"
                            << "0.1 0 0 0 0 1 0 0 0 0 1 0 1.5 -2.25 3 1"
                            << "0.1 0 0 0 0 1 0 0 0 0 1 0 1.5 -2.25 3 1";
    QTest::newRow("double keeps its digits") << "SoSFDouble"
                                             << "0.1234567890123"
                                             << "0.1234567890123";
    QTest::newRow("time") << "SoSFTime"
                          << "2.5"
                          << "2.5";
    QTest::newRow("string untouched") << "SoSFString"
                                      << "\"0.60000002 and 1.5e3\""
                                      << "\"0.60000002 and 1.5e3\"";
    QTest::newRow("name untouched") << "SoSFName"
                                    << "x0.5"
                                    << "\"x0.5\"";
    QTest::newRow("integer") << "SoSFInt32"
                             << "1234"
                             << "1234";
    QTest::newRow("image data untouched") << "SoSFImage"
                                          << "1 1 1 0xe5"
                                          << "1 1 1 0xe5";
}

void tst_SceneModel::numbersAreShownInTheirShortestForm()
{
    QFETCH(QString, type);
    QFETCH(QString, value);
    QFETCH(QString, shown);
    const SoType fieldType = SoType::fromName(SbName(type.toLatin1().constData()));
    QVERIFY(!fieldType.isBad());
    std::unique_ptr<SoField> field(static_cast<SoField*>(fieldType.createInstance()));
    QVERIFY(field->set(value.toUtf8().constData()));
    // Coin's own line breaks and spacing are the views' to fold.
    QCOMPARE(RoundTripText::of(field.get()).simplified(), shown);

    // What is shown reads back to the very value the field holds.
    std::unique_ptr<SoField> again(static_cast<SoField*>(fieldType.createInstance()));
    QVERIFY(again->set(shown.toUtf8().constData()));
    QVERIFY(*again == *field);
}

void tst_SceneModel::tooltipsHoldWhatTheCellCuts()
{
    auto* root = new SoSeparator;
    root->ref();
    auto* material = new SoMaterial;
    material->diffuseColor.setNum(3);
    const QString caption = QString(300, QLatin1Char('w'));
    auto* info = new SoInfo;
    info->string.setValue(caption.toLatin1().constData());
    root->addChild(material);
    root->addChild(info);
    SceneModel model;
    model.setRoot(root);
    const QModelIndex top = model.index(0, 0);
    QModelIndex infoRow;
    for (int row = 0; row < model.rowCount(top); ++row) {
        if (model.data(model.index(row, SceneModel::TypeColumn, top)).toString() == QLatin1String("Info"))
            infoRow = model.index(row, 0, top);
    }
    QVERIFY(infoRow.isValid());
    const QModelIndex stringRow = model.index(0, SceneModel::ValueColumn, infoRow);
    const QString cell = model.data(stringRow, Qt::DisplayRole).toString();
    const QString tip = model.data(stringRow, Qt::ToolTipRole).toString();
    QVERIFY(cell.size() < 200);
    QVERIFY(cell.endsWith(QChar(0x2026)));
    QCOMPARE(tip, QLatin1Char('"') + caption + QLatin1Char('"'));
    model.setRoot(nullptr);
    root->unref();
}

QTEST_MAIN(tst_SceneModel)
#include "tst_SceneModel.moc"
