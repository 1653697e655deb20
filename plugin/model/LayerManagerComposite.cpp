// What is shown of a camera's drawing.

#include "model/LayerManager.h"

#include "model/Canvas.h"
#include "model/DrawingPainter.h"
#include "model/Id.h"
#include "model/InkRim.h"
#include "model/PixelBudget.h"
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
        return found ? &found->picture.image : nullptr;
    }
    advanceStroke(camera);
    if (onlyTheStrokeChanged(camera, *found)) {
        refreshStroke(*found);
    } else {
        rebuild(camera, *found);
    }
    if (ActiveStroke* record = stroke(camera)) {
        record->changed = false;
    }
    found->redraw = false;
    found->generation = nextId();
    return &found->picture.image;
}

quint64 LayerManager::compositeGeneration(const QString& camera) const
{
    const CameraDrawing* found = drawing(camera);
    return found ? found->generation : 0;
}

bool LayerManager::onlyTheStrokeChanged(const QString& camera, const CameraDrawing& drawing) const
{
    const ActiveStroke* record = stroke(camera);
    if (!record || drawing.redraw || drawing.isDirty() || MAnimControl::isPlaying() != m_wasPlaying) {
        return false;
    }
    const Layer* active = drawing.layer(drawing.activeIndex());
    const bool ghostsStay = !record->points.isEmpty() || !active || !drawing.ghosts.isOutdated(*active, ghostOptions());
    return ghostsStay && strokeLayer();
}

bool LayerManager::ghostsAreSilenced() const
{
    return m_wasPlaying && Preferences::instance().disableGhostingDuringPlayback();
}

const InkedImage* LayerManager::shownGhosts(const CameraDrawing& drawing) const
{
    const GhostOptions options = ghostOptions();
    const bool shown = (options.previous || options.next) && !ghostsAreSilenced() && drawing.activeIndex() != -1;
    return shown && !drawing.ghosts.sheet().image.isNull() ? &drawing.ghosts.sheet() : nullptr;
}

// All of the picture: mixed from the inked parts of everything that is seen.
void LayerManager::rebuild(const QString& camera, CameraDrawing& drawing)
{
    m_wasPlaying = MAnimControl::isPlaying();
    rebuildGhosts(camera, drawing);
    wipe(drawing.picture);
    std::vector<Ply> plies;
    if (const InkedImage* ghosts = shownGhosts(drawing)) {
        plies.push_back({*ghosts});
    }
    const Layer* drawnOn = stroke(camera) ? shownStrokeLayer() : nullptr;
    for (const auto& layer : drawing.layers) {
        const Picture picture = layer->pictureAtOffset(0);  // read even where the stroke is shown: then it is not dirty
        if (layer.get() == drawnOn) {
            appendStroke(plies);
        } else {
            appendPicture(plies, picture);
        }
    }
    layOver(drawing.picture, plies);
    colourRim(drawing.picture, drawing.picture.ink);
    if (stroke(camera)) {
        m_stroke.takeTouched();
    }
    PixelBudget::instance().trim();
}

// Ghosts are made anew only while no stroke is drawn.
void LayerManager::rebuildGhosts(const QString& camera, CameraDrawing& drawing)
{
    const ActiveStroke* record = stroke(camera);
    const bool drawingNow = record && !record->points.isEmpty();
    Layer* active = drawing.layer(drawing.activeIndex());
    if (active && !drawingNow && !ghostsAreSilenced()) {
        drawing.ghosts.rebuild(*active, ghostOptions());
    }
}

void LayerManager::appendPicture(std::vector<Ply>& plies, const Picture& picture)
{
    if (!picture.isBlank()) {
        plies.push_back({inkedImage(picture)});
    }
}

void LayerManager::appendStroke(std::vector<Ply>& plies)
{
    Frame* base = strokeTargetFrame();
    if (base && m_stroke.showsBase()) {
        base->image();
        plies.push_back({inkedImage(base->picture())});
    }
    if (m_stroke.showsCanvas()) {
        plies.push_back({m_stroke.canvas()});
    }
}

