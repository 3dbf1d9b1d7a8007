// One road per single-value editor that does not edit a lone line edit (those
// travel it in tst_SingleValueEditors): select a field of the type on a real
// node, find the editor the dock chose, change the value through its real
// widget, then follow the value through the host's history and back into the
// widget once the sensor queue has run.
#include "EditorDockFixture.h"
#include "FieldTesting.h"

#include <KalPluginsManager.h>
#include <KalSFSetValueCommand.h>
#include <KalServices.h>
#include <KalShell.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QSpinBox>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

// Coin breaks long values over lines and pads some columns; the road
// compares values, not layout.
QString textOf(SoField* field)
{
    return fieldText(field).simplified();
}

// Children of the shown editor's frame with one object name, left to right
// and top to bottom as a person reads them.
template <class T>
QList<T*> inReadingOrder(QWidget* frame, const char* name)
{
    QList<T*> found = frame->findChildren<T*>(QLatin1String(name));
    std::stable_sort(found.begin(), found.end(), [frame](T* a, T* b) {
        const QPoint pa = a->mapTo(frame, QPoint());
        const QPoint pb = b->mapTo(frame, QPoint());
        return pa.y() != pb.y() ? pa.y() < pb.y() : pa.x() < pb.x();
    });
    return found;
}

// Gestures, each on the real widget the way a person makes it.
std::function<void(QWidget*)> typeAt(const char* name, int index, const char* text)
{
    return [=](QWidget* frame) {
        typeIntoLine(inReadingOrder<QLineEdit>(frame, name).at(index), QString::fromUtf8(text));
    };
}

std::function<void(QWidget*)> stepUp(const char* name, int index)
{
    return [=](QWidget* frame) {
        QSpinBox* box = inReadingOrder<QSpinBox>(frame, name).at(index);
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Up);
    };
}

void clickIndicator(QCheckBox* box)
{
    // A check box takes clicks only on its indicator and its text.
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
}

// What the widgets show, in one comparable text.
std::function<QString(QWidget*)> lineTexts(const char* name)
{
    return [=](QWidget* frame) {
        QStringList texts;
        for (QLineEdit* edit : inReadingOrder<QLineEdit>(frame, name))
            texts << edit->text();
        return texts.join(QLatin1Char(' '));
    };
}

QString spinValues(QWidget* frame)
{
    QStringList values;
    for (QSpinBox* box : inReadingOrder<QSpinBox>(frame, "SF2Box"))
        values << QString::number(box->value());
    return values.join(QLatin1Char(' '));
}

QString checkedBoxes(QWidget* frame)
{
    QStringList checked;
    for (QCheckBox* box : frame->findChildren<QCheckBox*>()) {
        if (box->isChecked())
            checked << (box->text().isEmpty() ? QStringLiteral("checked") : box->text());
    }
    return checked.isEmpty() ? QStringLiteral("none") : checked.join(QLatin1Char(' '));
}

QString imageSize(QWidget* frame)
{
    auto* label = frame->findChild<QLabel*>(QStringLiteral("m_imageBox"));
    auto* popup = label ? label->findChild<QLabel*>(QStringLiteral("pixmapLabel")) : nullptr;
    return popup ? QStringLiteral("%1x%2").arg(popup->width()).arg(popup->height()) : QString();
}

struct Road
{
    const char* field;
    const char* editor;
    const char* typeText;
    // The person's change; for the read-only image, the host's own change.
    std::function<void(QWidget*)> gesture;
    std::function<QString(QWidget*)> shown;
    QString shownBefore;
    QString stored;
    QString shownAfter;
    // Commands the change leaves in the host's history.
    int commands;
    // The field after one undo: editors that hand no previous text to their
    // command have it read after the write, so undo writes the new value
    // back; that is how they have always behaved.
    QString afterUndo;
};

AllFieldsNode* g_node = nullptr;

void hostSetsImage(QWidget*)
{
    SbString previous;
    g_node->sfImage.get(previous);
    static const unsigned char pixels[6] = {10, 20, 30, 40, 50, 60};
    g_node->sfImage.setValue(SbVec2s(3, 2), 1, pixels);
    KalServices::getInstance()->pushCommand(new KalSFSetValueCommand(&g_node->sfImage, previous));
}

