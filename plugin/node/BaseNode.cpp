#include "node/BaseNode.h"

#include "model/BaseNodeLayerData.h"
#include "model/LayerManager.h"
#include "node/NodeRegistry.h"
#include "node/TimelineMarks.h"
#include "settings/Messages.h"
#include "settings/Names.h"
#include "settings/Text.h"

#include <maya/MFileIO.h>
#include <maya/MFn.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MFnNumericData.h>
#include <maya/MFnPluginData.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MPlug.h>

MObject BaseNode::s_layerData;
MObject BaseNode::s_opacity;

namespace {

/// The node is placed by the views alone: nothing of the locator can be moved or keyed.
const char* const kHiddenPlugs[] = {"localPositionX", "localPositionY", "localPositionZ",
                                    "localScaleX",    "localScaleY",    "localScaleZ"};

bool isLoadingFile()
{
    return MFileIO::isOpeningFile() || MFileIO::isImportingFile() || MFileIO::isReferencingFile();
}

}  // namespace

// Host overrides ------------------------------------------------------------------------------------------------------

void* BaseNode::creator()
{
    return new BaseNode;
}

MStatus BaseNode::initialize()
{
    MFnTypedAttribute layerData;
    s_layerData = layerData.create("layerData", "ld", MTypeId(names::kLayerDataTypeId));
    layerData.setReadable(true);
    layerData.setWritable(true);
    layerData.setStorable(true);
    layerData.setConnectable(false);
    layerData.setHidden(true);
    addAttribute(s_layerData);

    MFnNumericAttribute opacity;
    s_opacity = opacity.create("opacity", "op", MFnNumericData::kFloat, 1.0);
    opacity.setKeyable(true);
    opacity.setStorable(true);
    opacity.setReadable(true);
    opacity.setWritable(true);
    opacity.setHidden(false);
    opacity.setMin(0.0);
    opacity.setMax(1.0);
    addAttribute(s_opacity);
    return MStatus::kSuccess;
}

BaseNode::~BaseNode()
{
    NodeRegistry::remove(this);
}

void BaseNode::postConstructor()
{
    NodeRegistry::add(this);
    // What a file brings along reads its drawing, and whether it is the master one, from that file.
    if (!isLoadingFile()) {
        setUpDrawing();
    }
    const MFnDependencyNode self(thisMObject());
    for (const char* name : kHiddenPlugs) {
        MPlug plug = self.findPlug(name, false);
        if (!plug.isNull()) {
            plug.setKeyable(false);
            plug.setLocked(true);
            plug.setChannelBox(false);
        }
    }
    MPlug templated = self.findPlug("template", false);
    if (!templated.isNull()) {
        templated.setBool(true);  // keeps the drawing out of selection in the views
    }
}

void BaseNode::setUpDrawing()
{
    if (!initializeLayerManager()) {
        return;
    }
    if (const std::shared_ptr<LayerManager> manager = layerManager()) {
        manager->setMaster(masterNode() == nullptr);
    }
}

bool BaseNode::isBounded() const
{
    return false;
}

MBoundingBox BaseNode::boundingBox() const
{
    return MBoundingBox(MPoint(), MPoint());
}

bool BaseNode::isTransparent() const
{
    return true;
}

bool BaseNode::drawLast() const
{
    return true;
}

bool BaseNode::excludeAsLocator() const
{
    return false;
}

// Finding nodes -------------------------------------------------------------------------------------------------------

std::vector<BaseNode*> BaseNode::allNodes()
{
    return NodeRegistry::nodesInScene();
}

BaseNode* BaseNode::masterNode()
{
    std::vector<BaseNode*> masters;
    for (BaseNode* node : allNodes()) {
        if (node->isMaster()) {
            masters.push_back(node);
        }
    }
    return NodeRegistry::firstInHierarchy(masters);
}

BaseNode* BaseNode::fromObject(const MObject& object)
{
    if (object.isNull()) {
        return nullptr;
    }
    const MFnDependencyNode node(object);
    if (node.typeId() != MTypeId(names::kNodeTypeId)) {
        return nullptr;
    }
    return dynamic_cast<BaseNode*>(node.userNode());
}

BaseNode* BaseNode::fromHandle(const MObjectHandle& handle)
{
    return handle.isValid() ? fromObject(handle.object()) : nullptr;
}

