#pragma once

#include "commands/ActiveLayers.h"
#include "commands/LayerEdit.h"

/// Makes a layer the active one of its camera, and that camera current. Fails when it is so already: no empty step is
/// to reach the undo queue.
class ActivateLayer : public LayerEdit {
public:
    ActivateLayer(const QString& camera, int index);

protected:
    bool aim(const LayerManager& manager) override;
    bool apply(LayerManager& manager) override;
    bool revert(LayerManager& manager) override;

private:
    const int m_index;
    ActiveLayers m_before;
};
