#include "commands/FrameClipboard.h"

#include "commands/Retiming.h"
#include "settings/Messages.h"

namespace {

// Appends a copy; false when there is no such frame number.
bool appendCopy(const Frame& frame, qint64 frameNumber, Frames& copies)
{
    if (!isFrameNumber(frameNumber)) {
        return false;
    }
    copies.emplace_back(new Frame(frame));
    copies.back()->setFrameNumber(static_cast<int>(frameNumber));
    return true;
}

}  // namespace

bool copyFrames(const Layer& layer, const FrameSpan& span, Frames& copies)
{
    const std::vector<const Frame*> frames = layer.framesIn(span);
    copies.clear();
    copies.reserve(frames.size());
    for (const Frame* frame : frames) {
        if (!appendCopy(*frame, qint64(frame->frameNumber()) - span.first, copies)) {
            messages::error(kFrameNumberOutOfRange);
            return false;
        }
    }
    return true;
}

bool movedCopies(const Frames& clipboard, int start, Frames& copies)
{
    copies.clear();
    for (const std::unique_ptr<Frame>& kept : clipboard) {
        const qint64 frameNumber = qint64(kept->frameNumber()) + start;
        const bool isTaken = !copies.empty() && copies.back()->frameNumber() == frameNumber;
        if (!isTaken && !appendCopy(*kept, frameNumber, copies)) {
            return false;
        }
    }
    return true;
}
