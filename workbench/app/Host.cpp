#include "app/Host.h"

#include "api/HostApi.h"
#include "app/FramingCommand.h"
#include "app/RepeatCommand.h"
#include "kernel/Syntax.h"
#include "mel/Builtins.h"
#include "mel/builtins/OptionVars.h"
#include "ui/Commands.h"

#include <cstdlib>
#include <filesystem>

namespace app {

namespace {

std::string usualPrefsDir()
{
    const char* const configHome = std::getenv("XDG_CONFIG_HOME");
    const char* const home = std::getenv("HOME");
    const std::string base = configHome && *configHome ? configHome : std::string(home ? home : ".") + "/.config";
    return base + "/lumisketch-workbench/prefs";
}

/// Absolute, with a slash at the end.
std::string preparedFolder(const std::string& wanted)
{
    std::error_code ignored;  // a folder that cannot be made shows when something is written to it
    const std::filesystem::path folder = std::filesystem::absolute(wanted.empty() ? usualPrefsDir() : wanted, ignored);
    std::filesystem::create_directories(folder, ignored);
    std::string text = folder.lexically_normal().generic_string();
    if (text.empty() || text.back() != '/') {
        text += '/';
    }
    return text;
}

}  // namespace

Host::Host(const HostOptions& options)
    : m_session(std::make_unique<kernel::Session>()), m_ui(std::make_unique<ui::UiObjects>(*m_session)),
      m_menuSets(std::make_unique<ui::MenuSets>(*m_ui))
{
    m_session->batch = options.batch;
    m_session->prefsDir = preparedFolder(options.prefsDir);
    mel::installScriptLanguage(*m_session);
    api::installHostApi(*m_session);
    ui::registerCommands(*m_ui, *m_menuSets);
    registerFramingCommand(*m_session);
    registerRepeatCommand(*m_session);
    registerQuit();
    mel::loadOptionVars(*m_session);
    m_savedOptionVars = mel::optionVarScript(*m_session);
}

Host::~Host()
{
    shutDown();
}

void Host::shutDown()
{
    if (m_isDown) {
        return;
    }
    m_isDown = true;
    m_session->events.raise("quitApplication");
    // Nodes that outlive their module would keep its data as text, which nobody is going to read.
    m_session->undo.flush();
    m_session->scene.reset();
    api::shutDownHostApi(*m_session);
    // Runs that change nothing leave the file to those that do.
    if (mel::optionVarScript(*m_session) != m_savedOptionVars) {
        mel::saveOptionVars(*m_session);
    }
}

bool Host::run(const std::string& text)
{
    const bool ok = m_session->script().execute(text, false, true).ok;
    drainIdle();
    return ok;
}

kernel::Value Host::evaluate(const std::string& text)
{
    kernel::ScriptResult result = m_session->script().execute(text, false, true);
    drainIdle();
    return result.ok ? std::move(result.value) : kernel::Value();
}

bool Host::loadModule(const std::string& pathOrName)
{
    try {
        api::loadModule(*m_session, pathOrName);
        return true;
    } catch (const kernel::CommandError& error) {
        if (*error.what()) {
            m_session->output.error(error.what());
        }
        return false;
    }
}

void Host::registerQuit()
{
    m_session->commands.add("quit", [this](const kernel::ValueList& args) -> kernel::Value {
        kernel::Syntax syntax;
        syntax.addFlag("f", "force");
        syntax.addFlag("a", "abort");
        syntax.addFlag("ec", "exitCode", {kernel::ArgType::Int});
        const kernel::ParsedArgs parsed = kernel::parsedOrThrow(syntax, args);
        m_quitRequest = std::make_unique<QuitRequest>();
        m_quitRequest->force = parsed.has("force") || parsed.has("abort");
        m_quitRequest->exitCode = parsed.integer("exitCode");
        if (m_quitListener) {
            m_quitListener();
        }
        return {};
    });
}

}  // namespace app
