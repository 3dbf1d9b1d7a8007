// What a list editor draws again when its list changes or scrolls, through
// the real plug-in module in the host's "Field Editor" dock: a refresh that
// keeps the count and a page down must draw no more of the editor than the
// rows themselves, as a bare table would. The time they take is measured in
// bench/; here, which widgets are painted and laid out.
#include "AllFieldsNode.h"
#include "ListEditorTesting.h"

#include <QPaintEvent>
#include <QScreen>
#include <QScrollBar>
#include <QSet>

#include <algorithm>

using namespace ListEditorTesting;

namespace {

// Which widgets were painted and which were laid out again, anywhere in the
// application, while it is alive.
class RedrawLog : public QObject
{
public:
    RedrawLog() { qApp->installEventFilter(this); }
    ~RedrawLog() override { qApp->removeEventFilter(this); }
    QSet<QObject*> painted;
    QSet<QObject*> laidOut;
    // What was painted of each widget, all paints together.
    QHash<QObject*, QRegion> regions;

    // The widgets in `within` (itself included) painted other than those in
    // `allowed` and their children, by object and class name.
    QStringList paintedBesides(QWidget* within, const QList<QWidget*>& allowed) const
    {
        QStringList names;
        for (QObject* object : painted) {
            auto* widget = qobject_cast<QWidget*>(object);
            if (!widget || !(widget == within || within->isAncestorOf(widget)))
                continue;
            if (std::none_of(allowed.cbegin(), allowed.cend(),
                             [&](QWidget* a) { return a == widget || a->isAncestorOf(widget); }))
                names << widget->objectName() + QLatin1Char(':') + widget->metaObject()->className();
        }
        return names;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            painted.insert(watched);
            regions[watched] += static_cast<QPaintEvent*>(event)->region();
        } else if (event->type() == QEvent::LayoutRequest)
            laidOut.insert(watched);
        return false;
    }
};

// What the window system was last given of the widget: its window's backing
// store, not a fresh rendering as QWidget::grab() makes.
QImage onScreen(QWidget* widget)
{
    const QPoint at = widget->mapTo(widget->window(), QPoint(0, 0));
    return widget->screen()
        ->grabWindow(widget->window()->winId(), at.x(), at.y(), widget->width(), widget->height())
        .toImage();
}

} // namespace

class tst_ListEditorRedraw : public ListEditorFixture
{
    Q_OBJECT

private:
    // The string list filled with 1,000 values, more than a page, and shown.
    void selectThousandStrings()
    {
        QStringList many;
        for (int i = 0; i < 1000; ++i)
            many << QString::number(i);
        fill(m_node->mfString, many);
        select(&m_node->mfString);
        QTest::qWait(20);
    }

private slots:
    void unchangedCountRedrawsOnlyTheCells();
    void pageRedrawsOnlyTheTable();
    void aRefreshRepaintsTheChangedCellsOnly();
    void aValueChangedBackIsNotLeftShowing();
    void valuesChangedOutOfSightShowWhenScrolledTo();
};

// A refresh that keeps the count leaves the quick-access box's range alone:
// setting it, even to the same bounds, laid the whole editor out again and
// repainted it, several times the cost of drawing the changed cells.
void tst_ListEditorRedraw::unchangedCountRedrawsOnlyTheCells()
{
    select(&m_node->mfFloat);
    QTest::qWait(20);
    QWidget* editorFrame = dock()->widget();
    const RedrawLog log;
    m_node->mfFloat.set1Value(1, 8.0f);
    processSensors();
    QTRY_VERIFY(log.painted.contains(table()->viewport()));
    QTest::qWait(20);
    const QStringList painted = log.paintedBesides(editorFrame, {table()->viewport()});
    QVERIFY2(painted.isEmpty(), qPrintable(painted.join(QLatin1String(", "))));
    QVERIFY(!log.laidOut.contains(editorFrame));
    QVERIFY(!log.laidOut.contains(accessBox()));
    QCOMPARE(shownEditor()->getValueText(1, 0), QStringLiteral("8"));
    QCOMPARE(accessBox()->maximum(), 3);
}

