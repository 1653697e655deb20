#include "commands/FrameLists.h"

#include "model/FrameNumber.h"

#include <algorithm>

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
