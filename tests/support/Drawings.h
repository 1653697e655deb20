#pragma once

#include "model/Canvas.h"
#include "model/LayerManager.h"
#include "support/Pixels.h"

#include <initializer_list>
#include <memory>

/// Drawings to test on, in few words.
namespace drawings {

/// A layer with a differently marked picture keyed at each of the numbers.
inline std::unique_ptr<Layer> layer(const QString& name, std::initializer_list<int> frameNumbers)
{
    auto made = std::make_unique<Layer>();
    made->setName(name);
    for (const int number : frameNumbers) {
        auto frame = std::make_unique<Frame>(MTime(number, MTime::uiUnit()));
        frame->setImage(pixels::marked(number));
        made->insertFrame(std::move(frame));
    }
    return made;
}

/// A canvas as a stroke in red 200, green 100, blue 50 starts from.
inline QImage unseenInk()
{
    QImage canvas(kCanvasSize, kCanvasSize, QImage::Format_RGBA8888);
    fillInvisible(canvas, QColor(200, 100, 50));
    return canvas;
}

inline StrokePoint point(int x, int y, int width = 10, float opacity = 1.0f)
{
    return {width, opacity, 1.0f, QPoint(x, y)};
}

inline QVector<StrokePoint> line(QPoint from, QPoint to, int width = 10, float opacity = 1.0f)
{
    return {point(from.x(), from.y(), width, opacity), point(to.x(), to.y(), width, opacity)};
}

}  // namespace drawings
