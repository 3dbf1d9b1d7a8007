#pragma once

#include "FxMFColorWidget.h"
#include "FxMFDefaultFieldWidget.h"
#include "FxMFDoubleWidget.h"
#include "FxMFFloatWidget.h"
#include "FxMFInt32Widget.h"
#include "FxMFMatrixWidget.h"
#include "FxMFPlaneWidget.h"
#include "FxMFRotationWidget.h"
#include "FxMFShortWidget.h"
#include "FxMFStringWidget.h"
#include "FxMFUInt32Widget.h"
#include "FxMFUShortWidget.h"
#include "FxMFVec2fWidget.h"
#include "FxMFVec2i32Widget.h"
#include "FxMFVec2sWidget.h"
#include "FxMFVec3fWidget.h"
#include "FxMFVec4fWidget.h"
#include "FxSFBitMaskWidget.h"
#include "FxSFBoolWidget.h"
#include "FxSFBox3sWidget.h"
#include "FxSFColorWidget.h"
#include "FxSFDoubleWidget.h"
#include "FxSFEnumWidget.h"
#include "FxSFFilePathStringWidget.h"
#include "FxSFFloatWidget.h"
#include "FxSFImageWidget.h"
#include "FxSFInt32Widget.h"
#include "FxSFLineWidget.h"
#include "FxSFMatrixWidget.h"
#include "FxSFNameWidget.h"
#include "FxSFPlaneWidget.h"
#include "FxSFRotationWidget.h"
#include "FxSFShortWidget.h"
#include "FxSFStringWidget.h"
#include "FxSFUInt32Widget.h"
#include "FxSFUShortWidget.h"
#include "FxSFVec2fWidget.h"
#include "FxSFVec2i32Widget.h"
#include "FxSFVec2sWidget.h"
#include "FxSFVec3fWidget.h"
#include "FxSFVec4fWidget.h"
#include "KalConsole.h"
#include "KalFieldEditorDockWin.h"
#include "KalNodeEditor.h"
#include "KalProfileSelectorExtension.h"

#include <KalPlugin.h>

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

    // Every extension of the library, in construction order; destruction
    // runs the other way, so the docks, which may hold an editor's frame,
    // go before any editor.
    KalProfileSelectorExtension m_profileSelector;
    KalConsole m_console;
    FxMFColorWidget m_mfColorWidget;
    FxMFDefaultFieldWidget m_mfDefaultFieldWidget;
    FxMFDoubleWidget m_mfDoubleWidget;
    FxMFFloatWidget m_mfFloatWidget;
    FxMFInt32Widget m_mfInt32Widget;
    FxMFMatrixWidget m_mfMatrixWidget;
    FxMFPlaneWidget m_mfPlaneWidget;
    FxMFRotationWidget m_mfRotationWidget;
    FxMFShortWidget m_mfShortWidget;
    FxMFStringWidget m_mfStringWidget;
    FxMFUInt32Widget m_mfUInt32Widget;
    FxMFUShortWidget m_mfUShortWidget;
    FxMFVec2fWidget m_mfVec2fWidget;
    FxMFVec2i32Widget m_mfVec2i32Widget;
    FxMFVec2sWidget m_mfVec2sWidget;
    FxMFVec3fWidget m_mfVec3fWidget;
    FxMFVec4fWidget m_mfVec4fWidget;
    FxSFBitMaskWidget m_sfBitMaskWidget;
    FxSFBoolWidget m_sfBoolWidget;
    FxSFBox3sWidget m_sfBox3sWidget;
    FxSFColorWidget m_sfColorWidget;
    FxSFEnumWidget m_sfEnumWidget;
    FxSFDoubleWidget m_sfDoubleWidget;
    FxSFFilePathStringWidget m_sfFilePathStringWidget;
    FxSFFloatWidget m_sfFloatWidget;
    FxSFImageWidget m_sfImageWidget;
    FxSFInt32Widget m_sfInt32Widget;
    FxSFLineWidget m_sfLineWidget;
    FxSFMatrixWidget m_sfMatrixWidget;
    FxSFNameWidget m_sfNameWidget;
    FxSFPlaneWidget m_sfPlaneWidget;
    FxSFRotationWidget m_sfRotationWidget;
    FxSFShortWidget m_sfShortWidget;
    FxSFStringWidget m_sfStringWidget;
    FxSFUInt32Widget m_sfUInt32Widget;
    FxSFUShortWidget m_sfUShortWidget;
    FxSFVec2fWidget m_sfVec2fWidget;
    FxSFVec2i32Widget m_sfVec2i32Widget;
    FxSFVec2sWidget m_sfVec2sWidget;
    FxSFVec3fWidget m_sfVec3fWidget;
    FxSFVec4fWidget m_sfVec4fWidget;
    KalFieldEditorDockWin m_fieldEditorDock;
    KalNodeEditor m_nodeEditor;
};
