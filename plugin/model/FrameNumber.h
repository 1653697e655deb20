#pragma once

#include <maya/MTime.h>

/// The frame number of a time: its value in the current UI unit, truncated toward zero and held within 32 bits.
int frameNumberOf(const MTime& time);
MTime timeOfFrame(int frameNumber);  ///< in the current UI unit
int currentFrameNumber();            ///< of the scene's current time
