// The table of named layout metrics.
#include <LayoutMetrics.h>

#include <QtTest>

#include <atomic>
#include <thread>
#include <vector>

class tst_LayoutMetrics : public QObject
{
    Q_OBJECT

private slots:
    void lookup_data();
    void lookup();
    void unknownNameIsZeroEveryTime();
    void secondLookupGivesTheSameValue();
    void lookupsFromManyThreads();
};

void tst_LayoutMetrics::lookup_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("value");
    // One value of each family of widgets, not the whole table: what the
    // lookup must get right is the key, its case and its one misspelling.
    QTest::newRow("label") << "labelPointSize" << 10;
    QTest::newRow("popup") << "PopupFrameWidth" << 260;
    QTest::newRow("single-value layout") << "SFieldLayoutMargin" << 4;
    QTest::newRow("single-value box") << "SF3fBoxHSpacing" << 20;
    QTest::newRow("list access box") << "MFAccessWidth" << 60;
    QTest::newRow("list table, this platform") << "MFTableMinHeightUnix" << 46;
    QTest::newRow("list table, the other") << "MFTableMinHeightWin" << 43;
    // The editors ask for the margin under this spelling: it is the key.
    QTest::newRow("misspelled") << "MFGlobalLayoutMarging" << 6;
    // Near misses of real keys.
    QTest::newRow("case") << "FrameLineWidth" << 0;
    QTest::newRow("upper case") << "LABELPOINTSIZE" << 0;
    QTest::newRow("spelled right") << "MFGlobalLayoutMargin" << 0;
    QTest::newRow("long form") << "SFEditionAreaLayoutMargin" << 0;
    QTest::newRow("trailing blank") << "buttonWidth " << 0;
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("not latin-1") << QStringLiteral("buttonWidth\u20ac") << 0;
}

void tst_LayoutMetrics::lookup()
{
    QFETCH(QString, name);
    QFETCH(int, value);
    QCOMPARE(LayoutMetrics::value(name), value);
}

void tst_LayoutMetrics::unknownNameIsZeroEveryTime()
{
    for (int i = 0; i < 3; ++i)
        QCOMPARE(LayoutMetrics::value(QStringLiteral("noSuchMetric")), 0);
    QCOMPARE(LayoutMetrics::value(QString()), 0);
}

void tst_LayoutMetrics::secondLookupGivesTheSameValue()
{
    const int first = LayoutMetrics::value(QStringLiteral("PopupFrameWidth"));
    QCOMPARE(first, 260);
    QCOMPARE(LayoutMetrics::value(QStringLiteral("PopupFrameWidth")), first);
}

void tst_LayoutMetrics::lookupsFromManyThreads()
{
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < 8; ++t) {
        threads.emplace_back([&wrong] {
            for (int i = 0; i < 2000; ++i) {
                if (LayoutMetrics::value(QStringLiteral("SF3fBoxHSpacing")) != 20 ||
                    LayoutMetrics::value(QStringLiteral("unknown")) != 0)
                    ++wrong;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    QCOMPARE(wrong.load(), 0);
}

QTEST_GUILESS_MAIN(tst_LayoutMetrics)
#include "tst_LayoutMetrics.moc"
