#include "mel/Conversion.h"
#include "mel/Interpreter.h"
#include "mel/Source.h"
#include "mel/builtins/Subjects.h"

#include <cstdlib>
#include <variant>

namespace mel {

using kernel::CommandError;
using kernel::Value;

namespace {

/// Arrays one element a line, everything else as it is.
std::string printed(const Value& value)
{
    std::string text;
    const auto add = [&](const auto& elements) {
        for (const auto& element : elements)
            text += kernel::toText(Value(element)) + "\n";
    };
    if (const auto* ints = std::get_if<kernel::IntArray>(&value))
        add(*ints);
    else if (const auto* doubles = std::get_if<kernel::DoubleArray>(&value))
        add(*doubles);
    else if (const auto* strings = std::get_if<kernel::StringArray>(&value))
        add(*strings);
    else if (const auto* vectors = std::get_if<kernel::VectorArray>(&value))
        add(*vectors);
    else
        text = kernel::toText(value);
    return text;
}

Value print(FunctionCall& call)
{
    call.interpreter.session().output.say(kernel::Severity::Plain, printed(call.args[0].value()));
    return {};
}

int sizeOf(const Value& value)
{
    if (const auto* text = std::get_if<std::string>(&value))
        return int(text->size());
    if (const auto* ints = std::get_if<kernel::IntArray>(&value))
        return int(ints->size());
    if (const auto* doubles = std::get_if<kernel::DoubleArray>(&value))
        return int(doubles->size());
    if (const auto* strings = std::get_if<kernel::StringArray>(&value))
        return int(strings->size());
    if (const auto* vectors = std::get_if<kernel::VectorArray>(&value))
        return int(vectors->size());
    return 1;
}

Value size(FunctionCall& call)
{
    return sizeOf(call.args[0].value());
}

/// The text of `error` and `warning`, without their flags.
std::string message(const FunctionCall& call)
{
    for (std::size_t i = 0; i < call.args.size(); ++i) {
        const std::string text = kernel::toText(call.args[i].value());
        if (text == "-showLineNumber" || text == "-sl")
            ++i;
        else if (text != "-noContext" && text != "-n")
            return text;
    }
    throw CommandError("Wrong number of arguments on call to " + call.name + ".");
}

Value error(FunctionCall& call)
{
    throw CommandError(message(call));
}

Value warning(FunctionCall& call)
{
    call.interpreter.session().output.warning(call.source.messagePrefix(call.at) + message(call));
    return {};
}

std::string joined(const FunctionCall& call)
{
    std::string text;
    for (const Argument& arg : call.args)
        text += (text.empty() ? "" : " ") + kernel::toText(arg.value());
    return text;
}

Value eval(FunctionCall& call)
{
    return call.interpreter.evaluate(joined(call));
}

Value evalEcho(FunctionCall& call)
{
    const std::string text = joined(call);
    kernel::Output& output = call.interpreter.session().output;
    output.say(kernel::Severity::Echo, text);
    const Value value = call.interpreter.evaluate(text);
    if (kernel::hasValue(value))
        output.say(kernel::Severity::Result, kernel::toText(value));
    return value;
}

Value source(FunctionCall& call)
{
    call.interpreter.source(call.text(0));
    return {};
}

bool isCommand(const Interpreter& interpreter, const kernel::Session& session, const std::string& name)
{
    return session.commands.find(name) || interpreter.functions().count(name) || name == "catch"
        || name == "catchQuiet";
}

Value exists(FunctionCall& call)
{
    Interpreter& interpreter = call.interpreter;
    const std::string name = call.text(0);
    return int(interpreter.findProcedure(name, nullptr) || isCommand(interpreter, interpreter.session(), name)
               || !interpreter.findScript(name).empty());
}

Value whatIs(FunctionCall& call)
{
    Interpreter& interpreter = call.interpreter;
    const std::string name = call.text(0);
    if (!name.empty() && name[0] == '$') {
        const Variable* variable = interpreter.findGlobal(name.substr(1));
        return variable ? typeName(variable->type) + " variable" : std::string("Unknown");
    }
    if (const Procedure procedure = interpreter.findProcedure(name, nullptr)) {
        const std::string& file = procedure.unit->source->fileName();
        return file.empty() ? std::string("Mel procedure entered interactively.") : "Mel procedure found in: " + file;
    }
    if (isCommand(interpreter, interpreter.session(), name))
        return std::string("Command");
    const std::string script = interpreter.findScript(name);
    return script.empty() ? std::string("Unknown") : "Script found in: " + script;
}

Value getLastError(FunctionCall& call)
{
    return call.interpreter.lastError();
}

Value getEnvironment(FunctionCall& call)
{
    const char* const value = std::getenv(call.text(0).c_str());
    return std::string(value ? value : "");
}

Value putEnvironment(FunctionCall& call)
{
    return int(setenv(call.text(0).c_str(), call.text(1).c_str(), 1) == 0);
}

}  // namespace

void addLanguageFunctions(Interpreter& interpreter)
{
    FunctionTable& table = interpreter.functions();
    table["print"] = {print, 1, 1};
    table["size"] = {size, 1, 1};
    table["error"] = {error, 1, 4};
    table["warning"] = {warning, 1, 4};
    table["eval"] = {eval, 1, kAnyNumber};
    table["evalEcho"] = {evalEcho, 1, kAnyNumber};
    table["source"] = {source, 1, 1};
    table["exists"] = {exists, 1, 1};
    table["whatIs"] = {whatIs, 1, 1};
    table["getLastError"] = {getLastError, 0, 0};
    table["getenv"] = {getEnvironment, 1, 1};
    table["putenv"] = {putEnvironment, 2, 2};
}

}  // namespace mel
