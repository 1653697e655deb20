#pragma once

#include <memory>

class LayerManager;

/// The drawing of the scene's primary node, which commands and tools work on; empty when there is no such node.
std::shared_ptr<LayerManager> masterDrawing();

/// Has the layer list show that drawing, or that there is none.
void publishMasterDrawing();
