#include "node/TimelineMarks.h"

namespace {

TimelineMarks* s_installed = nullptr;

}

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
