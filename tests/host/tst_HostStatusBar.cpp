// What kalhost's caption and status bar say: what is selected, in the path
// --select takes back to it, and what opening and saving did, with the
// plug-in's extensions counted.
#include "HostWindowTesting.h"

#include <KalHostWindow.h>
#include <KalPluginsManager.h>

#include <QItemSelectionModel>
#include <QLabel>
#include <QLocale>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTreeView>
#include <QtTest>

#include <memory>

class tst_HostStatusBar : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void captionAndStatusBarSayWhatIsSelected();
    void statusBarReportsOpenSaveAndThePlugin();

private:
    std::unique_ptr<KalHostWindow> m_host;
    QTemporaryDir m_dir;
};

void tst_HostStatusBar::initTestCase()
{
    HostWindowTesting::setUpScene();
    QVERIFY(m_dir.isValid());
}

void tst_HostStatusBar::init()
{
    QSettings().clear();
    m_host = HostWindowTesting::sampleWithPlugin(false);
    QVERIFY(m_host);
    QCoreApplication::processEvents();
}

void tst_HostStatusBar::cleanup()
{
    m_host.reset();
    KalPluginsManager::getInstance()->unloadAll();
    QSettings().clear();
}

void tst_HostStatusBar::captionAndStatusBarSayWhatIsSelected()
{
    auto* caption = m_host->window()->findChild<QLabel*>(QStringLiteral("SelectionCaption"));
    auto* status = m_host->window()->findChild<QLabel*>(QStringLiteral("StatusSelection"));
    QVERIFY(caption && status);
    QVERIFY(caption->text().contains(QStringLiteral("Nothing selected")));
    QCOMPARE(status->text(), QStringLiteral("Nothing selected"));

    QVERIFY(m_host->select(QStringLiteral("Sampler.orientation")));
    QVERIFY(caption->text().contains(QStringLiteral("Sampler.orientation")));
    QVERIFY(caption->text().contains(QStringLiteral("SFRotation")));
    // The path --select takes back to it.
    QCOMPARE(status->text(), QStringLiteral("Sampler.orientation (SFRotation)"));

    QVERIFY(m_host->select(QStringLiteral("Sampler")));
    QCOMPARE(status->text(), QStringLiteral("Sampler (KalFieldSampler)"));
    QVERIFY(!caption->text().contains(QStringLiteral("orientation")));

    m_host->tree()->selectionModel()->clearSelection();
    QCOMPARE(status->text(), QStringLiteral("Nothing selected"));
}

void tst_HostStatusBar::statusBarReportsOpenSaveAndThePlugin()
{
    auto* document = m_host->window()->findChild<QLabel*>(QStringLiteral("StatusDocument"));
    auto* plugin = m_host->window()->findChild<QLabel*>(QStringLiteral("StatusPlugin"));
    QVERIFY(document && plugin);
    QVERIFY2(plugin->text().contains(QStringLiteral("45 extensions")), qPrintable(plugin->text()));

    const QString path = m_dir.filePath(QStringLiteral("status.iv"));
    QVERIFY(m_host->saveScene(path));
    const QRegularExpression saved(QStringLiteral("^Saved status\\.iv: ([0-9,]+) nodes in [0-9,]+ ms$"));
    const QRegularExpressionMatch savedMatch = saved.match(document->text());
    QVERIFY2(savedMatch.hasMatch(), qPrintable(document->text()));
    const int nodes = QLocale().toInt(savedMatch.captured(1));
    QVERIFY(nodes > 10);

    QVERIFY(m_host->openScene(path));
    const QRegularExpression opened(QStringLiteral("^Opened status\\.iv: ([0-9,]+) nodes in [0-9,]+ ms$"));
    const QRegularExpressionMatch openedMatch = opened.match(document->text());
    QVERIFY2(openedMatch.hasMatch(), qPrintable(document->text()));
    QCOMPARE(QLocale().toInt(openedMatch.captured(1)), nodes);

    QVERIFY(!m_host->openScene(m_dir.filePath(QStringLiteral("missing.iv"))));
    QVERIFY2(document->text().contains(QStringLiteral("missing.iv")), qPrintable(document->text()));
}

QTEST_MAIN(tst_HostStatusBar)
#include "tst_HostStatusBar.moc"
