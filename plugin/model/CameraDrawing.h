#pragma once

#include "model/Ghosts.h"
#include "model/Layer.h"
#include "model/PaintedBelow.h"

#include <memory>
#include <vector>

/// One camera's layers, bottom first, with the picture composed of them.
struct CameraDrawing {
    int layerCount() const { return static_cast<int>(layers.size()); }
    bool isValid(int index) const { return index >= 0 && index < layerCount(); }
    Layer* layer(int index) const { return isValid(index) ? layers[static_cast<size_t>(index)].get() : nullptr; }
    int activeIndex() const;             ///< the first layer marked active; -1 when none
    int indexOf(quint64 layerId) const;  ///< -1 when the layer is not here
    bool isDirty() const;                ///< some layer is

    void setActive(int index);                            ///< outside the list no layer is active afterwards
    int insert(int index, std::unique_ptr<Layer> layer);  ///< outside the list it appends; gives the index used
    std::unique_ptr<Layer> take(int index);               ///< index is valid
    void move(int from, int to);                          ///< both are valid

    std::vector<std::unique_ptr<Layer>> layers;
    InkedImage picture = blankSheet();
    GhostImages ghosts;
    PaintedBelow below;
    bool redraw = true;      ///< compose anew although no layer is dirty
    quint64 generation = 0;  ///< of the picture: another whenever it was made anew, unique in the process
};
