// The editors' line edits and check boxes draw their frames and indicators
// from a cache: what they show must be what the application's style draws,
// in every state, and the style must go with its owner.
#include "AllFieldsNode.h"

#include <KalPluginsManager.h>
#include <KalServices.h>
#include <KalShell.h>
#include <PanelCacheStyle.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>

#include <QCheckBox>
#include <QCommonStyle>
#include <QDockWidget>
#include <QLineEdit>
#include <QMainWindow>
#include <QPainter>
#include <QSpinBox>
#include <QStyleFactory>
#include <QStyleOption>
#include <QtTest>

#include <functional>
#include <memory>

class tst_PanelCacheStyle : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void primitivesMatchTheApplicationStyle_data();
    void primitivesMatchTheApplicationStyle();
    void widgetsMatchTheApplicationStyle_data();
    void widgetsMatchTheApplicationStyle();
    void eachLookIsDrawnOnce();
    void unusualPaintersDrawLive();
    void widgetsFallBackWhenTheScopeEnds();
    void aSecondScopeLeavesTheFirstOne();
    void spinBoxesKeepTheirLineEdits();
    void onlyStillStylesAreWrapped();
    void styleSheetsAreLeftAlone();
    void editorsDrawThroughIt();
    void editorsOutliveNothingOnUnload();

private:
    static QImage paint(QStyle* style, QStyle::PrimitiveElement element, const QStyleOption& option,
                        QPointF offset);
};

namespace {

// The application's style whatever a test function did to it.
void useApplicationStyle(const char* key)
{
    QApplication::setStyle(QStyleFactory::create(QLatin1String(key)));
}

QImage grabbed(QWidget* widget)
{
    return widget->grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// The largest difference of any colour channel between two images of one
// size, or 256 when their sizes differ. Blending an antialiased edge onto a
// clear image first and onto the background later may round the other way,
// by one step; anything more is a different drawing.
int channelDifference(const QImage& a, const QImage& b)
{
    if (a.size() != b.size())
        return 256;
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            largest = std::max({largest, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                                std::abs(qBlue(p) - qBlue(q)), std::abs(qAlpha(p) - qAlpha(q))});
        }
    }
    return largest;
}

} // namespace

void tst_PanelCacheStyle::initTestCase()
{
    SoDB::init();
    SoKalExtensions::init();
    AllFieldsNode::initClass();
}

void tst_PanelCacheStyle::cleanup()
{
    qApp->setStyleSheet(QString());
    useApplicationStyle("fusion");
    if (KalServices::getInstance())
        emit KalServices::getInstance()->selectedFieldChanged(nullptr);
    KalPluginsManager::getInstance()->unloadAll();
}

QImage tst_PanelCacheStyle::paint(QStyle* style, QStyle::PrimitiveElement element, const QStyleOption& option,
                                  QPointF offset)
{
    QImage image(80, 40, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(200, 120, 40));
    QPainter painter(&image);
    painter.translate(offset);
    style->drawPrimitive(element, &option, &painter);
    return image;
}

void tst_PanelCacheStyle::primitivesMatchTheApplicationStyle_data()
{
    QTest::addColumn<QString>("styleKey");
    QTest::addColumn<int>("element");
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("rightToLeft");
    const QStyle::State enabled = QStyle::State_Enabled;
    const struct
    {
        const char* name;
        QStyle::PrimitiveElement element;
        QStyle::State state;
    } looks[] = {
        {"line edit", QStyle::PE_PanelLineEdit, enabled},
        {"focused line edit", QStyle::PE_PanelLineEdit, enabled | QStyle::State_HasFocus},
        {"read-only line edit", QStyle::PE_PanelLineEdit, enabled | QStyle::State_ReadOnly},
        {"disabled line edit", QStyle::PE_PanelLineEdit, QStyle::State_None},
        {"cleared box", QStyle::PE_IndicatorCheckBox, enabled | QStyle::State_Off},
        {"checked box", QStyle::PE_IndicatorCheckBox, enabled | QStyle::State_On},
        {"partly checked box", QStyle::PE_IndicatorCheckBox, enabled | QStyle::State_NoChange},
        {"pressed box", QStyle::PE_IndicatorCheckBox, enabled | QStyle::State_On | QStyle::State_Sunken},
        {"box under the mouse", QStyle::PE_IndicatorCheckBox, enabled | QStyle::State_MouseOver},
        {"disabled checked box", QStyle::PE_IndicatorCheckBox, QStyle::State_On},
    };
    for (const char* key : {"fusion", "windows"}) {
        for (const auto& look : looks) {
            for (bool rtl : {false, true}) {
                QTest::addRow("%s, %s%s", key, look.name, rtl ? ", right to left" : "")
                    << QString::fromLatin1(key) << int(look.element) << int(look.state) << rtl;
            }
        }
    }
}

