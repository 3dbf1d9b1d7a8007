// Values a field cannot hold are refused by the single-value editors, not
// written: a component that is not finite or beyond single precision (Coin
// writes "nan" and "inf" into a scene it cannot read back, and makes 0 of a
// float beyond range), and a plane normal or rotation axis that normalises
// to nothing. The field keeps its value and no command is pushed.
#include "EditorDockFixture.h"
#include "FieldTesting.h"

#include <FxSFLineWidget.h>
#include <FxSFStringWidget.h>
#include <KalPluginsManager.h>
#include <KalServices.h>
#include <KalShell.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>

#include <QDockWidget>
#include <QLineEdit>
#include <QMainWindow>
#include <QtTest>

#include <algorithm>

class tst_SFHardeningNonFinite : public EditorDockFixture
{
    Q_OBJECT

private slots:
    void unholdableNumbersAreRefused_data();
    void unholdableNumbersAreRefused();
    void directionlessPlanesAndRotationsAreRefused_data();
    void directionlessPlanesAndRotationsAreRefused();
    void ordinaryValuesStillArrive_data();
    void ordinaryValuesStillArrive();
    void genericEditorRefusesWhatCoinWouldZero_data();
    void genericEditorRefusesWhatCoinWouldZero();

private:
    QList<QLineEdit*> inputs(const QString& name) const;
    // Types `text` into input `typedInto`, then presses Return in input
    // `returnIn`: a component left half-typed is applied with another one.
    void typeThenReturn(const QString& input, int typedInto, const QString& text, int returnIn);
};

QList<QLineEdit*> tst_SFHardeningNonFinite::inputs(const QString& name) const
{
    QList<QLineEdit*> found = dock()->widget()->findChildren<QLineEdit*>(name);
    // Grid cells are made in cell order; components are ordered left to
    // right.
    if (name != QLatin1String("m_cell"))
        std::sort(found.begin(), found.end(), [](QLineEdit* a, QLineEdit* b) { return a->x() < b->x(); });
    return found;
}

void tst_SFHardeningNonFinite::typeThenReturn(const QString& input, int typedInto, const QString& text,
                                              int returnIn)
{
    const QList<QLineEdit*> edits = inputs(input);
    QVERIFY(edits.size() > std::max(typedInto, returnIn));
    QLineEdit* typed = edits.at(typedInto);
    typed->setFocus();
    typed->selectAll();
    QTest::keyClicks(typed, text);
    QLineEdit* other = edits.at(returnIn);
    other->setFocus();
    QTest::keyClick(other, Qt::Key_Return);
}

void tst_SFHardeningNonFinite::unholdableNumbersAreRefused_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("input");
    QTest::addColumn<int>("typedInto");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("returnIn");
    // The colour editor has no validator: anything can be typed.
    for (const char* text : {"nan", "inf", "-inf", "1e999", "1e39", "-3.5e38"})
        QTest::addRow("colour %s", text) << QByteArray("sfColor") << "SFColorLine" << 1 << text << 1;
    // The vector editors' validators keep Return from applying a component
    // beyond range, but Return in another component applied it as infinity.
    QTest::newRow("vec2f") << QByteArray("sfVec2f") << "SFVec2fBox" << 0 << "1e39" << 1;
    QTest::newRow("vec3f") << QByteArray("sfVec3f") << "SFVec3fLine" << 2 << "-1e39" << 0;
    QTest::newRow("vec4f") << QByteArray("sfVec4f") << "SF4fine" << 3 << "1e999" << 1;
    QTest::newRow("plane distance") << QByteArray("sfPlane") << "SF4fine" << 3 << "1e39" << 1;
    QTest::newRow("rotation angle") << QByteArray("sfRotation") << "SF4fine" << 3 << "1e39" << 2;
    QTest::newRow("matrix cell") << QByteArray("sfMatrix") << "m_cell" << 0 << "1e39" << 5;
    // The number editors' validators refuse these on their own.
    QTest::newRow("float") << QByteArray("sfFloat") << "m_lineEdit" << 0 << "1e39" << 0;
    QTest::newRow("double") << QByteArray("sfDouble") << "m_lineEdit" << 0 << "1e999" << 0;
}

void tst_SFHardeningNonFinite::unholdableNumbersAreRefused()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, input);
    QFETCH(int, typedInto);
    QFETCH(QString, text);
    QFETCH(int, returnIn);
    SoField* target = m_node->getField(SbName(field.constData()));
    const QString before = fieldText(target);
    selectInWindow(target);
    typeThenReturn(input, typedInto, text, returnIn);
    QCOMPARE(fieldText(target), before);
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
}

void tst_SFHardeningNonFinite::directionlessPlanesAndRotationsAreRefused_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<int>("typedInto");
    QTest::addColumn<QString>("text");
    // The plane's normal is (0 1 0), the rotation's axis (0 0 1).
    QTest::newRow("plane, only component zeroed") << QByteArray("sfPlane") << 1 << "0";
    QTest::newRow("plane, normal overflows") << QByteArray("sfPlane") << 1 << "1e20";
    QTest::newRow("rotation, only component zeroed") << QByteArray("sfRotation") << 2 << "0";
    QTest::newRow("rotation, axis overflows") << QByteArray("sfRotation") << 2 << "1e20";
}

