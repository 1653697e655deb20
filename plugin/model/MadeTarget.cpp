#include "model/MadeTarget.h"

#include "model/FrameNumber.h"

#include <new>
#include <utility>

MadeTarget::MadeTarget(LayerManager& manager) : m_manager(manager)
{
    for (const QString& camera : manager.cameras()) {
        const ActiveStroke* stroke = manager.stroke(camera);
        if (stroke && (stroke->layerMade || stroke->frameMade)) {
            m_address = manager.strokeFrame(camera);
            m_layerIndex = manager.strokeLayerIndex(camera);  // where it is by now
            takeOut(*stroke);
            return;
        }
    }
}

// Short of memory, what was made is lost, and nothing else.
MadeTarget::~MadeTarget()
{
    try {
        putBack();
    } catch (const std::bad_alloc&) {
    }
}

void MadeTarget::takeOut(const ActiveStroke& stroke)
{
    Layer* layer = m_manager.layer(m_address.camera, m_layerIndex);
    if (!layer) {
        return;
    }
    m_cameras = m_manager.currentCameras();
    m_activeIndex = m_manager.activeLayerIndex(m_address.camera);
    if (stroke.layerMade) {
        m_layer = m_manager.takeLayer(m_address.camera, m_layerIndex);
    } else if (m_address.layerId != 0) {
        m_frames = layer->takeFramesAt({m_address.time});
    }
}

void MadeTarget::putBack()
{
    if (m_layer) {
        putLayerBack();
    } else if (!m_frames.empty()) {
        putFrameBack();
    }
}

void MadeTarget::putLayerBack()
{
    m_manager.insertLayer(m_address.camera, m_layerIndex, std::move(m_layer));
    m_manager.setActiveLayer(m_address.camera, m_activeIndex, false);
    m_manager.restoreCurrentCameras(m_cameras);
}

void MadeTarget::putFrameBack()
{
    Frames frames;
    frames.swap(m_frames);
    if (Layer* layer = m_manager.layer(m_address.camera, m_layerIndex)) {
        layer->restoreFrames(std::move(frames));
        layer->updateCurrentFrame(frameNumberOf(m_address.time));  // the one drawn on stays shown
    }
}

bool MadeTarget::drop()
{
    const bool wasHeld = m_layer || !m_frames.empty();
    m_layer.reset();
    m_frames.clear();
    if (!m_address.camera.isEmpty()) {
        m_manager.dropStroke();
    }
    return wasHeld;
}
