#include "KalFieldEditorDockWin.h"

#include <KalServices.h>
#include <SoTypedObject.h>

#include <Inventor/fields/SoField.h>

KalFieldEditorDockWin::KalFieldEditorDockWin()
    : KalEditorDock("Field Editor", "Field Editor for Kalibra.")
{}

KalFieldEditorDockWin::~KalFieldEditorDockWin() = default;

void KalFieldEditorDockWin::createWidget()
{
    createDock(QStringLiteral("KalFieldEditorDock"), tr("Field Editor"));
}

void KalFieldEditorDockWin::activate()
{
    KalExtension::activate();
    connect(KalServices::getInstance(), SIGNAL(selectedFieldChanged(SoField*)), this,
            SLOT(s_selectedFieldChanged(SoField*)));
    dockIn();
}

void KalFieldEditorDockWin::deactivate()
{
    takeEditorOut();
    KalExtension::deactivate();
    disconnect(KalServices::getInstance(), SIGNAL(selectedFieldChanged(SoField*)), this,
               SLOT(s_selectedFieldChanged(SoField*)));
    dockOut();
}

void KalFieldEditorDockWin::s_selectedFieldChanged(SoField* field)
{
    showEditorFor(field);
}
