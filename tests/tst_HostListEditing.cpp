// kalhost with the real plug-in: the sample scene's lists edited in their
// editors, the host's history naming each change, the modified flag, and
// undo from the Edit menu putting the values back.
#include "FieldTesting.h"
#include "HostWindowTesting.h"
#include "ListEditorTesting.h"

#include <SceneModel.h>

#include <QAction>
#include <QLineEdit>
#include <QUndoStack>

#include <memory>

using namespace ListEditorTesting;

class tst_HostListEditing : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void everySamplerListHasItsEditor();
    void addEditAndUndoAString();
    void rowChangesAreNamedInTheHistory();
    void numericEditsMarkTheSceneModified();

private:
    KalFieldSampler* sampler() const;
    void trigger(const char* action);

    std::unique_ptr<KalHostWindow> m_host;
};

void tst_HostListEditing::initTestCase()
{
    HostWindowTesting::setUpScene();
}

void tst_HostListEditing::init()
{
    m_host = HostWindowTesting::sampleWithPlugin(false);
    QVERIFY(m_host);
}

void tst_HostListEditing::cleanup()
{
    m_host.reset();
    KalPluginsManager::getInstance()->unloadAll();
}

KalFieldSampler* tst_HostListEditing::sampler() const
{
    SoNode* node = SoNode::getByName("Sampler");
    return node && node->isOfType(KalFieldSampler::getClassTypeId()) ? static_cast<KalFieldSampler*>(node)
                                                                     : nullptr;
}

void tst_HostListEditing::trigger(const char* action)
{
    auto* found = m_host->window()->findChild<QAction*>(QLatin1String(action));
    QVERIFY2(found && found->isEnabled(), action);
    found->trigger();
    processSensors();
}

void tst_HostListEditing::everySamplerListHasItsEditor()
{
    const struct
    {
        const char* path;
        const char* editor;
    } lists[] = {
        {"Sampler.ramp", "FxMFFloatWidget"},    {"Sampler.thresholds", "FxMFDoubleWidget"},
        {"Sampler.indices", "FxMFInt32Widget"}, {"Sampler.levels", "FxMFShortWidget"},
        {"Sampler.lines", "FxMFStringWidget"},  {"Sampler.masks", "FxMFUInt32Widget"},
        {"Sampler.counts", "FxMFUShortWidget"}, {"Sampler.keywords", "FxMFDefaultFieldWidget"},
    };
    for (const auto& list : lists) {
        QVERIFY2(m_host->select(QLatin1String(list.path)), list.path);
        processSensors();
        QVERIFY2(dock()->isVisible(), list.path);
        QCOMPARE(dock()->widget()->objectName(), QLatin1String(list.editor));
        const QByteArray name = QByteArray(list.path).mid(int(qstrlen("Sampler.")));
        auto* field = static_cast<SoMField*>(sampler()->getField(name.constData()));
        QCOMPARE(table()->rowCount(), field->getNum());
        QVERIFY(field->getNum() > 0);
    }
}

void tst_HostListEditing::addEditAndUndoAString()
{
    KalFieldSampler* node = sampler();
    QVERIFY(node);
    const QStringList before = values(node->lines);
    QVERIFY(m_host->select(QStringLiteral("Sampler.lines")));
    processSensors();
    QVERIFY(!m_host->isModified());
    clickCell(0);
    click("m_addButton");
    QCOMPARE(node->lines.getNum(), before.size() + 1);
    QCOMPARE(QString::fromUtf8(node->lines[1].getString()), QString());
    QVERIFY(m_host->isModified());

    // Type into the new row.
    FxMFieldTable* shown = table();
    const QModelIndex cell = shown->model()->index(1, 0);
    QTest::mouseClick(shown->viewport(), Qt::LeftButton, Qt::NoModifier, shown->visualRect(cell).center());
    QTest::mouseDClick(shown->viewport(), Qt::LeftButton, Qt::NoModifier, shown->visualRect(cell).center());
    auto* edit = qobject_cast<QLineEdit*>(shown->indexWidget(cell));
    QVERIFY(edit);
    QTest::keyClicks(edit, QStringLiteral("a new line"));
    QTest::keyClick(edit, Qt::Key_Return);
    QCoreApplication::processEvents();
    processSensors();
    QCOMPARE(QString::fromUtf8(node->lines[1].getString()), QStringLiteral("a new line"));

    QUndoStack* stack = KalServices::getInstance()->undoStack();
    QCOMPARE(stack->count(), 2);
    QCOMPARE(stack->text(0), QStringLiteral("Add a row to Sampler.lines"));
    QVERIFY2(stack->text(1).startsWith(QStringLiteral("Set Sampler.lines")), qPrintable(stack->text(1)));

    // The value edit undoes to itself (the command read its old text after
    // the write); the row's addition undoes to the list as it was.
    trigger("UndoAction");
    trigger("UndoAction");
    QCOMPARE(values(node->lines), before);
    QCOMPARE(table()->rowCount(), before.size());
    trigger("RedoAction");
    QCOMPARE(node->lines.getNum(), before.size() + 1);
}

void tst_HostListEditing::rowChangesAreNamedInTheHistory()
{
    KalFieldSampler* node = sampler();
    const int count = node->ramp.getNum();
    QVERIFY(m_host->select(QStringLiteral("Sampler.ramp")));
    processSensors();
    clickCell(0);
    click("m_addButton");
    click("m_deleteButton");
    click("m_downButton");
    QUndoStack* stack = KalServices::getInstance()->undoStack();
    QCOMPARE(stack->count(), 3);
    QCOMPARE(stack->text(0), QStringLiteral("Add a row to Sampler.ramp"));
    QCOMPARE(stack->text(1), QStringLiteral("Delete a row from Sampler.ramp"));
    QVERIFY2(stack->text(2).startsWith(QStringLiteral("Set Sampler.ramp")), qPrintable(stack->text(2)));
    QCOMPARE(node->ramp.getNum(), count);
}

void tst_HostListEditing::numericEditsMarkTheSceneModified()
{
    KalFieldSampler* node = sampler();
    QVERIFY(m_host->select(QStringLiteral("Sampler.ramp")));
    processSensors();
    FxMFieldTable* shown = table();
    const QModelIndex cell = shown->model()->index(1, 0);
    QTest::mouseClick(shown->viewport(), Qt::LeftButton, Qt::NoModifier, shown->visualRect(cell).center());
    QTest::mouseDClick(shown->viewport(), Qt::LeftButton, Qt::NoModifier, shown->visualRect(cell).center());
    QWidget* frame = shown->indexWidget(cell);
    QVERIFY(frame && frame->inherits("FxRealSlider"));
    QLineEdit* edit = child<QLineEdit>("m_lineEdit", frame);
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("0.75"));
    QTest::keyClick(edit, Qt::Key_Return);
    processSensors();
    QCOMPARE(node->ramp[1], 0.75f);
    // Numeric lists write without a command, but the scene has changed.
    QVERIFY(m_host->isModified());
    QCOMPARE(KalServices::getInstance()->undoStack()->count(), 0);
}

QTEST_MAIN(tst_HostListEditing)
#include "tst_HostListEditing.moc"
