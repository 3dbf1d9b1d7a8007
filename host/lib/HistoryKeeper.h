#pragma once

#include "FieldState.h"
#include "KalServices.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

class FieldChange;
class HostUndoCommand;
class QUndoStack;
class SoField;
class SoFieldSensor;
class SoSensor;

// What the history does beyond running the commands it is given, for a host
// that asks for it (KalServices::setHistoryOptions): it keeps the selected
// field's state, so that each entry knows the field before and after it and
// puts exactly that back on undo and redo; it joins a burst of typing into
// one entry, drops entries that changed nothing, and makes an entry for a
// change no command reported.
class HistoryKeeper : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(HistoryKeeper)

public:
    HistoryKeeper(KalServices* services, QUndoStack* stack);
    ~HistoryKeeper() override;

    void setOptions(KalServices::HistoryOptions options);
    KalServices::HistoryOptions options() const { return m_options; }
    void setNamer(KalServices::EntryNamer namer) { m_namer = std::move(namer); }

    // The entry's first run is over: what did it change? Brings the kept
    // state up to date.
    std::unique_ptr<FieldChange> takeChange();
    bool otherFieldChanged() const { return m_otherChanged; }
    // Entries made in one burst of typing share its number; so do those an
    // editor makes while it is filled with a newly selected field (a spin
    // box that emits each value it is given). An entry made otherwise (a
    // click, Return) gets -1 and joins nothing.
    int burst() const { return m_typing || m_filling ? m_burst : -1; }
    void endBurst() { ++m_burst; }
    // Editors being filled with a newly selected field may write its value
    // back unchanged; that is no edit, and the field keeps its default flag.
    bool isFilling() const { return m_filling; }
    // Undo and redo write fields: not changes of the user's.
    void beginRestore();
    void endRestore(SoField* field);
    QString nameOf(const FieldChange* change, SoField* before) const;
    // The stack's fallback text for an entry nobody named.
    QString fallbackName() const;

    void push(HostUndoCommand* entry);
    void noteFieldChange(SoField* field);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void watch(SoField* field);
    void recordUnreported();
    void forgetField();
    static void fieldChanged(void* data, SoSensor* sensor);
    static void fieldDying(void* data, SoSensor* sensor);

    KalServices* m_services;
    QUndoStack* m_stack;
    KalServices::HistoryOptions m_options;
    KalServices::EntryNamer m_namer;
    SoField* m_field = nullptr;
    FieldState m_seen;
    // The state before the latest entry, for its name.
    FieldState m_previous;
    std::unique_ptr<SoFieldSensor> m_sensor;
    int m_burst = 0;
    int m_restoring = 0;
    bool m_pushing = false;
    bool m_typing = false;
    bool m_filling = false;
    bool m_otherChanged = false;
    bool m_checkQueued = false;
};
