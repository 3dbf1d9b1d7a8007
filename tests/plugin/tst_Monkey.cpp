// A seeded, reproducible storm of user input over the real plug-in in the
// host's dock: keys, clicks, double clicks, drags, wheel turns, focus
// changes, hostile text, selection changes among fields of every type,
// undo and redo. Nothing may crash or leak, afterwards every field still
// reads back from its own text, and an event in any editor that typed
// nothing while no control holds typed text (a selection from one editor
// to another, a focus change, a click into a line edit, Return in one)
// leaves every field of the node as it was, to the byte.
//
// KAL_MONKEY_SEED picks the run (printed at the start, so a failure can be
// replayed); KAL_MONKEY_EVENTS how many events it makes (a short run by
// default, `make monkey` runs 100,000).
#include "AllFieldsNode.h"
#include "FieldSnapshot.h"
#include "ListEditorTesting.h"

#include <SoKalExtensions.h>
#include <SoTypedObject.h>

#include <Inventor/SoDB.h>
#include <Inventor/lists/SoFieldList.h>

#include <QAbstractSlider>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QTimer>
#include <QWheelEvent>

#include <random>

using namespace ListEditorTesting;

namespace {

// Texts a person, a paste or a script may put anywhere.
const char* const kTexts[] = {
    "0",     "1",      "-1",         "0.5",  "1,5",   "1.5e3", "nan",        "inf",   "-inf",   "1e999",
    "1e-45", "3.4e38", "-0",         "abc",  "",      " ",     "2147483648", "65536", "-32769", "0x10",
    "1 2 3", "[1, 2]", "\"quoted\"", "TRUE", "FRONT", "e",     "-",          ".",     "1e",
};

const Qt::Key kKeys[] = {
    Qt::Key_0,      Qt::Key_1,       Qt::Key_5,         Qt::Key_9,        Qt::Key_Period, Qt::Key_Comma,
    Qt::Key_Minus,  Qt::Key_Plus,    Qt::Key_E,         Qt::Key_A,        Qt::Key_Return, Qt::Key_Enter,
    Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Backspace, Qt::Key_Delete,   Qt::Key_Up,     Qt::Key_Down,
    Qt::Key_Left,   Qt::Key_Right,   Qt::Key_PageUp,    Qt::Key_PageDown, Qt::Key_Home,   Qt::Key_End,
    Qt::Key_Escape, Qt::Key_Space,   Qt::Key_Shift,     Qt::Key_F2,
};

int envNumber(const char* name, int fallback)
{
    bool ok = false;
    const int value = qEnvironmentVariableIntValue(name, &ok);
    return ok ? value : fallback;
}

} // namespace

class tst_Monkey : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void storm();

private:
    // Dialogs and menus opened by the storm are answered at once, as if the
    // person pressed Escape.
    void dismissModals();
    QWidget* randomTarget();
    QPoint randomPoint(QWidget* widget);
    // Makes one event; true when it was one that may change no field.
    bool act();
    // Whether a control of the dock or of an open popup holds typed text,
    // or a slider was moved by keys, wheel or drag since the editor was
    // filled: leaving it applies that input, as it should.
    bool holdsPendingInput() const;
    // Whether the dock shows an editor of the text paths.
    static bool showsEditor();
    // Every field can be read back from the text it writes of itself.
    void checkFieldsReadBack();

    AllFieldsNode* m_node = nullptr;
    QList<SoField*> m_fields;
    std::mt19937 m_random;
    QTimer m_dismisser;
    int m_counts[12] = {};
    int m_untouchedChecks = 0;
    int m_lastChoice = 0;
    bool m_sliderMoved = false;
};

void tst_Monkey::initTestCase()
{
    SoDB::init();
    SoKalExtensions::init();
    AllFieldsNode::initClass();
    QVERIFY(EditorDockFixture::loadPlugin(QSize(1000, 700)));
    m_node = new AllFieldsNode;
    m_node->ref();
    SoFieldList fields;
    m_node->getFields(fields);
    for (int i = 0; i < fields.getLength(); ++i)
        m_fields << fields[i];
    connect(&m_dismisser, &QTimer::timeout, this, &tst_Monkey::dismissModals);
    m_dismisser.start(20);
}

void tst_Monkey::cleanupTestCase()
{
    m_dismisser.stop();
    EditorDockFixture::unloadPlugin();
    m_node->unref();
}

