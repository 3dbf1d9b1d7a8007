#include "EditorSet.h"

#include <FxMFColorWidget.h>
#include <FxMFDefaultFieldWidget.h>
#include <FxMFDoubleWidget.h>
#include <FxMFFloatWidget.h>
#include <FxMFInt32Widget.h>
#include <FxMFMatrixWidget.h>
#include <FxMFPlaneWidget.h>
#include <FxMFRotationWidget.h>
#include <FxMFShortWidget.h>
#include <FxMFStringWidget.h>
#include <FxMFUInt32Widget.h>
#include <FxMFUShortWidget.h>
#include <FxMFVec2fWidget.h>
#include <FxMFVec2i32Widget.h>
#include <FxMFVec2sWidget.h>
#include <FxMFVec3fWidget.h>
#include <FxMFVec4fWidget.h>
#include <FxSFBitMaskWidget.h>
#include <FxSFBoolWidget.h>
#include <FxSFBox3sWidget.h>
#include <FxSFColorWidget.h>
#include <FxSFDoubleWidget.h>
#include <FxSFEnumWidget.h>
#include <FxSFFilePathStringWidget.h>
#include <FxSFFloatWidget.h>
#include <FxSFImageWidget.h>
#include <FxSFInt32Widget.h>
#include <FxSFLineWidget.h>
#include <FxSFMatrixWidget.h>
#include <FxSFNameWidget.h>
#include <FxSFPlaneWidget.h>
#include <FxSFRotationWidget.h>
#include <FxSFShortWidget.h>
#include <FxSFStringWidget.h>
#include <FxSFUInt32Widget.h>
#include <FxSFUShortWidget.h>
#include <FxSFVec2fWidget.h>
#include <FxSFVec2i32Widget.h>
#include <FxSFVec2sWidget.h>
#include <FxSFVec3fWidget.h>
#include <FxSFVec4fWidget.h>

#include <Inventor/fields/SoMField.h>

EditorSet::EditorSet(const QLocale& locale)
    : m_locale(locale)
{
    const QLocale previous;
    QLocale::setDefault(locale);
    add<FxMFColorWidget>();
    m_listGeneric = add<FxMFDefaultFieldWidget>();
    add<FxMFDoubleWidget>();
    add<FxSFFilePathStringWidget>();
    add<FxMFFloatWidget>();
    add<FxMFInt32Widget>();
    add<FxMFMatrixWidget>();
    add<FxMFPlaneWidget>();
    add<FxMFRotationWidget>();
    add<FxMFShortWidget>();
    add<FxMFStringWidget>();
    add<FxMFUInt32Widget>();
    add<FxMFUShortWidget>();
    add<FxMFVec2fWidget>();
    add<FxMFVec2i32Widget>();
    add<FxMFVec2sWidget>();
    add<FxMFVec3fWidget>();
    add<FxMFVec4fWidget>();
    add<FxSFBitMaskWidget>();
    add<FxSFBoolWidget>();
    add<FxSFBox3sWidget>();
    add<FxSFColorWidget>();
    add<FxSFEnumWidget>();
    add<FxSFDoubleWidget>();
    add<FxSFFloatWidget>();
    add<FxSFImageWidget>();
    add<FxSFInt32Widget>();
    m_singleGeneric = add<FxSFLineWidget>();
    add<FxSFMatrixWidget>();
    add<FxSFNameWidget>();
    add<FxSFPlaneWidget>();
    add<FxSFRotationWidget>();
    add<FxSFShortWidget>();
    m_string = add<FxSFStringWidget>();
    add<FxSFUInt32Widget>();
    add<FxSFUShortWidget>();
    add<FxSFVec2fWidget>();
    add<FxSFVec2i32Widget>();
    add<FxSFVec2sWidget>();
    add<FxSFVec3fWidget>();
    add<FxSFVec4fWidget>();
    QLocale::setDefault(previous);
}

EditorSet::~EditorSet()
{
    for (const std::unique_ptr<KalFieldEditors>& editor : m_editors) {
        editor->deactivate();
        editor->destroyWidget();
    }
}

template <class Editor>
Editor* EditorSet::add()
{
    auto* editor = new Editor;
    m_editors.emplace_back(editor);
    editor->createWidget();
    return editor;
}

KalFieldEditors* EditorSet::specificFor(const SoField* field) const
{
    for (const std::unique_ptr<KalFieldEditors>& editor : m_editors) {
        if (editor->getHandledType() == field->getTypeId())
            return editor.get();
    }
    return genericFor(field);
}

KalFieldEditors* EditorSet::genericFor(const SoField* field) const
{
    return field->isOfType(SoMField::getClassTypeId()) ? m_listGeneric : m_singleGeneric;
}