void tst_SFHardeningNonFinite::directionlessPlanesAndRotationsAreRefused()
{
    QFETCH(QByteArray, field);
    QFETCH(int, typedInto);
    QFETCH(QString, text);
    SoField* target = m_node->getField(SbName(field.constData()));
    const QString before = fieldText(target);
    selectInWindow(target);
    typeThenReturn(QStringLiteral("SF4fine"), typedInto, text, typedInto);
    QCOMPARE(fieldText(target), before);
    QCOMPARE(KalServices::getInstance()->commandCount(), 0);
}

void tst_SFHardeningNonFinite::ordinaryValuesStillArrive_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("input");
    QTest::addColumn<int>("typedInto");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("stored");
    QTest::newRow("colour") << QByteArray("sfColor") << "SFColorLine" << 1 << "0.25"
                            << "0.80000001 0.25 0.1";
    // Out of the colour range, but a number a float holds.
    QTest::newRow("colour beyond one") << QByteArray("sfColor") << "SFColorLine" << 0 << "2"
                                       << "2 0.40000001 0.1";
    QTest::newRow("colour unreadable") << QByteArray("sfColor") << "SFColorLine" << 2 << "abc"
                                       << "0.80000001 0.40000001 0";
    QTest::newRow("vec3f large") << QByteArray("sfVec3f") << "SFVec3fLine" << 0 << "1e38"
                                 << "9.9999997e+037 2 3";
    QTest::newRow("plane, slanted normal") << QByteArray("sfPlane") << "SF4fine" << 0 << "1"
                                           << "0.70710677 0.70710677 0  2";
    QTest::newRow("rotation, slanted axis") << QByteArray("sfRotation") << "SF4fine" << 1 << "1"
                                            << "0 0.70710677 0.70710677  0.5";
    QTest::newRow("matrix") << QByteArray("sfMatrix") << "m_cell" << 3 << "2"
                            << "1 0 0 2\n"
                               "  0 1 0 0\n"
                               "  0 0 1 0\n"
                               "  0 0 0 1";
}

void tst_SFHardeningNonFinite::ordinaryValuesStillArrive()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, input);
    QFETCH(int, typedInto);
    QFETCH(QString, text);
    QFETCH(QString, stored);
    SoField* target = m_node->getField(SbName(field.constData()));
    selectInWindow(target);
    typeThenReturn(input, typedInto, text, typedInto);
    QCOMPARE(fieldText(target), stored);
    QVERIFY(KalServices::getInstance()->commandCount() >= 1);
}

void tst_SFHardeningNonFinite::genericEditorRefusesWhatCoinWouldZero_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("text");
    // Empty: refused, the field keeps its value and no command is pushed.
    QTest::addColumn<QString>("stored");
    QTest::newRow("time overflows") << QByteArray("sfTime") << "1e999"
                                    << "";
    QTest::newRow("time, large") << QByteArray("sfTime") << "1e300"
                                 << "1e+300";
    QTest::newRow("double overflows") << QByteArray("sfDouble") << "-1e400"
                                      << "";
    QTest::newRow("float beyond range") << QByteArray("sfFloat") << "1e39"
                                        << "";
    QTest::newRow("float, large") << QByteArray("sfFloat") << "3e38"
                                  << "3e+038";
    QTest::newRow("vector component beyond range") << QByteArray("sfVec3f") << "1 -4e38 3"
                                                   << "";
    QTest::newRow("rotation angle beyond range") << QByteArray("sfRotation") << "0 0 1 1e40"
                                                 << "";
    QTest::newRow("vector, ordinary") << QByteArray("sfVec3f") << "4 5 6"
                                      << "4 5 6";
    // Not a real field: left to Coin as before.
    QTest::newRow("int32, words") << QByteArray("sfInt32") << "1e999"
                                  << "1";
}

void tst_SFHardeningNonFinite::genericEditorRefusesWhatCoinWouldZero()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, text);
    QFETCH(QString, stored);
    SoField* target = m_node->getField(SbName(field.constData()));
    const QString before = fieldText(target);
    // The generic editor and a text editor given a field of another type
    // both hand the text to Coin.
    FxSFLineWidget generic;
    FxSFStringWidget textEditor;
    for (FxSFieldWidget* editor :
         {static_cast<FxSFieldWidget*>(&generic), static_cast<FxSFieldWidget*>(&textEditor)}) {
        target->set(before.toUtf8().constData());
        KalServices::getInstance()->clearHistory();
        editor->createWidget();
        editor->setEditedObject(target);
        editor->activate();
        auto* edit = editor->getFrame()->findChild<QLineEdit*>(QStringLiteral("lineEdit"));
        QVERIFY(edit);
        edit->setFocus();
        edit->selectAll();
        edit->insert(text);
        QTest::keyClick(edit, Qt::Key_Return);
        if (stored.isEmpty()) {
            QCOMPARE(fieldText(target), before);
            QCOMPARE(KalServices::getInstance()->commandCount(), 0);
        } else {
            QCOMPARE(fieldText(target), stored);
        }
        editor->deactivate();
        editor->destroyWidget();
    }
}

QTEST_MAIN(tst_SFHardeningNonFinite)
#include "tst_SFHardeningNonFinite.moc"
