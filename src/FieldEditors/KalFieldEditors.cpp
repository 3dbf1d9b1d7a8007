#include "KalFieldEditors.h"

#include <Inventor/sensors/SoFieldSensor.h>

#include <QFrame>

KalFieldEditors::KalFieldEditors()
    : frame(new QFrame)
{
    author = "Quelvo";
    description = "Field Editor for Kalibra.";
    version = "1.0.0";
    widget = frame;
}

KalFieldEditors::~KalFieldEditors()
{
    delete sensor;
    delete frame;
}

void KalFieldEditors::activate()
{
    KalExtension::activate();
    SoField* field = editedObject.toField();
    if (!field)
        return;
    setField(field);
    updateWidget();
    show();
}

void KalFieldEditors::deactivate()
{
    KalExtension::deactivate();
    if (sensor)
        sensor->detach();
    hide();
}

void KalFieldEditors::hide()
{
    KalExtension::hide();
    if (frame)
        frame->hide();
}

void KalFieldEditors::show()
{
    KalExtension::show();
    if (frame)
        frame->show();
}

void KalFieldEditors::createWidget()
{
    hide();
    if (!sensor) {
        sensor = new SoFieldSensor(&KalFieldEditors::fieldSensorCB, this);
        // The editor outlives nodes: when the edited field's container goes
        // away the editor must forget the field instead of touching it.
        sensor->setDeleteCallback(&KalFieldEditors::fieldDeletedCB, this);
    }
}

void KalFieldEditors::destroyWidget()
{
    delete sensor;
    sensor = nullptr;
}

void KalFieldEditors::setField(SoField* field)
{
    if (!sensor)
        return;
    if (field)
        sensor->attach(field);
    else
        sensor->detach();
}

void KalFieldEditors::fieldSensorCB(void* data, SoSensor*)
{
    if (auto* editor = static_cast<KalFieldEditors*>(data))
        editor->updateWidget();
}

void KalFieldEditors::fieldDeletedCB(void* data, SoSensor*)
{
    auto* editor = static_cast<KalFieldEditors*>(data);
    if (!editor)
        return;
    editor->editedObject = nullptr;
    editor->setField(nullptr);
}
