#include "KalEditor.h"

KalEditor::KalEditor() = default;

KalEditor::~KalEditor() = default;

SoType KalEditor::getHandledType()
{
    return handledType;
}

void KalEditor::setEditedObject(const SoTypedObject& object)
{
    editedObject = object;
}

SoTypedObject KalEditor::getEditedObject() const
{
    return editedObject;
}

QWidget* KalEditor::getWidget() const
{
    return widget;
}
