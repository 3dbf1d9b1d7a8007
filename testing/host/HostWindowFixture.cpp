#include "HostWindowFixture.h"

#include "HostWindowTesting.h"
#include "TestFiles.h"

#include "FieldTesting.h"

#include <KalFieldSampler.h>
#include <KalPluginsManager.h>

#include <QFile>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QtTest>

HostWindowFixture::HostWindowFixture(bool viewOnX)
    : m_viewOnX(viewOnX)
{}

void HostWindowFixture::initTestCase()
{
    qRegisterMetaType<SoField*>();
    qRegisterMetaType<SoFieldContainer*>();
    HostWindowTesting::setUpScene();
    QVERIFY(m_dir.isValid());
}

void HostWindowFixture::init()
{
    m_host = HostWindowTesting::sampleWithPlugin(m_viewOnX &&
                                                 QGuiApplication::platformName() == QLatin1String("xcb"));
    QVERIFY(m_host);
}

void HostWindowFixture::cleanup()
{
    m_host.reset();
    KalPluginsManager::getInstance()->unloadAll();
}

QDockWidget* HostWindowFixture::fieldDock() const
{
    return m_host->window()->findChild<QDockWidget*>(QStringLiteral("KalFieldEditorDock"));
}

KalFieldSampler* HostWindowFixture::sampler()
{
    SoNode* node = SoNode::getByName("Sampler");
    return node && node->isOfType(KalFieldSampler::getClassTypeId()) ? static_cast<KalFieldSampler*>(node)
                                                                     : nullptr;
}

void HostWindowFixture::typeIntoFloatEditor(const QString& path, const QString& text)
{
    QVERIFY(m_host->select(path));
    auto* edit = fieldDock()->findChild<QLineEdit*>(QStringLiteral("m_lineEdit"));
    QVERIFY(edit);
    typeIntoLine(edit, text);
}

void HostWindowFixture::writeFile(const QString& path, const QByteArray& bytes)
{
    ::writeFile(path, bytes);
}
