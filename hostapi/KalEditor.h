#pragma once

#include "KalExtension.h"

#include <Inventor/SoType.h>
#include <SoTypedObject.h>

class QWidget;

// An extension that edits one kind of scene-graph object. The docks choose an
// editor by its handled type, hand it the selected object and show its widget.
class KalEditor : public KalExtension
{
    Q_OBJECT
    Q_DISABLE_COPY(KalEditor)

public:
    ~KalEditor() override;

    virtual SoType getHandledType();
    virtual void setEditedObject(const SoTypedObject& object);
    virtual SoTypedObject getEditedObject() const;
    virtual QWidget* getWidget() const;

protected:
    KalEditor();

    SoType handledType;
    SoTypedObject editedObject;
    QWidget* widget = nullptr;
};