BaseNode* BaseNode::fromLivingHandle(const MObjectHandle& handle)
{
    return handle.isAlive() ? fromObject(handle.objectRef()) : nullptr;
}

// The drawing ---------------------------------------------------------------------------------------------------------

std::shared_ptr<LayerManager> BaseNode::findLayerManager(const char** failure) const
{
    MPlug plug(thisMObject(), s_layerData);
    if (plug.isNull()) {
        *failure = "Failed to get layer data plug";
        return nullptr;
    }
    MStatus status;
    const MObject value = plug.asMObject(&status);
    if (!status || value.isNull()) {
        *failure = "Failed to get layer data plug as object";
        return nullptr;
    }
    MFnPluginData wrapper(value);
    const auto* data = dynamic_cast<const BaseNodeLayerData*>(wrapper.data());
    return data ? data->layerManager() : nullptr;
}

std::shared_ptr<LayerManager> BaseNode::layerManager() const
{
    const char* failure = nullptr;
    const std::shared_ptr<LayerManager> manager = findLayerManager(&failure);
    if (failure) {
        messages::error(failure);
    }
    return manager;
}

std::shared_ptr<LayerManager> BaseNode::layerManagerIfAny() const
{
    const char* unreported = nullptr;
    return findLayerManager(&unreported);
}

bool BaseNode::initializeLayerManager()
{
    MPlug plug(thisMObject(), s_layerData);
    bool stored = false;
    if (plug.isNull()) {
        messages::error("Failed to get layer data plug");
    } else {
        std::unique_ptr<BaseNodeLayerData> data(new BaseNodeLayerData);
        data->setLayerManager(std::make_shared<LayerManager>());
        stored = plug.setMPxData(data.get());
        if (stored) {
            data.release();  // the plug has adopted it
        } else {
            messages::error("Failed to set layer data");
        }
    }
    if (!stored) {
        messages::error("Failed to initialize layer manager");
    }
    return stored;
}

bool BaseNode::isMaster() const
{
    const std::shared_ptr<LayerManager> manager = layerManagerIfAny();
    return manager && manager->isMaster();
}

float BaseNode::opacity() const
{
    return MPlug(thisMObject(), s_opacity).asFloat();
}

const QImage* BaseNode::compositeImage(const QString& camera)
{
    const std::shared_ptr<LayerManager> manager = layerManagerIfAny();
    return manager ? manager->composite(drawnCamera(*manager, camera)) : nullptr;
}

quint64 BaseNode::compositeGeneration(const QString& camera) const
{
    const std::shared_ptr<LayerManager> manager = layerManagerIfAny();
    return manager ? manager->compositeGeneration(drawnCamera(*manager, camera)) : 0;
}

bool BaseNode::hasDrawingFor(const QString& camera) const
{
    const std::shared_ptr<LayerManager> manager = layerManagerIfAny();
    return manager && manager->layerCount(drawnCamera(*manager, camera)) > 0;
}

// The name under which the drawing knows a camera.
QString BaseNode::drawnCamera(const LayerManager& manager, const QString& camera) const
{
    return manager.layerCount(camera) > 0 ? camera : cameraInFile(camera);
}

// A camera that is referenced along with the drawing has a namespace in front here; the drawing was made without it.
QString BaseNode::cameraInFile(const QString& camera) const
{
    const MFnDependencyNode self(thisMObject());
    const QString name = toQString(self.name());
    const QString nameSpace = name.left(name.lastIndexOf(QLatin1Char(':')) + 1);
    const bool isFromSameFile = self.isFromReferencedFile() && camera.startsWith(nameSpace);
    return isFromSameFile ? camera.mid(nameSpace.size()) : QString();
}

void BaseNode::changeTime(int frameNumber)
{
    TimelineMarks* marks = TimelineMarks::installed();
    const bool marksChanged = marks && marks->update();
    if (marksChanged) {
        marks->refresh();
    }
    setCurrentFrame(frameNumber, marksChanged);
}

void BaseNode::setCurrentFrame(int frameNumber, bool overlayChanged)
{
    m_frameNumber = frameNumber;
    if (const std::shared_ptr<LayerManager> manager = layerManagerIfAny()) {
        manager->updateCurrentFrames(frameNumber, overlayChanged);
    }
}
