// The "Field Editor" and "Node Editor" docks: which editor they choose for a
// selection, and how they hand editors' frames in and out.
#include <KalEditor.h>
#include <KalFieldEditorDockWin.h>
#include <KalNodeEditor.h>
#include <KalPluginsManager.h>
#include <KalProfile.h>
#include <KalProfileSetting.h>
#include <KalServices.h>
#include <KalShell.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>
#include <Inventor/fields/SoMField.h>
#include <Inventor/fields/SoSFFloat.h>
#include <Inventor/fields/SoSField.h>
#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/nodes/SoNode.h>

#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QtTest>

#include <memory>

namespace {

// An editor that only remembers what the dock did with it.
class ProbeEditor : public KalEditor
{
public:
    ProbeEditor() = default;
    void setUp(const char* editorName, SoType type)
    {
        name = editorName;
        handledType = type;
        if (widget)
            widget->setObjectName(QString::fromLatin1(editorName));
    }
    void createWidget() override
    {
        widget = new QLabel(QString::fromLatin1(name.getString()));
        widget->setObjectName(QString::fromLatin1(name.getString()));
    }
    void destroyWidget() override
    {
        delete widget;
        widget = nullptr;
    }
    void activate() override
    {
        KalEditor::activate();
        ++activations;
        activeWith = editedObject;
    }
    void deactivate() override
    {
        KalEditor::deactivate();
        ++deactivations;
    }

    int activations = 0;
    int deactivations = 0;
    SoTypedObject activeWith;
};

QString shownName(QDockWidget* dock)
{
    return dock && dock->widget() ? dock->widget()->objectName() : QString();
}

} // namespace

class tst_EditorDocks : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void descriptors();
    void showsTheFittingEditor();
    void mostSpecificWinsWhateverTheOrder();
    void sameHandledTypeLargerPointerWins();
    void unrelatedFittingTypesKeepTheEarlier();
    void nothingFittingLeavesDockHiddenAndEmpty();
    void selectingTheSameFieldTwiceRebuilds();
    void selectingNothingHidesAndDetaches();
    void deactivatingWhileShowingDetachesFirst();
    void destroyingWhileShowingKeepsTheEditorsFrame();
    void notControlledEditorsAreNotChosen();
    void nodeEditorIgnoresFieldEditorsAndFields();
    void nodeEditorShowsContainerEditors();

private:
    // Makes the active profile enable `dock` with a setting that controls
    // exactly these editors.
    void enable(KalExtension* dock, std::initializer_list<KalEditor*> editors);

    std::unique_ptr<KalFieldEditorDockWin> m_fieldDock;
    std::unique_ptr<KalNodeEditor> m_nodeDock;
    ProbeEditor m_editors[3];
    SoComplexity* m_node = nullptr;
};

void tst_EditorDocks::initTestCase()
{
    SoDB::init();
    SoKalExtensions::init();
}

void tst_EditorDocks::init()
{
    m_node = new SoComplexity;
    m_node->ref();
    for (ProbeEditor& editor : m_editors) {
        editor.setUp("probe", SoType::badType());
        editor.activations = editor.deactivations = 0;
        editor.createWidget();
    }
    m_fieldDock = std::make_unique<KalFieldEditorDockWin>();
    m_nodeDock = std::make_unique<KalNodeEditor>();
    auto* profile = new KalProfile("Docks");
    KalPluginsManager::getInstance()->addProfile(profile);
    KalPluginsManager::getInstance()->setActiveProfile(profile);
    for (KalExtension* dock :
         {static_cast<KalExtension*>(m_fieldDock.get()), static_cast<KalExtension*>(m_nodeDock.get())}) {
        dock->createWidget();
        dock->activate();
    }
}

void tst_EditorDocks::cleanup()
{
    m_nodeDock->deactivate();
    m_fieldDock->deactivate();
    m_nodeDock->destroyWidget();
    m_fieldDock->destroyWidget();
    m_nodeDock.reset();
    m_fieldDock.reset();
    for (ProbeEditor& editor : m_editors)
        editor.destroyWidget();
    KalPluginsManager::getInstance()->unloadAll();
    m_node->unref();
}

void tst_EditorDocks::enable(KalExtension* dock, std::initializer_list<KalEditor*> editors)
{
    auto* setting = new KalProfileSetting;
    for (KalEditor* editor : editors)
        setting->setControlled(editor, new KalProfileSetting);
    KalPluginsManager::getInstance()->getActiveProfile()->getSetting()->setControlled(dock, setting);
}

