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

Frames blankFrames(const QList<int>& frameNumbers)
{
    Frames blank;
    blank.reserve(static_cast<size_t>(frameNumbers.size()));
    for (int frameNumber : frameNumbers) {
        blank.emplace_back(new Frame(timeOfFrame(frameNumber)));
    }
    return blank;
}

Frames missingFrames(const Layer& layer, const FrameSpan& span)
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
    return blankFrames(missing);
}

KeptFrames::KeptFrames(Frames frames) : m_times(timesOf(frames)), m_frames(packed(std::move(frames))) {}

void KeptFrames::putInto(Layer& layer)
{
    layer.restoreFrames(std::move(m_frames));
    m_frames.clear();
}

bool KeptFrames::takeFrom(Layer& layer)
{
    m_frames = packed(layer.takeFramesAt(m_times));
    return m_frames.size() == m_times.size();
}
