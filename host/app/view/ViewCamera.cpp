#include "ViewCamera.h"

#include "SceneGraphSurvey.h"

#include <Inventor/Qt/viewers/SoQtExaminerViewer.h>
#include <Inventor/actions/SoGLRenderAction.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoHandleEventAction.h>
#include <Inventor/actions/SoRayPickAction.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/lists/SoTypeList.h>
#include <Inventor/nodes/SoCamera.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/sensors/SoNodeSensor.h>

#include <QLocale>
#include <QSet>

namespace {

// Scene cameras a view stands in for. Coin's actions dispatch per node
// type, not per node, so the passing over is decided here, node by node.
QSet<const SoNode*>& passedOver()
{
    static QSet<const SoNode*> cameras;
    return cameras;
}

template <void (*Traverse)(SoAction*, SoNode*)>
void unlessPassedOver(SoAction* action, SoNode* node)
{
    if (!passedOver().contains(node))
        Traverse(action, node);
}

// The actions through which a camera sets what the view sees: drawing,
// picking, measuring (screen-sized nodes) and events (draggers).
void passOverInActions()
{
    static bool done = false;
    if (done)
        return;
    done = true;
    SoTypeList types;
    SoType::getAllDerivedFrom(SoCamera::getClassTypeId(), types);
    for (int i = 0; i < types.getLength(); ++i) {
        const SoType type = types[i];
        SoGLRenderAction::addMethod(type, &unlessPassedOver<&SoNode::GLRenderS>);
        SoRayPickAction::addMethod(type, &unlessPassedOver<&SoNode::rayPickS>);
        SoGetBoundingBoxAction::addMethod(type, &unlessPassedOver<&SoNode::getBoundingBoxS>);
        SoHandleEventAction::addMethod(type, &unlessPassedOver<&SoNode::handleEventS>);
    }
}

// The first camera the scene is drawn through, found as Coin's viewers find
// theirs.
SoCamera* firstCamera(SoNode* root)
{
    if (!root)
        return nullptr;
    SoSearchAction search;
    search.setType(SoCamera::getClassTypeId());
    search.setInterest(SoSearchAction::FIRST);
    search.apply(root);
    SoPath* path = search.getPath();
    return path ? static_cast<SoCamera*>(path->getTail()) : nullptr;
}

} // namespace

ViewCamera::ViewCamera(SoQtExaminerViewer* viewer, QObject* parent)
    : QObject(parent)
    , m_viewer(viewer)
    , m_frame(new SoSeparator)
    , m_sensor(new SoNodeSensor(&ViewCamera::sceneCameraChanged, this))
{
    passOverInActions();
    m_frame->ref();
    m_frame->setName("KalHostViewCamera");
    m_frame->addChild(new SoPerspectiveCamera);
}

ViewCamera::~ViewCamera()
{
    standIn(nullptr);
    m_frame->unref();
}

SoNode* ViewCamera::frame(SoNode* shown, SoNode* root)
{
    while (m_frame->getNumChildren() > 1)
        m_frame->removeChild(1);
    // Coin draws, picks and looks for the camera path by path: a scene of
    // a few shared groups, or one that contains itself, would hold the
    // window for minutes or overflow the stack at every redraw.
    const SceneGraphSurvey survey(root);
    m_leftOutReason.clear();
    if (survey.cycle()) {
        m_leftOutReason =
            tr("The 3D view does not draw this scene: it contains itself (%1).").arg(survey.cycleText());
    } else if (survey.traversalVisits() > kMaxVisits) {
        const QLocale locale;
        const QString visits =
            survey.traversalVisits() == SceneGraphSurvey::kTooMany
                ? tr("more nodes than can be counted")
                : tr("%1 nodes").arg(locale.toString(qulonglong(survey.traversalVisits())));
        m_leftOutReason = tr("The 3D view does not draw this scene: its shared parts make one picture "
                             "of it visit %1, more than the %2 it draws.")
                              .arg(visits, locale.toString(qulonglong(kMaxVisits)));
    }
    if (!m_leftOutReason.isEmpty())
        shown = nullptr;
    standIn(shown ? firstCamera(root) : nullptr);
    // The view looks through a camera of the scene's camera's kind.
    const SoType kind = m_sceneCamera ? m_sceneCamera->getTypeId() : SoPerspectiveCamera::getClassTypeId();
    if (m_frame->getChild(0)->getTypeId() != kind && kind.canCreateInstance()) {
        auto* camera = static_cast<SoCamera*>(kind.createInstance());
        m_frame->replaceChild(0, camera);
        // The viewer is given the same frame for every scene and may not
        // look for its camera again.
        if (m_viewer->getCamera())
            m_viewer->setCamera(camera);
    }
    if (shown)
        m_frame->addChild(shown);
    return m_frame;
}

void ViewCamera::reset()
{
    if (m_sceneCamera)
        followSceneCamera();
    else
        m_viewer->viewAll();
}

QString ViewCamera::leftOutReason() const
{
    return m_leftOutReason;
}

SoCamera* ViewCamera::sceneCamera() const
{
    return m_sceneCamera;
}

void ViewCamera::standIn(SoCamera* sceneCamera)
{
    if (sceneCamera == m_sceneCamera)
        return;
    m_sensor->detach();
    if (m_sceneCamera) {
        passedOver().remove(m_sceneCamera);
        m_sceneCamera->unref();
    }
    m_sceneCamera = sceneCamera;
    if (!m_sceneCamera)
        return;
    m_sceneCamera->ref();
    passedOver().insert(m_sceneCamera);
    m_sensor->attach(m_sceneCamera);
}

SoCamera* ViewCamera::viewCamera() const
{
    // The viewer swaps the camera for one of the other kind when asked to
    // (its perspective button); the one it holds is the one to move.
    if (SoCamera* camera = m_viewer->getCamera())
        return camera;
    return static_cast<SoCamera*>(m_frame->getChild(0));
}

void ViewCamera::sceneCameraChanged(void* data, SoSensor*)
{
    static_cast<ViewCamera*>(data)->followSceneCamera();
}

void ViewCamera::followSceneCamera()
{
    SoCamera* view = viewCamera();
    if (!m_sceneCamera || !view || view == m_sceneCamera)
        return;
    // Field by field, by name and type: the two may be of different kinds.
    SoFieldList fields;
    view->getFields(fields);
    SbString text;
    for (int i = 0; i < fields.getLength(); ++i) {
        SoField* to = fields[i];
        SbName name;
        view->getFieldName(to, name);
        SoField* from = m_sceneCamera->getField(name);
        if (!from || from->getTypeId() != to->getTypeId())
            continue;
        from->get(text);
        to->set(text.getString());
    }
}
