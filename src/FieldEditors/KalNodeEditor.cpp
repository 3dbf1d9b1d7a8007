#include "KalNodeEditor.h"

#include <SoTypedObject.h>

#include <Inventor/fields/SoFieldContainer.h>

KalNodeEditor::KalNodeEditor()
    : KalEditorDock("Node Editor", "Node Editor for Kalibra.", SIGNAL(selectedNodeChanged(SoFieldContainer*)),
                    SLOT(s_selectedNodeChanged(SoFieldContainer*)))
{}

KalNodeEditor::~KalNodeEditor() = default;

void KalNodeEditor::createWidget()
{
    createDock(QStringLiteral("KalNodeEditorDock"), tr("Node Editor"));
}

void KalNodeEditor::s_selectedNodeChanged(SoFieldContainer* container)
{
    showEditorFor(container);
}
