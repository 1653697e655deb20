#include "app/FramingCommand.h"

#include "api/Views.h"
#include "kernel/Syntax.h"
#include "view/CameraMoves.h"

namespace app {

namespace {

using kernel::ArgType;
using kernel::Value;
using kernel::ValueList;

constexpr double kUsualFill = 0.9;

void frame(kernel::Scene& scene, api::View& view, bool everything, double fill)
{
    const kernel::NodePtr camera = view.camera();
    if (!camera) {
        return;
    }
    const kernel::Node* const transform = camera->parent();
    const kernel::Node* const space = transform ? transform->parent() : nullptr;
    const kernel::Matrix4 fromWorld = space ? kernel::inverse(space->worldMatrix()) : kernel::Matrix4();
    const std::optional<view::Box> box = everything ? view::boxAround(scene.roots(), fromWorld, false)
                                                    : view::boxAround(scene.selection(), fromWorld, true);
    if (!box) {
        return;
    }
    const double aspect = double(std::max(1, view.portWidth())) / std::max(1, view.portHeight());
    view::applyPose(scene, *camera, view::framed(view::poseOf(*camera), *box, view::lensOf(*camera), aspect, fill));
    view.scheduleRefresh();
}

Value viewFit(kernel::Session& session, const ValueList& args)
{
    kernel::Syntax syntax;
    syntax.addFlag("all", "allObjects");
    syntax.addFlag("f", "fitFactor", {ArgType::Double});
    syntax.addFlag("an", "animate", {ArgType::Bool});  // moves are never animated here
    const kernel::ParsedArgs parsed = kernel::parsedOrThrow(syntax, args);
    const double fill = parsed.number("fitFactor", 0, kUsualFill);
    if (!(fill > 0 && fill <= 1)) {
        throw kernel::CommandError("viewFit: -fitFactor must be above 0 and at most 1");
    }
    api::View* const view = api::viewHost() ? api::viewHost()->activeView() : nullptr;
    if (view) {
        frame(session.scene, *view, parsed.has("allObjects") || session.scene.selection().empty(), fill);
    }
    return {};
}

}  // namespace

void registerFramingCommand(kernel::Session& session)
{
    session.commands.add("viewFit", [&session](const ValueList& args) { return viewFit(session, args); });
}

}  // namespace app
