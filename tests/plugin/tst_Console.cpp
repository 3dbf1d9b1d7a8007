// The "Console" dock: what reaches it from the standard streams and the
// scene graph's error reports, its colours, filters, clearing and saving,
// and giving everything back when it goes.
#include "ConsoleFixture.h"
#include <KalConsole.h>
#include <KalPluginsManager.h>
#include <KalShell.h>
#include <ModalDialogs.h>
#include <SoErrorStack.h>
#include <SoGLError.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/errors/SoMemoryError.h>
#include <Inventor/errors/SoReadError.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QDockWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextEdit>
#include <QtTest>

#include <optional>

#include <iostream>
#include <memory>
#include <sstream>
#include <thread>

using namespace ConsoleTesting;

namespace {

// The six error classes' handlers, to check they come back as they were.
struct Handlers
{
    std::vector<std::pair<SoErrorCB*, void*>> entries;
    static Handlers now()
    {
        return Handlers{{{SoDebugError::getHandlerCallback(), SoDebugError::getHandlerData()},
                         {SoError::getHandlerCallback(), SoError::getHandlerData()},
                         {SoErrorStack::getHandlerCallback(), SoErrorStack::getHandlerData()},
                         {SoGLError::getHandlerCallback(), SoGLError::getHandlerData()},
                         {SoMemoryError::getHandlerCallback(), SoMemoryError::getHandlerData()},
                         {SoReadError::getHandlerCallback(), SoReadError::getHandlerData()}}};
    }
    bool operator==(const Handlers& other) const { return entries == other.entries; }
};

void otherHandler(const SoError*, void*) {}

} // namespace

class tst_Console : public ConsoleFixture
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void formAndDock();
    void blockThenLineFeed();
    void numberWaitsForTheLineFeed();
    void streamsHaveTheirColours();
    void sceneGraphReportsHaveTheirColours_data();
    void sceneGraphReportsHaveTheirColours();
    void readErrorOfABrokenScene();
    void filtersDropWhileOff();
    void clearEmptiesTheConsole();
    void latinTextIsNotShapedInTheApplicationFont();
    void textFromAnotherThreadArrives();
    void captureCanBeSwitchedOff();
    void deactivationGivesTheStreamsBack();
    void destructionGivesTheHandlersBack();
    void saveKeepsTheTailOfALongerFile();
    void saveReplacesCharactersOutsideLatin1();
    void linesFromAThreadAreSavedOnePerLine();
    void cancelledSaveWritesNothing();
    void loadAndUnloadTenTimes();

private:
    QPushButton* button(const char* name) const;

    QTemporaryDir m_dir;
};

void tst_Console::initTestCase()
{
    ConsoleFixture::initTestCase();
    QVERIFY(m_dir.isValid());
}

void tst_Console::cleanup()
{
    ModalDialogs::setSaveFileName(nullptr);
    ConsoleFixture::cleanup();
    qunsetenv("KALIBRA_STDOUT_CAPTURE");
}

QPushButton* tst_Console::button(const char* name) const
{
    QDockWidget* dock =
        KalShell::getInstance()->getMainWindow()->findChild<QDockWidget*>(QStringLiteral("KalConsoleDock"));
    return dock ? dock->findChild<QPushButton*>(QLatin1String(name)) : nullptr;
}

