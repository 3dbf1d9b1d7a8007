// The vector, plane and rotation editors through the real plug-in module:
// spin boxes and component line edits, when they apply, and what they show.
#include "EditorDockFixture.h"
#include "FieldTesting.h"

#include <KalPluginsManager.h>
#include <KalSFSetValueCommand.h>
#include <KalServices.h>
#include <KalShell.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QSpinBox>
#include <QtTest>

class tst_VectorEditors : public EditorDockFixture
{
    Q_OBJECT

private slots:
    void editorsAndLabels_data();
    void editorsAndLabels();
    void selectingASpinBoxFieldKeepsItsValue();
    void spinBoxRanges();
    void spinBoxAppliesAtOnce();
    void refreshAfterUndoPushesAnotherCommand();
    void lineEditsApplyOnReturn();
    void lineEditsApplyOnLeavingWhenEdited();
    void rotationsApplyOnReturnOnly();
    void emptyComponentIsZero();
    void planeShowsNormalAndDistance();
    void longNumbersShowTheirStart();
    void spinBoxesApplyInTheirOwnWidth();

private:
    template <class T>
    QList<T*> inputs(const char* name) const;
};

template <class T>
QList<T*> tst_VectorEditors::inputs(const char* name) const
{
    // In column order, left to right.
    QList<T*> found = dock()->findChildren<T*>(QLatin1String(name));
    std::sort(found.begin(), found.end(), [](T* a, T* b) { return a->x() < b->x(); });
    return found;
}

void tst_VectorEditors::editorsAndLabels_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("editor");
    QTest::addColumn<QString>("labelName");
    QTest::addColumn<QStringList>("labels");
    QTest::newRow("vec2i32") << QByteArray("sfVec2i32") << "FxSFVec2i32Widget"
                             << "SF4flabel" << QStringList{"<p>x</p>", "<p>y</p>"};
    QTest::newRow("vec2s") << QByteArray("sfVec2s") << "FxSFVec2sWidget"
                           << "SF4flabel" << QStringList{"<p>x</p>", "<p>y</p>"};
    QTest::newRow("vec2f") << QByteArray("sfVec2f") << "FxSFVec2fWidget"
                           << "SFVec2fLabel" << QStringList{"<p>x</p>", "<p>y</p>"};
    QTest::newRow("vec3f") << QByteArray("sfVec3f") << "FxSFVec3fWidget"
                           << "SFVec3fLabel" << QStringList{"<p>x</p>", "<p>y</p>", "<p>z</p>"};
    QTest::newRow("vec4f") << QByteArray("sfVec4f") << "FxSFVec4fWidget"
                           << "SF4flabel" << QStringList{"<p>x</p>", "<p>y</p>", "<p>z</p>", "<p>w</p>"};
    QTest::newRow("plane") << QByteArray("sfPlane") << "FxSFPlaneWidget"
                           << "SF4flabel"
                           << QStringList{"<p>x</p>", "<p>y</p>", "<p>z</p>", "<p>distance</p>"};
    QTest::newRow("rotation") << QByteArray("sfRotation") << "FxSFRotationWidget"
                              << "SF4flabel"
                              << QStringList{"<p>x</p>", "<p>y</p>", "<p>z</p>", "<p>radians</p>"};
}

void tst_VectorEditors::editorsAndLabels()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, editor);
    QFETCH(QString, labelName);
    QFETCH(QStringList, labels);
    selectInWindow(m_node->getField(SbName(field.constData())));
    QCOMPARE(dock()->widget()->objectName(), editor);
    QStringList texts;
    for (QLabel* label : inputs<QLabel>(labelName.toLatin1().constData()))
        texts << label->text();
    QCOMPARE(texts, labels);
}

void tst_VectorEditors::selectingASpinBoxFieldKeepsItsValue()
{
    // Filling the spin boxes writes the field through their signals; what is
    // written is the field's own value, component for component.
    emit KalServices::getInstance()->selectedFieldChanged(&m_node->sfVec2i32);
    QCOMPARE(m_node->sfVec2i32.getValue(), SbVec2i32(3, 4));
    QVERIFY(KalServices::getInstance()->commandCount() > 0);
}

void tst_VectorEditors::spinBoxRanges()
{
    selectInWindow(&m_node->sfVec2s);
    for (QSpinBox* box : inputs<QSpinBox>("SF2Box")) {
        QCOMPARE(box->minimum(), -32768);
        QCOMPARE(box->maximum(), 32767);
    }
    selectInWindow(&m_node->sfVec2i32);
    const QList<QSpinBox*> boxes = inputs<QSpinBox>("SF2Box");
    QCOMPARE(boxes.size(), 2);
    for (QSpinBox* box : boxes) {
        QCOMPARE(box->minimum(), -2147483647 - 1);
        QCOMPARE(box->maximum(), 2147483647);
    }
    QCOMPARE(boxes[0]->value(), 3);
    QCOMPARE(boxes[1]->value(), 4);
}

void tst_VectorEditors::spinBoxAppliesAtOnce()
{
    selectInWindow(&m_node->sfVec2i32);
    QSpinBox* y = inputs<QSpinBox>("SF2Box").at(1);
    y->setFocus();
    QTest::keyClick(y, Qt::Key_Up);
    QCOMPARE(m_node->sfVec2i32.getValue(), SbVec2i32(3, 5));
    QCOMPARE(KalServices::getInstance()->commandCount(), 1);
    QVERIFY(dynamic_cast<KalSFSetValueCommand*>(KalServices::getInstance()->command(0)));
}

