#include "model/FrameNumber.h"

#include "settings/Rounding.h"

#include <maya/MAnimControl.h>

int frameNumberOf(const MTime& time)
{
    return truncated(time.asUnits(MTime::uiUnit()));
}

MTime timeOfFrame(int frameNumber)
{
    return MTime(static_cast<double>(frameNumber), MTime::uiUnit());
}

int currentFrameNumber()
{
    return frameNumberOf(MAnimControl::currentTime());
}
