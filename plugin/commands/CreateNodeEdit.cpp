#include "commands/CreateNodeEdit.h"

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

#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MPlug.h>

namespace {

const char* const kLockedPlugs[] = {"translateX", "translateY", "translateZ", "rotateX", "rotateY",
                                    "rotateZ",    "scaleX",     "scaleY",     "scaleZ"};

}  // namespace

CreateNodeEdit::CreateNodeEdit(const FirstLayerRequest& layer) : m_layer(layer) {}

MStatus CreateNodeEdit::execute()
{
    if (BaseNode::masterNode()) {
        messages::error("Node already exists");
        return MStatus::kFailure;
    }
    MGlobal::getActiveSelectionList(m_previousSelection);
    MStatus status = recordCreation();
    if (status) {
        status = placeInScene();
    }
    BaseNode* node = status && m_layer.wanted ? BaseNode::fromObject(m_shape) : nullptr;
    if (node) {
        addFirstLayer(*node);
        announce(*node);
    }
    return status;
}

MStatus CreateNodeEdit::redo()
{
    if (BaseNode::masterNode()) {
        messages::error("Node already exists");
        return MStatus::kFailure;
    }
    const MStatus status = placeInScene();
    BaseNode* node = status ? BaseNode::fromObject(m_shape) : nullptr;
    const std::shared_ptr<LayerManager> manager = node ? node->layerManager() : nullptr;
    if (manager) {
        manager->clear(true);  // the modifier brings the very same node back, with what was in it
    }
    if (node && m_layer.wanted) {
        announce(*node);
    }
    return status;
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

MStatus CreateNodeEdit::recordCreation()
{
    MStatus status;
    m_transform = m_modifier.createNode("transform", MObject::kNullObj, &status);
    if (!status || m_transform.isNull()) {
        messages::error("Failed to create transform");
        return MStatus::kFailure;
    }
    m_modifier.renameNode(m_transform, names::kTransformNode);
    m_shape = m_modifier.createNode(MTypeId(names::kNodeTypeId), m_transform, &status);
    if (!status || m_shape.isNull()) {
        messages::error("Failed to create shape");
        return MStatus::kFailure;
    }
    m_modifier.renameNode(m_shape, names::kShapeNode);
    return MStatus::kSuccess;
}

MStatus CreateNodeEdit::placeInScene()
{
    const MStatus status = m_modifier.doIt();
    if (!status) {
        return status;
    }
    lockTransform();
    MGlobal::clearSelectionList();
    return status;
}

void CreateNodeEdit::lockTransform() const
{
    const MFnDependencyNode transform(m_transform);
    for (const char* name : kLockedPlugs) {
        MPlug plug = transform.findPlug(name, false);
        if (!plug.isNull()) {
            plug.setKeyable(false);
            plug.setLocked(true);
            plug.setChannelBox(false);
        }
    }
}

void CreateNodeEdit::addFirstLayer(BaseNode& node) const
{
    const std::shared_ptr<LayerManager> manager = node.layerManager();
    const QString camera = m_layer.camera.isEmpty() ? HostViews().activeCamera() : recordableName(m_layer.camera);
    if (!manager || manager->layerCount(camera) > 0) {
        return;
    }
    const int index = manager->insertLayer(camera, -1, m_layer.name);
    if (index < 0) {
        return;
    }
    if (m_layer.state >= 0) {
        manager->setLayerState(camera, index, m_layer.state);
    }
    if (m_layer.withFrames) {
        const FrameSpan span = script::highlightedSpan();
        for (int frameNumber = span.first; frameNumber < span.end; ++frameNumber) {
            manager->addFrame(camera, timeOfFrame(frameNumber));
        }
    }
}

void CreateNodeEdit::announce(BaseNode& node) const
{
    TimelineMarks::refreshInstalled();
    nudgeSelection(node.thisMObject());
}
