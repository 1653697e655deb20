#pragma once

#include "mel/builtins/Builtin.h"
#include "ui/FlagValues.h"
#include "ui/UiObjects.h"

#include <functional>
#include <string>
#include <vector>

namespace ui {

/// A flag of a command that makes, asks and changes one object. Target: what the functions need, made per call.
template <typename Target>
struct ObjectFlag {
    using Set = std::function<void(const Target& target, const kernel::ValueList& values)>;
    using Get = std::function<kernel::Value(const Target& target)>;

    /// setter: null for what is accepted without effect, or read by the command itself. getter: null for what cannot be
    /// asked for.
    ObjectFlag(const mel::FlagRow& flagRow, Set setter = nullptr, Get getter = nullptr)
        : row(flagRow), set(std::move(setter)), get(std::move(getter))
    {}

    mel::FlagRow row;
    Set set;
    Get get;
};

/// The flags, and an object's name after them.
template <typename Target>
kernel::Syntax syntaxOf(const std::vector<ObjectFlag<Target>>& flags)
{
    std::vector<mel::FlagRow> rows;
    for (const ObjectFlag<Target>& flag : flags) {
        rows.push_back(flag.row);
    }
    return mel::makeSyntax(rows, mel::Modes::QueryAndEdit, 0, 1);
}

/// The name after the flags; empty without one.
inline std::string objectName(const mel::BuiltinCall& call)
{
    return call.args.objects.empty() ? std::string() : call.objectNames().front();
}

/// Applies the flags that were given, in the order of the table.
template <typename Target>
void setFlags(const std::vector<ObjectFlag<Target>>& flags, const Target& target, const kernel::ParsedArgs& args)
{
    for (const ObjectFlag<Target>& flag : flags) {
        for (unsigned use = 0; flag.set && use < args.useCount(flag.row.longName); ++use) {
            flag.set(target, *args.values(flag.row.longName, use));
        }
    }
}

/// What the first flag of the table that was given answers; nothing without one.
template <typename Target>
kernel::Value queryFlag(const std::string& command, const std::vector<ObjectFlag<Target>>& flags, const Target& target,
                        const kernel::ParsedArgs& args)
{
    for (const ObjectFlag<Target>& flag : flags) {
        if (args.has(flag.row.longName)) {
            if (!flag.get) {
                throw kernel::CommandError(command + ": Flag '-" + flag.row.longName + "' cannot be queried");
            }
            return flag.get(target);
        }
    }
    return {};
}

/// The flags of a command with those that all named objects have after them. Target has the `object`.
/// Those about making (-exists, -parent) only have their answers here.
template <typename Target>
std::vector<ObjectFlag<Target>> withNameFlags(std::vector<ObjectFlag<Target>> flags)
{
    constexpr char kDocTag[] = "docTag";  // property
    const std::vector<ObjectFlag<Target>> shared = {
        {{"exists", "ex"}},
        {{"parent", "p", "s"},
         nullptr,
         [](const Target& t) { return t.object.parent ? UiObjects::path(*t.object.parent) : std::string(); }},
        {{"fullPathName", "fpn"}, nullptr, [](const Target& t) { return UiObjects::path(t.object); }},
        {{"docTag", "dtg", "s"},
         [=](const Target& t, const kernel::ValueList& values) { t.object.object->setProperty(kDocTag, text(values)); },
         [=](const Target& t) { return t.object.object->property(kDocTag).toString().toStdString(); }},
        {{"defineTemplate", "dt", "s"}},
        {{"useTemplate", "ut", "s"}},
    };
    flags.insert(flags.end(), shared.begin(), shared.end());
    return flags;
}

}  // namespace ui
