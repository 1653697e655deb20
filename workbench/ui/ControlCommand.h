#pragma once

#include "ui/ObjectFlags.h"

#include <functional>
#include <string>
#include <vector>

namespace ui {

class LayoutWidget;

/// The object that a command works on.
struct Subject {
    UiObjects& ui;
    UiObject& object;

    template <class T>
    T& as() const
    {
        return static_cast<T&>(*object.object);
    }
};

using ControlFlag = ObjectFlag<Subject>;

/// One kind of window, layout, control or panel, and the command that makes, asks and changes such objects.
struct ControlType {
    const char* command;
    const char* type;  ///< of the objects; differs from the command for one that works on another's
    Kind kind;
    /// Besides those that all controls have. When several are asked for at once, the first row answers.
    std::vector<ControlFlag> flags;
    std::function<QWidget*(UiObjects& ui)> make;     ///< null: the command makes none
    std::function<void(const Subject&)> begin = {};  ///< what a new object needs once it has its name; may be null
};

/// Registers the command. It gives the path of what it made; windows and layouts become the parent of what follows.
void addControlCommand(UiObjects& ui, ControlType type);

/// Where windows, layouts and panels without another place go: a layout of the main window that is never shown.
UiObject& hiddenLayout(UiObjects& ui);
/// The window or layout for a new object of that kind. wanted: empty for the current parent. For what needs a layout,
/// throws "Controls must have a layout.  No layout found in window : NAME".
UiObject& parentFor(UiObjects& ui, const std::string& command, Kind kind, const std::string& wanted);
/// The path of the layout that the object stands in now; empty when there is none.
std::string layoutPath(const Subject& subject);
/// The arranging widget of a window or layout.
LayoutWidget& arranger(const UiObject& parent);

/// Runs the script when the object sends the signal, instead of what ran before. values: replace #1, #2 and so on.
void setScript(const Subject& subject, const char* signal, const std::string& script,
               std::function<kernel::DoubleArray()> values = {});

}  // namespace ui
