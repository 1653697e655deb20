#include "model/StrokeInProgress.h"

#include "model/Canvas.h"
#include "model/DrawingPainter.h"
#include "model/ShapeRaster.h"
#include "model/StrokeRaster.h"

#include <algorithm>

StrokeInProgress::StrokeInProgress() : m_target() {}

void StrokeInProgress::begin(const Target& target, const QImage& canvas)
{
    m_record.reset(new ActiveStroke);
    m_target = target;
    m_canvas = canvas;
    m_selection = QImage();
    m_lastRasterised = 0;
    m_regionTaken = false;
    m_touched = QRect();
}

void StrokeInProgress::end()
{
    m_record.reset();
    m_canvas = QImage();
    m_selection = QImage();
}

void StrokeInProgress::advance(const QImage& base)
{
    if (isFreehand(m_record->tool)) {
        m_touched |= rasteriseStroke(m_canvas, m_record->points, m_lastRasterised, m_record->tool);
        m_lastRasterised = std::max(m_record->points.size() - 1, 0);
    } else if (m_record->tool != ToolType::Transform) {
        renderShape(m_canvas, *m_record, true);
    } else if (m_record->takeRegion && m_record->region.isValid()) {
        takeRegion(base);
    }
}

// Once only: taken again, the region would be found empty where it was cleared.
void StrokeInProgress::takeRegion(const QImage& base)
{
    const QRect region = m_record->region;
    m_record->takeRegion = false;
    m_regionTaken = true;
    m_canvas = asCanvas(base);
    m_selection = m_record->clearOnly ? QImage() : m_canvas.copy(region);
    if (m_record->keepCut) {
        m_cut = m_canvas.copy(region);
    }
    if (m_record->pasteAsIs) {
        m_selection = m_cut;
    } else if (m_record->clearOnly || !m_record->keepCut) {
        clearRect(m_canvas, region);
    }
}

QRect StrokeInProgress::takeTouched()
{
    const QRect touched = isFreehand(m_record->tool) ? m_touched : m_canvas.rect();
    m_touched = QRect();
    return touched;
}

void StrokeInProgress::paint(QPainter& painter, const QImage& base, const QRect& area) const
{
    if (m_record->tool == ToolType::Transform) {
        if (!m_record->region.isValid()) {
            return;
        }
        drawPart(painter, m_canvas, area);
        if (!m_selection.isNull()) {
            drawTransformed(painter, *m_record, m_selection);
        }
        return;
    }
    if (m_record->tool != ToolType::Eraser) {
        drawPart(painter, base, area);
    }
    drawPart(painter, m_canvas, area);
}

QImage StrokeInProgress::committed(const QImage& base)
{
    if (m_record->tool == ToolType::Eraser) {
        return m_canvas;
    }
    const bool transforming = m_record->tool == ToolType::Transform;
    if (transforming && !m_regionTaken) {
        return asCanvas(base);
    }
    if (m_record->tool == ToolType::Text) {
        renderShape(m_canvas, *m_record, false);
    }
    QImage result = transforming ? m_canvas : asCanvas(base);
    QPainter painter(&result);
    prepareDrawingPainter(painter);
    if (!transforming) {
        painter.drawImage(0, 0, m_canvas);
    } else if (!m_selection.isNull()) {
        drawTransformed(painter, *m_record, m_selection);
    }
    return result;
}
