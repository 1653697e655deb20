#pragma once

#include "kernel/Keying.h"
#include "mel/builtins/Builtin.h"

#include <string>
#include <vector>

namespace mel {

/// Instants from the first to the last, both included, in ticks.
struct TickSpan {
    double first;
    double last;
};

/// The attributes a key command is for: those named as "node.attribute", and of the nodes named, or of the selection
/// with their shapes (unless -shape is off), the ones of -attribute; without that flag the keyable ones that are not
/// locked. Compounds give their children. Throws CommandError when nothing is named or selected, and for attributes
/// that no node has.
std::vector<kernel::Plug> plugsToKey(const BuiltinCall& call);
/// The curves of the same attributes, locked ones included, and curves that are named or selected themselves; each
/// once.
std::vector<kernel::NodePtr> curvesToRead(const BuiltinCall& call);
/// The same without those of locked attributes, unless the attributes are named.
std::vector<kernel::NodePtr> curvesToEdit(const BuiltinCall& call);

/// The spans of the -time flags: "5", "1:10", "1:", ":10" and ":"; all of time without one. Throws CommandError.
std::vector<TickSpan> spansOf(const BuiltinCall& call);
bool isWithin(const kernel::CurveKey& key, const std::vector<TickSpan>& spans);

/// Ticks of a time; throws CommandError for one that no curve can hold.
double ticksOf(const kernel::Time& time);

}  // namespace mel
