#include <maya/MAnimControl.h>

#include "api/Handles.h"
#include "kernel/Session.h"

#include <algorithm>

namespace {

kernel::Scene& scene()
{
    return kernel::Session::current().scene;
}

MTime inUiUnit(double value)
{
    return MTime(value, MTime::uiUnit());
}

double value(const MTime& time)
{
    return time.as(MTime::uiUnit());
}

}  // namespace

OPENMAYA_MAJOR_NAMESPACE_OPEN

MTime MAnimControl::currentTime()
{
    return api::toHost(scene().currentTime());
}

MStatus MAnimControl::setCurrentTime(const MTime& time)
{
    scene().setCurrentTime(api::toKernel(time));
    return MStatus::kSuccess;
}

bool MAnimControl::isPlaying()
{
    return kernel::Session::current().events.condition("playingBack");
}

MTime MAnimControl::minTime()
{
    return inUiUnit(scene().playbackRange().first);
}

MTime MAnimControl::maxTime()
{
    return inUiUnit(scene().playbackRange().last);
}

MTime MAnimControl::animationStartTime()
{
    return inUiUnit(scene().animationRange().first);
}

MTime MAnimControl::animationEndTime()
{
    return inUiUnit(scene().animationRange().last);
}

MStatus MAnimControl::setMinTime(MTime time)
{
    const double first = value(time);
    scene().setPlaybackRange({first, std::max(first, scene().playbackRange().last)});
    return MStatus::kSuccess;
}

MStatus MAnimControl::setMaxTime(MTime time)
{
    const double last = value(time);
    scene().setPlaybackRange({std::min(last, scene().playbackRange().first), last});
    return MStatus::kSuccess;
}

MStatus MAnimControl::setMinMaxTime(MTime min, MTime max)
{
    if (max < min)
        return MStatus::kInvalidParameter;
    scene().setPlaybackRange({value(min), value(max)});
    return MStatus::kSuccess;
}

MStatus MAnimControl::setAnimationStartTime(MTime time)
{
    const double first = value(time);
    scene().setAnimationRange({first, std::max(first, scene().animationRange().last)});
    return MStatus::kSuccess;
}

MStatus MAnimControl::setAnimationEndTime(MTime time)
{
    const double last = value(time);
    scene().setAnimationRange({std::min(last, scene().animationRange().first), last});
    return MStatus::kSuccess;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
