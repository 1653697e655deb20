#pragma once

#include "api/DrawList.h"

#include <maya/MPxContext.h>

#include <string>

namespace api {

/// A pointer event of a view on its way to the current tool. x, y: port pixels.
struct ToolEvent {
    enum class Kind { Press, Drag, Release, Hold, Move, Enter, Leave } kind = Kind::Press;
    int x = 0;
    int y = 0;
    enum class Button { None, Left, Middle } button = Button::None;
    bool shift = false;
    bool control = false;
};

/// The tool contexts of the session: made by context commands, one of them current.
/// Built-in ones (selectSuperContext and its like) take no events.
class ToolBox {
public:
    static ToolBox& instance();

    /// Names of every context; the built-in four are always there.
    bool exists(const std::string& name) const;
    /// Takes a context made by a module; gives its name: `wanted`, or the command's name with a number.
    std::string add(const std::string& commandName, const std::string& wanted, MPxContext* context);
    /// Removes a module's contexts; the current tool falls back to selectSuperContext.
    void removeOf(const std::string& commandName);
    void clear();

    std::string currentName() const;
    MPxContext* current() const;  ///< null for a built-in one
    /// Leaves the current tool, enters the named one. Throws kernel::CommandError when there is none.
    void setCurrent(const std::string& name);

    /// Routes to the Viewport 2.0 form first when `manager` and `frame` are given, to the plain one when that
    /// answers kUnknownParameter. One press-drag-release is one undo chunk.
    void send(const ToolEvent& event, MHWRender::MUIDrawManager* manager, const MHWRender::MFrameContext* frame);
    void complete();
    void abort();
    void deleteAction();
    std::string helpString() const;
    const char* title() const;
    /// Called when the tool or its help string changes.
    void setListener(void (*listener)());
};

}  // namespace api
