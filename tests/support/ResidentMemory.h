#pragma once

#include <QtGlobal>

#include <fstream>
#include <unistd.h>

/// The memory that this process has in RAM.
inline qint64 residentBytes()
{
    std::ifstream statm("/proc/self/statm");
    qint64 all = 0;
    qint64 resident = 0;
    statm >> all >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}