const std::vector<Road>& roads()
{
    static const std::vector<Road> table = {
        // The generic editor writes on every key, twice (textEdited and
        // textChanged); Return writes nothing more.
        {"sfTime", "FxSFLineWidget", "SField", typeAt("lineEdit", 0, "9"), lineTexts("lineEdit"), "1.5", "9",
         "9", 2, "9"},
        // Spin boxes apply at once.
        {"sfVec2i32", "FxSFVec2i32Widget", "SFVec2i32", stepUp("SF2Box", 1), spinValues, "3 4", "3 5", "3 5",
         1, "3 5"},
        {"sfVec2s", "FxSFVec2sWidget", "SFVec2s", stepUp("SF2Box", 0), spinValues, "5 6", "6 6", "6 6", 1,
         "6 6"},
        {"sfVec2f", "FxSFVec2fWidget", "SFVec2f", typeAt("SFVec2fBox", 0, "-1.5"), lineTexts("SFVec2fBox"),
         "1 2", "-1.5 2", "-1.5 2", 1, "-1.5 2"},
        {"sfVec3f", "FxSFVec3fWidget", "SFVec3f", typeAt("SFVec3fLine", 2, "30"), lineTexts("SFVec3fLine"),
         "1 2 3", "1 2 30", "1 2 30", 1, "1 2 30"},
        {"sfVec4f", "FxSFVec4fWidget", "SFVec4f", typeAt("SF4fine", 3, "0.25"), lineTexts("SF4fine"),
         "1 2 3 4", "1 2 3 0.25", "1 2 3 0.25", 1, "1 2 3 0.25"},
        {"sfPlane", "FxSFPlaneWidget", "SFPlane", typeAt("SF4fine", 3, "7"), lineTexts("SF4fine"), "0 1 0 2",
         "0 1 0 7", "0 1 0 7", 1, "0 1 0 7"},
        {"sfRotation", "FxSFRotationWidget", "SFRotation", typeAt("SF4fine", 3, "1"), lineTexts("SF4fine"),
         "0 0 1 0.5", "0 0 1 1", "0 0 1 1", 1, "0 0 1 1"},
        {"sfBool", "FxSFBoolWidget", "SFBool",
         [](QWidget* frame) { clickIndicator(frame->findChild<QCheckBox*>(QStringLiteral("m_box"))); },
         checkedBoxes, "checked", "FALSE", "none", 1, "FALSE"},
        {"sfEnum", "FxSFEnumWidget", "SFEnum",
         [](QWidget* frame) {
             auto* combo = frame->findChild<QComboBox*>(QStringLiteral("comboBox"));
             combo->setFocus();
             QTest::keyClick(combo, Qt::Key_Down);
         },
         [](QWidget* frame) {
             return frame->findChild<QComboBox*>(QStringLiteral("comboBox"))->currentText();
         },
         "MEDIUM", "DARK", "DARK", 1, "DARK"},
        // A bit-mask change is written but never handed to the history.
        // Unchecking TOP leaves BOTTOM and LOWER checked, and LOWER (6)
        // brings back SIDES' bit: the field ends at SIDES | BOTTOM. The
        // boxes are built from the field only on selection, so they keep
        // showing what the person left.
        {"sfBitMask", "FxSFBitMaskWidget", "SFBitMask",
         [](QWidget* frame) {
             for (QCheckBox* box : frame->findChildren<QCheckBox*>()) {
                 if (box->text() == QLatin1String("TOP"))
                     clickIndicator(box);
             }
         },
         checkedBoxes, "TOP BOTTOM LOWER", "(SIDES | BOTTOM)", "BOTTOM LOWER", 0, "(SIDES | BOTTOM)"},
        {"sfColor", "FxSFColorWidget", "SFColor", typeAt("SFColorLine", 2, "0.5"), lineTexts("SFColorLine"),
         "0.8 0.4 0.1", "0.80000001 0.40000001 0.5", "0.8 0.4 0.5", 1, "0.80000001 0.40000001 0.5"},
        // The image is shown, never edited: the host changes it, with the
        // previous value, so undo really goes back.
        {"sfImage", "FxSFImageWidget", "SFImage", hostSetsImage, imageSize, "0x0",
         "3 2 1 0xa 0x14 0x1e 0x28 0x32 0x3c", "3x2", 1, "0 0 0"},
        {"sfMatrix", "FxSFMatrixWidget", "SFMatrix", typeAt("m_cell", 12, "5"), lineTexts("m_cell"),
         "1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1", "1 0 0 0 0 1 0 0 0 0 1 0 5 0 0 1",
         "1 0 0 0 0 1 0 0 0 0 1 0 5 0 0 1", 1, "1 0 0 0 0 1 0 0 0 0 1 0 5 0 0 1"},
        {"sfBox3s", "FxSFBox3sWidget", "SFBox3s", typeAt("m_cell", 0, "-10"), lineTexts("m_cell"),
         "-1 -2 -3 4 5 6", "-10 -2 -3 4 5 6", "-10 -2 -3 4 5 6", 1, "-10 -2 -3 4 5 6"},
    };
    return table;
}

} // namespace

