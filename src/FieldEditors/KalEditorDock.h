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

    // Follows the dock's selection signal while active, and only then.
    void activate() override;
    void deactivate() override;
    void hide() override;
    void show() override;
    void destroyWidget() override;

protected:
    // The selection is followed by connecting the host's signal to the
    // dock's own slot, both given as signature strings.
    KalEditorDock(const char* name, const char* description, const char* selectionSignal,
                  const char* selectionSlot);

    void createDock(const QString& objectName, const QString& title);
    // Shows the editor chosen for the object, or nothing when the object is
    // null or no enabled editor fits it.
    void showEditorFor(const SoTypedObject& object);

private:
    // Puts the dock into the host's window and the extension into its list.
    void dockIn();
    // Takes the shown editor out, if any, and hides the dock.
    void takeEditorOut();
    // Takes the dock out of the host's window and the extension out of its list.
    void dockOut();

    const char* selectionSignal;
    const char* selectionSlot;
    QDockWidget* dock = nullptr;
    KalEditor* editor = nullptr;
};
