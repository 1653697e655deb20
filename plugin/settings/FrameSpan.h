#pragma once

/// Whole frame numbers, end not included.
struct FrameSpan {
    int first;
    int end;
};

inline bool contains(const FrameSpan& span, int frameNumber)
{
    return frameNumber >= span.first && frameNumber < span.end;
}
