#include "DemoTour.h"

#include "KalHostWindow.h"

#include <Inventor/fields/SoMFColor.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoVertexProperty.h>

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QDockWidget>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QTableWidget>
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

// The ornament's colour as the sample scene has it.
bool DemoTour::goldIsBack()
{
    auto* gold = dynamic_cast<SoMaterial*>(SoNode::getByName("Gold"));
    return gold && gold->diffuseColor.getNum() == 1 && gold->diffuseColor[0] == SbColor(0.85f, 0.6f, 0.15f);
}

// The plinth's third corner as the tour's vertex edit leaves it.
bool DemoTour::plinthCornerRaised()
{
    auto* vertices = dynamic_cast<SoVertexProperty*>(SoNode::getByName("PlinthVertices"));
    return vertices && vertices->vertex.getNum() == 4 && vertices->vertex[2][1] == -0.6f;
}

// The list editor: a row added below the first one, a value typed into it,
// both taken back from the Edit menu.
bool DemoTour::addListRow()
{
    if (!m_host->select(QStringLiteral("Sampler.lines")))
        return false;
    QDockWidget* dock = m_host->window()->findChild<QDockWidget*>(QStringLiteral("KalFieldEditorDock"));
    auto* table = dock ? dock->findChild<QTableWidget*>(QStringLiteral("m_table")) : nullptr;
    auto* add = dock ? dock->findChild<QPushButton*>(QStringLiteral("m_addButton")) : nullptr;
    if (!table || !add)
        return false;
    table->setCurrentCell(0, 0);
    add->click();
    return true;
}

// Types into a cell of the list editor shown, as a person does: the cell's
// line edit opened, the text typed, Return.
bool DemoTour::typeIntoListCell(int row, int column, const QString& text)
{
    QDockWidget* dock = m_host->window()->findChild<QDockWidget*>(QStringLiteral("KalFieldEditorDock"));
    QTableWidget* table = nullptr;
    // The colour list's table goes by another name than the others'.
    for (QTableWidget* candidate : dock ? dock->findChildren<QTableWidget*>() : QList<QTableWidget*>()) {
        if (candidate->isVisible())
            table = candidate;
    }
    if (!table || table->rowCount() <= row || table->columnCount() <= column)
        return false;
    const QModelIndex cell = table->model()->index(row, column);
    table->scrollTo(cell);
    table->setCurrentIndex(cell);
    table->edit(cell);
    auto* edit = qobject_cast<QLineEdit*>(table->indexWidget(cell));
    if (!edit)
        return false;
    edit->setText(text);
    edit->setModified(true);
    // Return, as a person presses it: the table commits the cell.
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(edit, &press);
    return true;
}

// Types into the filter box above the scene tree and presses Return, which
// filters at once.
bool DemoTour::filterTree(const QString& text)
{
    auto* filter = m_host->window()->findChild<QLineEdit*>(QStringLiteral("SceneFilter"));
    if (!filter)
        return false;
    filter->setFocus();
    filter->setText(text);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(filter, &press);
    return true;
}

void DemoTour::step()
{
    const int stops = int(std::size(kStops));
    if (m_step < stops) {
        const Stop& stop = kStops[m_step];
        m_ok = m_host->select(QString::fromLatin1(stop.path)) && m_ok;
        then(QString::fromLatin1(stop.shot), QString::fromLatin1(stop.what));
        return;
    }
    switch (m_step - stops) {
    case 0: {
        const bool changed = changeValue();
        m_ok = changed && m_ok;
        then(QStringLiteral("07-edited.png"),
             changed ? QStringLiteral("typed 0.15 into Quality.value, Return: a coarser sphere")
                     : QStringLiteral("could not find the float editor"));
        return;
    }
    case 1:
        m_ok = undoFromMenu() && m_ok;
        then(QStringLiteral("08-undone.png"), QStringLiteral("Quality.value is back at 0.6"));
        return;
    case 2:
        m_ok = addListRow() && m_ok;
        then(QStringLiteral("09-list-row-added.png"),
             QStringLiteral("selected Sampler.lines (MFString), added a row"));
        return;
    case 3:
        m_ok = typeIntoListCell(1, 0, QStringLiteral("typed on the tour")) && m_ok;
        then(QStringLiteral("10-list-edited.png"), QStringLiteral("typed into the new row, Return"));
        return;
    case 4:
        // The first undo gives the new row its empty text back, the second
        // takes the row away.
        m_ok = undoFromMenu() && m_ok;
        m_ok = undoFromMenu() && m_ok;
        then(QStringLiteral("11-list-undone.png"), QStringLiteral("the added row is gone again"));
        return;
    case 5:
        m_ok = m_host->select(QStringLiteral("Gold.diffuseColor")) &&
               typeIntoListCell(0, 1, QStringLiteral("0.1")) && m_ok;
        then(QStringLiteral("12-colour-list.png"),
             QStringLiteral("selected Gold.diffuseColor (MFColor), typed 0.1 into R: a green ornament"));
        return;
    case 6:
        // The list editor's command would leave the new colour on undo; the
        // host's history puts the gold back.
        m_ok = undoFromMenu() && goldIsBack() && m_ok;
        then(QStringLiteral("13-colour-undone.png"),
             QStringLiteral("Edit > Undo: the ornament is gold again"));
        return;
    case 7:
        m_ok = m_host->select(QStringLiteral("PedestalCoordinates.point")) &&
               typeIntoListCell(4, 1, QStringLiteral("1.2")) && m_ok;
        then(QStringLiteral("14-vector-list.png"),
             QStringLiteral("selected PedestalCoordinates.point (MFVec3f), typed 1.2 into y of row 5: a "
                            "raised corner"));
        return;
    case 8:
        m_ok = filterTree(QStringLiteral("diffuseColor")) && m_ok;
        then(QStringLiteral("15-filter.png"),
             QStringLiteral("typed diffuseColor into the scene filter: the matching rows and their nodes"));
        return;
    case 9:
        // The label's translation, which an engine drives: the tree and
        // the caption say where its value comes from.
        m_ok = filterTree(QString()) && m_host->select(QStringLiteral("/5/1.translation")) && m_ok;
        then(QStringLiteral("16-driven-field.png"),
             QStringLiteral("selected the label's translation, driven by the engine Lift: the caption says "
                            "edits are overwritten"));
        return;
    case 10:
        // A vertex held in a shape's field, edited in the same vector list.
        m_ok = m_host->select(QStringLiteral("PlinthVertices.vertex")) &&
               typeIntoListCell(2, 1, QStringLiteral("-0.6")) && m_ok;
        // The table hands the typed cell to the editor once the event loop
        // runs.
        QCoreApplication::processEvents();
        m_ok = plinthCornerRaised() && m_ok;
        then(QStringLiteral("17-vertex-property.png"),
             QStringLiteral(
                 "selected PlinthVertices.vertex, the VertexProperty under PlinthFaces.vertexProperty "
                 "(MFVec3f), typed -0.6 into y of row 3: a raised plinth corner"));
        return;
    default:
        emit finished(m_ok);
    }
}

// Gives the editor and the view a moment to draw, takes the screenshot and
// goes on to the next step.
void DemoTour::then(const QString& shot, const QString& what)
{
    QTimer::singleShot(150, this, [this, shot, what] {
        m_ok = shoot(shot, what) && m_ok;
        ++m_step;
        step();
    });
}
