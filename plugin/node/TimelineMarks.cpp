#include "node/TimelineMarks.h"

#include "settings/Preferences.h"

namespace {

const int kWhileInUse = 1;  // of the ways in which frames are displayed

TimelineMarks* s_installed = nullptr;
bool s_isToolActive = false;

}  // namespace

TimelineMarks* TimelineMarks::installed()
{
    return s_installed;
}

void TimelineMarks::install(TimelineMarks* marks)
{
    s_installed = marks;
}

void TimelineMarks::refreshInstalled()
{
    if (s_installed) {
        s_installed->refresh();
    }
}

void TimelineMarks::setToolActive(bool active)
{
    s_isToolActive = active;
    if (Preferences::instance().timelineFrameDisplay() == kWhileInUse) {
        refreshInstalled();
    }
}

bool TimelineMarks::isToolActive()
{
    return s_isToolActive;
}
