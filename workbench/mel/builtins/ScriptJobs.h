#pragma once

#include "kernel/Session.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace mel {

/// Scripts that run when the host is idle after an event or a change of a condition, once however often it came.
/// In batch mode they never run.
class ScriptJobs : public std::enable_shared_from_this<ScriptJobs> {
public:
    enum class Trigger { Event, ConditionTrue, ConditionFalse, ConditionChange };

    struct Options {
        bool runOnce = false;
        bool isProtected = false;
        bool endsWithScene = false;
    };

    explicit ScriptJobs(kernel::Session& session) : m_session(session) {}

    /// Returns the job's number, 1 or higher, never used again. Throws CommandError for an unknown event or
    /// condition. flag: how listJobs names the trigger.
    int add(Trigger trigger, const std::string& flag, const std::string& name, const std::string& text,
            Options options);
    /// Throws CommandError for an unknown number, and for a protected job unless forced.
    void kill(int number, bool force);
    void killAll(bool force);
    bool exists(int number) const;
    std::vector<std::string> list() const;

private:
    struct Job {
        int number;
        Trigger trigger;
        std::string flag;
        std::string name;
        std::string text;
        Options options;
        unsigned watch;
        bool isDue;
    };

    unsigned watch(Trigger trigger, const std::string& name, std::function<void()> fire);
    void fire(int number);
    void runDue();
    void remove(int number);
    Job* find(int number);
    void watchScene();
    void endWithScene();

    kernel::Session& m_session;
    std::vector<Job> m_jobs;
    int m_nextNumber = 1;
    bool m_isPosted = false;
    bool m_watchesScene = false;
};

}  // namespace mel
