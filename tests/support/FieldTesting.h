#pragma once
// What the editor tests do between a change and a look at the widgets.
#include <Inventor/SbString.h>
#include <Inventor/SoDB.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QString>

#include <memory>

// Runs the field sensors due, as the host's event loop would: editors
// refresh from them.
inline void processSensors()
{
    SoDB::getSensorManager()->processDelayQueue(FALSE);
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