void tst_Console::formAndDock()
{
    QCOMPARE(QString::fromLatin1(m_console->name.getString()), QStringLiteral("Console"));
    QCOMPARE(QString::fromLatin1(m_console->description.getString()),
             QStringLiteral("A console which prints the standard output and error."));
    QMainWindow* window = KalShell::getInstance()->getMainWindow();
    auto* dock = window->findChild<QDockWidget*>(QStringLiteral("KalConsoleDock"));
    QCOMPARE(dock->windowTitle(), QStringLiteral("Console"));
    QCOMPARE(window->dockWidgetArea(dock), Qt::BottomDockWidgetArea);
    QVERIFY(!dock->isHidden());
    QVERIFY(output()->isReadOnly());
    auto* frame = dock->findChild<QFrame*>(QStringLiteral("m_consoleFrame"));
    QVERIFY(frame);
    QCOMPARE(frame->frameShape(), QFrame::StyledPanel);
    QVERIFY(dock->findChild<QWidget*>(QStringLiteral("m_consoleScrollArea")));

    const struct
    {
        const char* name;
        const char* icon;
        bool checkable;
        const char* tip;
    } rows[] = {
        {"m_errorsButton", ":/console_icons/Icons/errors.png", true, "Displays errors"},
        {"m_warningsButton", ":/console_icons/Icons/warnings.png", true, "Displays warnings"},
        {"m_infosButton", ":/console_icons/Icons/infos.png", true, "Displays informations"},
        {"m_clearButton", ":/console_icons/Icons/clear.png", false, "Clears the console"},
        {"m_saveButton", ":/console_icons/Icons/save.png", false, "Saves the content of the console"},
    };
    for (const auto& row : rows) {
        QPushButton* b = button(row.name);
        QVERIFY2(b, row.name);
        QCOMPARE(b->isCheckable(), row.checkable);
        QCOMPARE(b->isChecked(), row.checkable);
        QCOMPARE(b->toolTip(), QString::fromLatin1(row.tip));
        QVERIFY(b->text().isEmpty());
        QCOMPARE(b->minimumWidth(), 64);
        QVERIFY(!b->icon().isNull());
        QVERIFY(!QPixmap(QString::fromLatin1(row.icon)).isNull());
    }
}

void tst_Console::blockThenLineFeed()
{
    std::cout << "abc";
    std::cout << std::endl;
    QCOMPARE(texts(output()), (QStringList{"abc", ""}));
    QVERIFY(m_out.str().empty());
}

void tst_Console::numberWaitsForTheLineFeed()
{
    // Characters the stream hands over one at a time wait for the next line
    // feed. This library's number formatting hands a whole number over as
    // one block, so only put() and the line feed itself go one at a time.
    std::cout.put('4');
    std::cout.put('2');
    QVERIFY(texts(output()).isEmpty());
    std::cout << std::endl;
    QCOMPARE(texts(output()), QStringList{"42"});
    // And they show up after a block that follows them.
    std::cout.put('7');
    std::cout << "block" << std::endl;
    QCOMPARE(texts(output()), (QStringList{"42", "block", "7"}));
    std::cout << 3.5 << '\n';
    // The '\n' of operator<< is a block of one character, shown as it is.
    QCOMPARE(texts(output()).size(), 5);
    QCOMPARE(texts(output()).at(3), QStringLiteral("3.5"));
}

void tst_Console::streamsHaveTheirColours()
{
    std::cerr << "bad thing";
    std::cout << "good thing";
    const QList<Line> shown = lines(output());
    QCOMPARE(shown.size(), 2);
    QCOMPARE(shown[0].text, QStringLiteral("bad thing"));
    QCOMPARE(shown[0].colour, QColor(Qt::darkRed));
    QCOMPARE(shown[1].text, QStringLiteral("good thing"));
    QCOMPARE(shown[1].colour, QColor(Qt::darkGreen));
    QVERIFY(m_err.str().empty());
}

void tst_Console::sceneGraphReportsHaveTheirColours_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("debug warning") << 0 << QColor(Qt::darkYellow);
    QTest::newRow("debug info") << 1 << QColor(Qt::darkGreen);
    QTest::newRow("debug error") << 2 << QColor(Qt::darkRed);
    QTest::newRow("GL error") << 3 << QColor(Qt::darkRed);
    QTest::newRow("error stack") << 4 << QColor(Qt::darkRed);
    QTest::newRow("memory error") << 5 << QColor(Qt::darkRed);
}

void tst_Console::sceneGraphReportsHaveTheirColours()
{
    QFETCH(int, which);
    QFETCH(QColor, colour);
    switch (which) {
    case 0:
        SoDebugError::postWarning("tst_Console", "report %d", which);
        break;
    case 1:
        SoDebugError::postInfo("tst_Console", "report %d", which);
        break;
    case 2:
        SoDebugError::post("tst_Console", "report %d", which);
        break;
    case 3:
        SoGLError::post("report %d", which);
        break;
    case 4:
        SoErrorStack::post("report %d", which);
        break;
    case 5:
        SoMemoryError::post("report");
        break;
    }
    // Reports travel through the event queue.
    QVERIFY(texts(output()).isEmpty());
    QTRY_COMPARE(lines(output()).size(), 1);
    const Line shown = lines(output()).first();
    QVERIFY2(shown.text.contains(QStringLiteral("report")), qPrintable(shown.text));
    QCOMPARE(shown.colour, colour);
}

