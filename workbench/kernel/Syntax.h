#pragma once

#include "kernel/Value.h"

#include <map>
#include <string>
#include <vector>

namespace kernel {

enum class ArgType { Bool, Int, Unsigned, Double, String, Distance, Angle, Time, SelectionItem };

struct FlagSpec {
    std::string shortName;  ///< without a dash
    std::string longName;   ///< without a dash
    std::vector<ArgType> args;
    bool multiUse = false;
    bool fullArgsInQuery = false;  ///< takes its values after -query too
};

/// The grammar of one command's arguments: flags with typed values, then objects.
class Syntax {
public:
    /// A leading dash is stripped from both names. False, and nothing added, for a name already taken.
    bool addFlag(const std::string& shortName, const std::string& longName, std::vector<ArgType> args = {});
    bool makeMultiUse(const std::string& flag);
    bool makeQueryWithFullArgs(const std::string& flag);
    void enableQuery(bool on = true) { m_query = on; }
    void enableEdit(bool on = true) { m_edit = on; }
    bool canQuery() const { return m_query; }
    bool canEdit() const { return m_edit; }
    void addArg(ArgType type) { m_args.push_back(type); }

    enum class Objects { None, Strings, Selection };
    static constexpr unsigned kNoMaximum = ~0u;
    void setObjects(Objects kind, unsigned minimum = 0, unsigned maximum = kNoMaximum);
    void setMinObjects(unsigned minimum) { m_minObjects = minimum; }
    void setMaxObjects(unsigned maximum) { m_maxObjects = maximum; }
    Objects objects() const { return m_objects; }
    unsigned minObjects() const { return m_minObjects; }
    unsigned maxObjects() const { return m_maxObjects; }
    void useSelectionAsDefault(bool on) { m_selectionDefault = on; }
    bool selectionAsDefault() const { return m_selectionDefault; }

    /// Either name, with or without the dash, case-sensitive; null when unknown.
    const FlagSpec* flag(const std::string& name) const;
    const std::vector<ArgType>& args() const { return m_args; }

private:
    std::vector<FlagSpec> m_flags;
    std::vector<ArgType> m_args;
    bool m_query = false;
    bool m_edit = false;
    bool m_selectionDefault = false;
    Objects m_objects = Objects::None;
    unsigned m_minObjects = 0;
    unsigned m_maxObjects = kNoMaximum;
};

/// An argument list sorted by a Syntax. Flag values are already converted to the declared type's script form
/// (Bool and Int and Unsigned as int, Double/Distance/Angle as double, String as text, Time as text or number).
class ParsedArgs {
public:
    bool edit = false;
    bool query = false;
    ValueList objects;

    bool has(const std::string& longName) const { return m_uses.count(longName) != 0; }
    unsigned useCount(const std::string& longName) const;
    unsigned flagsUsed() const { return m_uses.size(); }
    /// Values of one use; null when the flag was not used that often.
    const ValueList* values(const std::string& longName, unsigned use = 0) const;

    // Shorthands for built-in commands: the first use's value `i`, or the fallback.
    std::string text(const std::string& longName, unsigned i = 0, const std::string& fallback = {}) const;
    int integer(const std::string& longName, unsigned i = 0, int fallback = 0) const;
    double number(const std::string& longName, unsigned i = 0, double fallback = 0) const;

    void addUse(const std::string& longName, ValueList values) { m_uses[longName].push_back(std::move(values)); }
    void replaceUses(const std::string& longName, ValueList values) { m_uses[longName] = {std::move(values)}; }

private:
    std::map<std::string, std::vector<ValueList>> m_uses;
};

/// Sorts `args`. False with the host's wording in `error` ("Invalid flag '-zz'", ...) when they do not fit.
bool parseArguments(const Syntax& syntax, const ValueList& args, ParsedArgs& out, std::string& error);
/// The same for commands: throws CommandError when they do not fit. command: named before the error unless empty.
ParsedArgs parsedOrThrow(const Syntax& syntax, const ValueList& args, const std::string& command = {});

}  // namespace kernel
