#include "mel/builtins/Quoting.h"
#include "ui/Commands.h"
#include "ui/ControlCommand.h"
#include "ui/LayoutWidget.h"
#include "ui/ViewPanel.h"
#include "view/Viewport.h"
#include "view/Viewports.h"

#include <QApplication>
#include <QCursor>

namespace ui {

using kernel::CommandError;
using kernel::StringArray;
using kernel::Value;
using kernel::ValueList;

namespace {

constexpr char kModelPanel[] = "modelPanel";
constexpr char kRenderer[] = "vp2Renderer";
constexpr char kLegacyRenderer[] = "base_OpenGL_Renderer";

view::Viewport* viewOf(const UiObject& panel)
{
    const auto* const framed = qobject_cast<ViewPanel*>(panel.object);
    return framed ? framed->view() : nullptr;
}

view::Viewport& viewOf(const Subject& subject)
{
    return *subject.as<ViewPanel>().view();
}

view::Viewport* activeView()
{
    return view::Viewports::installed() ? view::Viewports::installed()->active() : nullptr;
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

std::string cameraName(const kernel::Scene& scene, const view::Viewport& view)
{
    const kernel::NodePtr shape = view.camera();
    if (!shape) {
        return {};
    }
    return scene.partialPath(shape->parent() ? *shape->parent() : *shape);
}

ControlFlag cameraFlag()
{
    return {{"camera", "cam", "s"},
            [](const Subject& s, const ValueList& values) {
                viewOf(s).setCamera(cameraShape(s.ui.session().scene, kernel::toText(values.front())));
            },
            [](const Subject& s) { return cameraName(s.ui.session().scene, viewOf(s)); }};
}

// --- modelPanel ----------------------------------------------------------------------------------------------------

/// What menus a view has is up to a script of the program, which may not have one.
void makeMenus(const Subject& subject)
{
    UiObject* const menuParent = subject.ui.menuParent();
    subject.ui.runScript("if (`exists buildPanelMenus`) buildPanelMenus " + mel::quoted(subject.object.name), Echo::No);
    subject.ui.setMenuParent(menuParent);
}

void makeView(const Subject& subject)
{
    view::Viewports* const views = view::Viewports::installed();
    if (!views) {
        throw CommandError("modelPanel: there is nothing to draw views with");
    }
    auto& panel = subject.as<ViewPanel>();
    panel.setView(views->add(subject.object.name, subject.ui.session().scene.findOrNull("perspShape"), &panel));
    makeMenus(subject);
}

void moveInto(LayoutWidget& target, ViewPanel& panel)
{
    LayoutWidget* const before = LayoutWidget::around(panel);  // none when a module has taken the panel
    if (before == &target) {
        return;
    }
    if (before) {
        before->release(&panel);
    }
    target.place(&panel);
}

/// Takes the panel out of its window; it goes on living, unseen.
void unParent(const Subject& subject, const ValueList&)
{
    moveInto(arranger(hiddenLayout(subject.ui)), subject.as<ViewPanel>());
}

void moveTo(const Subject& subject, const ValueList& values)
{
    const UiObject& parent = parentFor(subject.ui, kModelPanel, Kind::Panel, kernel::toText(values.front()));
    moveInto(arranger(parent), subject.as<ViewPanel>());
}

Value controlPath(const Subject& subject)
{
    const std::string around = layoutPath(subject);
    return around.empty() ? subject.object.name : around + '|' + subject.object.name;
}

Value panelName(const Subject& subject)
{
    return subject.object.name;
}

std::vector<ControlFlag> panelFlags()
{
    return {
        cameraFlag(),
        {{"label", "l", "s"},
         [](const Subject& s, const ValueList& values) { s.as<ViewPanel>().setLabel(text(values)); },
         [](const Subject& s) { return s.as<ViewPanel>().label().toStdString(); }},
        {{"modelEditor", "me"}, nullptr, panelName},  // it goes by the panel's name
        {{"menuBarVisible", "mbv", "b"},
         [](const Subject& s, const ValueList& values) { s.as<ViewPanel>().setMenuBar(truth(values)); },
         [](const Subject& s) { return int(s.as<ViewPanel>().hasMenuBar()); }},
        {{"parent", "p", "s"}, moveTo, [](const Subject& s) { return layoutPath(s); }},
        {{"unParent", "up"}, unParent},
        {{"tearOff", "to"}, nullptr, [](const Subject&) { return 0; }},
        {{"control", "ctl"}, nullptr, controlPath},
        {{"init", "init"}},
    };
}

// --- modelEditor ---------------------------------------------------------------------------------------------------

ControlFlag optionFlag(const char* longName, const char* shortName, bool view::ViewOptions::*option)
{
    return {{longName, shortName, "b"},
            [option](const Subject& s, const ValueList& values) {
                view::ViewOptions options = viewOf(s).options();
                options.*option = truth(values);
                viewOf(s).setOptions(options);
            },
            [option](const Subject& s) { return int(viewOf(s).options().*option); }};
}

/// A switch of something that views here do not show: kept, so that a script reads back what it set.
ControlFlag keptFlag(const char* longName, const char* shortName, bool initial)
{
    return {{longName, shortName, "b"},
            [longName](const Subject& s, const ValueList& values) { viewOf(s).setProperty(longName, truth(values)); },
            [longName, initial](const Subject& s) {
                const QVariant kept = viewOf(s).property(longName);
                return int(kept.isValid() ? kept.toBool() : initial);
            }};
}

void setAppearance(const Subject& subject, const ValueList& values)
{
    view::ViewOptions options = viewOf(subject).options();
    const std::string name = kernel::toText(values.front());
    options.wireframe = name == "wireframe" || name == "points" || name == "boundingBox";
    viewOf(subject).setOptions(options);
}

std::vector<ControlFlag> editorFlags()
{
    return {
        cameraFlag(),
        {{"activeView", "av", ""},
         [](const Subject& s, const ValueList&) { view::Viewports::installed()->setActive(&viewOf(s)); },
         [](const Subject& s) { return int(activeView() == &viewOf(s)); }},
        {{"displayAppearance", "da", "s"},
         setAppearance,
         [](const Subject& s) { return std::string(viewOf(s).options().wireframe ? "wireframe" : "smoothShaded"); }},
        {{"allObjects", "alo", "b"},
         [](const Subject& s, const ValueList& values) {
             view::ViewOptions options = viewOf(s).options();
             options.objects = options.moduleShapes = truth(values);
             viewOf(s).setOptions(options);
         },
         [](const Subject& s) { return int(viewOf(s).options().objects && viewOf(s).options().moduleShapes); }},
        optionFlag("grid", "gr", &view::ViewOptions::grid),
        optionFlag("polymeshes", "pm", &view::ViewOptions::objects),
        optionFlag("pluginShapes", "ps", &view::ViewOptions::moduleShapes),
        optionFlag("imagePlane", "imp", &view::ViewOptions::imagePlanes),
        optionFlag("headsUpDisplay", "hud", &view::ViewOptions::headsUp),
        keptFlag("locators", "lc", true),
        keptFlag("cameras", "ca", true),
        keptFlag("manipulators", "m", true),
        keptFlag("displayTextures", "dtx", false),
        keptFlag("viewSelected", "vs", false),
        {{"pluginObjects", "po", "sb", true}},
        {{"rendererName", "rnm", "s"},
         [](const Subject& s, const ValueList& values) {
             const std::string name = kernel::toText(values.front());
             if (name != kLegacyRenderer && name != kRenderer) {
                 throw CommandError("modelEditor: Unknown renderer: " + name);
             }
             viewOf(s).setLegacy(name == kLegacyRenderer);
         },
         [](const Subject& s) { return std::string(viewOf(s).isLegacy() ? kLegacyRenderer : kRenderer); }},
    };
}

// --- commands for any view -----------------------------------------------------------------------------------------

Value refresh(const mel::BuiltinCall& call)
{
    if (view::Viewports* const views = view::Viewports::installed()) {
        for (api::View* view : views->views()) {
            if (!call.args.has("currentView") || view == views->activeView()) {
                view->refresh(call.args.has("force"));
            }
        }
    }
    return {};
}

/// A setting of a camera in scene units, undone with the rest of the command.
void setClip(mel::BuiltinCall& call, const kernel::NodePtr& camera, const char* flag, const char* attribute)
{
    const kernel::AttributePtr plane = camera ? camera->attribute(attribute) : nullptr;
    if (plane && call.args.has(flag)) {
        call.apply(kernel::setValueEdit(camera, plane, call.args.number(flag)));
    }
}

Value lookThru(UiObjects& ui, mel::BuiltinCall& call)
{
    UiObject* panel = nullptr;
    std::vector<std::string> others;
    for (const std::string& name : call.objectNames()) {
        UiObject* const named = panel ? nullptr : ui.find(name, only(Kind::Panel));
        if (named) {
            panel = named;
        } else {
            others.push_back(name);
        }
    }
    view::Viewport* const view = panel ? viewOf(*panel) : activeView();
    if (call.args.query) {
        if (!others.empty() && ui.isAvailable()) {
            ui.get("lookThru", others.front(), only(Kind::Panel));
        }
        return view ? cameraName(call.scene, *view) : std::string();
    }
    if (others.empty()) {
        throw CommandError("lookThru: a camera must be named");
    }
    // The last word is the camera; a word before it that names no panel is one that is not there.
    const kernel::NodePtr camera = cameraShape(call.scene, others.back());
    if (others.size() > 1 && ui.isAvailable()) {
        ui.get("lookThru", others.front(), only(Kind::Panel));
    }
    setClip(call, camera, "nearClip", "nearClipPlane");
    setClip(call, camera, "farClip", "farClipPlane");
    if (view) {
        view->setCamera(camera);
    }
    return {};
}

bool isUnderPointer(const view::Viewport& view)
{
    return &view == QApplication::widgetAt(QCursor::pos());
}

Value getPanel(UiObjects& ui, const mel::BuiltinCall& call)
{
    if (call.args.has("withFocus")) {
        const view::Viewport* const view = activeView();
        return view ? view->panelName() : std::string();
    }
    if (call.args.has("typeOf")) {
        const UiObject* const panel = ui.find(call.args.text("typeOf"), only(Kind::Panel));
        return panel ? panel->type : std::string();
    }
    StringArray names;
    for (const UiObject* panel : ui.all(only(Kind::Panel))) {
        const view::Viewport* const view = viewOf(*panel);
        if (call.args.has("underPointer") && view && isUnderPointer(*view)) {
            return panel->name;
        }
        const bool isAsked = call.args.has("type") ? panel->type == call.args.text("type")
                                                   : !call.args.has("visiblePanels") || panel->widget()->isVisible();
        if (isAsked) {
            names.push_back(panel->name);
        }
    }
    return call.args.has("underPointer") ? Value(std::string()) : Value(names);
}

}  // namespace

void registerPanels(UiObjects& ui)
{
    addControlCommand(ui, {kModelPanel, kModelPanel, Kind::Panel, panelFlags(),
                           [](UiObjects&) -> QWidget* { return new ViewPanel; }, makeView});
    addControlCommand(ui, {"modelEditor", kModelPanel, Kind::Panel, editorFlags(), nullptr});
    kernel::Session& session = ui.session();
    mel::addBuiltin(session, "refresh",
                    mel::makeSyntax({{"currentView", "cv"}, {"force", "f"}}, mel::Modes::Create, 0, 0),
                    [](mel::BuiltinCall& call) { return refresh(call); });
    mel::addBuiltin(session, "lookThru",
                    mel::makeSyntax({{"nearClip", "nc", "f"}, {"farClip", "fc", "f"}}, mel::Modes::Query, 0, 2),
                    [&ui](mel::BuiltinCall& call) { return lookThru(ui, call); });
    mel::addBuiltin(session, "getPanel",
                    mel::makeSyntax({{"withFocus", "wf"},
                                     {"underPointer", "up"},
                                     {"visiblePanels", "vis"},
                                     {"allPanels", "all"},
                                     {"type", "typ", "s"},
                                     {"typeOf", "to", "s"}},
                                    mel::Modes::Create, 0, 0),
                    [&ui](mel::BuiltinCall& call) { return getPanel(ui, call); });
}

}  // namespace ui
