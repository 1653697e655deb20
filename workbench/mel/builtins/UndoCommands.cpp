#include "mel/builtins/Builtin.h"
#include "mel/builtins/Subjects.h"

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

Value queryUndo(const kernel::UndoQueue& queue, const kernel::ParsedArgs& args)
{
    if (args.has("state") || args.has("stateWithoutFlush"))
        return int(queue.isEnabled());
    if (args.has("infinity"))
        return int(queue.isInfinite());
    if (args.has("length"))
        return int(queue.length());
    if (args.has("undoName") || args.has("chunkName"))
        return queue.undoName();
    if (args.has("redoName"))
        return queue.redoName();
    if (args.has("undoQueueEmpty"))
        return int(!queue.canUndo());
    if (args.has("redoQueueEmpty"))
        return int(!queue.canRedo());
    return int(queue.count());
}

Value runUndoInfo(BuiltinCall& call)
{
    kernel::UndoQueue& queue = call.session.undo;
    const kernel::ParsedArgs& args = call.args;
    if (args.query)
        return queryUndo(queue, args);
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
    if (args.has("openChunk"))
        queue.openChunk(args.text("chunkName"));
    if (args.has("closeChunk"))
        queue.closeChunk();
    return {};
}

}  // namespace

void addUndoCommands(kernel::Session& session)
{
    addBuiltin(session, "undo", makeSyntax({}, Modes::Create, 0, 0), runUndo);
    addBuiltin(session, "redo", makeSyntax({}, Modes::Create, 0, 0), runRedo);
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
                           {"redoQueueEmpty", "rqe"}},
                          Modes::Query, 0, 0),
               runUndoInfo);
    addBuiltin(session, "flushUndo", makeSyntax({}, Modes::Create, 0, 0), [](BuiltinCall& call) {
        call.session.undo.flush();
        return Value();
    });
}

}  // namespace mel
