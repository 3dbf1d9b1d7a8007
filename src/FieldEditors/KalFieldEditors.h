#pragma once

#include "FieldRange.h"

#include <KalEditor.h>

#include <QString>

class QFrame;
class SoField;
class SoFieldSensor;
class SoSensor;

// Base of every field editor: owns the editor's top frame and a field sensor
// that refreshes the editor whenever the edited field changes, whoever changed
// it. Concrete editors never refresh themselves right after a write; the
// sensor does it when the scene graph processes its delay queue.
class KalFieldEditors : public KalEditor
{
    Q_DISABLE_COPY(KalFieldEditors)

public:
    ~KalFieldEditors() override;

    void activate() override;
    void deactivate() override;
    void hide() override;
    void createWidget() override;
    void show() override;
    void destroyWidget() override;

    virtual void setField(SoField* field);
    virtual void updateWidget() = 0;
    virtual void setRefreshEnabled(bool enabled) = 0;
    virtual void swapValues(int first, int second) = 0;
    virtual void cellOperation(int row, int column) = 0;
    virtual void setValueFromText(int row, int column, QString text) = 0;
    virtual void setValueAt(int index, const void* value) = 0;
    virtual void applyChanges() = 0;

    QFrame* getFrame() const { return frame; }

    static void fieldSensorCB(void* data, SoSensor* sensor);

protected:
    KalFieldEditors();

    FieldRange range;
    SoFieldSensor* sensor = nullptr;
    QFrame* frame = nullptr;

private:
    static void fieldDeletedCB(void* data, SoSensor* sensor);
};