void tst_EditorDocks::descriptors()
{
    QCOMPARE(QString::fromLatin1(m_fieldDock->name.getString()), QStringLiteral("Field Editor"));
    QCOMPARE(QString::fromLatin1(m_fieldDock->description.getString()),
             QStringLiteral("Field Editor for Kalibra."));
    QCOMPARE(QString::fromLatin1(m_nodeDock->name.getString()), QStringLiteral("Node Editor"));
    QCOMPARE(QString::fromLatin1(m_nodeDock->description.getString()),
             QStringLiteral("Node Editor for Kalibra."));
    for (KalExtension* dock :
         {static_cast<KalExtension*>(m_fieldDock.get()), static_cast<KalExtension*>(m_nodeDock.get())}) {
        QCOMPARE(QString::fromLatin1(dock->author.getString()), QStringLiteral("Quelvo"));
        QCOMPARE(QString::fromLatin1(dock->version.getString()), QStringLiteral("1.0.0"));
    }

    // Both docks sit on the right of the main window, hidden until there is
    // something to show, and neither accepts drops.
    QMainWindow* window = KalShell::getInstance()->getMainWindow();
    auto* fieldDock = window->findChild<QDockWidget*>(QStringLiteral("KalFieldEditorDock"));
    auto* nodeDock = window->findChild<QDockWidget*>(QStringLiteral("KalNodeEditorDock"));
    QVERIFY(fieldDock && nodeDock);
    QCOMPARE(fieldDock->windowTitle(), QStringLiteral("Field Editor"));
    QCOMPARE(nodeDock->windowTitle(), QStringLiteral("Node Editor"));
    QCOMPARE(window->dockWidgetArea(fieldDock), Qt::RightDockWidgetArea);
    QCOMPARE(window->dockWidgetArea(nodeDock), Qt::RightDockWidgetArea);
    QVERIFY(fieldDock->isHidden() && nodeDock->isHidden());
    QVERIFY(!fieldDock->acceptDrops());
}

void tst_EditorDocks::showsTheFittingEditor()
{
    ProbeEditor& floats = m_editors[0];
    floats.setUp("floats", SoSFFloat::getClassTypeId());
    enable(m_fieldDock.get(), {&floats});

    emit KalServices::getInstance()->selectedFieldChanged(&m_node->value);
    auto* dock = KalShell::getInstance()->getMainWindow()->findChild<QDockWidget*>(
        QStringLiteral("KalFieldEditorDock"));
    QCOMPARE(shownName(dock), QStringLiteral("floats"));
    QVERIFY(!dock->isHidden());
    QCOMPARE(floats.activations, 1);
    QCOMPARE(floats.activeWith.toField(), static_cast<SoField*>(&m_node->value));
    QCOMPARE(floats.getEditedObject().toField(), static_cast<SoField*>(&m_node->value));
    QCOMPARE(floats.getWidget()->parentWidget(), dock);
}

void tst_EditorDocks::mostSpecificWinsWhateverTheOrder()
{
    // The specific editor sits once before and once after the generic one
    // in pointer order.
    for (int specific : {0, 1}) {
        ProbeEditor& floats = m_editors[specific];
        ProbeEditor& generic = m_editors[1 - specific];
        floats.setUp("floats", SoSFFloat::getClassTypeId());
        generic.setUp("generic", SoSField::getClassTypeId());
        enable(m_fieldDock.get(), {&floats, &generic});
        emit KalServices::getInstance()->selectedFieldChanged(&m_node->value);
        auto* dock = KalShell::getInstance()->getMainWindow()->findChild<QDockWidget*>(
            QStringLiteral("KalFieldEditorDock"));
        QCOMPARE(shownName(dock), QStringLiteral("floats"));

        // Any other single-value field falls back on the generic editor.
        emit KalServices::getInstance()->selectedFieldChanged(&m_node->type);
        QCOMPARE(shownName(dock), QStringLiteral("generic"));
        emit KalServices::getInstance()->selectedFieldChanged(nullptr);
    }
}

void tst_EditorDocks::sameHandledTypeLargerPointerWins()
{
    ProbeEditor& lower = m_editors[0];
    ProbeEditor& higher = m_editors[1];
    QVERIFY(&lower < &higher);
    lower.setUp("lower", SoSFFloat::getClassTypeId());
    higher.setUp("higher", SoSFFloat::getClassTypeId());
    enable(m_fieldDock.get(), {&higher, &lower});
    emit KalServices::getInstance()->selectedFieldChanged(&m_node->value);
    auto* dock = KalShell::getInstance()->getMainWindow()->findChild<QDockWidget*>(
        QStringLiteral("KalFieldEditorDock"));
    QCOMPARE(shownName(dock), QStringLiteral("higher"));
    QCOMPARE(lower.activations, 0);
}