void tst_PanelCacheStyle::primitivesMatchTheApplicationStyle()
{
    QFETCH(QString, styleKey);
    QFETCH(int, element);
    QFETCH(int, state);
    QFETCH(bool, rightToLeft);
    useApplicationStyle(qPrintable(styleKey));
    PanelCacheStyle::Scope scope;
    PanelCacheStyle* cached = PanelCacheStyle::shared();
    QVERIFY(cached);

    const auto pe = QStyle::PrimitiveElement(element);
    // Style options have no virtual destructor: both live here, one is used.
    QStyleOptionFrame frame;
    frame.lineWidth = QApplication::style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
    frame.rect = QRect(3, 5, 60, 22);
    QStyleOptionButton button;
    button.rect = QRect(7, 4, 13, 13);
    QStyleOption* option = pe == QStyle::PE_PanelLineEdit ? static_cast<QStyleOption*>(&frame) : &button;
    option->state = QStyle::State(state);
    option->direction = rightToLeft ? Qt::RightToLeft : Qt::LeftToRight;
    option->palette = QApplication::palette();
    option->palette.setCurrentColorGroup((option->state & QStyle::State_Enabled) ? QPalette::Active
                                                                                 : QPalette::Disabled);

    const QImage live = paint(QApplication::style(), pe, *option, QPointF(4, 2));
    const QImage elsewhere = paint(QApplication::style(), pe, *option, QPointF(12, 9));
    QVERIFY(channelDifference(live, elsewhere) > 1);
    // Drawn into the cache, then blitted from it, then blitted elsewhere.
    QVERIFY(channelDifference(paint(cached, pe, *option, QPointF(4, 2)), live) <= 1);
    QVERIFY(channelDifference(paint(cached, pe, *option, QPointF(4, 2)), live) <= 1);
    QVERIFY(channelDifference(paint(cached, pe, *option, QPointF(12, 9)), elsewhere) <= 1);
    QCOMPARE(cached->cachedLooks(), 1);
}

void tst_PanelCacheStyle::widgetsMatchTheApplicationStyle_data()
{
    QTest::addColumn<bool>("checkBox");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<int>("checkState");
    QTest::newRow("line edit") << false << true << 0;
    QTest::newRow("disabled line edit") << false << false << 0;
    QTest::newRow("cleared box") << true << true << int(Qt::Unchecked);
    QTest::newRow("checked box") << true << true << int(Qt::Checked);
    QTest::newRow("partly checked box") << true << true << int(Qt::PartiallyChecked);
    QTest::newRow("disabled checked box") << true << false << int(Qt::Checked);
}

void tst_PanelCacheStyle::widgetsMatchTheApplicationStyle()
{
    QFETCH(bool, checkBox);
    QFETCH(bool, enabled);
    QFETCH(int, checkState);
    PanelCacheStyle::Scope scope;
    QWidget window;
    auto make = [&](QWidget* parent) -> QWidget* {
        if (checkBox) {
            auto* box = new QCheckBox(QStringLiteral("shadows"), parent);
            box->setTristate(true);
            box->setCheckState(Qt::CheckState(checkState));
            box->setEnabled(enabled);
            box->setFocusPolicy(Qt::NoFocus);
            return box;
        }
        auto* edit = new QLineEdit(QStringLiteral("0.250000"), parent);
        edit->setEnabled(enabled);
        edit->setFocusPolicy(Qt::NoFocus);
        return edit;
    };
    QWidget* live = make(&window);
    QWidget* cached = make(&window);
    PanelCacheStyle::use(cached);
    QCOMPARE(cached->style(), PanelCacheStyle::shared());
    QCOMPARE(live->style(), QApplication::style());
    live->setGeometry(0, 0, 90, 24);
    cached->setGeometry(0, 30, 90, 24);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(channelDifference(grabbed(cached), grabbed(live)) <= 1);
    QVERIFY(channelDifference(grabbed(cached), grabbed(live)) <= 1);
    QCOMPARE(PanelCacheStyle::shared()->cachedLooks(), 1);
}

