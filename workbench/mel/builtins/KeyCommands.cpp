#include "mel/builtins/KeyTargets.h"
#include "mel/builtins/Subjects.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace mel {

using kernel::AnimCurve;
using kernel::CommandError;
using kernel::CurveKey;
using kernel::NodePtr;
using kernel::Plug;
using kernel::Value;

namespace {

/// A time of the scene's unit.
double inSceneUnit(const BuiltinCall& call, double ticks)
{
    return ticks / kernel::ticksPerUnit(call.scene.timeUnit());
}

double finite(const std::string& flag, double number)
{
    if (!std::isfinite(number))
        throw CommandError("The value of -" + flag + " is no number.");
    return number;
}

// --- tangents --------------------------------------------------------------------------------------------------------

struct TangentName {
    const char* name;
    int type;
    bool isComputed;  ///< others stand in scenes only; curves run straight there
};
const TangentName kTangentNames[] = {
    {"linear", kernel::kLinearTangent, true},
    {"step", kernel::kStepTangent, true},
    {"stepnext", kernel::kStepTangent, true},
    {"stepnext", kernel::kStepNextTangent, false},
    {"fixed", 1, false},
    {"flat", 3, false},
    {"spline", 9, false},
    {"clamped", 10, false},
    {"plateau", 16, false},
    {"auto", 18, false},
};

std::optional<int> tangentOf(const BuiltinCall& call, const char* flag)
{
    if (!call.args.has(flag))
        return std::nullopt;
    const std::string wanted = call.args.text(flag);
    for (const TangentName& row : kTangentNames) {
        if (row.isComputed && wanted == row.name)
            return row.type;
    }
    throw CommandError("The tangent type '" + wanted + "' is not supported; linear and step are.");
}

std::string tangentName(int type)
{
    for (const TangentName& row : kTangentNames) {
        if (type == row.type)
            return row.name;
    }
    return "fixed";
}

// --- setKeyframe -----------------------------------------------------------------------------------------------------

std::vector<double> timesToKey(const BuiltinCall& call)
{
    std::vector<double> times;
    for (unsigned use = 0; use < call.args.useCount("time"); ++use)
        times.push_back(ticksOf(call.time(call.args.values("time", use)->front())));
    if (times.empty())
        times.push_back(ticksOf(call.scene.currentTime()));
    return times;
}

double numberNow(const Plug& plug)
{
    const kernel::PlugValue value = plug.node->value(*plug.attribute);
    const double* const number = std::get_if<double>(&value);
    return number ? *number : 0;
}

Value runSetKeyframe(BuiltinCall& call)
{
    const std::vector<double> times = timesToKey(call);
    kernel::KeyRequest request;
    request.inTangent = tangentOf(call, "inTangentType");
    request.outTangent = tangentOf(call, "outTangentType");
    int count = 0;
    for (const Plug& plug : plugsToKey(call)) {
        request.value = call.args.has("value") ? finite("value", call.args.number("value")) : numberNow(plug);
        for (const double ticks : times) {
            request.ticks = ticks;
            kernel::setKey(call.session, plug, request, call.edits());
            ++count;
        }
    }
    return count;
}

// --- keyframe --------------------------------------------------------------------------------------------------------

/// Does something for each key that a command is for.
template <typename Visit>
void visitKeys(const BuiltinCall& call, const Visit& visit)
{
    const std::vector<TickSpan> spans = spansOf(call);
    for (const NodePtr& curve : curvesToRead(call)) {
        for (const CurveKey& key : curve->curve()->keys()) {
            if (isWithin(key, spans))
                visit(key);
        }
    }
}

Value queryKeys(const BuiltinCall& call)
{
    kernel::DoubleArray times;
    kernel::DoubleArray values;
    visitKeys(call, [&](const CurveKey& key) {
        times.push_back(inSceneUnit(call, key.ticks));
        values.push_back(key.value);
    });
    if (call.args.has("valueChange"))
        return values;
    if (call.args.has("timeChange"))
        return times;
    return static_cast<int>(times.size());
}

/// How keys are moved; by a distance, or to a place.
struct KeyMove {
    std::optional<double> ticks;
    std::optional<double> value;
    bool isRelative = false;

