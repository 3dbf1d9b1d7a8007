#pragma once

#include <KalExtension.h>

class KalEditor;
class QDockWidget;
class QString;
class SoTypedObject;

// What the "Field Editor" and "Node Editor" docks share: a dock in the host's
// right area that shows the most specific enabled editor for what the user
// selected. Each dock says which selection it follows.
class KalEditorDock : public KalExtension
{
    Q_DISABLE_COPY(KalEditorDock)

public:
    ~KalEditorDock() override;

    void hide() override;
    void show() override;
    void destroyWidget() override;

protected:
    KalEditorDock(const char* name, const char* description);

    void createDock(const QString& objectName, const QString& title);
    // Puts the dock into the host's window and the extension into its list.
    void dockIn();
    // Takes the shown editor out, if any, and hides the dock.
    void takeEditorOut();
    // Takes the dock out of the host's window and the extension out of its list.
    void dockOut();
    // Shows the editor chosen for the object, or nothing when the object is
    // null or no enabled editor fits it.
    void showEditorFor(const SoTypedObject& object);

private:
    QDockWidget* dock = nullptr;
    KalEditor* editor = nullptr;
};
