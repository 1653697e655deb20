#pragma once

/// Whole frame numbers, end not included.
struct FrameSpan {
    int first;
    int end;
};