// The part of the picture that the stroke touched last.
void LayerManager::refreshStroke(CameraDrawing& drawing)
{
    const StrokeInProgress::Touched touched = m_stroke.takeTouched();
    if (m_stroke.isDrawnAnew()) {
        refreshColumns(drawing, touched.columns);
    } else {
        refreshArea(drawing, paintableArea(touched.area));
    }
}

// A shape's ink goes around a large area, and a transform moves much of it: it is mixed, with all that is above, where
// it has ink or had it.
void LayerManager::refreshColumns(CameraDrawing& drawing, const InkMap& columns)
{
    copyColumns(drawing.picture.image, imageBelow(drawing, columns), columns);
    mixFromStroke(drawing, columns);
    drawing.picture.ink.add(columns);
    colourRim(drawing.picture, columns);
}

// Painted, to the very bytes that painting all of the picture would give.
void LayerManager::refreshArea(CameraDrawing& drawing, const QRect& area)
{
    if (area.isEmpty()) {
        return;
    }
    InkMap columns;
    columns.add(area);
    copyRect(drawing.picture.image, imageBelow(drawing, columns), area);
    paintFromStroke(drawing, area);
    drawing.picture.ink.add(columns);
    colourRim(drawing.picture, columns);
}

const QImage& LayerManager::imageBelow(CameraDrawing& drawing, const InkMap& columns)
{
    const int index = drawing.indexOf(m_stroke.target().frame.layerId);
    const InkedImage* ghosts = shownGhosts(drawing);
    std::vector<quint64> below = {ghosts ? drawing.ghosts.revision() : 0};
    for (int i = 0; i < index; ++i) {
        below.push_back(drawing.layer(i)->pictureIdAtOffset(0));
    }
    return drawing.below.image(columns, below, [&](QPainter& painter, const QRect& part) {
        if (ghosts) {
            drawPart(painter, ghosts->image, part);
        }
        paintLayers(painter, drawing, 0, index, part);
    });
}

void LayerManager::mixFromStroke(CameraDrawing& drawing, const InkMap& columns)
{
    const int index = drawing.indexOf(m_stroke.target().frame.layerId);
    std::vector<Ply> plies;
    if (shownStrokeLayer()) {
        appendStroke(plies);
    } else {
        appendPicture(plies, drawing.layer(index)->pictureAtOffset(0));
    }
    for (int i = index + 1; i < drawing.layerCount(); ++i) {
        appendPicture(plies, drawing.layer(i)->pictureAtOffset(0));
    }
    layOver(drawing.picture, plies, columns);
}

void LayerManager::paintFromStroke(CameraDrawing& drawing, const QRect& area)
{
    const int index = drawing.indexOf(m_stroke.target().frame.layerId);
    QPainter painter(&drawing.picture.image);
    prepareDrawingPainter(painter);
    paintStroke(painter, *drawing.layer(index), area);
    paintLayers(painter, drawing, index + 1, drawing.layerCount(), area);
}

void LayerManager::paintLayers(QPainter& painter, const CameraDrawing& drawing, int first, int end, const QRect& area)
{
    for (int i = first; i < end; ++i) {
        drawPart(painter, drawing.layer(i)->imageAtOffset(0), area);
    }
}

void LayerManager::paintStroke(QPainter& painter, Layer& layer, const QRect& area)
{
    if (shownStrokeLayer() != &layer) {
        drawPart(painter, layer.imageAtOffset(0), area);
        return;
    }
    Frame* base = strokeTargetFrame();
    if (base && m_stroke.showsBase()) {
        drawPart(painter, base->image(), area);
    }
    if (m_stroke.showsCanvas()) {
        drawPart(painter, m_stroke.canvas().image, area);
    }
}
