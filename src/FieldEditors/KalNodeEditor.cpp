#include "KalNodeEditor.h"

#include <KalServices.h>
#include <SoTypedObject.h>

#include <Inventor/fields/SoFieldContainer.h>

KalNodeEditor::KalNodeEditor()
    : KalEditorDock("Node Editor", "Node Editor for Kalibra.")
{}

KalNodeEditor::~KalNodeEditor() = default;

void KalNodeEditor::createWidget()
{
    createDock(QStringLiteral("KalNodeEditorDock"), tr("Node Editor"));
}

void KalNodeEditor::activate()
{
    KalExtension::activate();
    connect(KalServices::getInstance(), SIGNAL(selectedNodeChanged(SoFieldContainer*)), this,
            SLOT(s_selectedNodeChanged(SoFieldContainer*)));
    dockIn();
}

void KalNodeEditor::deactivate()
{
    takeEditorOut();
    KalExtension::deactivate();
    disconnect(KalServices::getInstance(), SIGNAL(selectedNodeChanged(SoFieldContainer*)), this,
               SLOT(s_selectedNodeChanged(SoFieldContainer*)));
    dockOut();
}

void KalNodeEditor::s_selectedNodeChanged(SoFieldContainer* container)
{
    showEditorFor(container);
}
