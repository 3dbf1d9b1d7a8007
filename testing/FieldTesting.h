#pragma once
// What the editor tests do between a change and a look at the widgets.
#include <Inventor/SbString.h>
#include <Inventor/SoDB.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/sensors/SoSensor.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QLineEdit>
#include <QString>
#include <QtTest>

#include <memory>

// Runs the field sensors due, as the host's event loop would: editors
// refresh from them.
inline void processSensors()
{
    SoDB::getSensorManager()->processDelayQueue(FALSE);
}

// A sensor callback that counts its triggers in the int it is given.
inline void countTrigger(void* data, SoSensor*)
{
    ++*static_cast<int*>(data);
}

// The field's value as Coin writes it.
inline QString fieldText(SoField* field)
{
    SbString text;
    field->get(text);
    return QString::fromUtf8(text.getString());
}

// An editor made on its own, showing `field`.
template <class Editor>
std::unique_ptr<Editor> editorFor(SoField* field)
{
    auto editor = std::make_unique<Editor>();
    editor->createWidget();
    editor->setEditedObject(field);
    editor->activate();
    return editor;
}

// Types the text over the line edit's own, as a person does, and presses
// Return.
inline void typeIntoLine(QLineEdit* edit, const QString& text)
{
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
}
