#pragma once

#include "model/Layer.h"
#include "settings/FrameSpan.h"

#include <maya/MTime.h>

#include <QList>

#include <functional>
#include <vector>

// Many frames of a layer at once, as the edits take and make them.

using Times = std::vector<MTime>;  ///< ascending

/// Said when a span holds more frames than may be made at once: a range typed by accident must not cost the drawing.
constexpr char kTooManyFrames[] = "Cannot add more than 1000000 frames at a time";
bool areTooMany(const FrameSpan& span);

Times timesOf(const Frames& frames);
/// Takes frames out, packed and in their order.
Frames takePacked(Layer& layer, const std::function<bool(const Frame&)>& isTaken);
/// The same for the frames at exactly these times: what an edit put there, whatever the time unit is by now.
Frames takeAt(Layer& layer, const Times& times);
/// Puts blank frames at numbers that no frame has, ascending; gives their times.
Times addBlank(Layer& layer, const QList<int>& frameNumbers);
/// The same at all numbers of a span that no frame has.
Times addMissing(Layer& layer, const FrameSpan& span);
