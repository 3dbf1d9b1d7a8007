#include "KalEditorDock.h"

#include "KalEditorChoice.h"

#include <KalEditor.h>
#include <KalServices.h>
#include <KalShell.h>
#include <SoTypedObject.h>

#include <QDockWidget>

KalEditorDock::KalEditorDock(const char* dockName, const char* dockDescription, const char* signal,
                             const char* slot)
    : selectionSignal(signal)
    , selectionSlot(slot)
{
    author = "Quelvo";
    description = dockDescription;
    version = "1.0.0";
    name = dockName;
}

void KalEditorDock::activate()
{
    KalExtension::activate();
    connect(KalServices::getInstance(), selectionSignal, this, selectionSlot);
    dockIn();
}

void KalEditorDock::deactivate()
{
    takeEditorOut();
    KalExtension::deactivate();
    disconnect(KalServices::getInstance(), selectionSignal, this, selectionSlot);
    dockOut();
}

KalEditorDock::~KalEditorDock()
{
    destroyWidget();
}

void KalEditorDock::createDock(const QString& objectName, const QString& title)
{
    if (dock)
        return;
    dock = new QDockWidget;
    dock->setObjectName(objectName);
    dock->setAcceptDrops(false);
    dock->setWindowTitle(title);
    dock->hide();
}

void KalEditorDock::destroyWidget()
{
    // The shown editor's frame must not die with the dock: it belongs to
    // the editor.
    KalEditorChoice::tearDown(dock, editor);
    delete dock;
    dock = nullptr;
}

void KalEditorDock::show()
{
    KalExtension::show();
    if (dock)
        dock->show();
}

void KalEditorDock::hide()
{
    KalExtension::hide();
    if (dock)
        dock->hide();
}

void KalEditorDock::dockIn()
{
    KalShell::getInstance()->addDockWidget(dock, 2);
    KalShell::getInstance()->attachExtension(this, 1);
}

void KalEditorDock::takeEditorOut()
{
    if (editor) {
        KalEditorChoice::tearDown(dock, editor);
        hide();
    }
}

void KalEditorDock::dockOut()
{
    KalShell::getInstance()->removeDockWidget(dock);
    KalShell::getInstance()->detachExtension(this);
}

void KalEditorDock::showEditorFor(const SoTypedObject& object)
{
    KalEditorChoice::tearDown(dock, editor);
    hide();
    if (!object)
        return;
    KalEditor* chosen = KalEditorChoice::choose(getProfileSetting(), object.getTypeId());
    if (!chosen)
        return;
    KalEditorChoice::showIn(dock, chosen, object);
    editor = chosen;
    show();
}
