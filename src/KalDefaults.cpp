#include "KalDefaults.h"

#include "DefaultFieldValues.h"

#include <KalExtension.h>

#include <new>

namespace {
KalDefaults* s_instance = nullptr;
}

KalDefaults::KalDefaults()
{
    name = "KalDefaults";
    author = "Quelvo";
    description = "Plug-in which loads Kalibra default extensions.";
    version = "1.0.0";
}

KalDefaults::~KalDefaults()
{
    // The editors are gone with the members; the default containers they
    // read resets from go with the plug-in.
    DefaultFieldValues::clear();
}

void KalDefaults::load()
{
    // Registration follows the member order, with one exception the host has
    // always relied on: the file path editor is registered right after the
    // multiple-value double editor, ahead of the other list editors.
    // One extension a line, in the order the host receives them.
    // clang-format off
    KalExtension* const registrationOrder[] = {
        &m_profileSelector,
        &m_console,
        &m_mfColorWidget,
        &m_mfDefaultFieldWidget,
        &m_mfDoubleWidget,
        &m_sfFilePathStringWidget,
        &m_mfFloatWidget,
        &m_mfInt32Widget,
        &m_mfMatrixWidget,
        &m_mfPlaneWidget,
        &m_mfRotationWidget,
        &m_mfShortWidget,
        &m_mfStringWidget,
        &m_mfUInt32Widget,
        &m_mfUShortWidget,
        &m_mfVec2fWidget,
        &m_mfVec2i32Widget,
        &m_mfVec2sWidget,
        &m_mfVec3fWidget,
        &m_mfVec4fWidget,
        &m_sfBitMaskWidget,
        &m_sfBoolWidget,
        &m_sfBox3sWidget,
        &m_sfColorWidget,
        &m_sfEnumWidget,
        &m_sfDoubleWidget,
        &m_sfFloatWidget,
        &m_sfImageWidget,
        &m_sfInt32Widget,
        &m_sfLineWidget,
        &m_sfMatrixWidget,
        &m_sfNameWidget,
        &m_sfPlaneWidget,
        &m_sfRotationWidget,
        &m_sfShortWidget,
        &m_sfStringWidget,
        &m_sfUInt32Widget,
        &m_sfUShortWidget,
        &m_sfVec2fWidget,
        &m_sfVec2i32Widget,
        &m_sfVec2sWidget,
        &m_sfVec3fWidget,
        &m_sfVec4fWidget,
        &m_fieldEditorDock,
        &m_nodeEditor,
    };
    // clang-format on
    for (KalExtension* extension : registrationOrder)
        addExtension(extension);
    KalPlugin::load();
}

KalDefaults* KalDefaults::create()
{
    // One plug-in object per library: a second call hands back the live one
    // rather than orphaning the extensions the host already holds.
    if (!s_instance)
        s_instance = new (std::nothrow) KalDefaults;
    return s_instance;
}

void KalDefaults::destroy()
{
    delete s_instance;
    s_instance = nullptr;
}

KalDefaults* KalDefaults::instance()
{
    return s_instance;
}
