#include "ViewPicker.h"

#include "SceneModel.h"
#include "SceneRows.h"
#include "TreeSelection.h"

#include <Inventor/Qt/viewers/SoQtExaminerViewer.h>
#include <Inventor/SbXfBox3f.h>
#include <Inventor/SoFullPath.h>
#include <Inventor/SoNodeKitPath.h>
#include <Inventor/SoPickedPoint.h>
#include <Inventor/SoSceneManager.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoRayPickAction.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodekits/SoBaseKit.h>
#include <Inventor/nodes/SoAnnotation.h>
#include <Inventor/nodes/SoBaseColor.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoMatrixTransform.h>
#include <Inventor/nodes/SoPickStyle.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTranslation.h>
#include <Inventor/sensors/SoNodeSensor.h>

#include <QApplication>
#include <QItemSelectionModel>
#include <QMouseEvent>
#include <QTreeView>

#include <vector>

ViewPicker::ViewPicker(SoQtExaminerViewer* viewer, QTreeView* tree, SceneModel* model, QObject* parent)
    : QObject(parent)
    , m_viewer(viewer)
    , m_tree(tree)
    , m_model(model)
    , m_frame(new SoSeparator)
    , m_outline(new SoSwitch)
    , m_outlineSpace(new SoMatrixTransform)
    , m_outlineCentre(new SoTranslation)
    , m_outlineBox(new SoCube)
    , m_sensor(new SoNodeSensor(&ViewPicker::sceneChanged, this))
{
    m_frame->ref();
    m_frame->setName("KalHostViewFrame");
    // Lines in a colour of their own, lit by nothing, never picked and
    // never hidden behind what they surround.
    auto* style = new SoDrawStyle;
    style->style = SoDrawStyle::LINES;
    style->lineWidth = 2.0f;
    auto* light = new SoLightModel;
    light->model = SoLightModel::BASE_COLOR;
    auto* colour = new SoBaseColor;
    colour->rgb.setValue(1.0f, 0.85f, 0.1f);
    auto* unpickable = new SoPickStyle;
    unpickable->style = SoPickStyle::UNPICKABLE;
    auto* drawing = new SoAnnotation;
    drawing->addChild(unpickable);
    drawing->addChild(style);
    drawing->addChild(light);
    drawing->addChild(colour);
    drawing->addChild(m_outlineSpace);
    drawing->addChild(m_outlineCentre);
    drawing->addChild(m_outlineBox);
    m_outline->addChild(drawing);
    m_outline->whichChild = SO_SWITCH_NONE;
    m_frame->addChild(m_outline);

    m_viewer->setEventCallback(&ViewPicker::viewEvent, this);
    connect(m_tree->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ViewPicker::followSelection);
    // The model frees a scene level by level; none of the picker's
    // references may be the last one.
    connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this, &ViewPicker::letGoOfScene);
}

ViewPicker::~ViewPicker()
{
    m_sensor->detach();
    outline(nullptr);
    m_frame->unref();
}

SoNode* ViewPicker::frame(SoNode* root)
{
    outline(nullptr);
    m_sceneDrawn = false;
    m_sensor->detach();
    if (m_scene)
        m_frame->removeChild(m_scene);
    m_scene = root;
    if (m_scene) {
        m_frame->insertChild(m_scene, 0);
        m_sensor->attach(m_scene);
    }
    return m_frame;
}

void ViewPicker::setSceneDrawn(bool drawn)
{
    m_sceneDrawn = drawn;
    followSelection();
}

void ViewPicker::letGoOfScene()
{
    outline(nullptr);
    // The scene the model is about to drop; a new one the viewer was given
    // first stays.
    if (m_scene && m_scene == m_model->root())
        frame(nullptr);
}

SoNode* ViewPicker::highlighted() const
{
    return m_path ? static_cast<SoFullPath*>(m_path)->getTail() : nullptr;
}

SbBool ViewPicker::viewEvent(void* data, QEvent* event)
{
    auto* self = static_cast<ViewPicker*>(data);
    if (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseButtonRelease)
        return FALSE;
    auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() != Qt::LeftButton)
        return FALSE;
    if (event->type() == QEvent::MouseButtonPress) {
        self->m_pressed = true;
        self->m_pressedAt = mouse->pos();
    } else if (self->m_pressed) {
        self->m_pressed = false;
        if ((mouse->pos() - self->m_pressedAt).manhattanLength() < QApplication::startDragDistance())
            self->pickAt(mouse->pos());
    }
    // Not taken: the viewer turns the camera on a drag and the scene sees
    // its clicks.
    return FALSE;
}

bool ViewPicker::pickAt(const QPoint& position)
{
    SoNode* scene = m_model->root();
    QWidget* area = m_viewer->getGLWidget();
    if (!scene || !area || area->width() <= 0 || area->height() <= 0)
        return false;
    // Qt counts from the top in device-independent units, Coin from the
    // bottom in the viewport's pixels.
    const SbViewportRegion& region = m_viewer->getViewportRegion();
    const SbVec2s pixels = region.getViewportSizePixels();
    const float x = float(position.x()) * pixels[0] / area->width();
    const float y = float(pixels[1]) - 1.0f - float(position.y()) * pixels[1] / area->height();
    SoRayPickAction pick(region);
    pick.setPoint(SbVec2s(short(x), short(y)));
    pick.apply(m_viewer->getSceneManager()->getSceneGraph());
    SoPickedPoint* point = pick.getPickedPoint();
    if (!point)
        return false;

    // The shape drawn there, reached through the scene's root; its row is
    // found by the same child places.
    auto* path = static_cast<SoFullPath*>(point->getPath());
    int rootAt = -1;
    for (int i = 0; i < path->getLength() && rootAt < 0; ++i) {
        if (path->getNode(i) == scene)
            rootAt = i;
    }
    if (rootAt < 0)
        return false;
    const QModelIndex row = rowOfPath(path, rootAt);
    if (!row.isValid())
        return false;
    m_tree->scrollTo(row);
    TreeSelection::selectRow(m_tree->selectionModel(), row);
    return true;
}

