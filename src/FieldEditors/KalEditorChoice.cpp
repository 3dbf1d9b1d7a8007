#include "KalEditorChoice.h"

#include <KalEditor.h>
#include <KalProfileSetting.h>
#include <SoTypedObject.h>

#include <QDockWidget>

KalEditor* KalEditorChoice::choose(const KalProfileSetting* setting, SoType type)
{
    if (!setting || type == SoType::badType())
        return nullptr;
    KalEditor* choice = nullptr;
    SoType choiceType;
    for (const auto& entry : setting->getControlledExtensions()) {
        auto* candidate = qobject_cast<KalEditor*>(entry.first);
        if (!candidate)
            continue;
        const SoType handled = candidate->getHandledType();
        if (handled == SoType::badType() || !type.isDerivedFrom(handled))
            continue;
        if (!choice || handled.isDerivedFrom(choiceType)) {
            choice = candidate;
            choiceType = handled;
        }
    }
    return choice;
}

void KalEditorChoice::tearDown(QDockWidget* dock, KalEditor*& editor)
{
    if (!editor)
        return;
    editor->deactivate();
    editor->setEditedObject(nullptr);
    if (dock)
        dock->setWidget(nullptr);
    // The dock only borrows the editor's frame; it goes back to its owner.
    if (QWidget* widget = editor->getWidget())
        widget->setParent(nullptr);
    editor = nullptr;
}

void KalEditorChoice::showIn(QDockWidget* dock, KalEditor* editor, const SoTypedObject& object)
{
    if (!dock || !editor)
        return;
    editor->setEditedObject(object);
    dock->setWidget(editor->getWidget());
    editor->activate();
}