void tst_VectorEditors::refreshAfterUndoPushesAnotherCommand()
{
    KalServices* services = KalServices::getInstance();
    selectInWindow(&m_node->sfVec2i32);
    QSpinBox* x = inputs<QSpinBox>("SF2Box").at(0);
    x->setValue(10);
    QCOMPARE(m_node->sfVec2i32.getValue(), SbVec2i32(10, 4));
    QCOMPARE(services->commandCount(), 1);
    m_node->sfVec2i32.setValue(SbVec2i32(20, 4));
    processSensors();
    // The refresh changed the spin box, whose signal wrote the field again.
    QCOMPARE(x->value(), 20);
    QCOMPARE(services->commandCount(), 2);
}

void tst_VectorEditors::lineEditsApplyOnReturn()
{
    selectInWindow(&m_node->sfVec3f);
    const QList<QLineEdit*> edits = inputs<QLineEdit>("SFVec3fLine");
    QCOMPARE(edits.size(), 3);
    QCOMPARE(edits[0]->text(), QStringLiteral("1"));
    edits[1]->setFocus();
    edits[1]->selectAll();
    QTest::keyClicks(edits[1], QStringLiteral("2.5"));
    QCOMPARE(m_node->sfVec3f.getValue(), SbVec3f(1, 2, 3));
    QTest::keyClick(edits[1], Qt::Key_Return);
    QCOMPARE(m_node->sfVec3f.getValue(), SbVec3f(1, 2.5f, 3));
    QVERIFY(KalServices::getInstance()->commandCount() >= 1);
    QVERIFY(KalServices::getInstance()->undo());
}

void tst_VectorEditors::lineEditsApplyOnLeavingWhenEdited()
{
    selectInWindow(&m_node->sfVec4f);
    const QList<QLineEdit*> edits = inputs<QLineEdit>("SF4fine");
    QCOMPARE(edits.size(), 4);
    // Leaving an untouched input writes nothing.
    QMetaObject::invokeMethod(edits[3], "editingFinished");
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    edits[3]->setFocus();
    edits[3]->selectAll();
    QTest::keyClicks(edits[3], QStringLiteral("8"));
    QMetaObject::invokeMethod(edits[3], "editingFinished");
    QCOMPARE(m_node->sfVec4f.getValue(), SbVec4f(1, 2, 3, 8));
    QCOMPARE(KalServices::getInstance()->commandCount(), 1);
}

void tst_VectorEditors::rotationsApplyOnReturnOnly()
{
    selectInWindow(&m_node->sfRotation);
    const QList<QLineEdit*> edits = inputs<QLineEdit>("SF4fine");
    QCOMPARE(edits[3]->text(), QStringLiteral("0.5"));
    edits[3]->setFocus();
    edits[3]->selectAll();
    QTest::keyClicks(edits[3], QStringLiteral("1.5"));
    QMetaObject::invokeMethod(edits[3], "editingFinished");
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
    QTest::keyClick(edits[3], Qt::Key_Return);
    SbVec3f axis;
    float angle = 0;
    m_node->sfRotation.getValue(axis, angle);
    QCOMPARE(angle, 1.5f);
    QCOMPARE(axis, SbVec3f(0, 0, 1));
}

void tst_VectorEditors::emptyComponentIsZero()
{
    // An empty input is not acceptable to its validator, so it never applies
    // itself; applied with another component, it is written as 0.
    selectInWindow(&m_node->sfVec2f);
    QLineEdit* x = inputs<QLineEdit>("SFVec2fBox").at(0);
    QLineEdit* y = inputs<QLineEdit>("SFVec2fBox").at(1);
    x->setFocus();
    x->selectAll();
    QTest::keyClick(x, Qt::Key_Delete);
    QTest::keyClick(x, Qt::Key_Return);
    QCOMPARE(m_node->sfVec2f.getValue(), SbVec2f(1, 2));
    y->setFocus();
    QTest::keyClick(y, Qt::Key_Return);
    QCOMPARE(m_node->sfVec2f.getValue(), SbVec2f(0, 2));
}

void tst_VectorEditors::planeShowsNormalAndDistance()
{
    selectInWindow(&m_node->sfPlane);
    QStringList texts;
    for (QLineEdit* edit : inputs<QLineEdit>("SF4fine"))
        texts << edit->text();
    QCOMPARE(texts, (QStringList{"0", "1", "0", "2"}));
    QLineEdit* distance = inputs<QLineEdit>("SF4fine").at(3);
    distance->setFocus();
    distance->selectAll();
    QTest::keyClicks(distance, QStringLiteral("5"));
    QTest::keyClick(distance, Qt::Key_Return);
    QCOMPARE(m_node->sfPlane.getValue().getDistanceFromOrigin(), 5.0f);
}

void tst_VectorEditors::longNumbersShowTheirStart()
{
    m_node->sfVec3f.setValue(SbVec3f(1234567.0f, -0.000012345f, 3));
    selectInWindow(&m_node->sfVec3f);
    const QList<QLineEdit*> edits = inputs<QLineEdit>("SFVec3fLine");
    QCOMPARE(edits[0]->text(), QStringLiteral("1.23457e+06"));
    QCOMPARE(edits[1]->text(), QStringLiteral("-1.2345e-05"));
    for (QLineEdit* edit : edits)
        QCOMPARE(edit->cursorPosition(), 0);
}

void tst_VectorEditors::spinBoxesApplyInTheirOwnWidth()
{
    selectInWindow(&m_node->sfVec2s);
    QSpinBox* x = inputs<QSpinBox>("SF2Box").at(0);
    x->setValue(32767);
    QCOMPARE(m_node->sfVec2s.getValue(), SbVec2s(32767, 6));
    x->setValue(-40000);
    QCOMPARE(m_node->sfVec2s.getValue(), SbVec2s(-32768, 6));
}

QTEST_MAIN(tst_VectorEditors)
#include "tst_VectorEditors.moc"
