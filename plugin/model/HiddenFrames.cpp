#include "model/HiddenFrames.h"

#include "settings/Messages.h"

#include <set>

namespace hiddenFrames {

namespace {

// "Ink (2)" for each layer that has some.
QStringList layersConcerned(const LayerManager& drawing)
{
    QStringList layers;
    for (const QString& camera : drawing.cameras()) {
        for (int i = 0; i < drawing.layerCount(camera); ++i) {
            const Layer& layer = *drawing.layer(camera, i);
            if (const int count = layer.hiddenFrameCount()) {
                layers << QString("%1 (%2)").arg(layer.name(), QString::number(count));
            }
        }
    }
    return layers;
}

void warn(const char* what, const QStringList& layers)
{
    if (!layers.isEmpty()) {
        messages::warning(QLatin1String(what) + layers.join(QString(", ")));
    }
}

}  // namespace

void warnOfTimeUnit(const std::vector<std::shared_ptr<const LayerManager>>& drawings)
{
    QStringList layers;
    std::set<std::shared_ptr<const LayerManager>> seen;
    for (const auto& drawing : drawings) {
        if (drawing && seen.insert(drawing).second) {
            layers << layersConcerned(*drawing);
        }
    }
    warn("In this time unit some frames are hidden behind an earlier one of the same number: ", layers);
}

void warnOfBinarySave(const LayerManager& drawing)
{
    warn("A binary scene does not keep frames hidden behind an earlier one of the same number: ",
         layersConcerned(drawing));
}

}  // namespace hiddenFrames
