// The stroke in progress: from the press to the commit, and its undo.

#include "model/LayerManager.h"

#include "model/Canvas.h"
#include "model/CanvasMemory.h"
#include "model/DrawingViews.h"
#include "model/FrameNumber.h"
#include "settings/Preferences.h"

void LayerManager::redrawDrawing()
{
    if (s_views) {
        s_views->redrawDrawing();
    }
}

ActiveStroke* LayerManager::stroke(const QString& camera) const
{
    return m_stroke.record() && m_stroke.target().frame.camera == camera ? m_stroke.record() : nullptr;
}

ActiveStroke* LayerManager::beginStroke(const QString& camera, bool blank)
{
    Layer* active = activeLayer(camera);
    if (!active || m_stroke.record()) {
        return stroke(camera);
    }
    active->updateCurrentFrame(currentFrameNumber());
    const Frame* frame = active->currentFrame();
    if (!blank && !(frame && active->hasFrameAtCurrentTime())) {
        return nullptr;
    }
    PixelBudget::instance().catchUp();
    const ToolType tool = Preferences::instance().effectiveTool();
    m_stroke.begin({{camera, active->id(), frame ? frame->time() : MTime()}, frame != nullptr},
                   strokeStart(*active, tool, blank));
    m_stroke.record()->tool = tool;
    m_stroke.record()->colour = Preferences::instance().activeColor();
    return m_stroke.record();
}

// Soft edges blend toward the stroke's own colour, never toward black, so the canvas holds that colour unseen.
InkedImage LayerManager::strokeStart(Layer& layer, ToolType tool, bool blank)
{
    if (blank) {
        return blankSheet();
    }
    if (tool == ToolType::Eraser) {
        Frame& frame = *layer.currentFrame();
        return {asCanvas(frame.image()), frame.picture().ink()};
    }
    QImage canvas = canvasMemory::take();
    fillInvisible(canvas, Preferences::instance().activeColor());
    return {canvas, InkMap()};
}

int LayerManager::strokeLayerIndex(const QString& camera) const
{
    return stroke(camera) ? layerIndex(camera, m_stroke.target().frame.layerId) : -1;
}

Layer* LayerManager::strokeLayer() const
{
    const QString& camera = m_stroke.target().frame.camera;
    return layer(camera, strokeLayerIndex(camera));
}

// The frame that the stroke goes to; null when it, or its layer, is gone, and while a transform has none.
Frame* LayerManager::strokeTargetFrame() const
{
    const Layer* layer = strokeLayer();
    if (!layer) {
        return nullptr;
    }
    return m_stroke.target().hasFrame ? layer->frameAtTime(m_stroke.target().frame.time) : layer->currentFrame();
}

Layer* LayerManager::shownStrokeLayer() const
{
    Layer* layer = strokeLayer();
    const bool targetIsThere = !m_stroke.target().hasFrame || strokeTargetFrame();
    return layer && layer->isVisible() && targetIsThere ? layer : nullptr;
}

FrameAddress LayerManager::strokeFrame(const QString& camera) const
{
    const Frame* frame = stroke(camera) ? strokeTargetFrame() : nullptr;
    return {camera, frame ? m_stroke.target().frame.layerId : 0, frame ? frame->time() : MTime()};
}

void LayerManager::advanceStroke(const QString& camera)
{
    if (stroke(camera)) {
        m_stroke.advance(strokeBase());
    }
}

Picture LayerManager::strokeBase() const
{
    const Frame* frame = strokeTargetFrame();
    return frame ? frame->picture() : Picture();
}

void LayerManager::dropStrokeUnlessOn(const Picture& base)
{
    if (!m_stroke.record()) {
        return;
    }
    const bool isTargetGone = !strokeLayer() || (m_stroke.target().hasFrame && !strokeTargetFrame());
    if (isTargetGone || (!m_stroke.showsBase() && strokeBase().id() != base.id())) {
        dropStroke();
    }
}

bool LayerManager::commitStroke(const QString& camera, Picture& undo)
{
    if (!stroke(camera)) {
        return false;
    }
    Frame* frame = strokeTargetFrame();
    if (!frame) {
        dropStroke();
        return false;
    }
    advanceStroke(camera);
    undo = frame->picture();
    frame->setPicture(m_stroke.committed(undo));
    strokeLayer()->setDirty();
    m_stroke.end();
    PixelBudget::instance().trim();
    redrawDrawing();
    return true;
}

void LayerManager::dropStroke()
{
    if (m_stroke.record()) {
        markForRedraw(m_stroke.target().frame.camera);
        m_stroke.end();
        PixelBudget::instance().trim();
    }
}

bool LayerManager::swapImage(const FrameAddress& address, Picture& other)
{
    Layer* target = layer(address.camera, layerIndex(address.camera, address.layerId));
    Frame* frame = target ? target->frameAtTime(address.time) : nullptr;
    if (!frame) {
        return false;
    }
    const Picture base = strokeBase();
    const Picture own = frame->picture();
    if (own.isUnpacked()) {
        other.unpackBeside(own);
    }
    frame->setPicture(other);
    other = own;
    dropStrokeUnlessOn(base);
    target->setDirty();
    redrawDrawing();
    return true;
}

bool LayerManager::swapActiveImage(const QString& camera, Picture& other)
{
    const Layer* active = activeLayer(camera);
    const Frame* frame = active ? active->currentFrame() : nullptr;
    return frame && swapImage({camera, active->id(), frame->time()}, other);
}
