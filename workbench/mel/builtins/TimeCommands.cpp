#include "mel/builtins/Builtin.h"
#include "mel/builtins/Subjects.h"

#include <memory>
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

// --- playbackOptions -------------------------------------------------------------------------------------------------

/// How playback runs, as far as it is no part of the scene.
struct Playback {
    double by = 1;
    double speed = 1;  ///< 0: every frame
    double maxSpeed = 0;
    std::string loop = "continuous";
    std::string view = "active";
};

struct Ranges {
    Scene::Range playback;
    Scene::Range animation;
};

void setRanges(Scene& scene, const Ranges& ranges)
{
    scene.setAnimationRange(ranges.animation);
    scene.setPlaybackRange(ranges.playback);
}

/// A start behind the end pushes the end along, and the other way round.
void setStart(Scene::Range& range, double start)
{
    range.first = start;
    if (range.last < start)
        range.last = start + 1;
}

void setEnd(Scene::Range& range, double end)
{
    range.last = end;
    if (range.first > end)
        range.first = end - 1;
}

Value queryPlayback(const BuiltinCall& call, const Playback& playback)
{
    const kernel::ParsedArgs& args = call.args;
    const std::pair<const char*, Value> answers[] = {
        {"minTime", call.scene.playbackRange().first},
        {"maxTime", call.scene.playbackRange().last},
        {"animationStartTime", call.scene.animationRange().first},
        {"animationEndTime", call.scene.animationRange().last},
        {"by", playback.by},
        {"playbackSpeed", playback.speed},
        {"maxPlaybackSpeed", playback.maxSpeed},
        {"loop", playback.loop},
        {"view", playback.view},
        {"framesPerSecond", kernel::kTicksPerSecond / kernel::ticksPerUnit(call.scene.timeUnit())},
    };
    for (const auto& answer : answers) {
        if (args.has(answer.first))
            return answer.second;
    }
    return {};
}

void editRanges(BuiltinCall& call)
{
    const Ranges before{call.scene.playbackRange(), call.scene.animationRange()};
    Ranges after = before;
    const auto given = [&](const char* flag) -> const Value* {
        const kernel::ValueList* values = call.args.values(flag);
        return values ? &values->front() : nullptr;
    };
    const auto number = [&](const Value& value) { return call.time(value).as(call.scene.timeUnit()); };
    if (const Value* start = given("animationStartTime"))
        setStart(after.animation, number(*start));
    if (const Value* end = given("animationEndTime"))
        setEnd(after.animation, number(*end));
    if (const Value* start = given("minTime"))
        setStart(after.playback, number(*start));
    if (const Value* end = given("maxTime"))
        setEnd(after.playback, number(*end));
    const bool setsAnimation = given("animationStartTime") || given("animationEndTime");
    const bool setsPlayback = given("minTime") || given("maxTime");
    if (!setsAnimation && !setsPlayback)
        return;
    call.apply(functionEdit(
        [=](Scene& scene) {
            if (setsAnimation)
                scene.setAnimationRange(after.animation);
            if (setsPlayback)
                scene.setPlaybackRange(after.playback);
        },
        [=](Scene& scene) { setRanges(scene, before); }));
}

Value runPlaybackOptions(BuiltinCall& call, Playback& playback)
{
    if (call.args.query)
        return queryPlayback(call, playback);
    editRanges(call);
    if (call.args.has("by")) {
        const double by = call.args.number("by");
        call.apply(functionEdit([&playback, by](Scene&) { playback.by = by; },
                                [&playback, was = playback.by](Scene&) { playback.by = was; }));
    }
    playback.speed = call.args.number("playbackSpeed", 0, playback.speed);
    playback.maxSpeed = call.args.number("maxPlaybackSpeed", 0, playback.maxSpeed);
    playback.loop = call.args.text("loop", 0, playback.loop);
    playback.view = call.args.text("view", 0, playback.view);
    return {};
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
        const Ranges ranges{call.scene.playbackRange(), call.scene.animationRange()};
        // Converting back would not give the same numbers: not every instant is a whole number of ticks.
        call.apply(functionEdit([unit](Scene& scene) { scene.setTimeUnit(unit); },
                                [ranges, was = call.scene.timeUnit(), now = call.scene.currentTime()](Scene& scene) {
                                    scene.setTimeUnit(was);
                                    setRanges(scene, ranges);
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
    const auto playback = std::make_shared<Playback>();
    addBuiltin(session, "playbackOptions",
               makeSyntax({{"minTime", "min", "t"},
                           {"maxTime", "max", "t"},
                           {"animationStartTime", "ast", "t"},
                           {"animationEndTime", "aet", "t"},
                           {"by", "by", "f"},
                           {"loop", "l", "s"},
                           {"playbackSpeed", "ps", "f"},
                           {"maxPlaybackSpeed", "mps", "f"},
                           {"view", "v", "s"},
                           {"framesPerSecond", "fps"}},
                          Modes::QueryAndEdit, 0, 0),
               [playback](BuiltinCall& call) { return runPlaybackOptions(call, *playback); });
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
