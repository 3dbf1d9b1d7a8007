// The stand-in host's undo history on its own: it executes a command once,
// undoes and redoes it, owns what it is given and ignores what it cannot use;
// with a host's options on, it also restores the selected field, drops
// entries that changed nothing and records changes no command reported.
#include "CountingCommand.h"

#include <KalPluginsManager.h>
#include <KalServices.h>

#include <Inventor/SoDB.h>
#include <Inventor/fields/SoMFFloat.h>
#include <Inventor/fields/SoSFFloat.h>
#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/nodes/SoNode.h>

#include <QUndoStack>
#include <QtTest>

#include <cmath>
#include <memory>

class tst_HostHistory : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void historyExecutesOnceThenUndoesAndRedoes();
    void historyOwnsCommands();
    void historyIgnoresNullAndBadIndices();
    void optionsAreOffByDefault();
    void keptHistoryRestoresTheSelectedField();
    void keptHistoryDropsNoOpsAndRecordsUnreportedChanges();
};

void tst_HostHistory::initTestCase()
{
    SoDB::init();
}

void tst_HostHistory::cleanup()
{
    KalServices::getInstance()->setHistoryOptions({});
    emit KalServices::getInstance()->selectedFieldChanged(nullptr);
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

void tst_HostHistory::optionsAreOffByDefault()
{
    QCOMPARE(KalServices::getInstance()->historyOptions(), KalServices::HistoryOptions());
}

namespace {
const KalServices::HistoryOptions kAll = KalServices::RestoreValues | KalServices::MergeTyping |
                                         KalServices::HideNoOps | KalServices::RecordUnreported;
} // namespace

void tst_HostHistory::keptHistoryRestoresTheSelectedField()
{
    KalServices* services = KalServices::getInstance();
    services->setHistoryOptions(kAll);
    services->setEntryNamer([](SoField*, SoField* before) {
        if (!before->isOfType(SoSFFloat::getClassTypeId()))
            return QString();
        return QStringLiteral("from %1").arg(double(static_cast<SoSFFloat*>(before)->getValue()));
    });
    SoComplexity* node = new SoComplexity;
    node->ref();
    node->value.setValue(0.5f);
    emit services->selectedFieldChanged(&node->value);

    // The command does nothing to the field: the history still knows what
    // its edit changed, and undoes it after running the command's undo.
    node->value.setValue(-0.0f);
    auto counters = std::make_shared<Counters>();
    services->pushCommand(new CountingCommand(counters));
    QCOMPARE(services->commandCount(), 1);
    QCOMPARE(services->undoStack()->text(0), QStringLiteral("from 0.5"));
    QVERIFY(services->undo());
    QCOMPARE(counters->undone, 1);
    QCOMPARE(node->value.getValue(), 0.5f);
    QVERIFY(services->redo());
    QCOMPARE(counters->redone, 1);
    // Bit for bit: minus zero comes back as minus zero.
    QVERIFY(std::signbit(node->value.getValue()));

    // A list keeps the rows that changed, and a count that changed.
    SoMFFloat list;
    const float values[] = {1.0f, 2.0f, 3.0f, 4.0f};
    list.setValues(0, 4, values);
    emit services->selectedFieldChanged(&list);
    list.set1Value(1, 20.0f);
    list.deleteValues(3, 1);
    services->pushCommand(new CountingCommand(std::make_shared<Counters>()));
    QCOMPARE(services->commandCount(), 2);
    QVERIFY(services->undo());
    QCOMPARE(list.getNum(), 4);
    QCOMPARE(list[1], 2.0f);
    QCOMPARE(list[3], 4.0f);
    QVERIFY(services->redo());
    QCOMPARE(list.getNum(), 3);
    QCOMPARE(list[1], 20.0f);
    emit services->selectedFieldChanged(nullptr);
    services->clearHistory();
    services->setEntryNamer(nullptr);
    node->unref();
}

void tst_HostHistory::keptHistoryDropsNoOpsAndRecordsUnreportedChanges()
{
    KalServices* services = KalServices::getInstance();
    services->setHistoryOptions(kAll);
    SoComplexity* node = new SoComplexity;
    node->ref();
    emit services->selectedFieldChanged(&node->value);
    QCoreApplication::processEvents();

    auto counters = std::make_shared<Counters>();
    services->pushCommand(new CountingCommand(counters));
    QCOMPARE(counters->executed, 1);
    QCOMPARE(counters->deleted, 1);
    QCOMPARE(services->commandCount(), 0);

    node->value.setValue(0.125f);
    QCOMPARE(services->commandCount(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(services->commandCount(), 1);
    QCOMPARE(services->undoStack()->text(0), QStringLiteral("Edit 1"));
    QVERIFY(services->undo());
    QCOMPARE(node->value.getValue(), 0.5f);
    QVERIFY(node->value.isDefault());
    QCoreApplication::processEvents();
    QCOMPARE(services->commandCount(), 1);
    emit services->selectedFieldChanged(nullptr);
    services->clearHistory();
    node->unref();
}

QTEST_MAIN(tst_HostHistory)
#include "tst_HostHistory.moc"
