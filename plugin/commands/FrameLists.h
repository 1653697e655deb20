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
Frames blankFrames(const QList<int>& frameNumbers);
/// Blank frames for all numbers of a span that no frame of a layer has.
Frames missingFrames(const Layer& layer, const FrameSpan& span);

/// Frames that an edit takes out of a layer and puts into it by turns: the very same at their exact times, whatever the
/// time unit is by then.
class KeptFrames {
public:
    KeptFrames() = default;
    explicit KeptFrames(Frames frames);  ///< out of the layer, ascending

    const Frames& frames() const { return m_frames; }  ///< empty while they are in the layer
    void putInto(Layer& layer);
    bool takeFrom(Layer& layer);  ///< false when some are missing

private:
    Times m_times;
    Frames m_frames;
};
