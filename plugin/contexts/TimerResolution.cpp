#include "contexts/TimerResolution.h"

#ifdef _WIN32

// clang-format off
#include <windows.h>
#include <mmsystem.h>
// clang-format on

void TimerResolution::raise()
{
    TIMECAPS capabilities;
    if (m_period == 0 && timeGetDevCaps(&capabilities, sizeof(capabilities)) == TIMERR_NOERROR
        && timeBeginPeriod(capabilities.wPeriodMin) == TIMERR_NOERROR) {
        m_period = capabilities.wPeriodMin;
    }
}

void TimerResolution::restore()
{
    if (m_period != 0) {
        timeEndPeriod(m_period);
        m_period = 0;
    }
}

#else

void TimerResolution::raise() {}

void TimerResolution::restore() {}

#endif