void tst_Console::readErrorOfABrokenScene()
{
    static const char broken[] = "#Inventor V2.1 ascii\nSeparator { Cube { width } ";
    SoInput input;
    input.setBuffer(broken, sizeof(broken) - 1);
    SoSeparator* root = SoDB::readAll(&input);
    QCOMPARE(root, nullptr);
    QTRY_VERIFY(!lines(output()).isEmpty());
    for (const Line& line : lines(output()))
        QCOMPARE(line.colour, QColor(Qt::darkRed));
}

void tst_Console::filtersDropWhileOff()
{
    QTest::mouseClick(button("m_errorsButton"), Qt::LeftButton);
    QVERIFY(!button("m_errorsButton")->isChecked());
    std::cerr << "dropped";
    std::cout << "kept";
    QCOMPARE(texts(output()), QStringList{"kept"});
    QTest::mouseClick(button("m_errorsButton"), Qt::LeftButton);
    std::cerr << "shown";
    QCOMPARE(texts(output()), (QStringList{"kept", "shown"}));

    QTest::mouseClick(button("m_infosButton"), Qt::LeftButton);
    std::cout << "quiet";
    QTest::mouseClick(button("m_warningsButton"), Qt::LeftButton);
    SoDebugError::postWarning("tst_Console", "silenced");
    QCoreApplication::processEvents();
    SoDebugError::post("tst_Console", "loud");
    QTRY_COMPARE(texts(output()).size(), 3);
    QVERIFY(texts(output()).last().contains(QStringLiteral("loud")));
}

void tst_Console::clearEmptiesTheConsole()
{
    std::cout << "something";
    QCOMPARE(texts(output()).size(), 1);
    QTest::mouseClick(button("m_clearButton"), Qt::LeftButton);
    QVERIFY(texts(output()).isEmpty());
}

void tst_Console::latinTextIsNotShapedInTheApplicationFont()
{
    const auto unshaped = [](const QFont& font) {
        return (font.styleStrategy() & QFont::PreferNoShaping) != 0;
    };
    QVERIFY(unshaped(output()->font()));
    QVERIFY(unshaped(output()->document()->defaultFont()));
    QCOMPARE(output()->font().family(), QApplication::font().family());

    const QFont before = QApplication::font();
    QFont larger = before;
    larger.setPointSize(before.pointSize() + 7);
    QApplication::setFont(larger);
    const int shownSize = output()->document()->defaultFont().pointSize();
    const bool stillUnshaped = unshaped(output()->document()->defaultFont());
    QApplication::setFont(before);
    QCOMPARE(shownSize, before.pointSize() + 7);
    QVERIFY(stillUnshaped);
}

void tst_Console::textFromAnotherThreadArrives()
{
    std::thread writer([] { std::cout << "from a worker"; });
    writer.join();
    QTRY_COMPARE(texts(output()), QStringList{"from a worker"});
}

void tst_Console::captureCanBeSwitchedOff()
{
    m_console->deactivate();
    m_console->destroyWidget();
    m_console.reset();
    qputenv("KALIBRA_STDOUT_CAPTURE", "false");
    makeConsole();
    std::cout << "to the stream";
    std::cerr << "to the other";
    QVERIFY(texts(output()).isEmpty());
    QCOMPARE(QString::fromStdString(m_out.str()), QStringLiteral("to the stream"));
    QCOMPARE(QString::fromStdString(m_err.str()), QStringLiteral("to the other"));
    SoDebugError::postWarning("tst_Console", "still reported");
    QTRY_COMPARE(texts(output()).size(), 1);
}

void tst_Console::deactivationGivesTheStreamsBack()
{
    std::cout << "captured";
    m_console->deactivate();
    QCOMPARE(std::cout.rdbuf(), static_cast<std::streambuf*>(m_out.rdbuf()));
    QCOMPARE(std::cerr.rdbuf(), static_cast<std::streambuf*>(m_err.rdbuf()));
    std::cout << "after";
    QCOMPARE(QString::fromStdString(m_out.str()), QStringLiteral("after"));
    QCOMPARE(texts(output()), QStringList{"captured"});
    m_console->activate();
}

