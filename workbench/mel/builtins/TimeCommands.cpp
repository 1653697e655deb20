#include "mel/builtins/Builtin.h"
#include "mel/builtins/Subjects.h"

#include <utility>

namespace mel {

using kernel::CommandError;
using kernel::Scene;
using kernel::TimeUnit;
using kernel::Value;

namespace {

// --- currentTime -----------------------------------------------------------------------------------------------------

Value runCurrentTime(BuiltinCall& call)
{
    if (!call.args.query && !call.args.objects.empty())
        call.apply(kernel::setTimeEdit(call.time(call.args.objects[0])));
    return call.scene.currentTime().value;
}

// --- currentUnit -----------------------------------------------------------------------------------------------------

struct UnitName {
    const char* shortName;
    const char* longName;
};

// The workbench computes in these, and scenes in other ones would come in at the wrong size.
constexpr UnitName kLinear{"cm", "centimeter"};
constexpr UnitName kAngle{"deg", "degree"};

void requireUnit(const std::string& name, const UnitName& unit)
{
    if (name != unit.shortName && name != unit.longName)
        throw CommandError("currentUnit: The unit '" + name + "' is not supported; " + unit.longName + " is.");
}

Value runCurrentUnit(BuiltinCall& call)
{
    const bool full = call.args.has("fullName");
    if (call.args.query) {
        if (call.args.has("linear"))
            return std::string(full ? kLinear.longName : kLinear.shortName);
        if (call.args.has("angle"))
            return std::string(full ? kAngle.longName : kAngle.shortName);
        return kernel::timeUnitName(call.scene.timeUnit());
    }
    if (call.args.has("linear"))
        requireUnit(call.args.text("linear"), kLinear);
    if (call.args.has("angle"))
        requireUnit(call.args.text("angle"), kAngle);
    if (call.args.has("time")) {
        const TimeUnit unit = kernel::timeUnitFromName(call.args.text("time"));
        if (unit == TimeUnit::Invalid)
            throw CommandError("currentUnit: Unknown time unit '" + call.args.text("time") + "'.");
        const Scene::Range playback = call.scene.playbackRange();
        const Scene::Range animation = call.scene.animationRange();
        // Converting back would not give the same numbers: not every instant is a whole number of ticks.
        call.apply(functionEdit(
            [unit](Scene& scene) { scene.setTimeUnit(unit); },
            [playback, animation, was = call.scene.timeUnit(), now = call.scene.currentTime()](Scene& scene) {
                scene.setTimeUnit(was);
                scene.setAnimationRange(animation);
                scene.setPlaybackRange(playback);
                scene.setCurrentTime(now);
            }));
    }
    return {};
}

// --- timeControl -----------------------------------------------------------------------------------------------------

// There is one time slider, whatever it is called.
Value runTimeControl(BuiltinCall& call)
{
    const Scene::Range range = call.scene.sliderRange();
    if (call.args.has("forceRefresh"))
        call.scene.requestRedraw();
    if (!call.args.query)
        return {};
    if (call.args.has("rangeArray"))
        return kernel::DoubleArray{range.first, range.last};
    if (call.args.has("rangeVisible"))
        return int(call.scene.isSliderRangeVisible());
    if (call.args.has("range"))
        return "\"" + kernel::numberText(range.first) + ":" + kernel::numberText(range.last) + "\"";
    return {};
}

}  // namespace

void addTimeCommands(kernel::Session& session)
{
    addBuiltin(session, "currentTime", makeSyntax({{"update", "u", "b"}}, Modes::QueryAndEdit, 0, 1), runCurrentTime);
    addBuiltin(session, "currentUnit",
               makeSyntax({{"time", "t", "s"},
                           {"linear", "l", "s"},
                           {"angle", "a", "s"},
                           {"fullName", "f"},
                           {"updateAnimation", "ua", "b"}},
                          Modes::Query, 0, 0),
               runCurrentUnit);
    addBuiltin(session, "timeControl",
               makeSyntax({{"range", "rng"}, {"rangeArray", "ra"}, {"rangeVisible", "rv"}, {"forceRefresh", "fr"}},
                          Modes::QueryAndEdit, 0, 1),
               runTimeControl);
}

}  // namespace mel