QModelIndex ViewPicker::rowOfPath(SoFullPath* path, int rootAt) const
{
    // Down the picked path from the scene's root: through a child's place
    // where the tree shows children, and where a node keeps its children in
    // fields (a kit, a VRML group) to the furthest node on the path that
    // one of its fields holds, so that a kit's shape is found under its
    // "shape" part rather than deep in the kit's own groups.
    QModelIndex row = m_model->index(0, 0);
    int at = rootAt;
    while (row.isValid() && at + 1 < path->getLength()) {
        SoNode* node = path->getNode(at);
        if (SceneRows::childCount(node) > 0) {
            row = m_model->index(SceneRows::rowOfChild(node, path->getIndex(at + 1)), 0, row);
            ++at;
            continue;
        }
        QModelIndex held;
        for (int later = path->getLength() - 1; later > at && !held.isValid(); --later) {
            for (int fieldRow = 0; fieldRow < SceneRows::fieldCount(node) && !held.isValid(); ++fieldRow) {
                SoField* field = SceneRows::fieldAt(node, fieldRow);
                for (int value = 0; value < SceneRows::heldCount(field) && !held.isValid(); ++value) {
                    if (SceneRows::heldAt(field, value) == path->getNode(later)) {
                        held = m_model->index(value, 0, m_model->index(fieldRow, 0, row));
                        at = later;
                    }
                }
            }
        }
        if (!held.isValid())
            break;
        row = held;
    }
    return row;
}

SoPath* ViewPicker::pathOf(const QModelIndex& row) const
{
    // The rows from the root down to the row's node (a field's row stands
    // for its node), then the way the scene graph draws it.
    std::vector<QModelIndex> way;
    for (QModelIndex at = row; at.isValid(); at = at.parent())
        way.push_back(at);
    auto* path = new SoPath(m_model->root());
    for (auto at = way.rbegin() + 1; at < way.rend(); ++at) {
        if (m_model->field(*at))
            continue;
        auto* node = static_cast<SoNode*>(m_model->container(*at));
        const QModelIndex above = at->parent();
        SoField* holder = m_model->field(above);
        if (!holder) {
            auto* parent = static_cast<SoNode*>(m_model->container(above));
            path->append(SceneRows::childPlace(parent, at->row()));
            continue;
        }
        // A node held in a field is drawn where its holder's children have
        // it (a VRML group, a kit's top) or where the kit places the part;
        // otherwise (a shape's vertexProperty) the holder is outlined.
        auto* owner = static_cast<SoNode*>(m_model->container(above));
        SoChildList* children = owner->getChildren();
        const int place = children && node ? children->find(node) : -1;
        if (place >= 0) {
            path->append(place);
            continue;
        }
        SbName part;
        owner->getFieldName(holder, part);
        SoPath* toPart = node && owner->isOfType(SoBaseKit::getClassTypeId())
                             ? static_cast<SoBaseKit*>(owner)->createPathToPart(part, FALSE, path)
                             : nullptr;
        if (!toPart)
            break;
        path->ref();
        path->unref();
        path = toPart;
    }
    return path;
}

void ViewPicker::followSelection()
{
    const QModelIndex row = TreeSelection::selectedRow(m_tree->selectionModel());
    if (!row.isValid() || !m_scene || m_scene != m_model->root() || !m_sceneDrawn) {
        outline(nullptr);
        return;
    }
    outline(pathOf(row));
}

void ViewPicker::outline(SoPath* path)
{
    if (path)
        path->ref();
    if (m_path)
        m_path->unref();
    m_path = path;
    placeOutline();
}

void ViewPicker::sceneChanged(void* data, SoSensor*)
{
    static_cast<ViewPicker*>(data)->placeOutline();
}

void ViewPicker::placeOutline()
{
    if (!m_path) {
        if (m_outline->whichChild.getValue() != SO_SWITCH_NONE)
            m_outline->whichChild = SO_SWITCH_NONE;
        return;
    }
    // The box in the node's own space, carried by the transformations on
    // its way from the root, as the node is drawn.
    SoGetBoundingBoxAction measure(m_viewer->getViewportRegion());
    measure.apply(m_path);
    const SbXfBox3f& box = measure.getXfBoundingBox();
    if (box.isEmpty()) {
        m_outline->whichChild = SO_SWITCH_NONE;
        return;
    }
    SbVec3f low;
    SbVec3f high;
    box.getBounds(low, high);
    const SbVec3f size = high - low;
    m_outlineSpace->matrix = box.getTransform();
    m_outlineCentre->translation = (low + high) * 0.5f;
    m_outlineBox->width = size[0];
    m_outlineBox->height = size[1];
    m_outlineBox->depth = size[2];
    m_outline->whichChild = 0;
}
