#pragma once

#include "commands/ActiveLayers.h"
#include "commands/LayerEdit.h"
#include "model/Layer.h"

#include <memory>
#include <vector>

/// Puts a new layer on top of a camera's layers and makes it active. Redo puts the very same layer there.
class AddLayer : public DrawingChange {
public:
    AddLayer(const QString& camera, const QString& name, int state);
    int index() const { return m_index; }  ///< where the layer went, once it is there

protected:
    bool apply(LayerManager& manager) override;
    bool reapply(LayerManager& manager) override;
    bool revert(LayerManager& manager) override;

private:
    bool activate(LayerManager& manager);

    const QString m_camera;
    const QString m_name;
    const int m_state;
    int m_index = -1;
    quint64 m_layerId = 0;
    std::unique_ptr<Layer> m_layer;  // ours only while the edit is undone
    ActiveLayers m_before;
};

/// Takes one layer away; undo puts the very same layer back.
class DeleteLayer : public LayerEdit {
public:
    DeleteLayer(const QString& camera, int index);

protected:
    bool apply(LayerManager& manager) override;
    bool revert(LayerManager& manager) override;

private:
    int m_index = -1;                // where it was
    std::unique_ptr<Layer> m_taken;  // ours only while the edit is applied
    ActiveLayers m_before;
};

/// Takes all layers of a camera away; undo puts the very same ones back.
class DeleteAllLayers : public DrawingChange {
public:
    explicit DeleteAllLayers(const QString& camera);

protected:
    bool apply(LayerManager& manager) override;
    bool revert(LayerManager& manager) override;

private:
    const QString m_camera;
    std::vector<std::unique_ptr<Layer>> m_taken;  // ours only while the edit is applied
    ActiveLayers m_before;
};
