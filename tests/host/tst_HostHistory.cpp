// The stand-in host's undo history on its own: it executes a command once,
// undoes and redoes it, owns what it is given and ignores what it cannot use.
#include "CountingCommand.h"

#include <KalPluginsManager.h>
#include <KalServices.h>

#include <QUndoStack>
#include <QtTest>

#include <memory>

class tst_HostHistory : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void historyExecutesOnceThenUndoesAndRedoes();
    void historyOwnsCommands();
    void historyIgnoresNullAndBadIndices();
};

void tst_HostHistory::cleanup()
{
    KalPluginsManager::getInstance()->unloadAll();
    KalServices::getInstance()->clearHistory();
    QVERIFY(KalPluginsManager::getInstance()->getProfilesList().empty());
}

void tst_HostHistory::historyExecutesOnceThenUndoesAndRedoes()
{
    KalServices* services = KalServices::getInstance();
    auto counters = std::make_shared<Counters>();
    auto* command = new CountingCommand(counters);
    services->pushCommand(command);
    QCOMPARE(counters->executed, 1);
    QCOMPARE(counters->redone, 0);
    QCOMPARE(services->commandCount(), 1);
    QCOMPARE(services->command(0), command);
    QCOMPARE(services->undoStack()->count(), 1);

    QVERIFY(services->undo());
    QCOMPARE(counters->undone, 1);
    QVERIFY(!services->undo());
    QCOMPARE(counters->undone, 1);

    QVERIFY(services->redo());
    QCOMPARE(counters->redone, 1);
    QCOMPARE(counters->executed, 1);
    QVERIFY(!services->redo());

    QVERIFY(services->undo());
    QVERIFY(services->redo());
    QCOMPARE(counters->undone, 2);
    QCOMPARE(counters->redone, 2);
    QCOMPARE(counters->executed, 1);
}

void tst_HostHistory::historyOwnsCommands()
{
    KalServices* services = KalServices::getInstance();
    auto first = std::make_shared<Counters>();
    auto second = std::make_shared<Counters>();
    services->pushCommand(new CountingCommand(first));
    services->pushCommand(new CountingCommand(second));
    QCOMPARE(services->commandCount(), 2);

    // A new command after an undo drops the undone one, as any history does.
    QVERIFY(services->undo());
    auto third = std::make_shared<Counters>();
    services->pushCommand(new CountingCommand(third));
    QCOMPARE(second->deleted, 1);
    QCOMPARE(services->commandCount(), 2);

    services->clearHistory();
    QCOMPARE(services->commandCount(), 0);
    QCOMPARE(first->deleted, 1);
    QCOMPARE(third->deleted, 1);
}

void tst_HostHistory::historyIgnoresNullAndBadIndices()
{
    KalServices* services = KalServices::getInstance();
    services->pushCommand(nullptr);
    QCOMPARE(services->commandCount(), 0);
    QCOMPARE(services->command(0), nullptr);
    QCOMPARE(services->command(-1), nullptr);
    QVERIFY(!services->undo());
    QVERIFY(!services->redo());

    auto counters = std::make_shared<Counters>();
    services->pushCommand(new CountingCommand(counters));
    QCOMPARE(services->command(1), nullptr);
    QVERIFY(services->command(0));
}

QTEST_MAIN(tst_HostHistory)
#include "tst_HostHistory.moc"