// Scrolling a page draws the rows that come into view and their numbers,
// as a bare table does, and nothing else of the editor.
void tst_ListEditorRedraw::pageRedrawsOnlyTheTable()
{
    selectThousandStrings();
    QScrollBar* bar = table()->verticalScrollBar();
    QVERIFY(bar->maximum() > bar->pageStep());
    const RedrawLog log;
    bar->setValue(bar->value() + bar->pageStep());
    QTRY_VERIFY(log.painted.contains(table()->viewport()));
    QTest::qWait(20);
    // The platform may have the area under the scrolled rows drawn again by
    // the table and the frame behind it, as it does for a bare table; no
    // other control of the editor is drawn.
    QWidget* editorFrame = dock()->widget();
    QStringList painted;
    for (QWidget* control : editorFrame->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (control != table())
            painted += log.paintedBesides(control, {});
    }
    QVERIFY2(painted.isEmpty(), qPrintable(painted.join(QLatin1String(", "))));
    QVERIFY(!log.laidOut.contains(editorFrame));
    QCOMPARE(table()->rowAt(0), bar->value());
}

// One value of a long list changed elsewhere (an engine, another program)
// repaints the cell that shows it, not every row in sight.
void tst_ListEditorRedraw::aRefreshRepaintsTheChangedCellsOnly()
{
    selectThousandStrings();
    QWidget* viewport = table()->viewport();
    const QRect cell = table()->visualRect(table()->model()->index(3, 0));
    QVERIFY(viewport->rect().contains(cell));
    // The first refresh after the table took its size paints every row in
    // sight, and notes what each shows.
    m_node->mfString.set1Value(2, "first");
    processSensors();
    QTest::qWait(20);
    {
        const RedrawLog log;
        m_node->mfString.set1Value(3, "changed");
        processSensors();
        QTRY_VERIFY(log.painted.contains(viewport));
        QTest::qWait(20);
        QCOMPARE(log.regions.value(viewport).boundingRect(), cell);
    }
    QCOMPARE(shownEditor()->getValueText(3, 0), QStringLiteral("changed"));
    {
        // The same value again: nothing in sight reads otherwise.
        const RedrawLog log;
        m_node->mfString.set1Value(3, "changed");
        m_node->mfString.set1Value(900, "out of sight");
        processSensors();
        QTest::qWait(50);
        QVERIFY(!log.painted.contains(viewport));
    }
}

// A value changed, painted (the pointer passing over the cell) and changed
// back before the editor heard of it: the cell is painted again, so that it
// does not keep showing the value in between.
void tst_ListEditorRedraw::aValueChangedBackIsNotLeftShowing()
{
    select(&m_node->mfFloat);
    QTest::qWait(20);
    // A first refresh once the table has its size: the rows in sight are
    // noted as painted.
    m_node->mfFloat.touch();
    processSensors();
    QTest::qWait(20);
    QWidget* viewport = table()->viewport();
    const float before = m_node->mfFloat[1];
    m_node->mfFloat.enableNotify(false);
    m_node->mfFloat.set1Value(1, 8.0f);
    viewport->repaint();
    m_node->mfFloat.set1Value(1, before);
    m_node->mfFloat.enableNotify(true);
    m_node->mfFloat.touch();
    processSensors();
    QTest::qWait(20);
    const QImage shown = onScreen(viewport);
    QVERIFY(!shown.isNull());
    viewport->repaint();
    QCOMPARE(shown, onScreen(viewport));
    QCOMPARE(shownEditor()->getValueText(1, 0), QString::number(double(before)));
}

// A value changed while out of sight reads right once scrolled to.
void tst_ListEditorRedraw::valuesChangedOutOfSightShowWhenScrolledTo()
{
    selectThousandStrings();
    m_node->mfString.set1Value(900, "far down");
    processSensors();
    QTest::qWait(20);
    table()->scrollTo(table()->model()->index(900, 0), QAbstractItemView::PositionAtTop);
    QTest::qWait(20);
    const QImage shown = onScreen(table()->viewport());
    QVERIFY(!shown.isNull());
    table()->viewport()->repaint();
    QCOMPARE(shown, onScreen(table()->viewport()));
    QCOMPARE(shownEditor()->getValueText(900, 0), QStringLiteral("far down"));
}

QTEST_MAIN(tst_ListEditorRedraw)
#include "tst_ListEditorRedraw.moc"
