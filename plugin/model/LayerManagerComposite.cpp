// What is shown of a camera's drawing.

#include "model/LayerManager.h"

#include "model/ShapeRaster.h"
#include "settings/Preferences.h"

#include <maya/MAnimControl.h>

#include <QPainter>

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
    advanceStroke(camera);
    found->image.fill(Qt::transparent);
    QPainter painter(&found->image);
    prepareDrawingPainter(painter);
    paintGhosts(painter, camera, *found);
    paintLayers(painter, camera, *found);
    if (ActiveStroke* record = stroke(camera)) {
        record->changed = false;
    }
    found->redraw = false;
    return &found->image;
}

void LayerManager::paintGhosts(QPainter& painter, const QString& camera, CameraDrawing& drawing)
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
        painter.drawImage(0, 0, drawing.ghosts.image());
    }
}

void LayerManager::paintLayers(QPainter& painter, const QString& camera, const CameraDrawing& drawing)
{
    const Layer* drawnOn = stroke(camera) ? strokeLayer() : nullptr;
    Frame* base = drawnOn ? strokeTargetFrame() : nullptr;
    const bool targetIsThere = base || !m_stroke.target().hasFrame;
    for (const auto& layer : drawing.layers) {
        const QImage& image = layer->imageAtOffset(0);
        if (layer.get() != drawnOn || !targetIsThere) {
            painter.drawImage(0, 0, image);
        } else if (layer->isVisible()) {
            m_stroke.paint(painter, base ? base->image() : QImage());
        }
    }
}
