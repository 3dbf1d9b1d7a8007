// The list editors in kalhost's window, with the real plug-in: every list of
// the sample's field sampler shown in the editor column beside the 3D view,
// long enough to scroll, keeps its last column (a colour's B, a rotation's
// angle) inside the table's viewport, not under the vertical scroll bar.
#include "HostWindowTesting.h"

#include <KalHostWindow.h>
#include <KalPluginsManager.h>

#include <Inventor/SbString.h>
#include <Inventor/fields/SoMField.h>
#include <Inventor/nodes/SoNode.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QDockWidget>
#include <QHeaderView>
#include <QLayout>
#include <QMainWindow>
#include <QScrollBar>
#include <QSettings>
#include <QTableWidget>
#include <QtTest>

#include <memory>

class tst_HostListColumns : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void lastColumnIsNotUnderTheScrollBar_data();
    void lastColumnIsNotUnderTheScrollBar();

private:
    void settle();
    // The table of the editor shown in the Field Editor dock.
    QTableWidget* shownTable() const;

    std::unique_ptr<KalHostWindow> m_host;
};

void tst_HostListColumns::initTestCase()
{
    HostWindowTesting::setUpScene();
}

void tst_HostListColumns::init()
{
    QSettings().clear();
    m_host = HostWindowTesting::sampleWithPlugin(QGuiApplication::platformName() == QLatin1String("xcb"));
    QVERIFY(m_host);
    settle();
}

void tst_HostListColumns::cleanup()
{
    m_host.reset();
    KalPluginsManager::getInstance()->unloadAll();
    QSettings().clear();
}

void tst_HostListColumns::settle()
{
    // Docks shown and sized after the window is first exposed lay out over
    // several turns of the event loop; field changes reach the editor
    // through the scene graph's delay queue.
    for (int turn = 0; turn < 5; ++turn) {
        SoDB::getSensorManager()->processDelayQueue(FALSE);
        QCoreApplication::processEvents();
        m_host->window()->layout()->activate();
    }
}

QTableWidget* tst_HostListColumns::shownTable() const
{
    auto* dock = m_host->window()->findChild<QDockWidget*>(QStringLiteral("KalFieldEditorDock"));
    if (!dock || !dock->widget())
        return nullptr;
    for (QTableWidget* table : dock->widget()->findChildren<QTableWidget*>()) {
        if (table->isVisible())
            return table;
    }
    return nullptr;
}

void tst_HostListColumns::lastColumnIsNotUnderTheScrollBar_data()
{
    QTest::addColumn<QString>("field");
    for (const char* field :
         {"palette", "thresholds", "ramp", "indices", "instances", "keywords", "slabs", "keyRotations",
          "levels", "lines", "masks", "counts", "uvs", "cells", "steps", "points", "homogeneous"})
        QTest::newRow(field) << QString::fromLatin1(field);
}

void tst_HostListColumns::lastColumnIsNotUnderTheScrollBar()
{
    QFETCH(QString, field);
    SoNode* sampler = SoNode::getByName("Sampler");
    QVERIFY(sampler);
    auto* list = dynamic_cast<SoMField*>(sampler->getField(field.toLatin1().constData()));
    QVERIFY(list);
    QVERIFY(list->getNum() > 0);
    // As the sample has it, then long enough to scroll, with wider row
    // numbers, while it is shown.
    QVERIFY(m_host->select(QStringLiteral("Sampler.") + field));
    for (int rows : {list->getNum(), 2000}) {
        SbString first;
        list->get1(0, first);
        for (int row = list->getNum(); row < rows; ++row)
            list->set1(row, first.getString());
        settle();
        QTableWidget* table = shownTable();
        QVERIFY(table);
        QCOMPARE(table->rowCount(), rows);
        QVERIFY(table->verticalScrollBar()->isVisible());
        const QHeaderView* header = table->horizontalHeader();
        const int last = table->columnCount() - 1;
        const int end = header->sectionViewportPosition(last) + header->sectionSize(last);
        QVERIFY2(end <= table->viewport()->width() && header->sectionSize(last) > 0,
                 qPrintable(QStringLiteral("%1 rows: column %2 ends at %3 in a %4 px viewport")
                                .arg(rows)
                                .arg(last)
                                .arg(end)
                                .arg(table->viewport()->width())));
    }
}

QTEST_MAIN(tst_HostListColumns)
#include "tst_HostListColumns.moc"
