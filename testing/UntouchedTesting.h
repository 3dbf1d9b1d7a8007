#pragma once
// What the tests of untouched controls share: every field of a node as Coin
// writes it, a value's numbers one by one, a line edit left as when the user
// clicks elsewhere, a slider pressed and let go without moving, and a count
// of a field's notifications.
#include "FieldTesting.h"
#include "ListEditorTesting.h"
#include "SliderDrag.h"

#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/fields/SoMField.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/sensors/SoFieldSensor.h>

#include <QApplication>
#include <QFocusEvent>
#include <QGridLayout>
#include <QLineEdit>
#include <QSlider>
#include <QStringList>
#include <QtTest>

// A matrix and a rotation of eight significant digits, as scene files hold
// them: six digits do not tell them apart from their neighbours.
inline constexpr char kEightDigitMatrix[] = "-0.69569266 0.71838945 0.012345678 0 "
                                            "0.54383814 0.83004785 -0.12347856 0 "
                                            "-0.2048548 0.30023453 0.93168502 0 "
                                            "1.2345678 -2.3456789 3.4567891 1";
inline constexpr char kEightDigitRotation[] = "-0.43643582 0.21821791 0.87287158 1.2345678";

using ListEditorTesting::popupLines;

inline QStringList containerTexts(SoFieldContainer* container)
{
    QStringList texts;
    SoFieldList fields;
    container->getFields(fields);
    for (int i = 0; i < fields.getLength(); ++i) {
        SbName name;
        container->getFieldName(fields[i], name);
        texts << QString::fromLatin1(name.getString()) + QLatin1Char('=') + fieldText(fields[i]);
    }
    return texts;
}

// The same without one field's entry.
inline QStringList othersOf(const QStringList& texts, const QByteArray& field)
{
    QStringList others;
    for (const QString& text : texts) {
        if (!text.startsWith(QString::fromLatin1(field + '=')))
            others << text;
    }
    return others;
}

// A value's numbers as Coin writes them.
inline QStringList tokensOf(const QString& text)
{
    QString plain = text;
    plain.remove(QLatin1Char('[')).remove(QLatin1Char(']')).replace(QLatin1Char(','), QLatin1Char(' '));
    return plain.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

inline QString rowText(SoMField* field, int row)
{
    SbString text;
    field->get1(row, text);
    return QString::fromLatin1(text.getString());
}

// Leaving a line edit, as when the user clicks elsewhere.
inline void leave(QLineEdit* edit)
{
    QFocusEvent in(QEvent::FocusIn, Qt::MouseFocusReason);
    QApplication::sendEvent(edit, &in);
    QFocusEvent out(QEvent::FocusOut, Qt::MouseFocusReason);
    QApplication::sendEvent(edit, &out);
}

// Presses the slider on its handle and lets go without moving.
inline void pressAndRelease(QSlider* slider)
{
    const QPoint handle = SliderDrag::handleCentre(slider);
    QTest::mousePress(slider, Qt::LeftButton, Qt::NoModifier, handle);
    QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, handle);
}

// Counts the notifications of a field while it lives.
class WriteCounter
{
public:
    explicit WriteCounter(SoField* field)
        : sensor(countTrigger, &count)
    {
        sensor.setPriority(0);
        sensor.attach(field);
    }
    int count = 0;

private:
    SoFieldSensor sensor;
};
