#pragma once

#include "kernel/Command.h"

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kernel {

/// Chunks of executed commands. One user action is one chunk; a chunk that recorded nothing is not kept.
class UndoQueue {
public:
    /// Chunks nest; only the outermost pair makes an entry. The name is the text shown for the step; without one, that
    /// of the first chunk within it.
    void openChunk(const std::string& name);
    void closeChunk();
    /// A name of its own for the open chunk, whatever it was opened with; kept until the outermost pair is closed.
    void nameOpenChunk(const std::string& name) { m_givenName = name; }
    const std::string& givenChunkName() const { return m_givenName; }
    /// Like openChunk(), but what is recorded until closeChunk() joins the last step, if there is one.
    void reopenLastChunk();
    bool isChunkOpen() const { return m_depth > 0; }

    /// Takes an executed command into the open chunk (or a chunk of its own) and empties the redo side.
    /// While recording is off, undo is running or the state is off, the command is destroyed.
    void record(std::unique_ptr<Command> command);

    /// Undo and redo of the last chunk. False when there was nothing, or the chunk failed half way (it is
    /// reported and dropped). Called while a chunk is open, what that has recorded so far counts as closed, so that
    /// steps are always taken back in reverse order.
    bool undo();
    bool redo();
    bool canUndo() const { return !m_done.empty() || !m_open.steps.empty(); }
    bool canRedo() const { return !m_undone.empty(); }
    std::string undoName() const;
    std::string redoName() const;
    bool isUndoing() const { return m_undoing; }
    bool isRedoing() const { return m_redoing; }

    void flush();
    void setEnabled(bool on);  ///< off also empties the queue
    void setEnabledWithoutFlush(bool on);
    bool isEnabled() const { return m_enabled; }
    void setLength(unsigned length);  ///< default 50
    unsigned length() const { return m_length; }
    void setInfinite(bool on);
    bool isInfinite() const { return m_infinite; }
    unsigned count() const { return unsigned(m_done.size()); }
    /// What undo would take back, the oldest first.
    std::vector<std::string> names() const;

    /// Whether commands of a module are in the queue; it must be flushed before that module is unloaded.
    bool holdsCommandsOf(const std::string& plugin) const;
    /// The next recorded command is a module's.
    void tagNextRecord(const std::string& plugin) { m_nextPlugin = plugin; }

    /// changed: after anything was recorded, taken back, redone or dropped. failed: text about a step that failed.
    void setListeners(std::function<void()> changed, std::function<void(const std::string&)> failed);

    /// While one lives, what is recorded belongs to one step.
    class OneStep {
    public:
        OneStep(UndoQueue& queue, const std::string& name) : m_queue(queue) { m_queue.openChunk(name); }
        ~OneStep() { m_queue.closeChunk(); }
        OneStep(const OneStep&) = delete;
        OneStep& operator=(const OneStep&) = delete;

    private:
        UndoQueue& m_queue;
    };

    /// While one lives, commands run but nothing is recorded.
    class Suspend {
    public:
        explicit Suspend(UndoQueue& queue) : m_queue(queue) { ++m_queue.m_suspended; }
        ~Suspend() { --m_queue.m_suspended; }
        Suspend(const Suspend&) = delete;
        Suspend& operator=(const Suspend&) = delete;

    private:
        UndoQueue& m_queue;
    };

private:
    struct Step {
        std::unique_ptr<Command> command;
        std::string plugin;
    };
    struct Chunk {
        std::string name;
        std::vector<Step> steps;
    };
    std::deque<Chunk> m_done;
    std::deque<Chunk> m_undone;
    Chunk m_open;
    std::string m_givenName;
    int m_depth = 0;
    int m_suspended = 0;
    bool m_enabled = true;
    bool m_infinite = false;
    bool m_undoing = false;
    bool m_redoing = false;
    unsigned m_length = 50;
    std::string m_nextPlugin;

    std::function<void()> m_changed;
    std::function<void(const std::string&)> m_failed;

    void push(Chunk chunk);
    void closeOpenSteps();
    const std::string& openName() const { return m_givenName.empty() ? m_open.name : m_givenName; }
    void trim();
    void notify();
    bool take(Chunk& chunk, bool (Command::*step)(), bool backwards);
};

}  // namespace kernel