void tst_PanelCacheStyle::eachLookIsDrawnOnce()
{
    PanelCacheStyle::Scope scope;
    QWidget window;
    QLineEdit* edits[3];
    for (QLineEdit*& edit : edits) {
        edit = new QLineEdit(QStringLiteral("1"), &window);
        PanelCacheStyle::use(edit);
        edit->setFocusPolicy(Qt::NoFocus);
        edit->resize(70, 22);
    }
    edits[2]->resize(71, 22);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    for (QLineEdit* edit : edits)
        edit->grab();
    // Two sizes, two looks; drawing them all again adds none.
    QCOMPARE(PanelCacheStyle::shared()->cachedLooks(), 2);
    for (QLineEdit* edit : edits)
        edit->grab();
    QCOMPARE(PanelCacheStyle::shared()->cachedLooks(), 2);
    edits[0]->setEnabled(false);
    edits[0]->grab();
    QCOMPARE(PanelCacheStyle::shared()->cachedLooks(), 3);
}

void tst_PanelCacheStyle::unusualPaintersDrawLive()
{
    PanelCacheStyle::Scope scope;
    QStyleOptionFrame frame;
    frame.lineWidth = 1;
    frame.rect = QRect(0, 0, 50, 20);
    frame.state = QStyle::State_Enabled;
    frame.palette = QApplication::palette();
    // Antialiased edges at half pixels blend differently from any blit.
    QCOMPARE(paint(PanelCacheStyle::shared(), QStyle::PE_PanelLineEdit, frame, QPointF(2.5, 1.5)),
             paint(QApplication::style(), QStyle::PE_PanelLineEdit, frame, QPointF(2.5, 1.5)));
    QCOMPARE(PanelCacheStyle::shared()->cachedLooks(), 0);
    // So do overlapping strokes under opacity, and a scaled painter.
    auto drawn = [&frame](QStyle* style, const std::function<void(QPainter&)>& set) {
        QImage image(80, 40, QImage::Format_ARGB32_Premultiplied);
        image.fill(QColor(200, 120, 40));
        QPainter painter(&image);
        set(painter);
        style->drawPrimitive(QStyle::PE_PanelLineEdit, &frame, &painter);
        return image;
    };
    const std::function<void(QPainter&)> settings[] = {[](QPainter& p) { p.setOpacity(0.5); },
                                                       [](QPainter& p) { p.scale(1.5, 1.5); }};
    for (const auto& set : settings) {
        QCOMPARE(drawn(PanelCacheStyle::shared(), set), drawn(QApplication::style(), set));
        QCOMPARE(PanelCacheStyle::shared()->cachedLooks(), 0);
    }
}

void tst_PanelCacheStyle::widgetsFallBackWhenTheScopeEnds()
{
    auto scope = std::make_unique<PanelCacheStyle::Scope>();
    QLineEdit edit(QStringLiteral("2"));
    PanelCacheStyle::use(&edit);
    QVERIFY(edit.style() != QApplication::style());
    scope.reset();
    QVERIFY(!PanelCacheStyle::shared());
    QCOMPARE(edit.style(), QApplication::style());
    edit.show();
    QVERIFY(!edit.grab().isNull());
    // Without a scope, nothing is lent.
    QLineEdit later;
    PanelCacheStyle::use(&later);
    QCOMPARE(later.style(), QApplication::style());
    PanelCacheStyle::use(nullptr);
}

void tst_PanelCacheStyle::aSecondScopeLeavesTheFirstOne()
{
    PanelCacheStyle::Scope first;
    PanelCacheStyle* style = PanelCacheStyle::shared();
    QVERIFY(style);
    QLineEdit edit;
    PanelCacheStyle::use(&edit);
    {
        PanelCacheStyle::Scope second;
        QCOMPARE(PanelCacheStyle::shared(), style);
    }
    QCOMPARE(PanelCacheStyle::shared(), style);
    QCOMPARE(edit.style(), style);
}

