#include <maya/MPxCommand.h>

#include "api/Access.h"
#include "api/ModuleCommand.h"
#include "api/Results.h"
#include "kernel/Session.h"

using api::report;

namespace {

/// The result of the module command that runs now.
kernel::Value& slot()
{
    static kernel::Value value;
    return value;
}

/// Adds to the result: to an array of the same kind, or to one made of the scalar that is there.
template <typename Element>
void append(Element element)
{
    using Array = std::vector<Element>;
    kernel::Value& value = slot();
    if (!kernel::hasValue(value)) {
        value = Array{std::move(element)};
    } else if (auto* array = std::get_if<Array>(&value)) {
        array->push_back(std::move(element));
    } else if (auto* scalar = std::get_if<Element>(&value)) {
        Array grown{std::move(*scalar), std::move(element)};
        value = std::move(grown);
    }
}

}  // namespace

namespace api {

namespace {

/// What a module keeps in its nodes is out of the host's sight; that it did something undoable is not.
void markChanged()
{
    kernel::Session::current().scene.setModified();
}

}  // namespace

ModuleCommand::ModuleCommand(const CommandRegistration& registration) : m_registration(registration) {}

ModuleCommand::~ModuleCommand()
{
    const ModuleScope scope(m_registration.module);
    m_command.reset();
}

/// Gives the running command a result slot of its own.
class ModuleCommand::ResultScope {
public:
    ResultScope() : m_outer(std::move(slot())) { slot() = kernel::Value(); }
    ~ResultScope() { slot() = std::move(m_outer); }
    ResultScope(const ResultScope&) = delete;
    ResultScope& operator=(const ResultScope&) = delete;

private:
    kernel::Value m_outer;
};

kernel::Value ModuleCommand::run(const kernel::ValueList& args)
{
    const ModuleScope scope(m_registration.module);
    m_command.reset(static_cast<MPxCommand*>(m_registration.creator()));
    if (!m_command)
        throw kernel::CommandError("Cannot create the command " + m_registration.name);
    Access::state(*m_command).syntax = m_registration.syntax;

    if (m_registration.syntax && m_command->hasSyntax())
        kernel::parsedOrThrow(*m_registration.syntax, args, m_registration.name);

    const ResultScope results;
    if (!m_command->doIt(Access::arguments(args)))
        throw kernel::CommandError("");  // the module has said why
    if (m_command->isUndoable())
        markChanged();
    return slot();
}

bool ModuleCommand::isUndoable() const
{
    return m_command && m_command->isUndoable();
}

bool ModuleCommand::undo()
{
    const ModuleScope scope(m_registration.module);
    const ResultScope results;
    const bool done = m_command->undoIt();
    if (done)
        markChanged();
    return done;
}

bool ModuleCommand::redo()
{
    const ModuleScope scope(m_registration.module);
    const ResultScope results;
    const bool done = m_command->redoIt();
    if (done)
        markChanged();
    return done;
}

}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN

MPxCommand::MPxCommand() : m_state(new api::CommandState) {}

MPxCommand::~MPxCommand() = default;

MStatus MPxCommand::doIt(const MArgList&)
{
    return MStatus::kFailure;
}

MStatus MPxCommand::undoIt()
{
    return MStatus::kSuccess;
}

MStatus MPxCommand::redoIt()
{
    return MStatus::kSuccess;
}

bool MPxCommand::isUndoable() const
{
    return false;
}

bool MPxCommand::hasSyntax() const
{
    return m_state->syntax != nullptr;
}

MSyntax MPxCommand::syntax() const
{
    MSyntax syntax;
    if (m_state->syntax)
        *api::Access::syntax(syntax) = *m_state->syntax;
    return syntax;
}

MString MPxCommand::commandString() const
{
    return m_state->text;
}

MStatus MPxCommand::setCommandString(const MString& text)
{
    m_state->text = text;
    return MStatus::kSuccess;
}

bool MPxCommand::isHistoryOn() const
{
    return m_state->history;
}

