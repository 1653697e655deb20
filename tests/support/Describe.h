#pragma once

#include "model/LayerManager.h"
#include "model/PngCodec.h"
#include "support/Pixels.h"

#include <functional>

/// The pixels of a frame as they would be saved.
inline QString savedHash(const Frame& frame)
{
    return pixels::hash(decodePng(frame.png()));
}

/// Everything of a drawing that can be told, as text: two drawings are equal when their descriptions are.
///     persp* > Ink* 1.00 0 shown 1: 3 a1b2c3d4, 7 none
/// The camera's star marks the current one, the layer's the active one, "-" a hidden one; then opacity and state, the
/// frame shown, and every key with what `told` tells of it.
inline QString describe(const LayerManager& drawing, const std::function<QString(const Frame&)>& told = savedHash)
{
    QStringList lines;
    for (const QString& camera : drawing.cameras()) {
        for (int i = 0; i < drawing.layerCount(camera); ++i) {
            const Layer& layer = *drawing.layer(camera, i);
            QStringList keys;
            for (int f = 0; f < layer.frameCount(); ++f) {
                const Frame& frame = *layer.frameAt(f);
                keys << QStringLiteral("%1 %2").arg(frame.frameNumber()).arg(told(frame));
            }
            const QString shown =
                layer.currentFrame() ? QString::number(layer.currentFrame()->frameNumber()) : QStringLiteral("none");
            lines << QStringLiteral("%1%2 > %3%4%5 %6 %7 shown %8: %9")
                         .arg(camera, camera == drawing.currentCamera() ? "*" : "", layer.name(),
                              layer.isActive() ? "*" : "", layer.isVisible() ? "" : "-",
                              QString::number(static_cast<double>(layer.opacity()), 'f', 2),
                              QString::number(layer.state()), shown, keys.join(", "));
        }
    }
    return lines.join("\n");
}
