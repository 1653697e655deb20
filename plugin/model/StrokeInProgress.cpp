#include "model/StrokeInProgress.h"

#include "model/Canvas.h"
#include "model/DrawingPainter.h"
#include "model/ShapeRaster.h"
#include "model/StrokeRaster.h"

#include <algorithm>

StrokeInProgress::StrokeInProgress() : m_target() {}

void StrokeInProgress::begin(const Target& target, const InkedImage& canvas)
{
    m_record.reset(new ActiveStroke);
    m_target = target;
    m_canvas = canvas;
    m_selection = QImage();
    m_floatingBox = QRect();
    m_lastRasterised = 0;
    m_regionTaken = false;
    m_showsFrame = true;
    m_showedCanvas = false;
    m_touched = Touched();
}

void StrokeInProgress::end()
{
    m_record.reset();
    m_canvas = InkedImage();
    m_selection = QImage();
}

void StrokeInProgress::advance(const Picture& base)
{
    if (isFreehand(m_record->tool)) {
        if (m_record->drawAnew) {
            startAnew(base);
        }
        drawNewestPoints();
    } else if (isDrawnAnew()) {
        m_touched.columns.add(m_canvas.ink);
        renderShape(m_canvas.image, *m_record, true);
        m_canvas.ink = InkMap::of(m_canvas.image);
        m_touched.columns.add(m_canvas.ink);
    } else {
        advanceTransform(base);
    }
}

void StrokeInProgress::startAnew(const Picture& base)
{
    m_record->drawAnew = false;
    m_lastRasterised = 0;
    m_touched.area |= m_canvas.ink.box();
    if (m_record->tool == ToolType::Eraser) {
        m_canvas = {asCanvas(base.image()), base.ink()};
    } else {
        fillInvisible(m_canvas.image, m_record->colour);
        m_canvas.ink = InkMap();
    }
}

void StrokeInProgress::drawNewestPoints()
{
    const QRect touched = rasteriseStroke(m_canvas.image, m_record->points, m_lastRasterised, m_record->tool);
    m_lastRasterised = std::max(m_record->points.size() - 1, 0);
    m_touched.area |= touched;
    if (m_record->tool != ToolType::Eraser) {
        m_canvas.ink.add(touched);
    }
}

void StrokeInProgress::advanceTransform(const Picture& base)
{
    const bool shows = showsCanvas();
    if (shows && m_record->takeRegion) {
        takeRegion(base);
    }
    if (m_showsFrame || shows != m_showedCanvas) {
        m_touched.area = m_canvas.image.rect();  // the drawing makes way for the canvas, or for nothing
    }
    m_showsFrame = false;
    m_showedCanvas = shows;
    m_touched.area |= m_floatingBox;
    m_floatingBox = !shows || m_selection.isNull() ? QRect() : transformedBox(*m_record, m_selection.size());
    m_touched.area |= m_floatingBox;
}

// Once only: taken again, the region would be found empty where it was cleared.
void StrokeInProgress::takeRegion(const Picture& base)
{
    const QRect region = m_record->region;
    m_record->takeRegion = false;
    m_regionTaken = true;
    m_canvas = {ownCanvas(base.image()), base.ink()};
    m_selection = m_record->clearOnly ? QImage() : m_canvas.image.copy(region);
    if (m_record->keepCut) {
        m_cut = m_canvas.image.copy(region);
    }
    if (m_record->pasteAsIs) {
        m_selection = m_cut;
    } else if (m_record->clearOnly || !m_record->keepCut) {
        clearRect(m_canvas.image, region);
    }
}

StrokeInProgress::Touched StrokeInProgress::takeTouched()
{
    const Touched touched = m_touched;
    m_touched = Touched();
    return touched;
}

bool StrokeInProgress::showsBase() const
{
    return m_record->tool != ToolType::Eraser && m_record->tool != ToolType::Transform;
}

bool StrokeInProgress::isDrawnAnew() const
{
    return !isFreehand(m_record->tool) && m_record->tool != ToolType::Transform;
}

bool StrokeInProgress::showsCanvas() const
{
    return m_record->tool != ToolType::Transform || m_record->region.isValid();
}

void StrokeInProgress::paintFloating(QPainter& painter) const
{
    if (!m_selection.isNull()) {
        drawTransformed(painter, *m_record, m_selection);
    }
}

Picture StrokeInProgress::committed(const Picture& base)
{
    if (m_record->tool == ToolType::Eraser) {
        return Picture(m_canvas.image, m_canvas.ink);
    }
    if (m_record->tool == ToolType::Transform) {
        QImage result = m_regionTaken ? std::move(m_canvas.image) : ownCanvas(base.image());
        QPainter painter(&result);
        prepareDrawingPainter(painter);
        paintFloating(painter);
        painter.end();
        return Picture(result);
    }
    if (m_record->tool == ToolType::Text) {
        renderShape(m_canvas.image, *m_record, false);
        m_canvas.ink = InkMap::of(m_canvas.image);
    }
    InkedImage result = {ownCanvas(base.image()), base.ink()};
    layOver(result, {{m_canvas}});
    return Picture(result.image, result.ink);
}
