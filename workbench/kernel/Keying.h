#pragma once

#include "kernel/Edits.h"

#include <optional>

namespace kernel {

class Session;

/// What a key is to be. Without tangents it keeps those of the key whose place it takes; a new one is linear, or a step
/// where there is nothing between the values.
struct KeyRequest {
    double ticks = 0;
    double value = 0;
    std::optional<int> inTangent;
    std::optional<int> outTangent;
};

/// Whether a plug, whose attribute may be null, is where a curve's values come out.
bool isCurveOutput(const Plug& plug);
/// Whether an attribute can be animated at all.
bool canBeAnimated(const Node& node, const AttributeSpec& attribute);
/// Throws CommandError for an attribute that cannot be animated or is locked.
void refuseUnkeyable(const Plug& plug);

/// Type of the curves that drive attributes of a kind.
const char* curveTypeFor(ValueKind kind);

// Each does its work at once and adds it to `edits`; each throws CommandError when it is refused.

/// Keys an attribute; the first key makes its curve.
void setKey(Session& session, const Plug& plug, const KeyRequest& request, EditList& edits);
// Keys are not changed that belong to a referenced file or drive a locked attribute.

/// Gives a curve other keys.
void changeKeys(Session& session, const NodePtr& curve, const AnimCurve& keys, EditList& edits);
/// Deletes curves; what they drove keeps its value.
void deleteCurves(Session& session, const std::vector<NodePtr>& curves, EditList& edits);
/// Lets a curve drive an attribute, or none (null); a curve that did so is left to itself. Refused for an attribute
/// that cannot be keyed.
void connect(Session& session, const Plug& plug, const NodePtr& curve, EditList& edits);

}  // namespace kernel
