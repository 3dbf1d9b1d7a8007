#include "KalFieldEditorDockWin.h"

#include <SoTypedObject.h>

#include <Inventor/fields/SoField.h>

KalFieldEditorDockWin::KalFieldEditorDockWin()
    : KalEditorDock("Field Editor", "Field Editor for Kalibra.", SIGNAL(selectedFieldChanged(SoField*)),
                    SLOT(s_selectedFieldChanged(SoField*)))
{}

KalFieldEditorDockWin::~KalFieldEditorDockWin() = default;

void KalFieldEditorDockWin::createWidget()
{
    createDock(QStringLiteral("KalFieldEditorDock"), tr("Field Editor"));
}

void KalFieldEditorDockWin::s_selectedFieldChanged(SoField* field)
{
    showEditorFor(field);
}
