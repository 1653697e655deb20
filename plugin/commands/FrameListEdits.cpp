#include "commands/FrameListEdits.h"

#include "commands/FrameClipboard.h"
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
    m_makesLayer = manager.layerCount(camera()) == 0;
    if (m_makesLayer) {
        setLayerIndex(0);
        return true;
    }
    return FrameEdit::prepare(manager);
}

bool InsertFrames::apply(LayerManager& manager)
{
    if (m_makesLayer) {
        const int index = m_layer ? manager.insertLayer(camera(), -1, std::move(m_layer))
                                  : manager.insertLayer(camera(), -1, QString());
        if (index < 0) {
            messages::error("Failed to create layer for frame");
            return false;
        }
    }
    return FrameEdit::apply(manager);
}

bool InsertFrames::revert(LayerManager& manager)
{
    if (!FrameEdit::revert(manager)) {
        return false;
    }
    if (m_makesLayer) {
        m_layer = manager.takeLayer(camera(), 0);
    }
    return true;
}

bool InsertFrames::applyTo(Layer& layer)
{
    for (int frameNumber = m_span.first; frameNumber < m_span.end; ++frameNumber) {
        const MTime time = timeOfFrame(frameNumber);
        if (layer.addFrame(time) >= 0) {
            m_inserted.push_back(time);
        }
    }
    return true;
}

// From the end: nothing has to move up then.
bool InsertFrames::revertOn(Layer& layer)
{
    for (; !m_inserted.empty(); m_inserted.pop_back()) {
        layer.takeFrame(m_inserted.back());
    }
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
    if (!layer.takeFrame(m_time)) {
        messages::error("Failed to undo duplicate frame operation.");
        return false;
    }
    return true;
}

// DeleteFrames --------------------------------------------------------------------------------------------------------

DeleteFrames::DeleteFrames(const QString& camera, const FrameSpan& span, const char* whenLocked)
    : FrameEdit(camera, whenLocked), m_span(span)
{}

bool DeleteFrames::applyTo(Layer& layer)
{
    for (int frameNumber : layer.frameNumbers()) {
        if (frameNumber >= m_span.first && frameNumber < m_span.end) {
            takeFrames(layer, frameNumber, m_taken);
        }
    }
    return true;
}

bool DeleteFrames::revertOn(Layer& layer)
{
    putBack(layer, m_taken);
    return true;
}

// CutFrames -----------------------------------------------------------------------------------------------------------

CutFrames::CutFrames(const QString& camera, const FrameSpan& span)
    : DeleteFrames(camera, span, "Cannot cut frames from a locked layer"), m_span(span)
{}

MStatus CutFrames::redoOn(BaseNode& node)
{
    copyToClipboard(node, camera(), m_span);
    return DeleteFrames::redoOn(node);
}

// ClearFrames ---------------------------------------------------------------------------------------------------------

ClearFrames::ClearFrames(const QString& camera, const FrameSpan& span)
    : DeleteFrames(camera, span, "Cannot remove frames from a locked layer")
{}

bool ClearFrames::applyTo(Layer& layer)
{
    DeleteFrames::applyTo(layer);
    for (const std::unique_ptr<Frame>& frame : taken()) {
        layer.addFrame(frame->time());
    }
    return true;
}

bool ClearFrames::revertOn(Layer& layer)
{
    for (const std::unique_ptr<Frame>& frame : taken()) {
        layer.takeFrame(frame->time());
    }
    return DeleteFrames::revertOn(layer);
}

// PasteFrames ---------------------------------------------------------------------------------------------------------

PasteFrames::PasteFrames(const QString& camera, Frames frames)
    : FrameEdit(camera, "Cannot paste frames to a locked layer"), m_frames(std::move(frames))
{
    for (const std::unique_ptr<Frame>& frame : m_frames) {
        m_times.push_back(frame->time());
    }
}

bool PasteFrames::applyTo(Layer& layer)
{
    for (std::unique_ptr<Frame>& frame : m_frames) {
        takeFrames(layer, frame->frameNumber(), m_replaced);
        layer.insertFrame(std::move(frame));
    }
    m_frames.clear();
    return true;
}

bool PasteFrames::revertOn(Layer& layer)
{
    for (const MTime& time : m_times) {
        if (std::unique_ptr<Frame> frame = layer.takeFrame(time)) {
            frame->pack();
            m_frames.push_back(std::move(frame));
        }
    }
    putBack(layer, m_replaced);
    return true;
}
