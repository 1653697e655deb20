#include "app/Batch.h"

#include "mel/Interpreter.h"
#include "mel/builtins/Quoting.h"

namespace app {

namespace {

bool runStep(Host& host, const CommandLine::Step& step)
{
    mel::Interpreter& interpreter = mel::Interpreter::of(host.session());
    const kernel::ScriptResult result = step.kind == CommandLine::Step::Kind::Script
                                          ? interpreter.executeBatchFile(step.text)
                                          : interpreter.executeBatch(step.text);
    if (result.ok && step.kind == CommandLine::Step::Kind::Command && kernel::hasValue(result.value)) {
        host.session().output.say(kernel::Severity::Result, kernel::toText(result.value));
    }
    host.drainIdle();
    return result.ok;
}

bool openScene(Host& host, const std::string& path)
{
    const bool ok = host.session().script().execute("file -force -open " + mel::quoted(path), false, false).ok;
    host.drainIdle();
    return ok;
}

}  // namespace

std::string ownModulePath(const std::string& programFolder)
{
    return programFolder + "/plug-ins/lumisketch2.so";
}

int runBatch(Host& host, const CommandLine& line, const std::string& programFolder)
{
    bool ok = !line.loadPlugin || host.loadModule(ownModulePath(programFolder));
    ok = ok && (line.file.empty() || openScene(host, line.file));
    for (const CommandLine::Step& step : line.steps) {
        if (!ok || host.quitRequest()) {
            break;
        }
        ok = runStep(host, step);
    }
    return host.quitRequest() ? host.quitRequest()->exitCode : ok ? 0 : 1;
}

}  // namespace app