    CurveKey moved(CurveKey key) const
    {
        if (ticks)
            key.ticks = isRelative ? key.ticks + *ticks : *ticks;
        if (value)
            key.value = isRelative ? key.value + *value : *value;
        return key;
    }
};

KeyMove readMove(const BuiltinCall& call)
{
    KeyMove move;
    move.isRelative = call.args.has("relative") && !call.args.has("absolute");
    if (call.args.has("timeChange"))
        move.ticks = ticksOf(call.time(call.args.values("timeChange")->front()));
    if (call.args.has("valueChange"))
        move.value = finite("valueChange", call.args.number("valueChange"));
    return move;
}

int moveKeys(BuiltinCall& call, const NodePtr& curve, const KeyMove& move)
{
    const std::vector<TickSpan> spans = spansOf(call);
    AnimCurve keys;
    std::vector<CurveKey> movedKeys;
    for (const CurveKey& key : curve->curve()->keys()) {
        if (isWithin(key, spans))
            movedKeys.push_back(move.moved(key));
        else
            keys.append({key});
    }
    if (movedKeys.empty())
        return 0;
    if (move.ticks && !move.isRelative && movedKeys.size() > 1)
        throw CommandError("Only one key of '" + curve->name() + "' can be moved to a time.");
    // A key that is moved onto another takes its place.
    for (const CurveKey& key : movedKeys) {
        if (!std::isfinite(key.ticks) || !std::isfinite(key.value))
            throw CommandError("The keys of '" + curve->name() + "' cannot be moved that far.");
        keys.set(key);
    }
    kernel::changeKeys(call.session, curve, keys, call.edits());
    return static_cast<int>(movedKeys.size());
}

Value runKeyframe(BuiltinCall& call)
{
    if (call.args.query)
        return queryKeys(call);
    const KeyMove move = readMove(call);
    if (!move.ticks && !move.value)
        throw CommandError("Nothing to change was specified");
    int count = 0;
    for (const NodePtr& curve : curvesToEdit(call))
        count += moveKeys(call, curve, move);
    return count;
}

// --- cutKey ----------------------------------------------------------------------------------------------------------

Value runCutKey(BuiltinCall& call)
{
    const std::vector<TickSpan> spans = spansOf(call);
    std::vector<NodePtr> emptied;
    int count = 0;
    for (const NodePtr& curve : curvesToEdit(call)) {
        AnimCurve keys = *curve->curve();
        int cut = 0;
        for (const TickSpan& span : spans)
            cut += keys.erase(span.first, span.last);
        count += cut;
        if (cut > 0 && keys.isEmpty())
            emptied.push_back(curve);
        else if (cut > 0)
            kernel::changeKeys(call.session, curve, keys, call.edits());
    }
    if (!emptied.empty())
        kernel::deleteCurves(call.session, emptied, call.edits());
    return count;
}

// --- keyTangent ------------------------------------------------------------------------------------------------------

Value queryTangents(const BuiltinCall& call)
{
    kernel::StringArray names;
    visitKeys(call, [&](const CurveKey& key) {
        if (call.args.has("inTangentType"))
            names.push_back(tangentName(key.inTangent));
        if (call.args.has("outTangentType"))
            names.push_back(tangentName(key.outTangent));
    });
    return names;
}

Value runKeyTangent(BuiltinCall& call)
{
    if (call.args.query)
        return queryTangents(call);
    const std::optional<int> in = tangentOf(call, "inTangentType");
    const std::optional<int> out = tangentOf(call, "outTangentType");
    const std::vector<TickSpan> spans = spansOf(call);
    int count = 0;
    for (const NodePtr& curve : curvesToEdit(call)) {
        AnimCurve keys = *curve->curve();
        const int before = count;
        for (std::size_t i = 0; i < keys.keys().size(); ++i) {
            const CurveKey key = keys.keys()[i];
            if (!isWithin(key, spans))
                continue;
            keys.setTangents(i, in.value_or(key.inTangent), out.value_or(key.outTangent));
            ++count;
        }
        if (count > before)
            kernel::changeKeys(call.session, curve, keys, call.edits());
    }
    return count;
}

// --- findKeyframe ----------------------------------------------------------------------------------------------------

std::vector<double> keyTimes(const BuiltinCall& call)
{
    std::vector<double> times;
    for (const NodePtr& curve : curvesToRead(call)) {
        for (const CurveKey& key : curve->curve()->keys())
            times.push_back(key.ticks);
    }
    std::sort(times.begin(), times.end());
    return times;
}

/// Behind the last key the first is next, and the other way round.
double foundTime(const std::vector<double>& times, const std::string& which, double now)
{
    if (which == "first")
        return times.front();
    if (which == "last")
        return times.back();
    if (which == "next") {
        const auto next = std::upper_bound(times.begin(), times.end(), now);
        return next == times.end() ? times.front() : *next;
    }
    if (which == "previous") {
        const auto here = std::lower_bound(times.begin(), times.end(), now);
        return here == times.begin() ? times.back() : *(here - 1);
    }
    throw CommandError("Unknown key '" + which + "'; next, previous, first and last are known.");
}

Value runFindKeyframe(BuiltinCall& call)
{
    const kernel::ValueList* const given = call.args.values("time");
    const kernel::Time now = given ? call.time(given->front()) : call.scene.currentTime();
    const bool isForNothing = call.args.objects.empty() && call.scene.selection().empty();
    const std::vector<double> times = isForNothing ? std::vector<double>() : keyTimes(call);
    if (times.empty())
        return now.as(call.scene.timeUnit());
    return inSceneUnit(call, foundTime(times, call.args.text("which", 0, "next"), ticksOf(now)));
}

/// Flags that keep their values in a query.
kernel::Syntax withFullQuery(kernel::Syntax syntax)
{
    syntax.makeQueryWithFullArgs("time");
    syntax.makeQueryWithFullArgs("attribute");
    return syntax;
}

}  // namespace

