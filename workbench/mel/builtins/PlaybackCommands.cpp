#include "mel/builtins/Builtin.h"
#include "mel/builtins/Subjects.h"

#include <utility>

namespace mel {

using kernel::CommandError;
using kernel::Playback;
using kernel::Scene;
using kernel::Value;

namespace {

// --- playbackOptions -------------------------------------------------------------------------------------------------

const std::pair<const char*, Playback::Loop> kLoops[] = {
    {"once", Playback::Loop::Once},
    {"continuous", Playback::Loop::Continuous},
    {"oscillate", Playback::Loop::Oscillate},
};

Playback::Loop loopOfName(const std::string& name)
{
    for (const auto& loop : kLoops) {
        if (name == loop.first)
            return loop.second;
    }
    throw CommandError("playbackOptions: Unknown way to loop '" + name + "'.");
}

std::string nameOf(Playback::Loop wanted)
{
    for (const auto& loop : kLoops) {
        if (wanted == loop.second)
            return loop.first;
    }
    return {};
}

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

Value queryOptions(const BuiltinCall& call)
{
    const kernel::ParsedArgs& args = call.args;
    const Playback::Options& options = call.session.playback.options;
    const std::pair<const char*, Value> answers[] = {
        {"minTime", call.scene.playbackRange().first},
        {"maxTime", call.scene.playbackRange().last},
        {"animationStartTime", call.scene.animationRange().first},
        {"animationEndTime", call.scene.animationRange().last},
        {"by", options.by},
        {"playbackSpeed", options.speed},
        {"maxPlaybackSpeed", options.maxSpeed},
        {"loop", nameOf(options.loop)},
        {"view", options.view},
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

void editStep(BuiltinCall& call)
{
    if (!call.args.has("by"))
        return;
    const double by = call.args.number("by");
    if (!(by >= Playback::kLeastStep))
        throw CommandError("playbackOptions: The step must be " + kernel::numberText(Playback::kLeastStep)
                           + " or more.");
    double& step = call.session.playback.options.by;
    call.apply(functionEdit([&step, by](Scene&) { step = by; }, [&step, was = step](Scene&) { step = was; }));
}

Value runPlaybackOptions(BuiltinCall& call)
{
    const kernel::ParsedArgs& args = call.args;
    if (args.query)
        return queryOptions(call);
    Playback::Options& options = call.session.playback.options;
    const Playback::Loop loop = loopOfName(args.text("loop", 0, nameOf(options.loop)));
    editRanges(call);
    editStep(call);
    for (const char* flag : {"playbackSpeed", "maxPlaybackSpeed"}) {
        if (!(args.number(flag) >= 0))
            throw CommandError(std::string("playbackOptions: -") + flag + " must not be negative.");
    }
    options.loop = loop;
    options.speed = args.number("playbackSpeed", 0, options.speed);
    options.maxSpeed = args.number("maxPlaybackSpeed", 0, options.maxSpeed);
    options.view = args.text("view", 0, options.view);
    call.session.events.raise("playbackModeChanged");
    return {};
}

// --- play ------------------------------------------------------------------------------------------------------------

Value queryPlay(const BuiltinCall& call)
{
    const Playback& playback = call.session.playback;
    return int(call.args.has("forward") ? playback.isForward() : playback.isPlaying());
}

Value runPlay(BuiltinCall& call)
{
    if (call.args.query)
        return queryPlay(call);
    Playback& playback = call.session.playback;
    playback.setForward(call.args.integer("forward", 0, 1) != 0);
    if (call.args.integer("state", 0, 1) == 0)
        playback.stop();
    else if (call.args.has("wait"))
        playback.runThrough();
    else
        playback.start();
    return {};
}

}  // namespace

void addPlaybackCommands(kernel::Session& session)
{
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
               runPlaybackOptions);
    // There is no sound and nothing to record; both are taken as switched off.
    addBuiltin(session, "play",
               makeSyntax({{"state", "st", "b"},
                           {"forward", "f", "b"},
                           {"wait", "w"},
                           {"record", "rec"},
                           {"sound", "s", "s"},
                           {"playSound", "ps", "b"}},
                          Modes::Query, 0, 0),
               runPlay);
}

}  // namespace mel
