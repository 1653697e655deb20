#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MStatus.h>
#include <maya/MTime.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Current time and ranges. Times are given in the UI unit.
class MAnimControl {
public:
    static MTime currentTime();
    /// Raises timeChanged; not on the undo queue.
    static MStatus setCurrentTime(const MTime& time);
    static bool isPlaying();

    static MTime minTime();
    static MTime maxTime();
    static MTime animationStartTime();
    static MTime animationEndTime();
    // A range is kept in order: a start after its end moves the end along, and the other way round.
    static MStatus setMinTime(MTime time);
    static MStatus setMaxTime(MTime time);
    static MStatus setMinMaxTime(MTime min, MTime max);
    static MStatus setAnimationStartTime(MTime time);
    static MStatus setAnimationEndTime(MTime time);
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
