#pragma once

#include <Inventor/SbBasic.h>

#include <QObject>
#include <QPoint>

#include <memory>

class QEvent;
class QModelIndex;
class QTreeView;
class SceneModel;
class SoCube;
class SoFullPath;
class SoMatrixTransform;
class SoNode;
class SoNodeSensor;
class SoPath;
class SoQtExaminerViewer;
class SoSensor;
class SoSeparator;
class SoSwitch;
class SoTranslation;

// Ties the 3D view to the scene tree both ways: a click on an object in the
// view selects its node's row, and the node of the selected row is outlined
// in the view by its bounding box.
//
// A click is a press and release of the left button without a drag between
// them, in either of the viewer's modes, so turning the camera by dragging
// works as before; the events still reach the viewer and the scene.
class ViewPicker : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(ViewPicker)

public:
    // The picker is the viewer's event callback, so it lives as long as the
    // viewer; once the viewer is gone, it only lets go of the scene.
    ViewPicker(SoQtExaminerViewer* viewer, QTreeView* tree, SceneModel* model, QObject* parent = nullptr);
    ~ViewPicker() override;

    // What the viewer is to show for a scene: the scene and, beside it,
    // the outline. The model is given the same root.
    SoNode* frame(SoNode* root);

    // Whether the view draws the scene last given to frame(); until it is
    // said to, the selection is not outlined. Measuring a node for its
    // outline visits what lies on its way as drawing does, once per path
    // through shared groups: in a scene too costly to draw, selecting a
    // group deep in it held the window for minutes.
    void setSceneDrawn(bool drawn);

    // Selects the row of the object drawn at this point of the view's
    // drawing area (Qt's coordinates); false when nothing is drawn there.
    bool pickAt(const QPoint& position);

    // The node outlined in the view; null when none is.
    SoNode* highlighted() const;

private:
    static SbBool viewEvent(void* data, QEvent* event);
    static void sceneChanged(void* data, SoSensor* sensor);
    void followSelection();
    void outline(SoPath* path);
    void placeOutline();
    void letGoOfScene();
    SoPath* pathOf(const QModelIndex& row) const;
    QModelIndex rowOfPath(SoFullPath* path, int rootAt) const;

    SoQtExaminerViewer* m_viewer;
    QTreeView* m_tree;
    SceneModel* m_model;
    // The viewer's scene: the shown scene, then the outline.
    SoSeparator* m_frame;
    SoNode* m_scene = nullptr;
    SoSwitch* m_outline;
    SoMatrixTransform* m_outlineSpace;
    SoTranslation* m_outlineCentre;
    SoCube* m_outlineBox;
    SoPath* m_path = nullptr;
    std::unique_ptr<SoNodeSensor> m_sensor;
    QPoint m_pressedAt;
    bool m_pressed = false;
    bool m_sceneDrawn = false;
};