void addKeyCommands(kernel::Session& session)
{
    addBuiltin(session, "setKeyframe",
               makeSyntax({{"attribute", "at", "s", true},
                           {"time", "t", "t", true},
                           {"value", "v", "f"},
                           {"inTangentType", "itt", "s"},
                           {"outTangentType", "ott", "s"},
                           {"breakdown", "bd", "b"},
                           {"shape", "s", "b"}}),
               runSetKeyframe);
    addBuiltin(session, "keyframe",
               withFullQuery(makeSyntax({{"attribute", "at", "s", true},
                                         {"time", "t", "s", true},
                                         {"timeChange", "tc", "t"},
                                         {"valueChange", "vc", "f"},
                                         {"keyframeCount", "kc"},
                                         {"relative", "r"},
                                         {"absolute", "a"}},
                                        Modes::QueryAndEdit)),
               runKeyframe);
    addBuiltin(session, "cutKey",
               makeSyntax({{"attribute", "at", "s", true}, {"time", "t", "s", true}, {"clear", "cl"}}), runCutKey);
    addBuiltin(session, "keyTangent",
               withFullQuery(makeSyntax({{"attribute", "at", "s", true},
                                         {"time", "t", "s", true},
                                         {"inTangentType", "itt", "s"},
                                         {"outTangentType", "ott", "s"}},
                                        Modes::QueryAndEdit)),
               runKeyTangent);
    addBuiltin(session, "findKeyframe",
               makeSyntax({{"attribute", "at", "s", true}, {"time", "t", "t"}, {"which", "w", "s"}}), runFindKeyframe);
}

}  // namespace mel