void tst_EditorDocks::unrelatedFittingTypesKeepTheEarlier()
{
    // Both fit a float field; the later candidate replaces the earlier only
    // when its type derives from the earlier one's. SoField is a base of
    // SoSField, so the later, more general editor does not replace it.
    ProbeEditor& first = m_editors[0];
    ProbeEditor& second = m_editors[1];
    first.setUp("single", SoSField::getClassTypeId());
    second.setUp("any", SoField::getClassTypeId());
    enable(m_fieldDock.get(), {&first, &second});
    emit KalServices::getInstance()->selectedFieldChanged(&m_node->value);
    auto* dock = KalShell::getInstance()->getMainWindow()->findChild<QDockWidget*>(
        QStringLiteral("KalFieldEditorDock"));
    QCOMPARE(shownName(dock), QStringLiteral("single"));
}

void tst_EditorDocks::nothingFittingLeavesDockHiddenAndEmpty()
{
    ProbeEditor& multi = m_editors[0];
    multi.setUp("multi", SoMField::getClassTypeId());
    enable(m_fieldDock.get(), {&multi});
    emit KalServices::getInstance()->selectedFieldChanged(&m_node->value);
    auto* dock = KalShell::getInstance()->getMainWindow()->findChild<QDockWidget*>(
        QStringLiteral("KalFieldEditorDock"));
    QVERIFY(dock->isHidden());
    QCOMPARE(dock->widget(), nullptr);
    QCOMPARE(multi.activations, 0);

    // A dock the profile does not enable has no setting: nothing fits either.
    KalPluginsManager::getInstance()->getActiveProfile()->getSetting()->removeControlled(m_fieldDock.get());
    emit KalServices::getInstance()->selectedFieldChanged(&m_node->type);
    QVERIFY(dock->isHidden());
    QCOMPARE(dock->widget(), nullptr);
}

void tst_EditorDocks::selectingTheSameFieldTwiceRebuilds()
{
    ProbeEditor& floats = m_editors[0];
    floats.setUp("floats", SoSFFloat::getClassTypeId());
    enable(m_fieldDock.get(), {&floats});
    emit KalServices::getInstance()->selectedFieldChanged(&m_node->value);
    emit KalServices::getInstance()->selectedFieldChanged(&m_node->value);
    QCOMPARE(floats.activations, 2);
    QCOMPARE(floats.deactivations, 1);
    auto* dock = KalShell::getInstance()->getMainWindow()->findChild<QDockWidget*>(
        QStringLiteral("KalFieldEditorDock"));
    QCOMPARE(shownName(dock), QStringLiteral("floats"));
    QVERIFY(!dock->isHidden());
}

void tst_EditorDocks::selectingNothingHidesAndDetaches()
{
    ProbeEditor& floats = m_editors[0];
    floats.setUp("floats", SoSFFloat::getClassTypeId());
    enable(m_fieldDock.get(), {&floats});
    emit KalServices::getInstance()->selectedFieldChanged(&m_node->value);
    emit KalServices::getInstance()->selectedFieldChanged(nullptr);
    auto* dock = KalShell::getInstance()->getMainWindow()->findChild<QDockWidget*>(
        QStringLiteral("KalFieldEditorDock"));
    QVERIFY(dock->isHidden());
    QCOMPARE(dock->widget(), nullptr);
    QCOMPARE(floats.deactivations, 1);
    QVERIFY(floats.getEditedObject().isNull());
    QCOMPARE(floats.getWidget()->parent(), nullptr);
}

void tst_EditorDocks::deactivatingWhileShowingDetachesFirst()
{
    ProbeEditor& floats = m_editors[0];
    floats.setUp("floats", SoSFFloat::getClassTypeId());
    enable(m_fieldDock.get(), {&floats});
    emit KalServices::getInstance()->selectedFieldChanged(&m_node->value);
    QMainWindow* window = KalShell::getInstance()->getMainWindow();
    auto* dock = window->findChild<QDockWidget*>(QStringLiteral("KalFieldEditorDock"));
    QVERIFY(dock);

    m_fieldDock->deactivate();
    QCOMPARE(floats.deactivations, 1);
    QCOMPARE(floats.getWidget()->parent(), nullptr);
    QCOMPARE(dock->widget(), nullptr);
    QCOMPARE(window->dockWidgetArea(dock), Qt::NoDockWidgetArea);

    // No longer listening: a new selection does not reach the editor.
    emit KalServices::getInstance()->selectedFieldChanged(&m_node->value);
    QCOMPARE(floats.activations, 1);
    m_fieldDock->activate();
}

