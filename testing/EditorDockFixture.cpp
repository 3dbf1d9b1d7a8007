#include "EditorDockFixture.h"

#include "FieldTesting.h"

#include <KalPluginsManager.h>
#include <KalServices.h>
#include <KalShell.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>

#include <QCoreApplication>
#include <QMainWindow>
#include <QtTest>

EditorDockFixture::EditorDockFixture(QSize windowSize)
    : m_windowSize(windowSize)
{}

bool EditorDockFixture::loadPlugin(QSize windowSize)
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    if (!manager->loadPlugin(QStringLiteral(KALDEFAULTS_MODULE_PATH))) {
        qWarning() << manager->lastError();
        return false;
    }
    if (!windowSize.isValid())
        return true;
    QMainWindow* window = KalShell::getInstance()->getMainWindow();
    window->resize(windowSize);
    window->show();
    return QTest::qWaitForWindowExposed(window);
}

void EditorDockFixture::unloadPlugin()
{
    emit KalServices::getInstance()->selectedFieldChanged(nullptr);
    KalPluginsManager::getInstance()->unloadAll();
    KalServices::getInstance()->clearHistory();
}

QDockWidget* EditorDockFixture::dock()
{
    return KalShell::getInstance()->getMainWindow()->findChild<QDockWidget*>(
        QStringLiteral("KalFieldEditorDock"));
}

void EditorDockFixture::select(SoField* field)
{
    emit KalServices::getInstance()->selectedFieldChanged(field);
    processSensors();
    QCoreApplication::processEvents();
}

bool EditorDockFixture::selectShown(SoField* field)
{
    select(field);
    QMainWindow* window = KalShell::getInstance()->getMainWindow();
    window->show();
    if (!QTest::qWaitForWindowExposed(window))
        return false;
    // Boxes made for the field are placed once their layout has run.
    QTest::qWait(10);
    return true;
}

void EditorDockFixture::selectInWindow(SoField* field)
{
    select(field);
    QMainWindow* window = KalShell::getInstance()->getMainWindow();
    window->resize(1000, 400);
    window->show();
    QCoreApplication::processEvents();
    KalServices::getInstance()->clearHistory();
}

void EditorDockFixture::initTestCase()
{
    SoDB::init();
    SoKalExtensions::init();
    AllFieldsNode::initClass();
}

void EditorDockFixture::init()
{
    QVERIFY(loadPlugin(m_windowSize));
    m_node = new AllFieldsNode;
    m_node->ref();
}

void EditorDockFixture::cleanup()
{
    unloadPlugin();
    if (m_node)
        m_node->unref();
    m_node = nullptr;
}