void tst_Console::destructionGivesTheHandlersBack()
{
    m_console->deactivate();
    m_console->destroyWidget();
    m_console.reset();
    SoDebugError::setHandlerCallback(&otherHandler, this);
    const Handlers before = Handlers::now();
    makeConsole();
    QVERIFY(!(Handlers::now() == before));
    QVERIFY(SoDebugError::getHandlerCallback() == &KalConsole::soErrorHandler);
    m_console->deactivate();
    m_console->destroyWidget();
    QVERIFY(Handlers::now() == before);
    m_console.reset();
    QVERIFY(Handlers::now() == before);
    SoDebugError::setHandlerCallback(nullptr, nullptr);
}

void tst_Console::saveKeepsTheTailOfALongerFile()
{
    const QString path = m_dir.filePath(QStringLiteral("long.txt"));
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("0123456789abcdefghijklmnopqrstuvwxyz");
    }
    QString caption;
    QString filter;
    ModalDialogs::setSaveFileName([&](QWidget*, const QString& c, const QString&, const QString& f) {
        caption = c;
        filter = f;
        return path;
    });
    std::cout << "short";
    QTest::mouseClick(button("m_saveButton"), Qt::LeftButton);
    QCOMPARE(caption, QStringLiteral("Save the content of the console"));
    QCOMPARE(filter, QStringLiteral("Console outputs (*.txt)"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("short56789abcdefghijklmnopqrstuvwxyz"));
}

void tst_Console::saveReplacesCharactersOutsideLatin1()
{
    const QString path = m_dir.filePath(QStringLiteral("latin1.txt"));
    ModalDialogs::setSaveFileName(
        [&](QWidget*, const QString&, const QString&, const QString&) { return path; });
    std::cout << "caf\xc3\xa9 costs 5 \xe2\x82\xac";
    QTest::mouseClick(button("m_saveButton"), Qt::LeftButton);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("caf\xe9 costs 5 ?"));
}

void tst_Console::linesFromAThreadAreSavedOnePerLine()
{
    const QString path = m_dir.filePath(QStringLiteral("thread.txt"));
    ModalDialogs::setSaveFileName(
        [&](QWidget*, const QString&, const QString&, const QString&) { return path; });
    std::thread writer([] { std::cout << "one\ntwo\nthree\n"; });
    writer.join();
    QTRY_COMPARE(ConsoleTesting::texts(output()), (QStringList{"one", "two", "three"}));
    // The three share a paragraph, and still go to the file as three lines.
    QCOMPARE(output()->document()->blockCount(), 1);
    QTest::mouseClick(button("m_saveButton"), Qt::LeftButton);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("one\ntwo\nthree"));
}

void tst_Console::cancelledSaveWritesNothing()
{
    bool asked = false;
    ModalDialogs::setSaveFileName([&](QWidget*, const QString&, const QString&, const QString&) {
        asked = true;
        return QString();
    });
    std::cout << "unsaved";
    const QStringList before = QDir(m_dir.path()).entryList(QDir::Files);
    QTest::mouseClick(button("m_saveButton"), Qt::LeftButton);
    QVERIFY(asked);
    QCOMPARE(QDir(m_dir.path()).entryList(QDir::Files), before);
    QVERIFY(!QFile::exists(QStringLiteral("unsaved")));
}

void tst_Console::loadAndUnloadTenTimes()
{
    m_console->deactivate();
    m_console->destroyWidget();
    m_console.reset();
    const Handlers before = Handlers::now();
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    for (int i = 0; i < 10; ++i) {
        QVERIFY2(manager->loadPlugin(QStringLiteral(KALDEFAULTS_MODULE_PATH)),
                 qPrintable(manager->lastError()));
        QVERIFY(std::cout.rdbuf() != static_cast<std::streambuf*>(m_out.rdbuf()));
        QVERIFY(!(Handlers::now() == before));
        manager->unloadAll();
        QCOMPARE(std::cout.rdbuf(), static_cast<std::streambuf*>(m_out.rdbuf()));
        QCOMPARE(std::cerr.rdbuf(), static_cast<std::streambuf*>(m_err.rdbuf()));
        QVERIFY(Handlers::now() == before);
    }
    std::cout << "after the last unload";
    QCOMPARE(QString::fromStdString(m_out.str()), QStringLiteral("after the last unload"));
}

QTEST_MAIN(tst_Console)
#include "tst_Console.moc"
