#include "commands/CreateNodeEdit.h"

#include "commands/FrameLists.h"
#include "commands/SelectionNudge.h"
#include "model/FrameNumber.h"
#include "model/LayerManager.h"
#include "model/LayerName.h"
#include "node/BaseNode.h"
#include "node/HostViews.h"
#include "node/MasterDrawing.h"
#include "node/TimelineMarks.h"
#include "settings/Messages.h"
#include "settings/Names.h"
#include "settings/ScriptBridge.h"

#include <maya/MFnDagNode.h>
#include <maya/MGlobal.h>
#include <maya/MPlug.h>

namespace {

const char* const kLockedPlugs[] = {"translateX", "translateY", "translateZ", "rotateX", "rotateY",
                                    "rotateZ",    "scaleX",     "scaleY",     "scaleZ"};

/// The user can never move, turn or scale the drawing.
void lockTransform(const MObject& object)
{
    const MFnDependencyNode transform(object);
    for (const char* name : kLockedPlugs) {
        MPlug plug = transform.findPlug(name, false);
        if (!plug.isNull()) {
            plug.setKeyable(false);
            plug.setLocked(true);
            plug.setChannelBox(false);
        }
    }
}

bool isThereANode()
{
    if (BaseNode::masterNode()) {
        messages::error("Node already exists");
        return true;
    }
    return false;
}

}  // namespace

CreateNodeEdit::CreateNodeEdit(const FirstLayerRequest& layer) : m_layer(layer) {}

MStatus CreateNodeEdit::execute()
{
    if (isThereANode()) {
        return MStatus::kFailure;
    }
    if (m_layer.wanted && m_layer.withFrames && areTooMany(script::highlightedSpan())) {
        messages::error(kTooManyFrames);
        return MStatus::kFailure;
    }
    MGlobal::getActiveSelectionList(m_previousSelection);
    BaseNode* node = recordCreation() ? placeInScene() : nullptr;
    if (!node) {
        return MStatus::kFailure;
    }
    if (m_layer.wanted) {
        addFirstLayer(*node->layerManager());
        announce(*node);
    }
    return MStatus::kSuccess;
}

MStatus CreateNodeEdit::redo()
{
    BaseNode* node = isThereANode() ? nullptr : placeInScene();
    if (!node) {
        return MStatus::kFailure;
    }
    node->layerManager()->clear(true);  // a host may bring the very same node back, with what was in it
    if (m_layer.wanted) {
        announce(*node);
    }
    return MStatus::kSuccess;
}

MStatus CreateNodeEdit::undo()
{
    const MStatus status = m_modifier.undoIt();
    MGlobal::setActiveSelectionList(m_previousSelection);
    for (BaseNode* node : BaseNode::allNodes()) {
        node->setCurrentFrame(currentFrameNumber(), false);
    }
    TimelineMarks::refreshInstalled();
    publishMasterDrawing();
    return status;
}

// Reported when it fails.
bool CreateNodeEdit::recordCreation()
{
    MStatus status;
    const MObject transform = m_modifier.createNode("transform", MObject::kNullObj, &status);
    if (!status || transform.isNull()) {
        messages::error("Failed to create transform");
        return false;
    }
    m_modifier.renameNode(transform, names::kTransformNode);
    const MObject shape = m_modifier.createNode(MTypeId(names::kNodeTypeId), transform, &status);
    if (!status || shape.isNull()) {
        messages::error("Failed to create shape");
        return false;
    }
    m_modifier.renameNode(shape, names::kShapeNode);
    return true;
}

// Gives the node that is in the scene by then, which a redo may have made anew: it is the scene's master, for there
// was none. One without a drawing, as it comes of a script that runs while a file is read, is taken away again: null,
// and reported.
BaseNode* CreateNodeEdit::placeInScene()
{
    BaseNode* node = m_modifier.doIt() ? BaseNode::masterNode() : nullptr;
    if (!node || !node->layerManager()) {
        messages::error("Failed to create drawing");
        m_modifier.undoIt();
        return nullptr;
    }
    lockTransform(MFnDagNode(node->thisMObject()).parent(0));
    MGlobal::clearSelectionList();
    return node;
}

void CreateNodeEdit::addFirstLayer(LayerManager& manager) const
{
    const QString camera = m_layer.camera.isEmpty() ? HostViews().activeCamera() : recordableName(m_layer.camera);
    const int index = manager.layerCount(camera) > 0 ? -1 : manager.insertLayer(camera, -1, m_layer.name);
    if (index < 0) {
        return;
    }
    if (m_layer.state >= 0) {
        manager.setLayerState(camera, index, m_layer.state);
    }
    if (m_layer.withFrames) {
        addMissing(*manager.layer(camera, index), script::highlightedSpan());
    }
}

void CreateNodeEdit::announce(const BaseNode& node) const
{
    script::refreshLayerManagerDeferred();
    TimelineMarks::refreshInstalled();
    nudgeSelection(node.thisMObject());
}
