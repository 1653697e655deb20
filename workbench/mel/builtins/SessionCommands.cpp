#include "mel/Interpreter.h"
#include "mel/builtins/Builtin.h"
#include "mel/builtins/Subjects.h"

#include <chrono>
#include <cstdlib>

namespace mel {

using kernel::CommandError;
using kernel::Value;

namespace {

constexpr int kApiVersion = 20190000;

Value runAbout(BuiltinCall& call)
{
    const std::pair<FlagRow, Value> answers[] = {
        {{"batch", "b"}, int(call.session.batch)},
        {{"version", "v"}, std::string("2019")},
        {{"apiVersion", "api"}, kApiVersion},
        {{"installedVersion", "iv"}, std::string("Maya 2019")},
        {{"product", "p"}, std::string("Maya 2019")},
        {{"application", "a"}, std::string("maya")},
        {{"operatingSystem", "os"}, std::string("linux64")},
        {{"linux64", "l64"}, 1},
        {{"linux", "linux"}, 1},
        {{"windows", "win"}, 0},
        {{"macOS", "mac"}, 0},
        {{"uiLanguage", "uil"}, std::string("en_US")},
        {{"cutIdentifier", "c"}, std::string("000000000000-0000000000")},
    };
    for (const auto& answer : answers) {
        if (call.args.has(answer.first.longName))
            return answer.second;
    }
    return std::string("Maya 2019");
}

std::string withSlash(const char* directory)
{
    std::string path = directory && *directory ? directory : "/tmp";
    return path.back() == '/' ? path : path + "/";
}

// Every folder ends in a slash: scripts append names as they are.
Value runInternalVar(BuiltinCall& call)
{
    const std::string& prefs = call.session.prefsDir;
    const std::size_t parent = prefs.size() > 1 ? prefs.rfind('/', prefs.size() - 2) : std::string::npos;
    const std::string app = parent == std::string::npos ? prefs : prefs.substr(0, parent + 1);
    const std::pair<const char*, std::string> folders[] = {
        {"userPrefDir", prefs},
        {"userAppDir", app},
        {"userScriptDir", prefs + "scripts/"},
        {"userShelfDir", prefs + "shelves/"},
        {"userPresetsDir", prefs + "presets/"},
        {"userTmpDir", withSlash(std::getenv("TMPDIR"))},
        {"userWorkspaceDir", withSlash(std::getenv("HOME"))},
    };
    for (const auto& folder : folders) {
        if (call.args.has(folder.first))
            return folder.second;
    }
    throw CommandError("internalVar: No folder was asked for.");
}

// Seconds since the session's first call, or since the start time given.
Value runTimer(BuiltinCall& call)
{
    using Clock = std::chrono::steady_clock;
    static const Clock::time_point begin = Clock::now();
    const double now = std::chrono::duration<double>(Clock::now() - begin).count();
    return now - call.args.number("startTime");
}

// A host that echoes all commands shows the silent ones too, each text as it is run.
Value runCommandEcho(BuiltinCall& call)
{
    Interpreter& interpreter = Interpreter::of(call.session);
    if (call.args.query)
        return int(interpreter.echoesAll());
    if (call.args.has("state"))
        interpreter.setEchoesAll(call.args.integer("state") != 0);
    return {};
}

}  // namespace

void addSessionCommands(kernel::Session& session)
{
    addBuiltin(session, "about",
               makeSyntax({{"batch", "b"},
                           {"version", "v"},
                           {"apiVersion", "api"},
                           {"installedVersion", "iv"},
                           {"product", "p"},
                           {"application", "a"},
                           {"operatingSystem", "os"},
                           {"linux64", "l64"},
                           {"linux", "linux"},
                           {"windows", "win"},
                           {"macOS", "mac"},
                           {"uiLanguage", "uil"},
                           {"cutIdentifier", "c"}},
                          Modes::Create, 0, 0),
               runAbout);
    addBuiltin(session, "internalVar",
               makeSyntax({{"userPrefDir", "upd"},
                           {"userAppDir", "uad"},
                           {"userScriptDir", "usd"},
                           {"userTmpDir", "utd"},
                           {"userWorkspaceDir", "uwd"},
                           {"userShelfDir", "ush"},
                           {"userPresetsDir", "ups"}},
                          Modes::Create, 0, 0),
               runInternalVar);
    addBuiltin(session, "commandEcho", makeSyntax({{"state", "st", "b"}}, Modes::Query, 0, 0), runCommandEcho);
    addBuiltin(session, "timerX", makeSyntax({{"startTime", "st", "f"}}, Modes::Create, 0, 0), runTimer);
}

}  // namespace mel
