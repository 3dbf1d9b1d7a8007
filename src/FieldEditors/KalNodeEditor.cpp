#include "KalNodeEditor.h"

#include "KalEditorChoice.h"

#include <KalEditor.h>
#include <KalServices.h>
#include <KalShell.h>
#include <SoTypedObject.h>

#include <Inventor/fields/SoFieldContainer.h>

#include <QDockWidget>

KalNodeEditor::KalNodeEditor()
{
    author = "Quelvo";
    description = "Node Editor for Kalibra.";
    version = "1.0.0";
    name = "Node Editor";
}

KalNodeEditor::~KalNodeEditor()
{
    destroyWidget();
}

void KalNodeEditor::createWidget()
{
    if (dock)
        return;
    dock = new QDockWidget;
    dock->setObjectName(QStringLiteral("KalNodeEditorDock"));
    dock->setAcceptDrops(false);
    dock->setWindowTitle(tr("Node Editor"));
    dock->hide();
}

void KalNodeEditor::destroyWidget()
{
    // The shown editor's frame must not die with the dock: it belongs to
    // the editor.
    KalEditorChoice::tearDown(dock, editor);
    delete dock;
    dock = nullptr;
}

void KalNodeEditor::show()
{
    KalExtension::show();
    if (dock)
        dock->show();
}

void KalNodeEditor::hide()
{
    KalExtension::hide();
    if (dock)
        dock->hide();
}

void KalNodeEditor::activate()
{
    KalExtension::activate();
    connect(KalServices::getInstance(), SIGNAL(selectedNodeChanged(SoFieldContainer*)), this,
            SLOT(s_selectedNodeChanged(SoFieldContainer*)));
    KalShell::getInstance()->addDockWidget(dock, 2);
    KalShell::getInstance()->attachExtension(this, 1);
}

void KalNodeEditor::deactivate()
{
    if (editor) {
        KalEditorChoice::tearDown(dock, editor);
        hide();
    }
    KalExtension::deactivate();
    disconnect(KalServices::getInstance(), SIGNAL(selectedNodeChanged(SoFieldContainer*)), this,
               SLOT(s_selectedNodeChanged(SoFieldContainer*)));
    KalShell::getInstance()->removeDockWidget(dock);
    KalShell::getInstance()->detachExtension(this);
}

void KalNodeEditor::s_selectedNodeChanged(SoFieldContainer* container)
{
    KalEditorChoice::tearDown(dock, editor);
    hide();
    if (!container)
        return;
    KalEditor* chosen = KalEditorChoice::choose(getProfileSetting(), container->getTypeId());
    if (!chosen)
        return;
    KalEditorChoice::showIn(dock, chosen, container);
    editor = chosen;
    show();
}
