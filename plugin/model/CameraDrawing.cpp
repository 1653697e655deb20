#include "model/CameraDrawing.h"

#include <algorithm>

int CameraDrawing::activeIndex() const
{
    for (int i = 0; i < layerCount(); ++i) {
        if (layer(i)->isActive()) {
            return i;
        }
    }
    return -1;
}

int CameraDrawing::indexOf(quint64 layerId) const
{
    for (int i = 0; i < layerCount(); ++i) {
        if (layer(i)->id() == layerId) {
            return i;
        }
    }
    return -1;
}

bool CameraDrawing::isDirty() const
{
    return std::any_of(layers.begin(), layers.end(), [](const std::unique_ptr<Layer>& l) { return l->isDirty(); });
}

void CameraDrawing::setActive(int index)
{
    for (int i = 0; i < layerCount(); ++i) {
        layer(i)->setActive(i == index);
    }
}

int CameraDrawing::insert(int index, std::unique_ptr<Layer> layer)
{
    const int used = isValid(index) ? index : layerCount();
    layers.insert(layers.begin() + used, std::move(layer));
    return used;
}

std::unique_ptr<Layer> CameraDrawing::take(int index)
{
    const auto place = layers.begin() + index;
    std::unique_ptr<Layer> taken = std::move(*place);
    layers.erase(place);
    return taken;
}

void CameraDrawing::move(int from, int to)
{
    const auto first = layers.begin();
    if (from < to) {
        std::rotate(first + from, first + from + 1, first + to + 1);
    } else {
        std::rotate(first + to, first + from, first + from + 1);
    }
}