class tst_EditorRoads : public EditorDockFixture
{
    Q_OBJECT

public:
    tst_EditorRoads()
        : EditorDockFixture(QSize(1000, 500))
    {}

private slots:
    void init();
    void cleanup();

    void road_data();
    void road();
};

void tst_EditorRoads::init()
{
    EditorDockFixture::init();
    g_node = m_node;
}

void tst_EditorRoads::cleanup()
{
    g_node = nullptr;
    EditorDockFixture::cleanup();
}

void tst_EditorRoads::road_data()
{
    QTest::addColumn<int>("index");
    for (size_t i = 0; i < roads().size(); ++i)
        QTest::newRow(roads()[i].editor) << int(i);
}

void tst_EditorRoads::road()
{
    QFETCH(int, index);
    const Road& road = roads()[size_t(index)];
    KalServices* services = KalServices::getInstance();
    SoField* field = g_node->getField(road.field);
    QVERIFY(field);
    const QString before = textOf(field);

    emit services->selectedFieldChanged(field);
    QVERIFY(dock() && !dock()->isHidden());
    QWidget* frame = dock()->widget();
    QVERIFY(frame);
    QCOMPARE(frame->objectName(), QLatin1String(road.editor));
    QCOMPARE(frame->findChild<QLabel*>(QStringLiteral("m_label"))->text(),
             QStringLiteral("<p align=\"center\">%1</p>").arg(QLatin1String(road.typeText)));
    // Let the layout place the inputs, so that reading order is real.
    QTest::qWait(0);
    // Filling spin boxes writes through their signals; the road starts from a
    // clean history and from the field's own value.
    QCOMPARE(textOf(field), before);
    services->clearHistory();
    QCOMPARE(road.shown(frame), road.shownBefore);

    road.gesture(frame);
    QCOMPARE(textOf(field), road.stored);
    QCOMPARE(services->commandCount(), road.commands);
    for (int i = 0; i < services->commandCount(); ++i)
        QVERIFY(dynamic_cast<KalSFSetValueCommand*>(services->command(i)));
    processSensors();
    QCOMPARE(road.shown(frame), road.shownAfter);

    if (road.commands == 0) {
        QVERIFY(!services->undo());
        QCOMPARE(textOf(field), road.stored);
        return;
    }
    QVERIFY(services->undo());
    QCOMPARE(textOf(field), road.afterUndo);
    processSensors();
    if (road.afterUndo == before)
        QCOMPARE(road.shown(frame), road.shownBefore);
    else
        QCOMPARE(road.shown(frame), road.shownAfter);
    QVERIFY(services->redo());
    QCOMPARE(textOf(field), road.stored);
    processSensors();
    QCOMPARE(road.shown(frame), road.shownAfter);
}

QTEST_MAIN(tst_EditorRoads)
#include "tst_EditorRoads.moc"
