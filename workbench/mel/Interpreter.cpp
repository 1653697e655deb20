#include "mel/Interpreter.h"

#include "mel/Evaluator.h"
#include "mel/Parser.h"
#include "mel/Resolver.h"
#include "mel/SceneReader.h"
#include "mel/Source.h"

#include <cstdlib>
#include <fstream>
#include <optional>
#include <set>
#include <sstream>
#include <sys/stat.h>
#include <utility>

namespace mel {

using kernel::CommandError;
using kernel::ScriptResult;
using kernel::Severity;
using kernel::Value;

namespace {

constexpr int kMostCalls = 256;

bool isFile(const std::string& path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

std::string readFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream content;
    if (!isFile(path) || !in || !(content << in.rdbuf() || in.peek() == EOF))
        throw CommandError("File not found: " + path);
    return content.str();
}

// What the undo queue calls the step: the text's beginning, on one line.
std::string stepName(const std::string& text)
{
    constexpr std::size_t kLongest = 80;
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string::npos)
        return {};
    const std::string_view line = std::string_view(text).substr(first, text.find_first_of("\r\n", first) - first);
    std::string_view name = beginning(line, kLongest);
    while (!name.empty() && (name.back() == ';' || name.back() == ' '))
        name.remove_suffix(1);
    return std::string(name);
}

}  // namespace

/// One undo step, or a stretch in which nothing is recorded.
class Interpreter::UndoStep {
public:
    UndoStep(kernel::UndoQueue& queue, bool record, const std::string& text) : m_queue(queue), m_record(record)
    {
        if (record)
            m_queue.openChunk(stepName(text));
        else
            m_suspend.emplace(queue);
    }
    ~UndoStep()
    {
        if (m_record)
            m_queue.closeChunk();
    }
    UndoStep(const UndoStep&) = delete;
    UndoStep& operator=(const UndoStep&) = delete;

private:
    kernel::UndoQueue& m_queue;
    const bool m_record;
    std::optional<kernel::UndoQueue::Suspend> m_suspend;
};

/// A scene is read while this lives: it has a current node of its own.
class Interpreter::ReadingScene {
public:
    explicit ReadingScene(Interpreter& interpreter)
        : m_interpreter(interpreter), m_running(interpreter), m_suspend(interpreter.m_session.undo),
          m_nodeBefore(std::exchange(interpreter.m_sceneNode, nullptr))
    {}
    ~ReadingScene() { m_interpreter.m_sceneNode = m_nodeBefore; }
    ReadingScene(const ReadingScene&) = delete;
    ReadingScene& operator=(const ReadingScene&) = delete;

private:
    Interpreter& m_interpreter;
    const Running m_running;
    const kernel::UndoQueue::Suspend m_suspend;
    const kernel::NodePtr m_nodeBefore;
};

Interpreter::Call::Call(Interpreter& interpreter, const std::string& procedure) : m_interpreter(interpreter)
{
    if (m_interpreter.m_calls >= kMostCalls)
        throw CommandError("Procedure calls are nested more than " + std::to_string(kMostCalls) + " deep, in "
                           + procedure + ".");
    ++m_interpreter.m_calls;
}

Interpreter::Interpreter(kernel::Session& session) : m_session(session) {}

Interpreter::~Interpreter() = default;

Interpreter& Interpreter::of(kernel::Session& session)
{
    return static_cast<Interpreter&>(session.script());
}

ScriptResult Interpreter::guarded(const std::function<Value()>& work)
{
    ScriptResult result;
    try {
        result.value = work();
        return result;
    } catch (const CommandError& error) {
        report(error);
    } catch (const std::exception& error) {
        report(CommandError(error.what()));
    }
    result.ok = false;
    return result;
}

ScriptResult Interpreter::execute(const std::string& text, bool display, bool undo)
{
    return executeSource(std::make_shared<const Source>(text, std::string()), display, undo);
}

ScriptResult Interpreter::executeWritten(const std::string& text)
{
    return executeSource(std::make_shared<const Source>(text, std::string(), Source::Lines::Named), true, true);
}

ScriptResult Interpreter::executeSource(const std::shared_ptr<const Source>& source, bool display, bool undo)
{
    const std::string text(source->text());
    if (display || m_echoesAll)
        m_session.output.say(Severity::Echo, text);
    ScriptResult result;
    {
        const Running running(*this);
        const UndoStep step(m_session.undo, undo, text);
        result = guarded([&] { return runUnit(compile(source)); });
    }
    if (display && result.ok && kernel::hasValue(result.value))
        m_session.output.say(Severity::Result, kernel::toText(result.value));
    return result;
}

ScriptResult Interpreter::executeFile(const std::string& path, bool undo)
{
    const Running running(*this);
    const UndoStep step(m_session.undo, undo, path);
    return guarded([&] { return runText(readFile(path), path); });
}

ScriptResult Interpreter::executeBatch(const std::string& text, const std::string& fileName)
{
    return guarded([&] {
        const std::shared_ptr<const Unit> unit = compile(std::make_shared<const Source>(text, fileName));
        Evaluator evaluator(*this, unit, unit->frameSize);
        Value value;
        for (std::size_t i = 0; i < unit->statements.size(); ++i) {
            const Stmt& statement = *unit->statements[i];
            const std::size_t end = i + 1 < unit->statements.size() ? unit->statements[i + 1]->at : text.size();
            const Running running(*this);
            const UndoStep step(m_session.undo, true, text.substr(statement.at, end - statement.at));
            value = evaluator.runTop(statement);
            if (evaluator.hasReturned())
                break;
        }
        return value;
    });
}

ScriptResult Interpreter::executeBatchFile(const std::string& path)
{
    std::string text;
    const ScriptResult read = guarded([&] {
        text = readFile(path);
        return Value();
    });
    return read.ok ? executeBatch(text, path) : read;
}