void tst_Monkey::dismissModals()
{
    if (QWidget* popup = QApplication::activePopupWidget()) {
        if (qobject_cast<QMenu*>(popup))
            popup->close();
    }
    if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        dialog->reject();
}

// A visible, enabled widget of the editor shown, or of an open popup grid.
QWidget* tst_Monkey::randomTarget()
{
    QList<QWidget*> candidates;
    QWidget* popup = QApplication::activePopupWidget();
    QWidget* root = popup ? popup : static_cast<QWidget*>(EditorDockFixture::dock());
    if (!root)
        return nullptr;
    for (QWidget* widget : root->findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->isEnabled() && widget->width() > 0 && widget->height() > 0)
            candidates << widget;
    }
    if (candidates.isEmpty())
        return root;
    return candidates.at(int(m_random() % unsigned(candidates.size())));
}

QPoint tst_Monkey::randomPoint(QWidget* widget)
{
    return QPoint(int(m_random() % unsigned(std::max(widget->width(), 1))),
                  int(m_random() % unsigned(std::max(widget->height(), 1))));
}

bool tst_Monkey::act()
{
    const int choice = int(m_random() % 100);
    m_lastChoice = choice;
    QWidget* target = randomTarget();
    if (choice < 6) {
        ++m_counts[0];
        // From one editor to another: filling an editor with a field, or
        // leaving one untouched, writes nothing.
        const bool neutral = showsEditor() && !holdsPendingInput();
        EditorDockFixture::select(m_fields.at(int(m_random() % unsigned(m_fields.size()))));
        m_sliderMoved = false;
        return neutral && showsEditor();
    }
    if (!target)
        return false;
    // Keys, clicks, a drag or the wheel on a slider move it; its frame
    // applies the new position later, when it is left.
    if (choice < 82 && qobject_cast<QAbstractSlider*>(target))
        m_sliderMoved = true;
    // A click into a line edit, or focus given, with no typed text pending.
    const bool neutral =
        showsEditor() && !holdsPendingInput() &&
        ((choice >= 82 && choice < 88) || (choice >= 48 && choice < 72 && qobject_cast<QLineEdit*>(target)));
    if (choice < 36) {
        ++m_counts[1];
        const Qt::Key key = kKeys[m_random() % std::size(kKeys)];
        const Qt::KeyboardModifiers modifiers = (m_random() % 8 == 0) ? Qt::ShiftModifier : Qt::NoModifier;
        // Return in a line edit that holds nothing typed types nothing.
        const bool returnOnly = (key == Qt::Key_Return || key == Qt::Key_Enter) &&
                                modifiers == Qt::NoModifier && qobject_cast<QLineEdit*>(target) &&
                                showsEditor() && !holdsPendingInput();
        QTest::keyClick(target, key, modifiers);
        return returnOnly;
    } else if (choice < 46) {
        ++m_counts[2];
        QTest::keyClicks(target, QString::fromUtf8(kTexts[m_random() % std::size(kTexts)]));
    } else if (choice < 48) {
        ++m_counts[3];
        // Very long text: thousands of digits or letters.
        QTest::keyClicks(target, QString(int(300 + m_random() % 3000),
                                         m_random() % 2 ? QLatin1Char('9') : QLatin1Char('x')));
    } else if (choice < 66) {
        ++m_counts[4];
        QTest::mouseClick(target, Qt::LeftButton, Qt::NoModifier, randomPoint(target));
    } else if (choice < 72) {
        ++m_counts[5];
        // A double click as a person makes it: press, release, the second
        // press and its release. QTest's double click alone is the second
        // press without the first click or any release, so a slider took it
        // for a press on its groove held down for good, and went on paging
        // every 50 ms, writing its field during whatever events came later.
        const QPoint at = randomPoint(target);
        const QPointer<QWidget> clicked = target;
        QTest::mouseClick(clicked, Qt::LeftButton, Qt::NoModifier, at);
        if (clicked && clicked->isVisible())
            QTest::mouseDClick(clicked, Qt::LeftButton, Qt::NoModifier, at);
        if (clicked && clicked->isVisible())
            QTest::mouseRelease(clicked, Qt::LeftButton, Qt::NoModifier, at);
    } else if (choice < 77) {
        ++m_counts[6];
        // A drag: press, a few moves, release.
        const QPoint from = randomPoint(target);
        QTest::mousePress(target, Qt::LeftButton, Qt::NoModifier, from);
        for (int step = 0; step < 3; ++step)
            QTest::mouseMove(target, randomPoint(target));
        QTest::mouseRelease(target, Qt::LeftButton, Qt::NoModifier, randomPoint(target));
    } else if (choice < 82) {
        ++m_counts[7];
        const QPoint at = randomPoint(target);
        const int delta = (m_random() % 2 ? 120 : -120) * int(1 + m_random() % 3);
        QWheelEvent wheel(at, target->mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(target, &wheel);
    } else if (choice < 88) {
        ++m_counts[8];
        target->setFocus(Qt::TabFocusReason);
    } else if (choice < 93) {
        ++m_counts[9];
        KalServices::getInstance()->undo();
    } else if (choice < 97) {
        ++m_counts[10];
        KalServices::getInstance()->redo();
    } else {
        ++m_counts[11];
        // The field changes under the editor, as another view would change
        // it: a list loses its last value, a single value is written again.
        SoField* field = m_fields.at(int(m_random() % unsigned(m_fields.size())));
        auto* list = SoTypedObject(field).cast<SoMField>();
        if (list && list->getNum() > 0) {
            list->deleteValues(list->getNum() - 1, 1);
        } else {
            SbString text;
            field->get(text);
            field->set(text.getString());
        }
    }
    return neutral;
}

void tst_Monkey::storm()
{
    const unsigned seed = unsigned(envNumber("KAL_MONKEY_SEED", 20261123));
    const int events = envNumber("KAL_MONKEY_EVENTS", 10000);
    qInfo("seed %u, %d events", seed, events);
    m_random.seed(seed);
    EditorDockFixture::select(&m_node->mfColor);
    for (int i = 0; i < events; ++i) {
        const FieldSnapshot before(m_node);
        const bool neutral = act();
        QCoreApplication::processEvents();
        processSensors();
        if (neutral) {
            ++m_untouchedChecks;
            const QString difference = before.differenceFrom(FieldSnapshot(m_node));
            QVERIFY2(
                difference.isEmpty(),
                qPrintable(
                    QStringLiteral("event %1 (choice %2): %3").arg(i).arg(m_lastChoice).arg(difference)));
        }
    }
    qInfo("%d events that typed nothing left every field as it was", m_untouchedChecks);
    qInfo("selections %d, keys %d, texts %d, long texts %d, clicks %d, double clicks %d, drags %d, "
          "wheels %d, focus %d, undo %d, redo %d, outside changes %d",
          m_counts[0], m_counts[1], m_counts[2], m_counts[3], m_counts[4], m_counts[5], m_counts[6],
          m_counts[7], m_counts[8], m_counts[9], m_counts[10], m_counts[11]);
    QVERIFY(m_counts[0] > 0 && m_counts[4] > 0);
    checkFieldsReadBack();
}

bool tst_Monkey::holdsPendingInput() const
{
    if (m_sliderMoved)
        return true;
    QList<QWidget*> roots{EditorDockFixture::dock(), QApplication::activePopupWidget()};
    for (QWidget* root : roots) {
        if (!root)
            continue;
        for (QLineEdit* line : root->findChildren<QLineEdit*>()) {
            if (line->isModified())
                return true;
        }
    }
    return false;
}

bool tst_Monkey::showsEditor()
{
    QDockWidget* dock = EditorDockFixture::dock();
    if (!dock || !dock->widget())
        return false;
    // The focus may still be in an editor shown before, detached from the
    // window, which applies its input when it loses the focus.
    QWidget* focus = QApplication::focusWidget();
    return !focus || focus->window() == dock->window();
}

void tst_Monkey::checkFieldsReadBack()
{
    for (SoField* field : m_fields) {
        SbString written;
        field->get(written);
        // Read into the field itself: an enumeration's names are its own.
        const bool read = field->set(written.getString());
        SbString again;
        field->get(again);
        QVERIFY2(read, written.getString());
        QCOMPARE(QString::fromUtf8(again.getString()), QString::fromUtf8(written.getString()));
    }
}

QTEST_MAIN(tst_Monkey)
#include "tst_Monkey.moc"
