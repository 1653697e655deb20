#pragma once

#include <QString>

#include <cstdio>

/// What a session that leaves pictures says about what must hold.
namespace session {

/// Prints a line for each check, and counts those that fail.
class Checks {
public:
    void operator()(const char* what, bool holds)
    {
        std::printf("  %-58s %s\n", what, holds ? "yes" : "NO");
        m_failures += holds ? 0 : 1;
    }
    bool allHold() const { return m_failures == 0; }

private:
    int m_failures = 0;
};

/// Says why a session cannot go on; what its program then ends with.
inline int failed(const QString& why)
{
    std::fprintf(stderr, "%s\n", qPrintable(why));
    return 1;
}

}  // namespace session