bool Interpreter::executeScene(std::string_view text, kernel::SceneIntake& intake, const kernel::PartRead& partRead)
{
    const ReadingScene reading(*this);
    return SceneReader(*this, text, intake, partRead).read();
}

std::unique_ptr<kernel::SceneStatements> Interpreter::beginScene(kernel::SceneIntake& intake)
{
    class Statements : public kernel::SceneStatements {
    public:
        Statements(Interpreter& interpreter, kernel::SceneIntake& intake)
            : m_interpreter(interpreter), m_intake(intake), m_reading(interpreter)
        {}
        bool run(std::string_view text) override
        {
            const std::string place = m_intake.path().empty() ? std::string() : "file: " + m_intake.path() + ": ";
            return SceneReader(m_interpreter, text, m_intake, place).read();
        }
        std::shared_ptr<kernel::Node> node() const override { return m_interpreter.sceneNode(); }

    private:
        Interpreter& m_interpreter;
        kernel::SceneIntake& m_intake;
        const ReadingScene m_reading;
    };
    return std::make_unique<Statements>(*this, intake);
}

Value Interpreter::evaluate(const std::string& text)
{
    return runText(text, {});
}

void Interpreter::source(const std::string& name)
{
    std::string path = isFile(name) ? name : findScript(name);
    if (path.empty())
        throw CommandError("Cannot find file \"" + name + "\" for source statement.");
    runText(readFile(path), path);
}

Value Interpreter::runText(const std::string& text, const std::string& fileName)
{
    return runUnit(compile(std::make_shared<const Source>(text, fileName)));
}

std::shared_ptr<const Unit> Interpreter::compile(const std::shared_ptr<const Source>& source)
{
    try {
        Parser parser(source);
        std::shared_ptr<Unit> unit = parser.parse();
        Resolver resolver([this](const std::string& name) -> const Type* {
            const Variable* known = findGlobal(name);
            return known ? &known->type : nullptr;
        });
        resolver.resolve(*unit);
        declareGlobals(resolver, unit);
        return unit;
    } catch (const SyntaxError& error) {
        m_session.output.error(source->lineAt(error.at()));
        report(CommandError(source->syntaxPrefix(error.at()) + error.what()));
        throw CommandError({});
    }
}

// A global's first value is given once, when the text that brings it is compiled; running it again does not reset it.
void Interpreter::declareGlobals(const Resolver& resolver, const std::shared_ptr<const Unit>& unit)
{
    std::set<std::string> added;
    for (const auto& global : resolver.newGlobals()) {
        if (global.second.base != BaseType::None && !findGlobal(global.first))
            added.insert(global.first);
    }
    Evaluator evaluator(*this, unit, 0);
    for (const Declarator* declarator : resolver.globalInitialisers()) {
        if (added.erase(declarator->variable->name))
            evaluator.initialiseGlobal(*declarator);
    }
    for (const std::string& name : added) {
        const Type type = resolver.newGlobals().at(name);
        if (type.base == BaseType::Matrix)
            continue;  // its size is known to the declaration itself
        declareGlobal(name) = freshVariable(type);
    }
}

Value Interpreter::runUnit(const std::shared_ptr<const Unit>& unit)
{
    Evaluator evaluator(*this, unit, unit->frameSize);
    Value value;
    for (const StmtPtr& statement : unit->statements) {
        value = evaluator.runTop(*statement);
        if (evaluator.hasReturned())
            break;
    }
    return value;
}

Value Interpreter::global(const std::string& name) const
{
    const auto found = m_globals.find(name);
    return found == m_globals.end() ? Value() : found->second->value;
}

void Interpreter::setGlobalString(const std::string& name, const std::string& value)
{
    Variable& variable = declareGlobal(name);
    variable.type = {BaseType::String, false};
    variable.value = value;
}

Variable* Interpreter::findGlobal(const std::string& name)
{
    const auto found = m_globals.find(name);
    return found == m_globals.end() ? nullptr : found->second.get();
}

Variable& Interpreter::declareGlobal(const std::string& name)
{
    std::unique_ptr<Variable>& variable = m_globals[name];
    if (!variable)
        variable = std::make_unique<Variable>();
    return *variable;
}

void Interpreter::define(const std::string& name, Procedure procedure)
{
    m_procedures[name] = std::move(procedure);
}

Procedure Interpreter::findProcedure(const std::string& name, const std::shared_ptr<const Unit>& caller) const
{
    if (caller) {
        const auto local = caller->localProcedures.find(name);
        if (local != caller->localProcedures.end())
            return {caller, local->second};
    }
    const auto found = m_procedures.find(name);
    return found == m_procedures.end() ? Procedure() : found->second;
}

std::vector<std::string> Interpreter::scriptFolders() const
{
    std::vector<std::string> folders;
    if (!m_session.prefsDir.empty())
        folders.push_back(m_session.prefsDir + "scripts/");
    const char* const path = std::getenv("MAYA_SCRIPT_PATH");
    std::istringstream entries(path ? path : "");
    for (std::string entry; std::getline(entries, entry, ':');) {
        if (!entry.empty())
            folders.push_back(entry + "/");
    }
    return folders;
}

std::string Interpreter::findScript(const std::string& name) const
{
    for (const std::string& folder : scriptFolders()) {
        for (const char* extension : {"", ".mel"}) {
            if (isFile(folder + name + extension))
                return folder + name + extension;
        }
    }
    return {};
}

void Interpreter::report(const CommandError& error)
{
    const std::string message = error.what();
    if (message.empty())
        return;
    m_lastError = message;
    m_session.output.error(message);
}

}  // namespace mel
