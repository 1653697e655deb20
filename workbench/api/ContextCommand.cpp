#include "api/ContextCommand.h"

#include "api/Access.h"
#include "api/Handles.h"

using api::report;

namespace api {

namespace {

/// The grammar every context command has, before the module adds its own flags.
kernel::Syntax baseSyntax()
{
    kernel::Syntax syntax;
    syntax.enableEdit();
    syntax.enableQuery();
    syntax.addFlag("ex", "exists");
    syntax.setObjects(kernel::Syntax::Objects::Strings, 0, 1);
    return syntax;
}

std::shared_ptr<const ParsedArguments> parse(const std::string& command, const kernel::Syntax& syntax,
                                             const kernel::ValueList& args)
{
    auto parsed = std::make_shared<ParsedArguments>();
    parsed->syntax = syntax;
    parsed->args = kernel::parsedOrThrow(syntax, args, command);
    return parsed;
}

/// Lets a command object handle the flags of this invocation; gives the result it set.
kernel::Value handleFlags(MPxContextCommand& command, std::shared_ptr<const ParsedArguments> parsed,
                          MStatus (MPxContextCommand::*handle)())
{
    ContextCommandState& state = Access::state(command);
    state.parsed = std::move(parsed);
    state.result = kernel::Value();
    if (!(command.*handle)())
        throw kernel::CommandError("");  // the module has said why
    return state.result;
}

}  // namespace

ContextCommand::ContextCommand(std::string module, std::string name, Creator creator)
    : m_module(std::move(module)), m_name(std::move(name)), m_creator(creator)
{}

kernel::Value ContextCommand::run(const kernel::ValueList& args)
{
    const ModuleScope scope(m_module);
    std::shared_ptr<MPxContextCommand> command(static_cast<MPxContextCommand*>(m_creator()));
    if (!command)
        throw kernel::CommandError("Cannot create the command " + m_name);
    ContextCommandState& state = Access::state(*command);
    *state.syntax = baseSyntax();
    command->appendSyntax();

    const auto parsed = parse(m_name, *state.syntax, args);
    ToolBox& tools = ToolBox::instance();
    const std::string tool = parsed->args.objects.empty() ? std::string() : kernel::toText(parsed->args.objects[0]);
    if (parsed->args.has("exists"))
        return tools.exists(tool) ? 1 : 0;

    if (parsed->args.edit || parsed->args.query) {
        const auto maker = tools.makerOf(tool);
        if (!maker)
            throw kernel::CommandError("Cannot find tool context: " + tool);
        return handleFlags(*maker, parsed,
                           parsed->args.edit ? &MPxContextCommand::doEditFlags : &MPxContextCommand::doQueryFlags);
    }

    if (tools.exists(tool))
        throw kernel::CommandError("The tool context name is already in use: " + tool);
    MPxContext* const context = command->makeObj();
    if (!context)
        throw kernel::CommandError("Cannot create a tool context: " + m_name);
    const std::string name = tools.add(m_name, tool, context, command);
    if (parsed->args.flagsUsed() > 0)
        handleFlags(*command, parsed, &MPxContextCommand::doEditFlags);
    return name;
}

}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN

MPxContextCommand::MPxContextCommand() : m_state(new api::ContextCommandState)
{
    m_state->syntax = std::make_shared<kernel::Syntax>();
}

MPxContextCommand::~MPxContextCommand() = default;

MPxContext* MPxContextCommand::makeObj()
{
    return nullptr;
}

MStatus MPxContextCommand::appendSyntax()
{
    return MStatus::kSuccess;
}

MStatus MPxContextCommand::doEditFlags()
{
    return MStatus::kSuccess;
}

MStatus MPxContextCommand::doQueryFlags()
{
    return MStatus::kSuccess;
}

MStatus MPxContextCommand::setResult(bool result)
{
    m_state->result = result ? 1 : 0;
    return MStatus::kSuccess;
}

MStatus MPxContextCommand::setResult(int result)
{
    m_state->result = result;
    return MStatus::kSuccess;
}

MStatus MPxContextCommand::setResult(double result)
{
    m_state->result = result;
    return MStatus::kSuccess;
}

MStatus MPxContextCommand::setResult(const MString& result)
{
    m_state->result = api::toKernel(result);
    return MStatus::kSuccess;
}

MSyntax MPxContextCommand::syntax(MStatus* ReturnStatus) const
{
    report(ReturnStatus, MStatus::kSuccess);
    return api::Access::aliasOf(m_state->syntax);
}

MArgParser MPxContextCommand::parser(MStatus* ReturnStatus) const
{
    report(ReturnStatus, m_state->parsed ? MStatus::kSuccess : MStatus::kFailure);
    return api::Access::parser(m_state->parsed);
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
