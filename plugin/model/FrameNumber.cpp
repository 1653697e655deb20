#include "model/FrameNumber.h"

#include <maya/MAnimControl.h>

#include <limits>

int frameNumberOf(const MTime& time)
{
    const double value = time.asUnits(MTime::uiUnit());
    if (value >= std::numeric_limits<int>::max()) {
        return std::numeric_limits<int>::max();
    }
    if (value <= std::numeric_limits<int>::min()) {
        return std::numeric_limits<int>::min();
    }
    return static_cast<int>(value);
}

MTime timeOfFrame(int frameNumber)
{
    return MTime(static_cast<double>(frameNumber), MTime::uiUnit());
}

int currentFrameNumber()
{
    return frameNumberOf(MAnimControl::currentTime());
}
