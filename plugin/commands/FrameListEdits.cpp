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
    return putLayer(manager) && FrameEdit::apply(manager);
}

bool InsertFrames::reapply(LayerManager& manager)
{
    return putLayer(manager) && FrameEdit::reapply(manager);
}

bool InsertFrames::putLayer(LayerManager& manager)
{
    if (!m_makesLayer) {
        return true;
    }
    m_before.remember(manager, {camera()});
    const int index =
        m_layer ? manager.insertLayer(camera(), -1, std::move(m_layer)) : manager.insertLayer(camera(), -1, QString());
    if (index < 0) {
        messages::error("Failed to create layer for frame");
        return false;
    }
    m_before.noteChange(manager);
    setLayerId(manager.layerId(camera(), index));
    return true;
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
    m_inserted = KeptFrames(missingFrames(layer, m_span));
    return reapplyTo(layer);
}

bool InsertFrames::reapplyTo(Layer& layer)
{
    m_inserted.putInto(layer);
    return true;
}

bool InsertFrames::revertOn(Layer& layer)
{
    m_inserted.takeFrom(layer);
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
    return true;
}

bool DuplicateFrame::applyTo(Layer& layer)
{
    std::unique_ptr<Frame> copy = layer.copyFrame(timeOfFrame(m_source));
    if (!copy) {
        return false;
    }
    copy->setTime(MAnimControl::currentTime());
    Frames copies;
    copies.push_back(std::move(copy));
    m_copy = KeptFrames(std::move(copies));
    return reapplyTo(layer);
}

bool DuplicateFrame::reapplyTo(Layer& layer)
{
    m_copy.putInto(layer);
    return true;
}

bool DuplicateFrame::revertOn(Layer& layer)
{
    if (!m_copy.takeFrom(layer)) {
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
    m_taken = KeptFrames(layer.takeFramesIn(m_span));
    return true;
}

bool DeleteFrames::reapplyTo(Layer& layer)
{
    m_taken.takeFrom(layer);
    return true;
}

bool DeleteFrames::revertOn(Layer& layer)
{
    m_taken.putInto(layer);
    return true;
}

// CutFrames -----------------------------------------------------------------------------------------------------------

CutFrames::CutFrames(const QString& camera, const FrameSpan& span)
    : DeleteFrames(camera, span, "Cannot cut frames from a locked layer")
{}

bool CutFrames::applyTo(Layer& layer)
{
    return copyFrames(layer, span(), *m_copies) && DeleteFrames::applyTo(layer);
}

void CutFrames::applied(BaseNode& node)
{
    node.setFrameClipboard(m_copies);
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
    m_blank = KeptFrames(blankFrames(numbers));
    m_blank.putInto(layer);
    return true;
}

bool ClearFrames::reapplyTo(Layer& layer)
{
    DeleteFrames::reapplyTo(layer);
    m_blank.putInto(layer);
    return true;
}

bool ClearFrames::revertOn(Layer& layer)
{
    m_blank.takeFrom(layer);
    return DeleteFrames::revertOn(layer);
}

// PasteFrames ---------------------------------------------------------------------------------------------------------

PasteFrames::PasteFrames(const QString& camera, const Frames& clipboard, int start)
    : FrameEdit(camera, "Cannot paste frames to a locked layer"), m_isInRange(movedCopies(clipboard, start, m_copies))
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
    for (const std::unique_ptr<Frame>& frame : m_copies) {
        numbers.append(frame->frameNumber());
    }
    m_replaced = KeptFrames(layer.takeFramesNumbered(numbers));
    m_pasted = KeptFrames(std::move(m_copies));
    m_pasted.putInto(layer);
    return true;
}

bool PasteFrames::reapplyTo(Layer& layer)
{
    m_replaced.takeFrom(layer);
    m_pasted.putInto(layer);
    return true;
}

bool PasteFrames::revertOn(Layer& layer)
{
    m_pasted.takeFrom(layer);
    m_replaced.putInto(layer);
    return true;
}
