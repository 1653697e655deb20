#pragma once

#include "commands/ActiveLayers.h"
#include "commands/DrawingChange.h"

#include <QString>

/// Makes a layer the active one of its camera, and that camera current. Fails when it is so already: no empty step is
/// to reach the undo queue.
class ActivateLayer : public DrawingChange {
public:
    ActivateLayer(const QString& camera, int index);

protected:
    bool prepare(LayerManager& manager) override;
    bool apply(LayerManager& manager) override;
    bool revert(LayerManager& manager) override;

private:
    const QString m_camera;
    const int m_index;
    ActiveLayers m_before;
};
