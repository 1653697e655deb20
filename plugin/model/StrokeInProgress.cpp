#include "model/StrokeInProgress.h"

#include "model/Canvas.h"
#include "model/ShapeRaster.h"
#include "model/StrokeRaster.h"

#include <algorithm>

namespace {

// Mixed with nothing, the faintest colours are rounded.
void copyWhereAlone(QImage& canvas, const QImage& beneath, const InkedImage& sheet)
{
    const RowSpan rows = sheet.ink.rows();
    for (int y = rows.first; y < rows.end; ++y) {
        auto* const pixels = reinterpret_cast<QRgb*>(canvas.scanLine(y));
        const auto* const under = reinterpret_cast<const QRgb*>(beneath.constScanLine(y));
        const auto* const over = reinterpret_cast<const QRgb*>(sheet.image.constScanLine(y));
        forInkSpans(sheet.ink.row(y), [&](int left, int end) {
            for (int x = left; x < end; ++x) {
                pixels[x] = qAlpha(under[x]) == 0 && qAlpha(over[x]) != 0 ? over[x] : pixels[x];
            }
        });
    }
}

}  // namespace

StrokeInProgress::StrokeInProgress() : m_target() {}

void StrokeInProgress::begin(const Target& target, const InkedImage& canvas)
{
    m_record.reset(new ActiveStroke);
    m_target = target;
    m_canvas = canvas;
    m_floating.drop();
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
    m_emptied = InkedImage();
    m_floating.drop();
}

void StrokeInProgress::advance(const Picture& base)
{
    if (isFreehand(m_record->tool)) {
        if (m_record->drawAnew) {
            startAnew(base);
        }
        drawNewestPoints();
    } else if (m_record->tool != ToolType::Transform) {
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
    if (m_showsFrame && m_regionTaken) {
        m_touched.columns.add(m_record->region);  // but for that the canvas is the drawing
    } else if (m_showsFrame || shows != m_showedCanvas) {
        m_touched.columns.add(base.ink());
        m_touched.columns.add(m_canvas.ink);
    }
    m_showsFrame = false;
    m_showedCanvas = shows;
    if (shows && m_regionTaken) {
        layFloating();
    }
}

// Once only: taken again, the region would be found empty where it was cleared.
void StrokeInProgress::takeRegion(const Picture& base)
{
    const InkedImage whole = {asCanvas(base.image()), base.ink()};
    const Cutting region = Cutting::of(whole, m_record->region);
    m_record->takeRegion = false;
    m_regionTaken = true;
    m_emptied = whole;
    if (m_record->keepCut) {
        m_cut = region;
    }
    if (!m_record->pasteAsIs && (m_record->clearOnly || !m_record->keepCut)) {
        m_emptied.image = ownCanvas(whole.image);
        clearRect(m_emptied.image, m_record->region);
        m_emptied.ink = InkMap::of(m_emptied.image);
    }
    m_canvas = {ownCanvas(m_emptied.image), m_emptied.ink};
    m_floating.take(m_record->pasteAsIs ? m_cut : m_record->clearOnly ? Cutting() : region);
}

// What floats leaves the place where it was, and is laid over the canvas where it is now.
void StrokeInProgress::layFloating()
{
    const InkMap old = m_floating.ink();
    copyColumns(m_canvas.image, m_emptied.image, old);
    const InkedImage& sheet = m_floating.sheet(*m_record);
    m_canvas.ink = m_emptied.ink;
    layOver(m_canvas, {{sheet}});
    copyWhereAlone(m_canvas.image, m_emptied.image, sheet);
    m_touched.columns.add(old);
    m_touched.columns.add(sheet.ink);
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
    return !isFreehand(m_record->tool);
}

bool StrokeInProgress::showsCanvas() const
{
    return m_record->tool != ToolType::Transform || m_record->region.isValid();
}

Picture StrokeInProgress::committed(const Picture& base)
{
    if (m_record->tool == ToolType::Eraser) {
        return Picture(m_canvas.image, m_canvas.ink);
    }
    if (m_record->tool == ToolType::Transform) {
        return Picture(m_regionTaken ? m_canvas.image : asCanvas(base.image()));
    }
    if (m_record->tool == ToolType::Text) {
        renderShape(m_canvas.image, *m_record, false);
        m_canvas.ink = InkMap::of(m_canvas.image);
    }
    InkedImage result = {ownCanvas(base.image()), base.ink()};
    layOver(result, {{m_canvas}});
    return Picture(result.image, result.ink);
}
