#include "api/Messages.h"

#include "api/Handles.h"
#include "api/Registration.h"

#include <maya/MConditionMessage.h>
#include <maya/MEventMessage.h>

#include <algorithm>
#include <vector>

using api::report;

namespace {

struct Watcher {
    unsigned id;
    std::string module;
};

/// The kernel does not know whose its condition watchers are.
std::vector<Watcher>& watchers()
{
    static std::vector<Watcher> list;
    return list;
}

std::vector<unsigned>& delivering()
{
    static std::vector<unsigned> ids;
    return ids;
}

/// Marks a callback as the one being delivered.
class Delivery {
public:
    explicit Delivery(unsigned id) { delivering().push_back(id); }
    ~Delivery() { delivering().pop_back(); }
    Delivery(const Delivery&) = delete;
    Delivery& operator=(const Delivery&) = delete;
};

bool forgetWatcher(kernel::Session& session, unsigned id)
{
    auto& list = watchers();
    list.erase(std::remove_if(list.begin(), list.end(), [&](const Watcher& w) { return w.id == id; }), list.end());
    return session.events.unwatch(id);
}

}  // namespace

namespace api {

unsigned dropCallbacksOf(kernel::Session& session, const std::string& module)
{
    unsigned count = session.events.removeOf(module);
    const std::vector<Watcher> before = watchers();
    for (const Watcher& watcher : before) {
        if (watcher.module == module && forgetWatcher(session, watcher.id))
            ++count;
    }
    return count;
}

void forgetCallbacks()
{
    watchers().clear();
}

}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN

MStatus MMessage::removeCallback(MCallbackId id)
{
    if (id <= 0 || !kernel::Session::exists())
        return MStatus::kInvalidParameter;
    kernel::Session& session = kernel::Session::current();
    const bool removed = session.events.remove(unsigned(id)) || forgetWatcher(session, unsigned(id));
    return removed ? MStatus::kSuccess : MStatus::kFailure;
}

MStatus MMessage::removeCallbacks(MCallbackIdArray& ids)
{
    MStatus result;
    for (unsigned int i = 0; i < ids.length(); ++i) {
        if (!removeCallback(ids[i]))
            result = MStatus::kFailure;
    }
    return result;
}

MCallbackId MMessage::currentCallbackId(MStatus* ReturnStatus)
{
    const bool inside = !delivering().empty();
    report(ReturnStatus, inside ? MStatus::kSuccess : MStatus::kFailure);
    return inside ? delivering().back() : 0;
}

MCallbackId MEventMessage::addEventCallback(const MString& eventName, MMessage::MBasicFunction function,
                                            void* clientData, MStatus* ReturnStatus)
{
    if (!function) {
        report(ReturnStatus, MStatus::kInvalidParameter);
        return 0;
    }
    const std::string module = api::moduleOfCode(reinterpret_cast<const void*>(function));
    const auto id = std::make_shared<unsigned>(0);
    const auto deliver = [function, clientData, module, id] {
        const api::ModuleScope scope(module);
        const Delivery delivery(*id);
        function(clientData);
    };
    *id = kernel::Session::current().events.add(api::toKernel(eventName), deliver, module);
    report(ReturnStatus, *id ? MStatus::kSuccess : MStatus::kInvalidParameter);
    return *id;
}

MStatus MEventMessage::getEventNames(MStringArray& names)
{
    names.clear();
    for (const std::string& name : kernel::Session::current().events.names())
        names.append(api::toHost(name));
    return MStatus::kSuccess;
}

MCallbackId MConditionMessage::addConditionCallback(const MString& conditionName, MMessage::MStateFunction function,
                                                    void* clientData, MStatus* ReturnStatus)
{
    kernel::Events& events = kernel::Session::current().events;
    const std::string condition = api::toKernel(conditionName);
    if (!function || !events.isCondition(condition)) {
        report(ReturnStatus, MStatus::kInvalidParameter);
        return 0;
    }
    const std::string module = api::moduleOfCode(reinterpret_cast<const void*>(function));
    const auto id = std::make_shared<unsigned>(0);
    *id = events.watch(condition, [function, clientData, module, id](bool state) {
        const api::ModuleScope scope(module);
        const Delivery delivery(*id);
        function(state, clientData);
    });
    if (*id)
        watchers().push_back({*id, module});
    report(ReturnStatus, *id ? MStatus::kSuccess : MStatus::kFailure);
    return *id;
}

bool MConditionMessage::getConditionState(const MString& conditionName, MStatus* ReturnStatus)
{
    kernel::Events& events = kernel::Session::current().events;
    const std::string condition = api::toKernel(conditionName);
    const bool known = events.isCondition(condition);
    report(ReturnStatus, known ? MStatus::kSuccess : MStatus::kInvalidParameter);
    return known && events.condition(condition);
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
