#pragma once

#include "model/Layer.h"
#include "settings/FrameSpan.h"

// The clipboard holds packed copies of frames, numbered from the start of the span they were copied from. Both give
// false when a frame would leave the range of frame numbers.

/// Copies, so numbered, of a layer's frames in a span. False is reported.
bool copyFrames(const Layer& layer, const FrameSpan& span, Frames& copies);

/// Copies of the clipboard's frames as they would lie with their span starting at a frame number; of two that would
/// get the same number only the first.
bool movedCopies(const Frames& clipboard, int start, Frames& copies);
