#include "HistoryKeeper.h"

#include "FieldChange.h"
#include "HostUndoCommand.h"

#include <Inventor/fields/SoField.h>
#include <Inventor/sensors/SoFieldSensor.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMetaObject>
#include <QUndoStack>
#include <QWidget>

HistoryKeeper::HistoryKeeper(KalServices* services, QUndoStack* stack)
    : QObject(services)
    , m_services(services)
    , m_stack(stack)
{
    connect(m_services, &KalServices::selectedFieldChanged, this, [this](SoField* field) {
        if (m_options)
            watch(field);
    });
}

HistoryKeeper::~HistoryKeeper()
{
    forgetField();
}

void HistoryKeeper::setOptions(KalServices::HistoryOptions options)
{
    if (options && !m_options) {
        // Typing ends with Return and with the focus leaving its line.
        qApp->installEventFilter(this);
        connect(qApp, &QApplication::focusChanged, this, &HistoryKeeper::endBurst);
    } else if (!options && m_options) {
        qApp->removeEventFilter(this);
        disconnect(qApp, &QApplication::focusChanged, this, &HistoryKeeper::endBurst);
        forgetField();
    }
    m_options = options;
}

void HistoryKeeper::watch(SoField* field)
{
    if (field == m_field)
        return;
    // A change the user made to the field left behind is recorded first.
    recordUnreported();
    forgetField();
    endBurst();
    if (!field)
        return;
    // The editors are filled after this, in the same turn of the event loop.
    m_filling = true;
    m_typing = false;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_filling = false;
            endBurst();
        },
        Qt::QueuedConnection);
    m_field = field;
    m_seen.refresh(field);
    m_sensor = std::make_unique<SoFieldSensor>(&HistoryKeeper::fieldChanged, this);
    // Immediate, so that a change is seen before the command that reports
    // it is pushed, and a delete before anything reads the field again.
    m_sensor->setPriority(0);
    m_sensor->setDeleteCallback(&HistoryKeeper::fieldDying, this);
    m_sensor->attach(field);
}

void HistoryKeeper::forgetField()
{
    if (m_sensor)
        m_sensor->detach();
    m_sensor.reset();
    m_field = nullptr;
    m_seen = FieldState();
    m_previous = FieldState();
}

void HistoryKeeper::fieldChanged(void* data, SoSensor*)
{
    auto* keeper = static_cast<HistoryKeeper*>(data);
    if (keeper->m_restoring || keeper->m_pushing || keeper->m_checkQueued ||
        !keeper->m_options.testFlag(KalServices::RecordUnreported))
        return;
    // A command, if there is one, is pushed right after the write that it
    // reports; what is still unrecorded once the event loop runs is a change
    // no command told of.
    keeper->m_checkQueued = true;
    QMetaObject::invokeMethod(keeper, &HistoryKeeper::recordUnreported, Qt::QueuedConnection);
}

void HistoryKeeper::fieldDying(void* data, SoSensor*)
{
    auto* keeper = static_cast<HistoryKeeper*>(data);
    keeper->m_field = nullptr;
    keeper->m_seen = FieldState();
}

void HistoryKeeper::recordUnreported()
{
    m_checkQueued = false;
    if (!m_field || !m_options.testFlag(KalServices::RecordUnreported) || m_seen.matches(m_field))
        return;
    // What an engine or a connection writes is not the user's doing.
    if (m_field->isConnected()) {
        m_seen.refresh(m_field);
        return;
    }
    push(new HostUndoCommand(nullptr, this));
}

void HistoryKeeper::push(HostUndoCommand* entry)
{
    m_pushing = true;
    m_otherChanged = false;
    m_stack->push(entry);
    m_pushing = false;
}

void HistoryKeeper::noteFieldChange(SoField* field)
{
    if (m_pushing && field != m_field)
        m_otherChanged = true;
}

std::unique_ptr<FieldChange> HistoryKeeper::takeChange()
{
    if (!m_field)
        return nullptr;
    std::unique_ptr<FieldChange> change = FieldChange::between(m_seen, m_field);
    if (change && m_filling && change->onlyClearsDefault()) {
        beginRestore();
        change->writeBefore();
        endRestore(m_field);
        return nullptr;
    }
    if (change) {
        std::swap(m_seen, m_previous);
        m_seen.refresh(m_field);
    }
    return change;
}

void HistoryKeeper::beginRestore()
{
    ++m_restoring;
    endBurst();
}

void HistoryKeeper::endRestore(SoField* field)
{
    --m_restoring;
    if (field && field == m_field)
        m_seen.refresh(m_field);
}

QString HistoryKeeper::nameOf(const FieldChange* change, SoField* before) const
{
    if (change && m_namer) {
        const QString text = m_namer(change->field(), before ? before : m_previous.copy());
        if (!text.isEmpty())
            return text;
    }
    return fallbackName();
}

QString HistoryKeeper::fallbackName() const
{
    return KalServices::tr("Edit %1").arg(m_stack->index() + 1);
}

bool HistoryKeeper::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress: {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            endBurst();
            m_typing = false;
        } else {
            m_typing = true;
        }
        break;
    }
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
        // A click, a drag or a wheel turn is an edit of its own.
        endBurst();
        m_typing = false;
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
