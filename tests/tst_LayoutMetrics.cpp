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
    const std::pair<const char*, int> rows[] = {
        {"frameLineWidth", 0},
        {"labelLineWidth", 0},
        {"labelPointSize", 10},
        {"labelHeight", 20},
        {"buttonWidth", 20},
        {"buttonHeight", 20},
        {"PopupFrameWidth", 260},
        {"PopupFrameHeight", 100},
        {"PopupLayoutMargin", 6},
        {"PopupLayoutSpacing", 8},
        {"SFieldLayoutMargin", 4},
        {"SFieldLayoutSpacing", 6},
        {"SFieldEditLayoutMargin", 0},
        {"SFieldEditLayoutSpacing", 0},
        {"SFButtonLayoutMargin", 2},
        {"SFButtonLayoutSpacing", 0},
        {"SFEditionAreaLayMargin", 0},
        {"SFEditionAreaLaySpacing", 2},
        {"SFComponentHeight", 18},
        {"SFBoolWidth", 16},
        {"SFColorSpacing", 6},
        {"SFColorMargin", 0},
        {"SFColorInterSpacing", 2},
        {"SFColorDispWidth", 20},
        {"SFVecLineHeight", 16},
        {"SFVecLabelHeight", 14},
        {"SF4fBoxVSpacing", 4},
        {"SF4fBoxHSpacing", 4},
        {"SF4fBoxHMargin", 2},
        {"SF3fBoxVSpacing", 4},
        {"SF3fBoxHSpacing", 20},
        {"SF3fBoxHMargin", 2},
        {"SF2BoxHSpacing", 25},
        {"SF2BoxHMargin", 2},
        {"SF2BoxVSpacing", 4},
        {"MFGlobalLayoutSpacing", 2},
        {"MFGlobalLayoutMarging", 6},
        {"MFGlobalButtonsLayoutMargin", 0},
        {"MFGlobalButtonsLayoutSpacing", 5},
        {"MFButtonLayoutMargin", 0},
        {"MFButtonLayoutSpacing", 0},
        {"MFAccessWidth", 60},
        {"MFManageAccessSpacerWidth", 0},
        {"MFManageAccessSpacerHeight", 0},
        {"MFAccessMoveSpacerHeight", 0},
        {"MFAccessMoveSpacerWidth", 0},
        {"MFTableMinHeightWin", 43},
        {"MFTableMinHeightUnix", 46},
    };
    for (const auto& row : rows)
        QTest::newRow(row.first) << QString::fromLatin1(row.first) << row.second;
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
