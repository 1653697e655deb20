#pragma once

#include "model/Layer.h"
#include "settings/FrameSpan.h"

#include <QList>

// Many frames of a layer at once, as the edits take and make them.

/// Said when a span holds more frames than may be made at once: a range typed by accident must not cost the drawing.
constexpr char kTooManyFrames[] = "Cannot add more than 1000000 frames at a time";
bool areTooMany(const FrameSpan& span);

Times timesOf(const Frames& frames);
/// What was taken out of a layer, made small to be kept.
Frames packed(Frames frames);
/// Puts blank frames at numbers that no frame has, ascending; gives their times.
Times addBlank(Layer& layer, const QList<int>& frameNumbers);
/// The same at all numbers of a span that no frame has.
Times addMissing(Layer& layer, const FrameSpan& span);
