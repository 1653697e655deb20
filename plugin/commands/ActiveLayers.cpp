#include "commands/ActiveLayers.h"

void ActiveLayers::remember(const LayerManager& manager, const QStringList& cameras)
{
    m_layers.clear();
    for (const QString& camera : cameras) {
        m_layers.push_back({camera, manager.layerId(camera, manager.activeLayerIndex(camera))});
    }
    m_before = manager.currentCameras();
}

void ActiveLayers::noteChange(const LayerManager& manager)
{
    m_after = manager.currentCamera();
}

void ActiveLayers::restore(LayerManager& manager, const CurrentCameras& now) const
{
    restoreLayers(manager);
    manager.restoreCurrentCameras(hasChangedCamera() && now.current == m_after ? m_before : now);
}

void ActiveLayers::restoreWherever(LayerManager& manager, const CurrentCameras& now) const
{
    restoreLayers(manager);
    manager.restoreCurrentCameras(hasChangedCamera() ? m_before : now);
}

void ActiveLayers::restoreLayers(LayerManager& manager) const
{
    for (const ActiveLayer& layer : m_layers) {
        const int index = manager.layerIndex(layer.camera, layer.id);
        if (index >= 0) {
            manager.setActiveLayer(layer.camera, index, false);
        }
    }
}
