#include "ConsoleFixture.h"

#include <KalPluginsManager.h>
#include <KalShell.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>

#include <QDockWidget>
#include <QMainWindow>
#include <QtTest>

void ConsoleFixture::initTestCase()
{
    SoDB::init();
    SoKalExtensions::init();
}

void ConsoleFixture::init()
{
    qunsetenv("KALIBRA_STDOUT_CAPTURE");
    qunsetenv("KALIBRA_CONSOLE_MAX_LINES");
    m_out.str({});
    m_err.str({});
    m_streams.emplace(m_out, m_err);
    makeConsole();
}

void ConsoleFixture::cleanup()
{
    if (m_console) {
        m_console->deactivate();
        m_console->destroyWidget();
        m_console.reset();
    }
    qunsetenv("KALIBRA_CONSOLE_MAX_LINES");
    m_streams.reset();
    KalPluginsManager::getInstance()->unloadAll();
}

void ConsoleFixture::makeConsole()
{
    m_console = std::make_unique<KalConsole>();
    m_console->createWidget();
    m_console->activate();
    QVERIFY(output());
    output()->clear();
}

QTextEdit* ConsoleFixture::output() const
{
    QDockWidget* dock =
        KalShell::getInstance()->getMainWindow()->findChild<QDockWidget*>(QStringLiteral("KalConsoleDock"));
    return dock ? dock->findChild<QTextEdit*>(QStringLiteral("m_consoleOutput")) : nullptr;
}

void ConsoleFixture::makeConsoleKeeping(int maxLines)
{
    if (m_console) {
        m_console->deactivate();
        m_console->destroyWidget();
        m_console.reset();
    }
    qputenv("KALIBRA_CONSOLE_MAX_LINES", QByteArray::number(maxLines));
    makeConsole();
    qunsetenv("KALIBRA_CONSOLE_MAX_LINES");
}

QWidget* ConsoleFixture::consoleWidget(const QString& name) const
{
    QDockWidget* dock =
        KalShell::getInstance()->getMainWindow()->findChild<QDockWidget*>(QStringLiteral("KalConsoleDock"));
    return dock ? dock->findChild<QWidget*>(name) : nullptr;
}
