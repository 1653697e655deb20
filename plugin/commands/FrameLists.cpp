#include "commands/FrameLists.h"

#include "model/FrameNumber.h"

bool areTooMany(const FrameSpan& span)
{
    constexpr qint64 kMostFrames = 1000000;
    return qint64(span.end) - span.first > kMostFrames;
}

Times timesOf(const Frames& frames)
{
    Times times;
    times.reserve(frames.size());
    for (const std::unique_ptr<Frame>& frame : frames) {
        times.push_back(frame->time());
    }
    return times;
}

Frames packed(Frames frames)
{
    for (const std::unique_ptr<Frame>& frame : frames) {
        frame->pack();
    }
    return frames;
}

Times addBlank(Layer& layer, const QList<int>& frameNumbers)
{
    Frames blank;
    blank.reserve(static_cast<size_t>(frameNumbers.size()));
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
    int next = span.first;
    const auto appendUpTo = [&](int end) {
        for (; next < end; ++next) {
            missing.append(next);
        }
    };
    for (const Frame* frame : layer.framesIn(span)) {
        appendUpTo(frame->frameNumber());
        ++next;
    }
    appendUpTo(span.end);
    return addBlank(layer, missing);
}
