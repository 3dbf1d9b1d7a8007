#pragma once

#include "FxSFFloatWidget.h"
#include "KalConsole.h"
#include "KalFieldEditorDockWin.h"
#include "KalNodeEditor.h"
#include "KalProfileSelectorExtension.h"

#include <KalPlugin.h>

#include <array>

class KalExtension;

// The plug-in object: owns every extension of this library by value and
// hands them to the host in load().
class KalDefaults : public KalPlugin
{
public:
    KalDefaults();
    ~KalDefaults() override;

    void load() override;

    // The one live plug-in object behind the exported entry points.
    static KalDefaults* create();
    static void destroy();
    static KalDefaults* instance();

private:
    KalDefaults(const KalDefaults&) = delete;
    KalDefaults& operator=(const KalDefaults&) = delete;

    using Registration = std::array<KalExtension*, 5>;
    Registration registrationOrder();

    // Every extension of the library, in construction order; destruction
    // runs the other way, so the docks, which may hold an editor's frame,
    // go before any editor.
    KalProfileSelectorExtension m_profileSelector;
    KalConsole m_console;
    FxSFFloatWidget m_sfFloatWidget;
    KalFieldEditorDockWin m_fieldEditorDock;
    KalNodeEditor m_nodeEditor;
};
