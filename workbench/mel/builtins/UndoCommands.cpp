#include "mel/builtins/Builtin.h"
#include "mel/builtins/Subjects.h"

#include <memory>

namespace mel {

using kernel::Value;

namespace {

Value runUndo(BuiltinCall& call)
{
    kernel::UndoQueue& queue = call.session.undo;
    if (!queue.canUndo()) {
        call.session.output.warning("There are no more commands to undo.");
        return {};
    }
    const std::string name = queue.undoName();
    if (queue.undo()) {
        call.session.output.info("Undo: " + name);
        call.session.events.raise("Undo");
    }
    return {};
}

Value runRedo(BuiltinCall& call)
{
    kernel::UndoQueue& queue = call.session.undo;
    if (!queue.canRedo()) {
        call.session.output.warning("There are no more commands to redo.");
        return {};
    }
    const std::string name = queue.redoName();
    if (queue.redo()) {
        call.session.output.info("Redo: " + name);
        call.session.events.raise("Redo");
    }
    return {};
}

void printSteps(const BuiltinCall& call)
{
    std::size_t number = 0;
    for (const std::string& name : call.session.undo.names())
        call.session.output.say(kernel::Severity::Plain, std::to_string(++number) + ": " + name + "\n");
}

Value queryUndo(const BuiltinCall& call)
{
    const kernel::UndoQueue& queue = call.session.undo;
    const kernel::ParsedArgs& args = call.args;
    if (args.has("state") || args.has("stateWithoutFlush"))
        return int(queue.isEnabled());
    if (args.has("infinity"))
        return int(queue.isInfinite());
    if (args.has("length"))
        return int(queue.length());
    if (args.has("chunkName"))
        return queue.givenChunkName();
    if (args.has("undoName"))
        return queue.undoName();
    if (args.has("redoName"))
        return queue.redoName();
    if (args.has("undoQueueEmpty"))
        return int(!queue.canUndo());
    if (args.has("redoQueueEmpty"))
        return int(!queue.canRedo());
    if (args.has("printQueue")) {
        printSteps(call);
        return {};
    }
    return int(queue.count());
}

/// Chunks that scripts opened and have not closed again.
struct ScriptChunks {
    unsigned open = 0;
};

// A script closes what scripts opened, not the step that its own text is.
void openOrCloseChunk(BuiltinCall& call, ScriptChunks& chunks)
{
    kernel::UndoQueue& queue = call.session.undo;
    if (call.args.has("openChunk")) {
        queue.openChunk({});
        queue.nameOpenChunk(call.args.text("chunkName", 0, queue.givenChunkName()));
        ++chunks.open;
    }
    if (call.args.has("closeChunk") && chunks.open > 0) {
        queue.closeChunk();
        --chunks.open;
    }
}

Value runUndoInfo(BuiltinCall& call, ScriptChunks& chunks)
{
    kernel::UndoQueue& queue = call.session.undo;
    const kernel::ParsedArgs& args = call.args;
    if (args.query)
        return queryUndo(call);
    if (args.has("state"))
        queue.setEnabled(args.integer("state") != 0);
    if (args.has("stateWithoutFlush"))
        queue.setEnabledWithoutFlush(args.integer("stateWithoutFlush") != 0);
    if (args.has("infinity"))
        queue.setInfinite(args.integer("infinity") != 0);
    if (args.has("length")) {
        if (args.integer("length") < 0)
            throw kernel::CommandError("undoInfo: The length of the queue cannot be negative.");
        queue.setLength(unsigned(args.integer("length")));
    }
    openOrCloseChunk(call, chunks);
    return {};
}

}  // namespace

void addUndoCommands(kernel::Session& session)
{
    addBuiltin(session, "undo", makeSyntax({}, Modes::Create, 0, 0), runUndo);
    addBuiltin(session, "redo", makeSyntax({}, Modes::Create, 0, 0), runRedo);
    const auto chunks = std::make_shared<ScriptChunks>();
    addBuiltin(session, "undoInfo",
               makeSyntax({{"state", "st", "b"},
                           {"stateWithoutFlush", "swf", "b"},
                           {"infinity", "in", "b"},
                           {"length", "l", "i"},
                           {"openChunk", "ock"},
                           {"closeChunk", "cck"},
                           {"chunkName", "cn", "s"},
                           {"undoName", "un"},
                           {"redoName", "rn"},
                           {"undoQueueEmpty", "uqe"},
                           {"redoQueueEmpty", "rqe"},
                           {"printQueue", "pq"}},
                          Modes::Query, 0, 0),
               [chunks](BuiltinCall& call) { return runUndoInfo(call, *chunks); });
    addBuiltin(session, "flushUndo", makeSyntax({}, Modes::Create, 0, 0), [](BuiltinCall& call) {
        call.session.undo.flush();
        return Value();
    });
}

}  // namespace mel
