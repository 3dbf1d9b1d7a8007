#include "KalFieldEditorDockWin.h"

#include "KalEditorChoice.h"

#include <KalEditor.h>
#include <KalServices.h>
#include <KalShell.h>
#include <SoTypedObject.h>

#include <Inventor/fields/SoField.h>

#include <QDockWidget>

KalFieldEditorDockWin::KalFieldEditorDockWin()
{
    author = "Quelvo";
    description = "Field Editor for Kalibra.";
    version = "1.0.0";
    name = "Field Editor";
}

KalFieldEditorDockWin::~KalFieldEditorDockWin()
{
    destroyWidget();
}

void KalFieldEditorDockWin::createWidget()
{
    if (dock)
        return;
    dock = new QDockWidget;
    dock->setObjectName(QStringLiteral("KalFieldEditorDock"));
    dock->setAcceptDrops(false);
    dock->setWindowTitle(tr("Field Editor"));
    dock->hide();
}

void KalFieldEditorDockWin::destroyWidget()
{
    // The shown editor's frame must not die with the dock: it belongs to
    // the editor.
    KalEditorChoice::tearDown(dock, editor);
    delete dock;
    dock = nullptr;
}

void KalFieldEditorDockWin::show()
{
    KalExtension::show();
    if (dock)
        dock->show();
}

void KalFieldEditorDockWin::hide()
{
    KalExtension::hide();
    if (dock)
        dock->hide();
}

void KalFieldEditorDockWin::activate()
{
    KalExtension::activate();
    connect(KalServices::getInstance(), SIGNAL(selectedFieldChanged(SoField*)), this,
            SLOT(s_selectedFieldChanged(SoField*)));
    KalShell::getInstance()->addDockWidget(dock, 2);
    KalShell::getInstance()->attachExtension(this, 1);
}

void KalFieldEditorDockWin::deactivate()
{
    if (editor) {
        KalEditorChoice::tearDown(dock, editor);
        hide();
    }
    KalExtension::deactivate();
    disconnect(KalServices::getInstance(), SIGNAL(selectedFieldChanged(SoField*)), this,
               SLOT(s_selectedFieldChanged(SoField*)));
    KalShell::getInstance()->removeDockWidget(dock);
    KalShell::getInstance()->detachExtension(this);
}

void KalFieldEditorDockWin::s_selectedFieldChanged(SoField* field)
{
    KalEditorChoice::tearDown(dock, editor);
    hide();
    if (!field)
        return;
    KalEditor* chosen = KalEditorChoice::choose(getProfileSetting(), field->getTypeId());
    if (!chosen)
        return;
    KalEditorChoice::showIn(dock, chosen, field);
    editor = chosen;
    show();
}
