// What is shown of a camera's drawing.

#include "model/LayerManager.h"

#include "model/Canvas.h"
#include "model/DrawingPainter.h"
#include "settings/Preferences.h"

#include <maya/MAnimControl.h>

void LayerManager::markForRedraw(const QString& camera)
{
    if (CameraDrawing* found = drawing(camera)) {
        found->redraw = true;
    }
}

bool LayerManager::needsRedraw(const QString& camera) const
{
    const CameraDrawing* found = drawing(camera);
    const ActiveStroke* record = stroke(camera);
    return found && (found->redraw || found->isDirty() || (record && record->changed));
}

const QImage* LayerManager::composite(const QString& camera)
{
    CameraDrawing* found = drawing(camera);
    if (!found || !needsRedraw(camera)) {
        return found ? &found->image : nullptr;
    }
    if (found->image.isNull()) {
        found->image = blankCanvas();
    }
    advanceStroke(camera);
    const QRect area = changedArea(camera, *found);
    if (!area.isEmpty()) {
        clearRect(found->image, area);
        QPainter painter(&found->image);
        prepareDrawingPainter(painter);
        paintGhosts(painter, camera, *found, area);
        paintLayers(painter, camera, *found, area);
    }
    if (ActiveStroke* record = stroke(camera)) {
        record->changed = false;
    }
    found->redraw = false;
    return &found->image;
}

// While a stroke is drawn and nothing else changes, only what its newest segments touched; otherwise everything.
QRect LayerManager::changedArea(const QString& camera, const CameraDrawing& drawing)
{
    const ActiveStroke* record = stroke(camera);
    const QRect touched = record ? m_stroke.takeTouched() : QRect();
    const bool onlyTheStroke = record && !record->points.isEmpty() && !drawing.redraw && !drawing.isDirty()
                            && MAnimControl::isPlaying() == m_wasPlaying;
    return onlyTheStroke ? paintableArea(touched) : drawing.image.rect();
}

void LayerManager::paintGhosts(QPainter& painter, const QString& camera, CameraDrawing& drawing, const QRect& area)
{
    m_wasPlaying = MAnimControl::isPlaying();
    const bool silenced = m_wasPlaying && Preferences::instance().disableGhostingDuringPlayback();
    Layer* active = drawing.layer(drawing.activeIndex());
    if (!active || silenced) {
        return;
    }
    const GhostOptions options = ghostOptions();
    const ActiveStroke* record = stroke(camera);
    const bool drawingNow = record && !record->points.isEmpty();
    if (!drawingNow) {
        drawing.ghosts.rebuild(*active, options);
    }
    if (options.previous || options.next) {
        drawPart(painter, drawing.ghosts.image(), area);
    }
}

void LayerManager::paintLayers(QPainter& painter, const QString& camera, const CameraDrawing& drawing,
                               const QRect& area)
{
    const Layer* drawnOn = stroke(camera) ? strokeLayer() : nullptr;
    Frame* base = drawnOn ? strokeTargetFrame() : nullptr;
    const bool targetIsThere = base || !m_stroke.target().hasFrame;
    for (const auto& layer : drawing.layers) {
        const QImage& image = layer->imageAtOffset(0);
        if (layer.get() != drawnOn || !targetIsThere) {
            drawPart(painter, image, area);
        } else if (layer->isVisible()) {
            m_stroke.paint(painter, base ? base->image() : QImage(), area);
        }
    }
}
