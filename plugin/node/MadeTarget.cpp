#include "node/MadeTarget.h"

#include "model/FrameNumber.h"
#include "node/TimelineMarks.h"

MadeTarget::MadeTarget(LayerManager& manager) : m_manager(manager)
{
    for (const QString& camera : manager.cameras()) {
        const ActiveStroke* stroke = manager.stroke(camera);
        if (stroke && (stroke->layerMade || stroke->frameMade)) {
            m_address = manager.strokeFrame(camera);  // where the layer is by now
            takeOut(*stroke);
            return;
        }
    }
}

void MadeTarget::takeOut(const ActiveStroke& stroke)
{
    Layer* layer = m_manager.layer(m_address.camera, m_address.layerIndex);
    if (!layer) {
        return;
    }
    m_cameras = m_manager.currentCameras();
    m_activeIndex = m_manager.activeLayerIndex(m_address.camera);
    if (stroke.layerMade) {
        m_layer = m_manager.takeLayer(m_address.camera, m_address.layerIndex);
    } else {
        m_frame = layer->takeFrame(timeOfFrame(m_address.frameNumber));
        layer->updateCurrentFrame(currentFrameNumber());
    }
    TimelineMarks::refreshInstalled();
}

void MadeTarget::putBack()
{
    if (m_layer) {
        m_manager.insertLayer(m_address.camera, m_address.layerIndex, std::move(m_layer));
        m_manager.setActiveLayer(m_address.camera, m_activeIndex, false);
        m_manager.restoreCurrentCameras(m_cameras);
    } else if (m_frame) {
        Layer* layer = m_manager.layer(m_address.camera, m_address.layerIndex);
        layer->restoreFrame(std::move(m_frame));
        layer->updateCurrentFrame(m_address.frameNumber);  // the one drawn on stays shown
    } else {
        return;
    }
    TimelineMarks::refreshInstalled();
}

void MadeTarget::drop()
{
    if (!m_address.camera.isEmpty()) {
        m_manager.dropStroke();
    }
}