void tst_EditorDocks::destroyingWhileShowingKeepsTheEditorsFrame()
{
    ProbeEditor& floats = m_editors[0];
    floats.setUp("floats", SoSFFloat::getClassTypeId());
    enable(m_fieldDock.get(), {&floats});
    emit KalServices::getInstance()->selectedFieldChanged(&m_node->value);
    QPointer<QWidget> frame = floats.getWidget();
    m_fieldDock->deactivate();
    m_fieldDock->destroyWidget();
    QVERIFY(frame);
    QCOMPARE(frame->parent(), nullptr);
    m_fieldDock->createWidget();
    m_fieldDock->activate();
}

void tst_EditorDocks::notControlledEditorsAreNotChosen()
{
    ProbeEditor& floats = m_editors[0];
    ProbeEditor& generic = m_editors[1];
    floats.setUp("floats", SoSFFloat::getClassTypeId());
    generic.setUp("generic", SoSField::getClassTypeId());
    enable(m_fieldDock.get(), {&generic});
    emit KalServices::getInstance()->selectedFieldChanged(&m_node->value);
    auto* dock = KalShell::getInstance()->getMainWindow()->findChild<QDockWidget*>(
        QStringLiteral("KalFieldEditorDock"));
    QCOMPARE(shownName(dock), QStringLiteral("generic"));
    QCOMPARE(floats.activations, 0);
}

void tst_EditorDocks::nodeEditorIgnoresFieldEditorsAndFields()
{
    ProbeEditor& floats = m_editors[0];
    ProbeEditor& generic = m_editors[1];
    floats.setUp("floats", SoSFFloat::getClassTypeId());
    generic.setUp("generic", SoField::getClassTypeId());
    enable(m_nodeDock.get(), {&floats, &generic});
    enable(m_fieldDock.get(), {&floats, &generic});
    QMainWindow* window = KalShell::getInstance()->getMainWindow();
    auto* nodeDock = window->findChild<QDockWidget*>(QStringLiteral("KalNodeEditorDock"));
    auto* fieldDock = window->findChild<QDockWidget*>(QStringLiteral("KalFieldEditorDock"));

    emit KalServices::getInstance()->selectedNodeChanged(m_node);
    QVERIFY(nodeDock->isHidden());
    QCOMPARE(nodeDock->widget(), nullptr);
    QVERIFY(fieldDock->isHidden());

    // A field selection leaves the node dock alone, and a node selection the
    // field dock.
    emit KalServices::getInstance()->selectedFieldChanged(&m_node->value);
    QCOMPARE(shownName(fieldDock), QStringLiteral("floats"));
    QVERIFY(nodeDock->isHidden());
    emit KalServices::getInstance()->selectedNodeChanged(m_node);
    QCOMPARE(shownName(fieldDock), QStringLiteral("floats"));
    QVERIFY(!fieldDock->isHidden());
}

void tst_EditorDocks::nodeEditorShowsContainerEditors()
{
    ProbeEditor& nodes = m_editors[0];
    ProbeEditor& complexities = m_editors[1];
    nodes.setUp("nodes", SoNode::getClassTypeId());
    complexities.setUp("complexities", SoComplexity::getClassTypeId());
    enable(m_nodeDock.get(), {&complexities, &nodes});
    emit KalServices::getInstance()->selectedNodeChanged(m_node);
    auto* dock = KalShell::getInstance()->getMainWindow()->findChild<QDockWidget*>(
        QStringLiteral("KalNodeEditorDock"));
    QCOMPARE(shownName(dock), QStringLiteral("complexities"));
    QCOMPARE(complexities.activeWith.toFieldContainer(), static_cast<SoFieldContainer*>(m_node));
    QVERIFY(!dock->isHidden());

    emit KalServices::getInstance()->selectedNodeChanged(nullptr);
    QVERIFY(dock->isHidden());
    QCOMPARE(complexities.getWidget()->parent(), nullptr);
}

QTEST_MAIN(tst_EditorDocks)
#include "tst_EditorDocks.moc"
