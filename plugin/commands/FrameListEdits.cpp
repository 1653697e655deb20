#include "commands/FrameListEdits.h"

#include "commands/FrameClipboard.h"
#include "commands/Retiming.h"
#include "model/FrameNumber.h"
#include "model/LayerManager.h"
#include "node/BaseNode.h"
#include "settings/Messages.h"

#include <maya/MAnimControl.h>

// InsertFrames --------------------------------------------------------------------------------------------------------

InsertFrames::InsertFrames(const QString& camera, const FrameSpan& span)
    : FrameEdit(camera, "Cannot add frames to a locked layer"), m_span(span)
{}

bool InsertFrames::prepare(LayerManager& manager)
{
    if (!FrameEdit::prepare(manager)) {
        return false;
    }
    if (areTooMany(m_span)) {
        messages::error(kTooManyFrames);
        return false;
    }
    m_makesLayer = manager.layerCount(camera()) == 0;
    return true;
}

bool InsertFrames::apply(LayerManager& manager)
{
    if (m_makesLayer) {
        m_before.remember(manager, {camera()});
        const int index = m_layer ? manager.insertLayer(camera(), -1, std::move(m_layer))
                                  : manager.insertLayer(camera(), -1, QString());
        if (index < 0) {
            messages::error("Failed to create layer for frame");
            return false;
        }
        m_before.noteChange(manager);
        setLayerId(manager.layerId(camera(), index));
    }
    return FrameEdit::apply(manager);
}

bool InsertFrames::revert(LayerManager& manager)
{
    const CurrentCameras now = manager.currentCameras();
    if (!FrameEdit::revert(manager)) {
        return false;
    }
    if (m_makesLayer) {
        m_layer = manager.takeLayer(camera(), layerIndex(manager));
        m_before.restore(manager, now);
    }
    return true;
}

bool InsertFrames::applyTo(Layer& layer)
{
    m_inserted = addMissing(layer, m_span);
    return true;
}

bool InsertFrames::revertOn(Layer& layer)
{
    layer.takeFramesAt(m_inserted);
    return true;
}

// DuplicateFrame ------------------------------------------------------------------------------------------------------

DuplicateFrame::DuplicateFrame(const QString& camera) : FrameEdit(camera, "Cannot duplicate frames on a locked layer")
{}

bool DuplicateFrame::prepare(LayerManager& manager)
{
    return FrameEdit::prepare(manager) && manager.activeLayer(camera());
}

// A static layer that shows a frame cannot duplicate it: it is meant.
bool DuplicateFrame::prepareFor(const Layer& layer)
{
    if (layer.hasFrameAtCurrentTime()) {
        messages::error("A frame already exists at the current time.");
        return false;
    }
    const Frame* previous = layer.previousFrame(false);
    if (!previous) {
        return false;
    }
    m_source = previous->frameNumber();
    m_time = MAnimControl::currentTime();
    return true;
}

bool DuplicateFrame::applyTo(Layer& layer)
{
    std::unique_ptr<Frame> copy = layer.copyFrame(timeOfFrame(m_source));
    if (!copy) {
        return false;
    }
    copy->setTime(m_time);
    return layer.insertFrame(std::move(copy)) >= 0;
}

bool DuplicateFrame::revertOn(Layer& layer)
{
    if (layer.takeFramesAt({m_time}).empty()) {
        messages::error("Failed to undo duplicate frame operation.");
        return false;
    }
    return true;
}

// DeleteFrames --------------------------------------------------------------------------------------------------------

DeleteFrames::DeleteFrames(const QString& camera, const FrameSpan& span)
    : DeleteFrames(camera, span, "Cannot remove frames from a locked layer")
{}

DeleteFrames::DeleteFrames(const QString& camera, const FrameSpan& span, const char* whenLocked)
    : FrameEdit(camera, whenLocked), m_span(span)
{}

bool DeleteFrames::applyTo(Layer& layer)
{
    m_taken = packed(layer.takeFramesIn(m_span));
    return true;
}

bool DeleteFrames::revertOn(Layer& layer)
{
    layer.restoreFrames(std::move(m_taken));
    return true;
}

// CutFrames -----------------------------------------------------------------------------------------------------------

CutFrames::CutFrames(const QString& camera, const FrameSpan& span)
    : DeleteFrames(camera, span, "Cannot cut frames from a locked layer")
{}

bool CutFrames::applyTo(Layer& layer)
{
    return copyFrames(layer, span(), m_copies) && DeleteFrames::applyTo(layer);
}

void CutFrames::applied(BaseNode& node)
{
    node.frameClipboard() = std::move(m_copies);
}

// ClearFrames ---------------------------------------------------------------------------------------------------------

ClearFrames::ClearFrames(const QString& camera, const FrameSpan& span) : DeleteFrames(camera, span) {}

bool ClearFrames::applyTo(Layer& layer)
{
    DeleteFrames::applyTo(layer);
    QList<int> numbers;
    for (const std::unique_ptr<Frame>& frame : taken()) {
        if (numbers.isEmpty() || numbers.last() != frame->frameNumber()) {
            numbers.append(frame->frameNumber());
        }
    }
    m_blank = addBlank(layer, numbers);
    return true;
}

bool ClearFrames::revertOn(Layer& layer)
{
    layer.takeFramesAt(m_blank);
    return DeleteFrames::revertOn(layer);
}

// PasteFrames ---------------------------------------------------------------------------------------------------------

PasteFrames::PasteFrames(const QString& camera, const Frames& clipboard, int start)
    : FrameEdit(camera, "Cannot paste frames to a locked layer"), m_isInRange(movedCopies(clipboard, start, m_frames)),
      m_times(timesOf(m_frames))
{}

bool PasteFrames::prepare(LayerManager& manager)
{
    if (!FrameEdit::prepare(manager)) {
        return false;
    }
    if (!m_isInRange) {
        messages::error(kFrameNumberOutOfRange);
    }
    return m_isInRange;
}

bool PasteFrames::applyTo(Layer& layer)
{
    QList<int> numbers;
    for (const std::unique_ptr<Frame>& frame : m_frames) {
        numbers.append(frame->frameNumber());
    }
    m_replaced = packed(layer.takeFramesNumbered(numbers));
    layer.restoreFrames(std::move(m_frames));
    return true;
}

bool PasteFrames::revertOn(Layer& layer)
{
    m_frames = packed(layer.takeFramesAt(m_times));
    layer.restoreFrames(std::move(m_replaced));
    return true;
}