void tst_PanelCacheStyle::spinBoxesKeepTheirLineEdits()
{
    PanelCacheStyle::Scope scope;
    QSpinBox spin;
    auto* inner = spin.findChild<QLineEdit*>();
    QVERIFY(inner);
    PanelCacheStyle::use(inner);
    QCOMPARE(inner->style(), QApplication::style());
}

void tst_PanelCacheStyle::onlyStillStylesAreWrapped()
{
    // A style no style plug-in makes, and one whose key is not known to draw
    // these primitives without animation, keep every widget on them.
    QApplication::setStyle(new QCommonStyle);
    {
        PanelCacheStyle::Scope scope;
        QVERIFY(!PanelCacheStyle::shared());
        QLineEdit edit;
        PanelCacheStyle::use(&edit);
        QCOMPARE(edit.style(), QApplication::style());
    }
    QStyle* named = QStyleFactory::create(QStringLiteral("fusion"));
    named->setObjectName(QStringLiteral("some-desktop-style"));
    QApplication::setStyle(named);
    PanelCacheStyle::Scope scope;
    QVERIFY(!PanelCacheStyle::shared());
}

void tst_PanelCacheStyle::styleSheetsAreLeftAlone()
{
    {
        qApp->setStyleSheet(QStringLiteral("QLineEdit { border: 2px solid red; }"));
        PanelCacheStyle::Scope scope;
        QVERIFY(!PanelCacheStyle::shared());
        qApp->setStyleSheet(QString());
    }
    PanelCacheStyle::Scope scope;
    QLineEdit styled;
    styled.setStyleSheet(QStringLiteral("border: 1px solid blue;"));
    PanelCacheStyle::use(&styled);
    QVERIFY(styled.style() != PanelCacheStyle::shared());
}

void tst_PanelCacheStyle::editorsDrawThroughIt()
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    QVERIFY2(manager->loadPlugin(QStringLiteral(KALDEFAULTS_MODULE_PATH)), qPrintable(manager->lastError()));
    auto* node = new AllFieldsNode;
    node->ref();
    auto* dock = KalShell::getInstance()->getMainWindow()->findChild<QDockWidget*>(
        QStringLiteral("KalFieldEditorDock"));
    QVERIFY(dock);
    KalShell::getInstance()->getMainWindow()->show();
    // The plug-in is its own copy of the class: ask by name.
    const struct
    {
        const char* field;
        const char* widgetType;
        int count;
    } uses[] = {{"sfVec3f", "QLineEdit", 3},
                {"sfBitMask", "QCheckBox", 2},
                {"sfFloat", "QLineEdit", 1},
                {"sfFloat", "QCheckBox", 1},
                {"sfBool", "QCheckBox", 1}};
    for (const auto& use : uses) {
        emit KalServices::getInstance()->selectedFieldChanged(node->getField(use.field));
        QVERIFY(!dock->isHidden());
        int drawnThroughIt = 0;
        for (QWidget* widget : dock->findChildren<QWidget*>()) {
            if (widget->isVisible() && widget->inherits(use.widgetType) &&
                widget->style()->inherits("PanelCacheStyle"))
                ++drawnThroughIt;
        }
        QVERIFY2(drawnThroughIt >= use.count, use.field);
        QVERIFY(!dock->grab().isNull());
    }
    emit KalServices::getInstance()->selectedFieldChanged(nullptr);
    node->unref();
}

void tst_PanelCacheStyle::editorsOutliveNothingOnUnload()
{
    // Loaded and unloaded again and again with an editor shown: the style
    // goes with the plug-in, before its code does (the sanitizers' build
    // would see a use after free, a crash, or a leaked style).
    auto* node = new AllFieldsNode;
    node->ref();
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    for (int i = 0; i < 5; ++i) {
        QVERIFY2(manager->loadPlugin(QStringLiteral(KALDEFAULTS_MODULE_PATH)),
                 qPrintable(manager->lastError()));
        emit KalServices::getInstance()->selectedFieldChanged(node->getField("sfColor"));
        KalShell::getInstance()->getMainWindow()->grab();
        manager->unloadAll();
        QApplication::processEvents();
    }
    QLineEdit after(QStringLiteral("3"));
    after.show();
    QVERIFY(!after.grab().isNull());
    node->unref();
}

QTEST_MAIN(tst_PanelCacheStyle)
#include "tst_PanelCacheStyle.moc"
