#include "mel/builtins/Builtin.h"
#include "mel/builtins/Placement.h"
#include "mel/builtins/Subjects.h"

namespace mel {

using kernel::CommandError;
using kernel::Node;
using kernel::NodePtr;
using kernel::Value;
using kernel::Vector3;

namespace {

struct Move {
    double values[3] = {0, 0, 0};
    bool axes[3] = {true, true, true};  ///< those that take part
    bool relative = false;
    bool inParentSpace = false;
};

/// The numbers stand in front of the names: three, or one for each of the axes asked for.
Move readMove(const BuiltinCall& call, std::size_t& firstName)
{
    Move move;
    const kernel::ParsedArgs& args = call.args;
    move.relative = args.has("relative") && !args.has("absolute");
    move.inParentSpace = args.has("objectSpace") || args.has("localSpace");
    const bool some = args.has("moveX") || args.has("moveY") || args.has("moveZ");
    if (some && !args.has("moveXYZ")) {
        move.axes[0] = args.has("moveX");
        move.axes[1] = args.has("moveY");
        move.axes[2] = args.has("moveZ");
    }
    for (int axis = 0; axis < 3; ++axis) {
        if (!move.axes[axis])
            continue;
        if (firstName >= args.objects.size() || !kernel::toDouble(args.objects[firstName], move.values[axis]))
            throw CommandError("Incorrect number of objects specified");
        ++firstName;
    }
    return move;
}

void applyTo(double (&place)[3], const Move& move)
{
    for (int axis = 0; axis < 3; ++axis) {
        if (move.axes[axis])
            place[axis] = move.relative ? place[axis] + move.values[axis] : move.values[axis];
    }
}

void moveNode(BuiltinCall& call, const NodePtr& node, const Move& move)
{
    const Node* parent = node->parent();
    const kernel::Matrix4 above = parent && !move.inParentSpace ? parent->worldMatrix() : kernel::Matrix4();
    const Vector3 before{node->number("translateX"), node->number("translateY"), node->number("translateZ")};
    const Vector3 start = kernel::transformPoint(before, above);
    double place[3] = {start.x, start.y, start.z};
    applyTo(place, move);
    Vector3 after{place[0], place[1], place[2]};
    if (parent && !move.inParentSpace)
        after = kernel::transformPoint(after, kernel::inverse(above));
    setNumber(call, node, "translateX", after.x, "move");
    setNumber(call, node, "translateY", after.y, "move");
    setNumber(call, node, "translateZ", after.z, "move");
}

Value runMove(BuiltinCall& call)
{
    std::size_t firstName = 0;
    const Move move = readMove(call, firstName);
    std::vector<NodePtr> nodes;
    if (firstName == call.args.objects.size()) {
        nodes = call.scene.selection();
    } else {
        for (std::size_t i = firstName; i < call.args.objects.size(); ++i) {
            const std::vector<NodePtr> found = nodesOf(call.scene, kernel::toText(call.args.objects[i]));
            nodes.insert(nodes.end(), found.begin(), found.end());
        }
    }
    if (nodes.empty())
        throw CommandError("No object was specified");
    for (const NodePtr& node : nodes) {
        NodePtr transform = node;
        if (node->type().isShape() && node->parent())
            transform = node->parent()->shared_from_this();
        if (transform->type().isTransform())
            moveNode(call, transform, move);
    }
    return {};
}

}  // namespace

void addMoveCommand(kernel::Session& session)
{
    addBuiltin(session, "move",
               makeSyntax({{"absolute", "a"},
                           {"relative", "r"},
                           {"moveX", "x"},
                           {"moveY", "y"},
                           {"moveZ", "z"},
                           {"moveXYZ", "xyz"},
                           {"worldSpace", "ws"},
                           {"objectSpace", "os"},
                           {"localSpace", "ls"}}),
               runMove);
}

}  // namespace mel
