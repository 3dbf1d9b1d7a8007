// The single-value editors read numbers in Coin's C form whatever the
// user's locale: under a German locale "1.5" is one and a half and "1,5" is
// refused, as under C, instead of the validator taking the German form and
// the reading making a 0 of it. Group separators are refused in both.
#include "EditorDockFixture.h"
#include "FieldTesting.h"

#include <KalPluginsManager.h>
#include <KalServices.h>
#include <KalShell.h>
#include <SoKalExtensions.h>

#include <Inventor/SoDB.h>

#include <QDockWidget>
#include <QLineEdit>
#include <QLocale>
#include <QMainWindow>
#include <QSpinBox>
#include <QtTest>

#include <algorithm>

class tst_SFHardeningLocale : public EditorDockFixture
{
    Q_OBJECT

private slots:
    void cleanup();

    void typedNumbersReadInTheCForm_data();
    void typedNumbersReadInTheCForm();
    void editorsShowTheCForm_data();
    void editorsShowTheCForm();
    void spinBoxesShowNoGroupSeparators_data();
    void spinBoxesShowNoGroupSeparators();

private:
    // The plug-in loaded again under `locale`, so that every widget is made
    // while it is the default.
    void reloadUnder(const QLocale& locale);
    void addLocaleColumn();
};

namespace {

const QLocale kGerman(QLocale::German, QLocale::Germany);

QList<QLineEdit*> ordered(QList<QLineEdit*> edits, bool byPlace)
{
    if (byPlace)
        std::sort(edits.begin(), edits.end(), [](QLineEdit* a, QLineEdit* b) { return a->x() < b->x(); });
    return edits;
}

} // namespace

void tst_SFHardeningLocale::cleanup()
{
    EditorDockFixture::cleanup();
    QLocale::setDefault(QLocale::c());
}

void tst_SFHardeningLocale::reloadUnder(const QLocale& locale)
{
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    manager->unloadAll();
    QLocale::setDefault(locale);
    QVERIFY2(manager->loadPlugin(QStringLiteral(KALDEFAULTS_MODULE_PATH)), qPrintable(manager->lastError()));
}

void tst_SFHardeningLocale::typedNumbersReadInTheCForm_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("input");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    // The comma is no key a number takes, in any locale: it is dropped as
    // it is typed, and what is left arrives, as the user sees it.
    QTest::addColumn<QString>("stored");
    struct Row
    {
        const char* name;
        const char* field;
        const char* input;
        int index;
        const char* text;
        const char* stored;
    };
    const Row rows[] = {
        {"float, point", "sfFloat", "m_lineEdit", 0, "1.5", "1.5"},
        {"float, comma", "sfFloat", "m_lineEdit", 0, "1,5", "15"},
        {"float, grouped", "sfFloat", "m_lineEdit", 0, "1,000", "1000"},
        {"double, point", "sfDouble", "m_lineEdit", 0, "4.25", "4.25"},
        {"double, comma", "sfDouble", "m_lineEdit", 0, "4,25", "425"},
        {"vector, point", "sfVec3f", "SFVec3fLine", 1, "2.5", "1 2.5 3"},
        {"vector, comma", "sfVec3f", "SFVec3fLine", 1, "2,5", "1 25 3"},
        {"vector, exponent", "sfVec3f", "SFVec3fLine", 2, "1.5e3", "1 2 1500"},
        {"plane distance, point", "sfPlane", "SF4fine", 3, "0.5", "0 1 0  0.5"},
        {"matrix cell, point", "sfMatrix", "m_cell", 3, "0.5", "1 0 0 0.5\n  0 1 0 0\n  0 0 1 0\n  0 0 0 1"},
        // An integer takes neither a point nor an exponent: what is left of
        // the keys typed is 3438, never the 0 a reading of "3.438" made.
        {"int32, real typed", "sfInt32", "m_lineEdit", 0, "3.4e38", "3438"},
        {"int32, grouped", "sfInt32", "m_lineEdit", 0, "1,000", "1000"},
        {"short, grouped", "sfShort", "m_lineEdit", 0, "1.000", "1000"},
    };
    for (const char* localeName : {"C", "de_DE"}) {
        const QLocale locale = qstrcmp(localeName, "C") == 0 ? QLocale::c() : kGerman;
        for (const Row& row : rows) {
            QTest::addRow("%s, %s", localeName, row.name)
                << locale << QByteArray(row.field) << row.input << row.index << row.text << row.stored;
        }
    }
}

void tst_SFHardeningLocale::typedNumbersReadInTheCForm()
{
    QFETCH(QLocale, locale);
    QFETCH(QByteArray, field);
    QFETCH(QString, input);
    QFETCH(int, index);
    QFETCH(QString, text);
    QFETCH(QString, stored);
    reloadUnder(locale);
    SoField* target = m_node->getField(SbName(field.constData()));
    selectInWindow(target);
    const QList<QLineEdit*> edits =
        ordered(dock()->widget()->findChildren<QLineEdit*>(input), input != QLatin1String("m_cell"));
    QVERIFY(edits.size() > index);
    QLineEdit* edit = edits.at(index);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(fieldText(target), stored);
    QVERIFY(KalServices::getInstance()->commandCount() >= 1);
}

void tst_SFHardeningLocale::addLocaleColumn()
{
    QTest::addColumn<QLocale>("locale");
    QTest::newRow("C") << QLocale::c();
    QTest::newRow("de_DE") << kGerman;
}

void tst_SFHardeningLocale::editorsShowTheCForm_data()
{
    addLocaleColumn();
}

void tst_SFHardeningLocale::editorsShowTheCForm()
{
    QFETCH(QLocale, locale);
    reloadUnder(locale);
    m_node->sfDouble.setValue(1234.5);
    selectInWindow(&m_node->sfDouble);
    auto* edit = dock()->widget()->findChild<QLineEdit*>(QStringLiteral("m_lineEdit"));
    QCOMPARE(edit->text(), QStringLiteral("1234.5"));
    int at = 0;
    QString shown = edit->text();
    QCOMPARE(edit->validator()->validate(shown, at), QValidator::Acceptable);
}

void tst_SFHardeningLocale::spinBoxesShowNoGroupSeparators_data()
{
    addLocaleColumn();
}

void tst_SFHardeningLocale::spinBoxesShowNoGroupSeparators()
{
    QFETCH(QLocale, locale);
    reloadUnder(locale);
    m_node->sfVec2i32.setValue(SbVec2i32(12345, -4));
    selectInWindow(&m_node->sfVec2i32);
    QList<QSpinBox*> boxes = dock()->widget()->findChildren<QSpinBox*>(QStringLiteral("SF2Box"));
    QCOMPARE(boxes.size(), 2);
    std::sort(boxes.begin(), boxes.end(), [](QSpinBox* a, QSpinBox* b) { return a->x() < b->x(); });
    QCOMPARE(boxes[0]->text(), QStringLiteral("12345"));
    boxes[1]->setFocus();
    boxes[1]->selectAll();
    QTest::keyClicks(boxes[1], QStringLiteral("2.000"));
    QTest::keyClick(boxes[1], Qt::Key_Return);
    QCOMPARE(m_node->sfVec2i32.getValue(), SbVec2i32(12345, 2000));
}

QTEST_MAIN(tst_SFHardeningLocale)
#include "tst_SFHardeningLocale.moc"
