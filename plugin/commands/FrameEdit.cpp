#include "commands/FrameEdit.h"

#include "model/FrameNumber.h"
#include "model/LayerManager.h"
#include "settings/Messages.h"

#include <algorithm>

FrameEdit::FrameEdit(const QString& camera, const char* whenLocked) : m_camera(camera), m_whenLocked(whenLocked) {}

bool FrameEdit::prepare(LayerManager& manager)
{
    m_layerIndex = manager.activeLayerIndex(m_camera);
    const Layer* layer = manager.layer(m_camera, m_layerIndex);
    if (layer && m_whenLocked && layer->state() == kLayerLocked) {
        messages::error(m_whenLocked);
        return false;
    }
    return !layer || prepareFor(*layer);
}

bool FrameEdit::prepareFor(const Layer&)
{
    return true;
}

bool FrameEdit::apply(LayerManager& manager)
{
    return run(manager, &FrameEdit::applyTo);
}

bool FrameEdit::revert(LayerManager& manager)
{
    return run(manager, &FrameEdit::revertOn);
}

bool FrameEdit::run(LayerManager& manager, bool (FrameEdit::*step)(Layer&))
{
    if (m_layerIndex < 0) {
        return true;
    }
    const Picture strokeBase = manager.strokeBase();
    Layer* layer = manager.layer(m_camera, m_layerIndex);
    if (!layer || !(this->*step)(*layer)) {
        return false;
    }
    manager.dropStrokeUnlessOn(strokeBase);
    manager.markForRedraw(m_camera);  // the ghosts may be other ones although the frame shown is the same
    return true;
}

bool areTooMany(const FrameSpan& span)
{
    constexpr qint64 kMostFrames = 1000000;
    return qint64(span.end) - span.first > kMostFrames;
}

Times timesOf(const Frames& frames)
{
    Times times;
    for (const std::unique_ptr<Frame>& frame : frames) {
        times.push_back(frame->time());
    }
    return times;
}

Frames takePacked(Layer& layer, const std::function<bool(const Frame&)>& isTaken)
{
    Frames taken = layer.takeFrames(isTaken);
    for (const std::unique_ptr<Frame>& frame : taken) {
        frame->pack();
    }
    return taken;
}

Frames takeAt(Layer& layer, const Times& times)
{
    return takePacked(
        layer, [&times](const Frame& frame) { return std::binary_search(times.begin(), times.end(), frame.time()); });
}

Times addBlank(Layer& layer, const QList<int>& frameNumbers)
{
    Frames blank;
    for (int frameNumber : frameNumbers) {
        blank.emplace_back(new Frame(timeOfFrame(frameNumber)));
    }
    const Times times = timesOf(blank);
    layer.restoreFrames(std::move(blank));
    return times;
}

Times addMissing(Layer& layer, const FrameSpan& span)
{
    QList<int> missing;
    for (int frameNumber = span.first; frameNumber < span.end; ++frameNumber) {
        if (!layer.hasFrame(frameNumber)) {
            missing.append(frameNumber);
        }
    }
    return addBlank(layer, missing);
}
