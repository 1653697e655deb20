#pragma once

#include "model/LayerManager.h"

namespace sheet {

/// The corner of every picture on its canvas: far enough from the border that nothing is cut off.
constexpr QPoint kCorner(120, 120);

/// What a freehand tool is set to. The pressure goes evenly from one opacity to the other.
struct Ink {
    ToolType tool;
    int width;
    float opacity;
    QColor colour;
    float opacityAtEnd = -1;  ///< the same as at the beginning when negative
};

/// One camera's drawing, drawn on as the tools do it: point by point, shown after each. It starts without layers.
class Sketch {
public:
    /// A layer on top of the others, with blank frames at the numbers; it is drawn on from now on.
    void addLayer(const QString& name, const QList<int>& frameNumbers);
    void goTo(int frameNumber);

    void stroke(const Ink& ink, const QVector<QPoint>& path);
    void click(const Ink& ink, const QPoint& position);  ///< a press and release without a move
    void shape(const Ink& ink, const QPoint& from, const QPoint& to);

    // These stay open, and are shown as they are while they are edited, until they are committed.
    ActiveStroke& begin(const Ink& ink);
    void beginText(const Ink& ink, const QPoint& position, const QString& text);
    ActiveStroke& beginTransform(const QRect& region);
    void commit();

    QImage shown(const QSize& size);  ///< the composite as it is now, from kCorner on

private:
    void append(ActiveStroke& record, const StrokePoint& point);

    LayerManager m_drawing;
};

}  // namespace sheet
