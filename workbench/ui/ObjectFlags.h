#pragma once

#include "kernel/Syntax.h"
#include "mel/builtins/Builtin.h"

#include <string>
#include <vector>

namespace ui {

/// A flag of a command about objects: how it reads and writes one. Target: what the functions need, made per call.
template <typename Target>
struct ObjectFlag {
    mel::FlagRow row;
    kernel::Value (*query)(Target& target) = nullptr;                        ///< null: nothing to ask for
    void (*set)(Target& target, const kernel::ValueList& values) = nullptr;  ///< null: the command reads it itself
};

/// A command that makes, asks and changes one object, whose name may follow the flags.
template <typename Target>
kernel::Syntax syntaxOf(const std::vector<ObjectFlag<Target>>& flags)
{
    std::vector<mel::FlagRow> rows;
    for (const ObjectFlag<Target>& flag : flags) {
        rows.push_back(flag.row);
    }
    return mel::makeSyntax(rows, mel::Modes::QueryAndEdit, 0, 1);
}

/// Applies the flags that were given, in the order of the table.
template <typename Target>
void setFlags(const std::vector<ObjectFlag<Target>>& flags, Target& target, const kernel::ParsedArgs& args)
{
    for (const ObjectFlag<Target>& flag : flags) {
        if (flag.set && args.has(flag.row.longName)) {
            flag.set(target, *args.values(flag.row.longName));
        }
    }
}

/// What the first flag that was given and can be asked for answers; nothing without one.
template <typename Target>
kernel::Value queryFlag(const std::vector<ObjectFlag<Target>>& flags, Target& target, const kernel::ParsedArgs& args)
{
    for (const ObjectFlag<Target>& flag : flags) {
        if (flag.query && args.has(flag.row.longName)) {
            return flag.query(target);
        }
    }
    return {};
}

inline bool isOn(const kernel::ValueList& values)
{
    bool on = false;
    kernel::toBool(values.front(), on);
    return on;
}

inline QString textOf(const kernel::ValueList& values)
{
    return QString::fromStdString(kernel::toText(values.front()));
}

}  // namespace ui
