#include "app/ViewCommands.h"

#include "api/Views.h"
#include "kernel/Syntax.h"

#include <QApplication>
#include <QCursor>
#include <QWidget>

namespace app {

namespace {

using kernel::ArgType;
using kernel::CommandError;
using kernel::Value;
using kernel::ValueList;

std::vector<api::View*> allViews()
{
    return api::viewHost() ? api::viewHost()->views() : std::vector<api::View*>();
}

api::View* activeView()
{
    return api::viewHost() ? api::viewHost()->activeView() : nullptr;
}

/// Null when there is none of that name.
api::View* viewOf(const std::string& panel)
{
    for (api::View* view : allViews()) {
        if (view->panelName() == panel) {
            return view;
        }
    }
    return nullptr;
}

api::View& viewOrThrow(const std::string& command, const std::string& panel)
{
    api::View* const view = viewOf(panel);
    if (!view) {
        throw CommandError(command + ": Object '" + panel + "' not found.");
    }
    return *view;
}

/// The camera shape of a name, which may be its transform's.
kernel::NodePtr cameraShape(const kernel::Scene& scene, const std::string& name)
{
    const kernel::NodePtr node = scene.findOne(name);
    if (node->type().isA("camera")) {
        return node;
    }
    for (const kernel::NodePtr& child : node->children()) {
        if (child->type().isA("camera")) {
            return child;
        }
    }
    throw CommandError("'" + name + "' is not a camera.");
}

std::string cameraName(const kernel::Scene& scene, const api::View& view)
{
    const kernel::NodePtr shape = view.camera();
    if (!shape) {
        return {};
    }
    return scene.partialPath(shape->parent() ? *shape->parent() : *shape);
}

Value refresh(const ValueList& args)
{
    kernel::Syntax syntax;
    syntax.addFlag("cv", "currentView");
    syntax.addFlag("f", "force");
    const kernel::ParsedArgs parsed = kernel::parsedOrThrow(syntax, args);
    for (api::View* view : allViews()) {
        if (!parsed.has("currentView") || view == activeView()) {
            view->refresh(parsed.has("force"));
        }
    }
    return {};
}

Value lookThru(kernel::Session& session, const ValueList& args)
{
    kernel::Syntax syntax;
    syntax.enableQuery();
    syntax.setObjects(kernel::Syntax::Objects::Strings, 0, 2);
    const kernel::ParsedArgs parsed = kernel::parsedOrThrow(syntax, args);
    api::View* view = nullptr;
    std::vector<std::string> others;
    for (const Value& object : parsed.objects) {
        const std::string name = kernel::toText(object);
        if (api::View* const named = view ? nullptr : viewOf(name)) {
            view = named;
        } else {
            others.push_back(name);
        }
    }
    if (!view) {
        view = activeView();
    }
    if (parsed.query) {
        return !others.empty() && api::viewHost() ? cameraName(session.scene, viewOrThrow("lookThru", others.front()))
             : view                               ? cameraName(session.scene, *view)
                                                  : std::string();
    }
    if (others.empty()) {
        throw CommandError("lookThru: a camera must be named");
    }
    // The last word is the camera; a word before it that names no view is a panel that is not there.
    const kernel::NodePtr camera = cameraShape(session.scene, others.back());
    if (others.size() > 1 && api::viewHost()) {
        viewOrThrow("lookThru", others.front());
    }
    if (view) {
        view->setCamera(camera);
    }
    return {};
}

/// modelPanel and modelEditor: an editor has its panel's name.
Value modelView(kernel::Session& session, const std::string& command, const ValueList& args)
{
    kernel::Syntax syntax;
    syntax.enableQuery();
    syntax.enableEdit();
    syntax.addFlag("cam", "camera", {ArgType::String});
    syntax.addFlag("ex", "exists");
    if (command == "modelPanel") {
        syntax.addFlag("me", "modelEditor");
    } else {
        syntax.addFlag("av", "activeView");
        syntax.addFlag("rnm", "rendererName");
    }
    syntax.setObjects(kernel::Syntax::Objects::Strings, 0, 1);
    const kernel::ParsedArgs parsed = kernel::parsedOrThrow(syntax, args);
    const std::string name = parsed.objects.empty() ? std::string() : kernel::toText(parsed.objects.front());
    if (parsed.has("exists")) {
        return viewOf(name) ? 1 : 0;
    }
    if (!parsed.query && !parsed.edit) {
        throw CommandError(command + ": '" + name + "' cannot be made; -query, -edit or -exists is needed");
    }
    api::View& view = viewOrThrow(command, name);
    if (parsed.edit) {
        if (parsed.has("camera")) {
            view.setCamera(cameraShape(session.scene, parsed.text("camera")));
        }
        return {};
    }
    if (parsed.has("camera")) {
        return cameraName(session.scene, view);
    }
    if (parsed.has("activeView")) {
        return &view == activeView() ? 1 : 0;
    }
    if (parsed.has("rendererName")) {
        return std::string(view.isLegacy() ? "base_OpenGL_Renderer" : "vp2Renderer");
    }
    return parsed.has("modelEditor") ? Value(name) : Value();
}

Value getPanel(const ValueList& args)
{
    kernel::Syntax syntax;
    syntax.addFlag("wf", "withFocus");
    syntax.addFlag("up", "underPointer");
    syntax.addFlag("vis", "visiblePanels");
    syntax.addFlag("all", "allPanels");
    syntax.addFlag("typ", "type", {ArgType::String});
    syntax.addFlag("to", "typeOf", {ArgType::String});
    const kernel::ParsedArgs parsed = kernel::parsedOrThrow(syntax, args);
    if (parsed.has("withFocus")) {
        return activeView() ? activeView()->panelName() : std::string();
    }
    if (parsed.has("typeOf")) {
        return std::string(viewOf(parsed.text("typeOf")) ? "modelPanel" : "");
    }
    kernel::StringArray names;
    for (api::View* view : allViews()) {
        if (parsed.has("underPointer") && view->widget() == QApplication::widgetAt(QCursor::pos())) {
            return view->panelName();
        }
        if (!parsed.has("type") || parsed.text("type") == "modelPanel") {
            names.push_back(view->panelName());
        }
    }
    return parsed.has("underPointer") ? Value(std::string()) : Value(names);
}

}  // namespace

void registerViewCommands(kernel::Session& session)
{
    session.commands.add("refresh", [](const ValueList& args) { return refresh(args); });
    session.commands.add("lookThru", [&session](const ValueList& args) { return lookThru(session, args); });
    for (const char* command : {"modelPanel", "modelEditor"}) {
        session.commands.add(command,
                             [&session, command](const ValueList& args) { return modelView(session, command, args); });
    }
    session.commands.add("getPanel", [](const ValueList& args) { return getPanel(args); });
}

}  // namespace app
