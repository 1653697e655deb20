#include "contexts/FloatingRegion.h"

#include "model/FrameNumber.h"
#include "node/BaseNode.h"
#include "node/HostViews.h"
#include "node/MasterDrawing.h"

#include <maya/M3dView.h>
#include <maya/MAnimControl.h>

bool FloatingRegion::open()
{
    close();
    MStatus status;
    M3dView view = M3dView::active3dView(&status);
    BaseNode* const master = status ? BaseNode::masterNode() : nullptr;
    if (!master || !master->layerManager() || !master->prepareToolView(view)) {
        return false;
    }
    m_node = master->thisMObject();
    m_camerasBefore = master->layerManager()->currentCameras();
    m_leavesTrace = false;
    m_camera = HostViews().activeCamera();
    return isOpen();
}

// Of a node that has been deleted too: what floats must not come back with it.
void FloatingRegion::close()
{
    if (BaseNode* const living = BaseNode::fromLivingHandle(m_node)) {
        takeBack(*living);
        living->setRegionOutline({});
        living->scheduleRedraw();
    }
    m_node = MObject();
    m_camera.clear();
    m_layerCreated = false;
    m_frameCreated = false;
}

void FloatingRegion::letGo()
{
    const std::shared_ptr<LayerManager> drawing = manager();
    if (recordIn(drawing.get())) {
        drawing->dropStroke();
    }
    m_leavesTrace = true;
}

BaseNode* FloatingRegion::node() const
{
    return BaseNode::fromHandle(m_node);
}

std::shared_ptr<LayerManager> FloatingRegion::manager() const
{
    const BaseNode* owner = node();
    return owner ? owner->layerManager() : nullptr;
}

bool FloatingRegion::aimAtSelection()
{
    const std::shared_ptr<LayerManager> drawing = manager();
    if (!drawing || !node()->canEditActiveLayer(m_camera)) {
        return false;
    }
    aimAtActiveLayer(*drawing);
    return true;
}

bool FloatingRegion::aimAtPasteTarget()
{
    const std::shared_ptr<LayerManager> drawing = manager();
    int createdLayer = -1;
    if (!drawing || !node()->drawingTarget(m_camera, createdLayer, m_frameCreated)) {
        return false;
    }
    m_layerCreated = createdLayer >= 0;
    aimAtActiveLayer(*drawing);
    return true;
}

void FloatingRegion::aimAtActiveLayer(LayerManager& manager)
{
    m_begun = MAnimControl::currentTime();
    if (manager.currentCamera() != m_camera) {
        manager.setActiveLayer(m_camera, manager.activeLayerIndex(m_camera), true);
    }
}

bool FloatingRegion::take(const QRect& region, const Taking& taking)
{
    LayerManager& drawing = *manager();
    drawing.dropStroke();  // of a tool that is no longer in use
    ActiveStroke* const stroke = drawing.beginStroke(m_camera, true);
    if (!stroke || drawing.strokeFrame(m_camera).layerId == 0) {
        drawing.dropStroke();
        return false;
    }
    stroke->tool = ToolType::Transform;
    stroke->region = region;
    stroke->takeRegion = true;
    stroke->clearOnly = taking.clear;
    stroke->keepCut = taking.keep;
    stroke->pasteAsIs = taking.paste;
    stroke->layerMade = m_layerCreated;
    stroke->frameMade = m_frameCreated;
    stroke->changed = true;
    drawing.advanceStroke(m_camera);
    stroke->pasteAsIs = false;  // from here on what is pasted is turned and scaled like any region
    if (taking.keep) {
        m_clipboard = region;
    }
    return true;
}

ActiveStroke* FloatingRegion::record() const
{
    return recordIn(manager().get());
}

ActiveStroke* FloatingRegion::recordIn(const LayerManager* manager) const
{
    ActiveStroke* const stroke = manager ? manager->stroke(m_camera) : nullptr;
    return stroke && stroke->tool == ToolType::Transform ? stroke : nullptr;
}

bool FloatingRegion::isInActiveView() const
{
    return HostViews().activeCamera() == m_camera;
}

bool FloatingRegion::isWhereItBegan() const
{
    return isInActiveView() && currentFrameNumber() == frameNumberOf(m_begun);
}

void FloatingRegion::commit()
{
    m_leavesTrace = node()->commitStroke(m_camera);
}

void FloatingRegion::takeBack(BaseNode& node)
{
    const std::shared_ptr<LayerManager> drawing = node.layerManagerIfAny();
    if (!drawing || m_leavesTrace) {
        return;
    }
    if (recordIn(drawing.get())) {
        takeBackStroke(node, *drawing);
    }
    if (drawing->currentCamera() == m_camera && m_camerasBefore.current != m_camera) {
        drawing->restoreCurrentCameras(m_camerasBefore);
        publishMasterDrawing();
    }
}

void FloatingRegion::takeBackStroke(BaseNode& node, LayerManager& drawing)
{
    const int layerIndex = drawing.strokeLayerIndex(m_camera);  // where it is by now
    node.withdrawMadeStroke();
    drawing.dropStroke();  // of what was no paste, or one that needed nothing made
    if (!m_layerCreated && layerIndex >= 0 && drawing.activeLayerIndex(m_camera) != layerIndex) {
        drawing.setActiveLayer(m_camera, layerIndex, false);
    }
    publishMasterDrawing();
}

bool FloatingRegion::hasClipboard() const
{
    const std::shared_ptr<LayerManager> drawing = m_clipboard.isValid() ? masterDrawing() : nullptr;
    return drawing && drawing->holdsCut();
}
