#pragma once

#include "kernel/ChangeListener.h"
#include "kernel/Session.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace mel {

/// Scripts that run when the host is idle after something happened, once however often it did. In batch mode they
/// never run, and while time is played back they do not hear of events.
class ScriptJobs : public kernel::ChangeListener, public std::enable_shared_from_this<ScriptJobs> {
public:
    enum class Trigger {
        Event,
        ConditionTrue,
        ConditionFalse,
        ConditionChange,
        Attribute,
        NodeName,
        NodeDeleted,
        OptionVar,
        Idle,  ///< at every idle
    };

    struct Options {
        bool runOnce = false;
        bool isProtected = false;  ///< goes only when forced
        bool isPermanent = false;  ///< never goes
        bool endsWithScene = false;
        bool joinsLastStep = false;  ///< what it does is undone with the undo step before it
    };

    explicit ScriptJobs(kernel::Session& session);
    ~ScriptJobs() override;

    /// Returns the job's number, 1 or higher, never used again. Throws CommandError when there is no such thing as the
    /// name says: an event, a condition, a node, a "node.attribute"; an option variable need not exist. flag: how
    /// listJobs names the trigger.
    int add(Trigger trigger, const std::string& flag, const std::string& name, const std::string& text,
            Options options);
    /// Throws CommandError for an unknown number, for a protected job unless forced, and for a permanent one.
    void kill(int number, bool force);
    void killAll(bool force);
    bool exists(int number) const;
    std::vector<std::string> list() const;

    void attributeChanged(const kernel::Node& node, const kernel::AttributeSpec& attribute) override;
    void nodeRenamed(const kernel::Node& node) override;
    void nodeRemoved(const kernel::Node& node) override;
    void optionVarChanged(const std::string& name) override;

private:
    struct Job {
        int number = 0;
        Trigger trigger = Trigger::Event;
        std::string flag;
        std::string name;
        std::string text;
        Options options;
        unsigned watch = 0;                ///< events and conditions
        std::weak_ptr<kernel::Node> node;  ///< what is watched of the scene
        kernel::AttributePtr attribute;
        bool isDue = false;
    };

    void bind(Job& job);
    unsigned watch(const Job& job);
    void fire(int number);
    void fireWhere(const std::function<bool(const Job& job)>& concerns);
    void runDue();
    void run(const std::string& text, bool joinsLastStep);
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
