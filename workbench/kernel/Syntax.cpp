#include "kernel/Syntax.h"

#include "kernel/Command.h"

#include "kernel/Session.h"

#include <algorithm>

namespace kernel {

namespace {

/// Modules give flag names with a dash or without; they mean the same.
std::string bareName(const std::string& name)
{
    return !name.empty() && name[0] == '-' ? name.substr(1) : name;
}

/// A dash followed by a letter: "-1" and "-.5" are numbers.
bool looksLikeFlag(const Value& value)
{
    const std::string* text = std::get_if<std::string>(&value);
    if (!text || text->size() < 2 || (*text)[0] != '-')
        return false;
    const char c = (*text)[1];
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

const char* argumentName(ArgType type)
{
    switch (type) {
    case ArgType::Bool: return "a boolean argument";
    case ArgType::Int: return "an integer argument";
    case ArgType::Unsigned: return "an unsigned integer argument";
    case ArgType::Double: return "a numeric argument";
    case ArgType::Distance: return "a distance argument";
    case ArgType::Angle: return "an angle argument";
    case ArgType::Time: return "a time argument";
    case ArgType::String:
    case ArgType::SelectionItem: break;
    }
    return "a string argument";
}

/// The value in the script form of a declared type. False when it has no such reading.
bool convert(const Value& value, ArgType type, Value& out)
{
    switch (type) {
    case ArgType::Bool: {
        bool on = false;
        if (!toBool(value, on))
            return false;
        out = on ? 1 : 0;
        return true;
    }
    case ArgType::Int:
    case ArgType::Unsigned: {
        int number = 0;
        if (!toInt(value, number) || (type == ArgType::Unsigned && number < 0))
            return false;
        out = number;
        return true;
    }
    case ArgType::Double:
    case ArgType::Distance:
    case ArgType::Angle: {
        double number = 0;
        if (!toDouble(value, number))
            return false;
        out = number;
        return true;
    }
    case ArgType::Time: {
        const std::string* text = std::get_if<std::string>(&value);
        Time time;
        double number = 0;
        if (text ? !parseTime(*text, TimeUnit::Film, time) : !toDouble(value, number))
            return false;
        out = value;
        return true;
    }
    case ArgType::String:
    case ArgType::SelectionItem:
        if (isArray(value) || !hasValue(value))
            return false;
        out = toText(value);
        return true;
    }
    return false;
}

/// Walks the argument list once; each step either takes something or sets the error.
class ArgumentSorter {
public:
    ArgumentSorter(const Syntax& syntax, const ValueList& args, ParsedArgs& out, std::string& error)
        : m_syntax(syntax), m_args(args), m_out(out), m_error(error)
    {}

    bool sort()
    {
        while (m_next < m_args.size()) {
            const Value& value = m_args[m_next++];
            if (!looksLikeFlag(value))
                m_out.objects.push_back(value);
            else if (!takeFlag(bareName(std::get<std::string>(value))))
                return false;
        }
        return m_syntax.args().empty() ? checkObjects() : convertCommandArguments();
    }

private:
    bool fail(const std::string& error)
    {
        m_error = error;
        return false;
    }

    bool takeFlag(const std::string& name)
    {
        const FlagSpec* flag = m_syntax.flag(name);
        if (!flag) {
            if (m_syntax.canEdit() && (name == "e" || name == "edit"))
                m_out.edit = true;
            else if (m_syntax.canQuery() && (name == "q" || name == "query"))
                m_out.query = true;
            else
                return fail("Invalid flag '-" + name + "'");
            return true;
        }
        ValueList values;
        if ((!m_out.query || flag->fullArgsInQuery) && !takeValues(*flag, name, values))
            return false;
        if (flag->multiUse)
            m_out.addUse(flag->longName, std::move(values));
        else
            m_out.replaceUses(flag->longName, std::move(values));
        return true;
    }

    bool takeValues(const FlagSpec& flag, const std::string& name, ValueList& values)
    {
        const std::size_t count = flag.args.size();
        if (m_args.size() - m_next < count) {
            return fail(count == 1 ? "Flag '" + name + "' must be passed " + argumentName(flag.args[0])
                                   : "Flag '-" + name + "' must be passed " + std::to_string(count) + " arguments");
        }
        for (const ArgType type : flag.args) {
            Value value;
            if (!convert(m_args[m_next++], type, value))
                return fail("Flag '" + name + "' must be passed " + argumentName(type));
            values.push_back(std::move(value));
        }
        return true;
    }

    bool convertCommandArguments()
    {
        const std::vector<ArgType>& types = m_syntax.args();
        const std::size_t count = m_out.objects.size();
        if (count > types.size() || (count < types.size() && !m_out.query))
            return fail("Incorrect number of arguments specified");
        for (std::size_t i = 0; i < count; ++i) {
            Value value;
            if (!convert(m_out.objects[i], types[i], value))
                return fail("Argument " + std::to_string(i + 1) + " must be " + argumentName(types[i]));
            m_out.objects[i] = std::move(value);
        }
        return true;
    }

    bool checkObjects()
    {
        const bool wanted = m_syntax.objects() != Syntax::Objects::None;
        if (wanted && m_out.objects.empty() && m_syntax.selectionAsDefault() && Session::exists()) {
            const Scene& scene = Session::current().scene;
            for (const NodePtr& node : scene.selection())
                m_out.objects.push_back(scene.partialPath(*node));
        }
        const std::size_t count = m_out.objects.size();
        if (wanted && count == 0 && m_syntax.minObjects() > 0)
            return fail("No object was specified");
        if (count < (wanted ? m_syntax.minObjects() : 0) || count > (wanted ? m_syntax.maxObjects() : 0))
            return fail("Incorrect number of objects specified");
        return true;
    }

    const Syntax& m_syntax;
    const ValueList& m_args;
    ParsedArgs& m_out;
    std::string& m_error;
    std::size_t m_next = 0;
};

}  // namespace

bool Syntax::addFlag(const std::string& shortName, const std::string& longName, std::vector<ArgType> args)
{
    FlagSpec spec;
    spec.shortName = bareName(shortName);
    spec.longName = bareName(longName);
    if (spec.longName.empty())
        spec.longName = spec.shortName;
    if (spec.shortName.empty())
        spec.shortName = spec.longName;
    if (spec.longName.empty() || flag(spec.shortName) || flag(spec.longName))
        return false;
    spec.args = std::move(args);
    m_flags.push_back(std::move(spec));
    return true;
}

bool Syntax::makeMultiUse(const std::string& name)
{
    FlagSpec* spec = const_cast<FlagSpec*>(flag(name));
    if (spec)
        spec->multiUse = true;
    return spec != nullptr;
}

bool Syntax::makeQueryWithFullArgs(const std::string& name)
{
    FlagSpec* spec = const_cast<FlagSpec*>(flag(name));
    if (spec)
        spec->fullArgsInQuery = true;
    return spec != nullptr;
}

void Syntax::setObjects(Objects kind, unsigned minimum, unsigned maximum)
{
    m_objects = kind;
    m_minObjects = minimum;
    m_maxObjects = maximum;
}

const FlagSpec* Syntax::flag(const std::string& name) const
{
    const std::string bare = bareName(name);
    const auto it = std::find_if(m_flags.begin(), m_flags.end(), [&bare](const FlagSpec& spec) {
        return spec.shortName == bare || spec.longName == bare;
    });
    return it == m_flags.end() ? nullptr : &*it;
}

unsigned ParsedArgs::useCount(const std::string& longName) const
{
    const auto it = m_uses.find(longName);
    return it == m_uses.end() ? 0 : static_cast<unsigned>(it->second.size());
}

const ValueList* ParsedArgs::values(const std::string& longName, unsigned use) const
{
    const auto it = m_uses.find(longName);
    return it == m_uses.end() || use >= it->second.size() ? nullptr : &it->second[use];
}

std::string ParsedArgs::text(const std::string& longName, unsigned i, const std::string& fallback) const
{
    const ValueList* list = values(longName);
    return list && i < list->size() ? toText((*list)[i]) : fallback;
}

int ParsedArgs::integer(const std::string& longName, unsigned i, int fallback) const
{
    const ValueList* list = values(longName);
    int number = fallback;
    if (list && i < list->size())
        toInt((*list)[i], number);
    return number;
}

double ParsedArgs::number(const std::string& longName, unsigned i, double fallback) const
{
    const ValueList* list = values(longName);
    double number = fallback;
    if (list && i < list->size())
        toDouble((*list)[i], number);
    return number;
}

bool parseArguments(const Syntax& syntax, const ValueList& args, ParsedArgs& out, std::string& error)
{
    return ArgumentSorter(syntax, args, out, error).sort();
}

ParsedArgs parsedOrThrow(const Syntax& syntax, const ValueList& args, const std::string& command)
{
    ParsedArgs parsed;
    std::string error;
    if (!parseArguments(syntax, args, parsed, error))
        throw CommandError(command.empty() ? error : command + ": " + error);
    return parsed;
}

}  // namespace kernel
