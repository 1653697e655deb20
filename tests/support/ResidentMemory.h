#pragma once

#include <QtGlobal>

#include <fstream>
#include <limits>
#include <string>

/// A line of the process's status that tells of memory, such as "VmRSS:", in bytes; 0 where there is none.
inline qint64 statusBytes(const std::string& wanted)
{
    std::ifstream status("/proc/self/status");
    std::string name;
    qint64 kibibytes = 0;
    while (status >> name && name != wanted) {
        status.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    }
    status >> kibibytes;
    return kibibytes * 1024;
}

/// The memory that this process has in RAM.
inline qint64 residentBytes()
{
    return statusBytes("VmRSS:");
}

/// The most that it ever had, or had since forgetHighestResident().
inline qint64 highestResidentBytes()
{
    return statusBytes("VmHWM:");
}

inline void forgetHighestResident()
{
    std::ofstream("/proc/self/clear_refs") << 5;
}
