#pragma once

#include <Inventor/SoType.h>

class KalEditor;
class KalProfileSetting;
class QDockWidget;
class SoTypedObject;

// What the "Field Editor" and "Node Editor" docks share: choosing the editor
// for a selected object among the extensions a profile setting controls, and
// putting an editor into a dock or taking it out again.
class KalEditorChoice
{
public:
    // The most specific editor whose handled type the given type derives
    // from. The controlled extensions are walked in map order (ascending
    // pointers); a later candidate replaces the current choice when its
    // handled type derives from the choice's, its own type included, so of
    // two editors for the same type the later one wins and of two unrelated
    // fitting types the earlier one stays.
    static KalEditor* choose(const KalProfileSetting* setting, SoType type);

    // Deactivates the shown editor, forgets its object and detaches its
    // widget from the dock. Leaves editor null.
    static void tearDown(QDockWidget* dock, KalEditor*& editor);

    // Gives the editor the object, docks its widget and activates it.
    static void showIn(QDockWidget* dock, KalEditor* editor, const SoTypedObject& object);
};
