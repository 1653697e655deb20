#pragma once

#include <maya/MSyntax.h>

/// A flag of a command, named exactly as it is registered.
struct Flag {
    const char* shortName;
    const char* longName;
    MSyntax::MArgType argument;
};

template <unsigned int count>
void addFlags(MSyntax& syntax, const Flag (&flags)[count])
{
    for (const Flag& flag : flags) {
        syntax.addFlag(flag.shortName, flag.longName, flag.argument);
    }
}
