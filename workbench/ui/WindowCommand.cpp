#include "ui/Commands.h"
#include "ui/ControlCommand.h"
#include "ui/ScriptWindow.h"

namespace ui {

using kernel::IntArray;
using kernel::StringArray;
using kernel::Value;
using kernel::ValueList;

namespace {

ScriptWindow* scriptWindow(const Subject& subject)
{
    return qobject_cast<ScriptWindow*>(subject.object.object);
}

/// A flag that switches something of windows made by scripts; the main window keeps its own.
ControlFlag switchFlag(const char* longName, const char* shortName, void (*set)(ScriptWindow&, bool),
                       bool (*get)(const QWidget&))
{
    return {{longName, shortName, "b"},
            [set](const Subject& s, const ValueList& values) {
                if (ScriptWindow* const window = scriptWindow(s)) {
                    set(*window, truth(values));
                }
            },
            [get](const Subject& s) { return int(get(s.as<QWidget>())); }};
}

template <Qt::WindowType button>
ControlFlag buttonFlag(const char* longName, const char* shortName)
{
    return switchFlag(
        longName, shortName, [](ScriptWindow& window, bool on) { window.setButton(button, on); },
        [](const QWidget& widget) { return (widget.windowFlags() & button) != 0; });
}

Value menuNames(const Subject& subject)
{
    StringArray names;
    for (const UiObject* child : subject.ui.children(subject.object)) {
        if (child->kind == Kind::Menu) {
            names.push_back(child->name);
        }
    }
    return names;
}

std::vector<ControlFlag> windowFlags()
{
    const auto widget = [](const Subject& s) -> QWidget& { return s.as<QWidget>(); };
    return {
        {{"title", "t", "s"},
         [=](const Subject& s, const ValueList& values) { widget(s).setWindowTitle(text(values)); },
         [=](const Subject& s) { return widget(s).windowTitle().toStdString(); }},
        {{"iconName", "in", "s"},
         [=](const Subject& s, const ValueList& values) { widget(s).setWindowIconText(text(values)); },
         [=](const Subject& s) { return widget(s).windowIconText().toStdString(); }},
        {{"widthHeight", "wh", "ii"},
         [=](const Subject& s, const ValueList& values) { widget(s).resize(whole(values, 0), whole(values, 1)); },
         [=](const Subject& s) {
             return IntArray{widget(s).width(), widget(s).height()};
         }},
        {{"topLeftCorner", "tlc", "ii"},
         [=](const Subject& s, const ValueList& values) { widget(s).move(whole(values, 1), whole(values, 0)); },
         [=](const Subject& s) {
             return IntArray{widget(s).y(), widget(s).x()};
         }},
        {{"topEdge", "te", "i"},
         [=](const Subject& s, const ValueList& values) { widget(s).move(widget(s).x(), whole(values)); },
         [=](const Subject& s) { return widget(s).y(); }},
        {{"leftEdge", "le", "i"},
         [=](const Subject& s, const ValueList& values) { widget(s).move(whole(values), widget(s).y()); },
         [=](const Subject& s) { return widget(s).x(); }},
        switchFlag(
            "sizeable", "s", [](ScriptWindow& window, bool on) { window.setSizeable(on); },
            [](const QWidget& w) { return w.minimumSize() != w.maximumSize(); }),
        {{"resizeToFitChildren", "rtf", "b"},
         [=](const Subject& s, const ValueList& values) {
             if (truth(values)) {
                 widget(s).adjustSize();
             }
         }},
        buttonFlag<Qt::WindowMinimizeButtonHint>("minimizeButton", "mnb"),
        buttonFlag<Qt::WindowMaximizeButtonHint>("maximizeButton", "mxb"),
        {{"menuBar", "mb", "b"}},  // it comes with the first menu
        {{"toolbox", "tlb", "b"}},
        {{"mainWindow", "mw", "b"}},
        {{"retain", "ret"},
         [](const Subject& s, const ValueList&) {
             if (ScriptWindow* const window = scriptWindow(s)) {
                 window->setRetained(true);
             }
         }},
        {{"closeCommand", "cc", "s"},
         [](const Subject& s, const ValueList& values) {
             if (ScriptWindow* const window = scriptWindow(s)) {
                 window->setCloseCommand(kernel::toText(values.front()));
             }
         }},
        {{"menuArray", "ma"}, nullptr, menuNames},
    };
}

Value showWindow(UiObjects& ui, const mel::BuiltinCall& call)
{
    const std::vector<std::string> names = call.objectNames();
    if (names.empty()) {
        const std::vector<UiObject*> windows = ui.all(only(Kind::Window));
        ScriptWindow* const latest = windows.empty() ? nullptr : scriptWindow({ui, *windows.back()});
        if (latest) {
            latest->present();
        }
        return {};
    }
    const Subject subject{ui, ui.get("showWindow", names.front(), only(Kind::Window))};
    if (ScriptWindow* const window = scriptWindow(subject)) {
        window->present();
    } else {
        subject.as<QWidget>().raise();
    }
    return {};
}

}  // namespace

void registerWindows(UiObjects& ui)
{
    addControlCommand(ui, {"window", "window", Kind::Window, windowFlags(),
                           [](UiObjects& objects) -> QWidget* { return new ScriptWindow(objects); }});
    mel::addBuiltin(ui.session(), "showWindow", mel::makeSyntax({}, mel::Modes::Create, 0, 1),
                    [&ui](mel::BuiltinCall& call) { return showWindow(ui, call); });
}

}  // namespace ui