MStatus MPxCommand::setHistoryOn(bool state)
{
    m_state->history = state;
    return MStatus::kSuccess;
}

void MPxCommand::setResult(int result)
{
    slot() = result;
}

void MPxCommand::setResult(unsigned int result)
{
    slot() = int(result);
}

void MPxCommand::setResult(double result)
{
    slot() = result;
}

void MPxCommand::setResult(float result)
{
    slot() = double(result);
}

void MPxCommand::setResult(bool result)
{
    slot() = result ? 1 : 0;
}

void MPxCommand::setResult(const char* result)
{
    slot() = std::string(result ? result : "");
}

void MPxCommand::setResult(const MString& result)
{
    slot() = api::toKernel(result);
}

void MPxCommand::setResult(const MIntArray& result)
{
    slot() = kernel::IntArray(result.begin(), result.end());
}

void MPxCommand::setResult(const MDoubleArray& result)
{
    slot() = kernel::DoubleArray(result.begin(), result.end());
}

void MPxCommand::setResult(const MStringArray& result)
{
    slot() = kernel::StringArray();
    appendToResult(result);
}

void MPxCommand::appendToResult(int element)
{
    append(element);
}

void MPxCommand::appendToResult(double element)
{
    append(element);
}

void MPxCommand::appendToResult(bool element)
{
    append(element ? 1 : 0);
}

void MPxCommand::appendToResult(const char* element)
{
    append(std::string(element ? element : ""));
}

void MPxCommand::appendToResult(const MString& element)
{
    append(api::toKernel(element));
}

void MPxCommand::appendToResult(const MStringArray& elements)
{
    for (const MString& element : elements)
        append(api::toKernel(element));
}

void MPxCommand::clearResult()
{
    slot() = kernel::Value();
}

MStatus MPxCommand::getCurrentResult(int& result)
{
    return api::getExactly(slot(), result);
}

MStatus MPxCommand::getCurrentResult(double& result)
{
    return api::getExactly(slot(), result);
}

MStatus MPxCommand::getCurrentResult(MString& result)
{
    return api::getExactly(slot(), result);
}

MStatus MPxCommand::getCurrentResult(MIntArray& result)
{
    return api::getExactly(slot(), result);
}

MStatus MPxCommand::getCurrentResult(MDoubleArray& result)
{
    return api::getExactly(slot(), result);
}

MStatus MPxCommand::getCurrentResult(MStringArray& result)
{
    return api::getExactly(slot(), result);
}

int MPxCommand::currentIntResult(MStatus* ReturnStatus)
{
    int result = 0;
    report(ReturnStatus, getCurrentResult(result).statusCode());
    return result;
}

double MPxCommand::currentDoubleResult(MStatus* ReturnStatus)
{
    double result = 0;
    report(ReturnStatus, getCurrentResult(result).statusCode());
    return result;
}

MString MPxCommand::currentStringResult(MStatus* ReturnStatus)
{
    MString result;
    report(ReturnStatus, getCurrentResult(result).statusCode());
    return result;
}

bool MPxCommand::isCurrentResultArray()
{
    return kernel::isArray(slot());
}

MPxCommand::MResultType MPxCommand::currentResultType()
{
    const kernel::Value& value = slot();
    if (std::holds_alternative<int>(value) || std::holds_alternative<kernel::IntArray>(value))
        return kLong;
    if (std::holds_alternative<double>(value) || std::holds_alternative<kernel::DoubleArray>(value))
        return kDouble;
    if (std::holds_alternative<std::string>(value) || std::holds_alternative<kernel::StringArray>(value))
        return kString;
    return kNoArg;
}

void MPxCommand::displayInfo(const MString& text)
{
    kernel::Session::current().output.info(api::toKernel(text));
}

void MPxCommand::displayWarning(const MString& text, bool /*showLineNumber*/)
{
    kernel::Session::current().output.warning(api::toKernel(text));
}

void MPxCommand::displayError(const MString& text, bool /*showLineNumber*/)
{
    kernel::Session::current().output.error(api::toKernel(text));
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
