#pragma once

#include <maya/MSyntax.h>

/// A flag of a command with the types of its values, named exactly as it is registered.
struct Flag {
    using Type = MSyntax::MArgType;

    constexpr Flag(const char* shortForm, const char* longForm, Type first = MSyntax::kNoArg,
                   Type second = MSyntax::kNoArg, Type third = MSyntax::kNoArg, Type fourth = MSyntax::kNoArg)
        : shortName(shortForm), longName(longForm), types{first, second, third, fourth}
    {}

    const char* shortName;
    const char* longName;
    Type types[4];
};

inline void addFlag(MSyntax& syntax, const Flag& flag)
{
    syntax.addFlag(flag.shortName, flag.longName, flag.types[0], flag.types[1], flag.types[2], flag.types[3]);
}

template <unsigned int count>
void addFlags(MSyntax& syntax, const Flag (&flags)[count])
{
    for (const Flag& flag : flags) {
        addFlag(syntax, flag);
    }
}
