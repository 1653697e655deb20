#include "mel/builtins/Builtin.h"
#include "mel/builtins/OptionVars.h"
#include "mel/builtins/Quoting.h"
#include "mel/builtins/Subjects.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <variant>

namespace mel {

using kernel::DoubleArray;
using kernel::IntArray;
using kernel::StringArray;
using kernel::Value;

namespace {

using OptionVars = std::map<std::string, Value>;

template <typename Visit>
void eachUse(const BuiltinCall& call, const char* flag, Visit visit)
{
    for (unsigned i = 0; i < call.args.useCount(flag); ++i)
        visit(*call.args.values(flag, i));
}

/// A scalar of the same type becomes an array's first element; anything else is replaced.
template <typename T>
void append(Value& variable, const T& element)
{
    if (auto* array = std::get_if<std::vector<T>>(&variable))
        array->push_back(element);
    else if (const T* scalar = std::get_if<T>(&variable))
        variable = std::vector<T>{*scalar, element};
    else
        variable = std::vector<T>{element};
}

template <typename T>
void eraseElement(Value& variable, std::size_t index)
{
    if (auto* array = std::get_if<std::vector<T>>(&variable)) {
        if (index < array->size())
            array->erase(array->begin() + std::ptrdiff_t(index));
    }
}

int arraySize(const OptionVars& variables, const std::string& name)
{
    const auto found = variables.find(name);
    if (found == variables.end())
        return 0;
    if (const auto* ints = std::get_if<IntArray>(&found->second))
        return int(ints->size());
    if (const auto* doubles = std::get_if<DoubleArray>(&found->second))
        return int(doubles->size());
    if (const auto* strings = std::get_if<StringArray>(&found->second))
        return int(strings->size());
    return 1;
}

void clearArray(Value& variable)
{
    if (std::holds_alternative<IntArray>(variable))
        variable = IntArray();
    else if (std::holds_alternative<DoubleArray>(variable))
        variable = DoubleArray();
    else if (std::holds_alternative<StringArray>(variable))
        variable = StringArray();
}

/// The file the variables are kept in could not say another number.
void requireFinite(const kernel::ValueList& values)
{
    if (!std::isfinite(std::get<double>(values[1])))
        throw kernel::CommandError("optionVar: The value of '" + kernel::toText(values[0])
                                   + "' must be a finite number.");
}

const char* const kChangingFlags[] = {
    "remove",           "intValue",          "floatValue",      "stringValue", "intValueAppend",
    "floatValueAppend", "stringValueAppend", "removeFromArray", "clearArray",
};

void change(const BuiltinCall& call, OptionVars& variables)
{
    eachUse(call, "floatValue", requireFinite);
    eachUse(call, "floatValueAppend", requireFinite);
    const auto name = [](const kernel::ValueList& values) { return kernel::toText(values[0]); };
    eachUse(call, "remove", [&](const auto& values) { variables.erase(name(values)); });
    for (const char* flag : {"intValue", "floatValue", "stringValue"})
        eachUse(call, flag, [&](const auto& values) { variables[name(values)] = values[1]; });
    eachUse(call, "intValueAppend", [&](const auto& v) { append(variables[name(v)], std::get<int>(v[1])); });
    eachUse(call, "floatValueAppend", [&](const auto& v) { append(variables[name(v)], std::get<double>(v[1])); });
    eachUse(call, "stringValueAppend", [&](const auto& v) { append(variables[name(v)], std::get<std::string>(v[1])); });
    const auto found = [&](const kernel::ValueList& values) {
        const auto it = variables.find(name(values));
        return it == variables.end() ? nullptr : &it->second;
    };
    eachUse(call, "removeFromArray", [&](const auto& values) {
        const int index = std::get<int>(values[1]);
        Value* variable = found(values);
        if (!variable || index < 0)
            return;
        eraseElement<int>(*variable, std::size_t(index));
        eraseElement<double>(*variable, std::size_t(index));
        eraseElement<std::string>(*variable, std::size_t(index));
    });
    eachUse(call, "clearArray", [&](const auto& values) {
        if (Value* variable = found(values))
            clearArray(*variable);
    });
    for (const char* flag : kChangingFlags)
        eachUse(call, flag, [&](const auto& values) { call.session.tellOptionVarChanged(name(values)); });
}

Value runOptionVar(BuiltinCall& call)
{
    OptionVars& variables = call.session.optionVars;
    if (call.args.has("exists"))
        return int(variables.count(call.args.text("exists")));
    if (call.args.has("query")) {
        const auto found = variables.find(call.args.text("query"));
        return found == variables.end() ? Value(0) : found->second;
    }
    if (call.args.has("arraySize"))
        return arraySize(variables, call.args.text("arraySize"));
    if (call.args.has("list")) {
        StringArray names;
        for (const auto& variable : variables)
            names.push_back(variable.first);
        return names;
    }
    change(call, variables);
    return {};
}

const std::string kStatementStart = "optionVar -";

std::string line(const char* flag, const std::string& name, const std::string& value)
{
    return kStatementStart + flag + " " + quoted(name) + " " + value + ";\n";
}

}  // namespace

void addOptionVarCommand(kernel::Session& session)
{
    addBuiltin(session, "optionVar",
               makeSyntax({{"intValue", "iv", "si", true},
                           {"floatValue", "fv", "sf", true},
                           {"stringValue", "sv", "ss", true},
                           {"intValueAppend", "iva", "si", true},
                           {"floatValueAppend", "fva", "sf", true},
                           {"stringValueAppend", "sva", "ss", true},
                           {"exists", "ex", "s"},
                           {"query", "q", "s"},
                           {"remove", "rm", "s", true},
                           {"removeFromArray", "rfa", "si", true},
                           {"clearArray", "ca", "s", true},
                           {"arraySize", "as", "s"},
                           {"list", "l"}},
                          Modes::Create, 0, 0),
               runOptionVar);
}

std::string optionVarScript(const kernel::Session& session)
{
    std::string script;
    for (const auto& variable : session.optionVars) {
        const std::string& name = variable.first;
        const Value& value = variable.second;
        if (const int* integer = std::get_if<int>(&value))
            script += line("iv", name, std::to_string(*integer));
        else if (const double* number = std::get_if<double>(&value))
            script += line("fv", name, kernel::exactNumberText(*number));
        else if (const auto* text = std::get_if<std::string>(&value))
            script += line("sv", name, quoted(*text));
        else if (const auto* ints = std::get_if<IntArray>(&value))
            for (int element : *ints)
                script += line("iva", name, std::to_string(element));
        else if (const auto* doubles = std::get_if<DoubleArray>(&value))
            for (double element : *doubles)
                script += line("fva", name, kernel::exactNumberText(element));
        else if (const auto* strings = std::get_if<StringArray>(&value))
            for (const std::string& element : *strings)
                script += line("sva", name, quoted(element));
    }
    return script;
}

// Statement by statement, so that one that is damaged does not cost the others.
void loadOptionVars(kernel::Session& session)
{
    const std::string path = session.prefsDir + "optionVars.mel";
    if (session.prefsDir.empty())
        return;
    std::ifstream in(path, std::ios::binary);
    std::string statement;
    int firstLine = 1;
    const auto runStatement = [&] {
        if (!statement.empty() && !session.script().execute(statement, false, false).ok)
            session.output.warning("The option variable in line " + std::to_string(firstLine) + " of " + path
                                   + " could not be read.");
    };
    int number = 1;
    for (std::string text; std::getline(in, text); ++number) {
        if (text.compare(0, kStatementStart.size(), kStatementStart) == 0) {
            runStatement();
            statement.clear();
            firstLine = number;
        }
        statement += text + '\n';
    }
    runStatement();
}

// Written beside and renamed, so that a full disk does not cost the old values.
void saveOptionVars(kernel::Session& session)
{
    if (session.prefsDir.empty())
        return;
    const std::string path = session.prefsDir + "optionVars.mel";
    const std::string fresh = path + ".new";
    {
        std::ofstream out(fresh, std::ios::binary);
        out << optionVarScript(session);
        out.close();
        if (out && std::rename(fresh.c_str(), path.c_str()) == 0)
            return;
    }
    std::remove(fresh.c_str());
    session.output.warning("The option variables could not be written to " + path + ".");
}

}  // namespace mel
