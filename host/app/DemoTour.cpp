#include "DemoTour.h"

#include "KalHostWindow.h"

#include <QAction>
#include <QDir>
#include <QDockWidget>
#include <QLineEdit>
#include <QMainWindow>
#include <QTextStream>
#include <QTimer>

#include <iterator>

namespace {

struct Stop
{
    const char* path;
    const char* shot;
    const char* what;
};

// Fields of several types on the sample scene, each shown in its editor.
const Stop kStops[] = {
    {"Quality.value", "01-float.png", "selected Quality.value (SFFloat, with its slider)"},
    {"Sampler.quality", "02-enum.png", "selected Sampler.quality (SFEnum)"},
    {"Sampler.orientation", "03-rotation.png", "selected Sampler.orientation (SFRotation)"},
    {"Sampler.faces", "04-bitmask.png", "selected Sampler.faces (SFBitMask)"},
    {"Sampler.tint", "05-colour.png", "selected Sampler.tint (SFColor)"},
    {"Quality.value", "06-float-again.png", "selected Quality.value again, to edit it"},
};

QTextStream& out()
{
    static QTextStream stream(stdout);
    return stream;
}

} // namespace

DemoTour::DemoTour(KalHostWindow* host, const QString& directory, QObject* parent)
    : QObject(parent)
    , m_host(host)
    , m_directory(directory)
{}

void DemoTour::start()
{
    QDir().mkpath(m_directory);
    QTimer::singleShot(200, this, &DemoTour::step);
}

bool DemoTour::shoot(const QString& name, const QString& what)
{
    const QString path = QDir(m_directory).absoluteFilePath(name);
    const bool ok = m_host->writeScreenshot(path);
    out() << (ok ? "  " : "  FAILED ") << what << "\n    -> " << path << '\n';
    out().flush();
    return ok;
}

bool DemoTour::changeValue()
{
    QDockWidget* dock = m_host->window()->findChild<QDockWidget*>(QStringLiteral("KalFieldEditorDock"));
    auto* edit = dock ? dock->findChild<QLineEdit*>(QStringLiteral("m_lineEdit")) : nullptr;
    if (!edit)
        return false;
    // What a person does: type a new value and press Return.
    edit->setFocus();
    edit->setText(QStringLiteral("0.15"));
    edit->setModified(true);
    QMetaObject::invokeMethod(edit, "returnPressed");
    return true;
}

bool DemoTour::undoFromMenu()
{
    auto* undo = m_host->window()->findChild<QAction*>(QStringLiteral("UndoAction"));
    if (!undo || !undo->isEnabled())
        return false;
    out() << "  Edit > " << undo->text().remove(QLatin1Char('&')) << '\n';
    undo->trigger();
    return true;
}

void DemoTour::step()
{
    const int stops = int(std::size(kStops));
    if (m_step < stops) {
        const Stop& stop = kStops[m_step];
        m_ok = m_host->select(QString::fromLatin1(stop.path)) && m_ok;
        // Give the editor and the view a moment to draw.
        QTimer::singleShot(150, this, [this, stop] {
            m_ok = shoot(QString::fromLatin1(stop.shot), QString::fromLatin1(stop.what)) && m_ok;
            ++m_step;
            step();
        });
        return;
    }
    if (m_step == stops) {
        const bool changed = changeValue();
        m_ok = changed && m_ok;
        QTimer::singleShot(150, this, [this, changed] {
            m_ok = shoot(QStringLiteral("07-edited.png"),
                         changed ? QStringLiteral("typed 0.15 into Quality.value, Return: a coarser sphere")
                                 : QStringLiteral("could not find the float editor")) &&
                   m_ok;
            ++m_step;
            step();
        });
        return;
    }
    if (m_step == stops + 1) {
        const bool undone = undoFromMenu();
        m_ok = undone && m_ok;
        QTimer::singleShot(150, this, [this] {
            m_ok = shoot(QStringLiteral("08-undone.png"), QStringLiteral("Quality.value is back at 0.6")) &&
                   m_ok;
            ++m_step;
            emit finished(m_ok);
        });
    }
}
