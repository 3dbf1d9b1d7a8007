#pragma once

#include <QObject>
#include <QString>

#include <cstdint>

#include <memory>

class SoCamera;
class SoNode;
class SoNodeSensor;
class SoQtExaminerViewer;
class SoSensor;
class SoSeparator;

// The 3D view looks through a camera of its own, so that framing the scene
// and turning it never write into the person's file.
//
// Coin's viewers look through the first camera of a scene and move it:
// kalhost opened a scene with its own camera already modified, and saved
// the moved camera. Here the view's camera stands before the scene and
// starts where the scene's camera is; the scene's camera keeps its fields
// and is passed over while the view draws and picks, so the view stays the
// view's. Edits of the scene's camera (in the editors, undo, redo) still
// move the view there.
class ViewCamera : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(ViewCamera)

public:
    explicit ViewCamera(SoQtExaminerViewer* viewer, QObject* parent = nullptr);
    ~ViewCamera() override;

    // One picture of a scene visits a shared node once per path to it;
    // past this many visits the view leaves the scene out. A picture of a
    // million nodes takes about a second to draw and to pick in.
    static constexpr std::uint64_t kMaxVisits = 1000000;

    // What the viewer is to show: the view's camera, then shown (the scene
    // root and whatever the view draws beside it), unless the scene under
    // root is one the view leaves out (see leftOutReason()).
    SoNode* frame(SoNode* shown, SoNode* root);

    // Why the scene given to frame() is not drawn, for the person; empty
    // when it is.
    QString leftOutReason() const;

    // The view where it starts: through the scene's camera when the scene
    // has one, otherwise the whole scene framed.
    void reset();

    // The scene's camera the view stands in for; null when it has none.
    SoCamera* sceneCamera() const;

private:
    static void sceneCameraChanged(void* data, SoSensor* sensor);
    void followSceneCamera();
    void standIn(SoCamera* sceneCamera);
    SoCamera* viewCamera() const;

    SoQtExaminerViewer* m_viewer;
    SoSeparator* m_frame;
    SoCamera* m_sceneCamera = nullptr;
    QString m_leftOutReason;
    std::unique_ptr<SoNodeSensor> m_sensor;
};
