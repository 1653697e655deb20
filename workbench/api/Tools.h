#pragma once

#include "api/DrawList.h"

#include <maya/MPxContext.h>
#include <maya/MPxContextCommand.h>

#include <QtGui/QCursor>

#include <memory>
#include <string>
#include <vector>

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
    /// Takes a context made by a module; gives its name: `wanted`, or the command's name with a number. The command
    /// object that made it is kept with it, since it may go on working on it.
    std::string add(const std::string& commandName, const std::string& wanted, MPxContext* context,
                    std::shared_ptr<MPxContextCommand> maker = nullptr);
    /// Removes a module's contexts; the current tool falls back to selectSuperContext.
    void removeOf(const std::string& commandName);
    /// Removes one context; the current tool falls back to selectSuperContext. Throws kernel::CommandError for a
    /// built-in one, and when there is none.
    void remove(const std::string& name);
    void clear();

    std::string currentName() const;
    MPxContext* current() const;  ///< null for a built-in one
    /// Leaves the current tool, enters the named one; asked from inside a tool's own handler, at the next idle moment.
    /// Throws kernel::CommandError when there is none, and for a module's tool in batch mode.
    void setCurrent(const std::string& name);

    /// What a context is; null or empty for an unknown name and where a built-in one has none.
    MPxContext* context(const std::string& name) const;
    std::shared_ptr<MPxContextCommand> makerOf(const std::string& name) const;
    std::string classOf(const std::string& name) const;
    std::string titleOf(const std::string& name) const;
    std::string imageOf(const std::string& name) const;

    /// Routes to the Viewport 2.0 form first when `manager` and `frame` are given, to the plain one when that
    /// answers kUnknownParameter. One press-drag-release is one undo chunk.
    void send(const ToolEvent& event, MHWRender::MUIDrawManager* manager, const MHWRender::MFrameContext* frame);
    /// Lets the current tool draw over a frame.
    void drawFeedback(MHWRender::MUIDrawManager& manager, const MHWRender::MFrameContext& frame);
    void complete();
    void abort();
    void deleteAction();
    std::string helpString() const;
    const char* title() const;
    QCursor cursor() const;
    /// Called when the tool or its help string, title or cursor changes.
    void setListener(void (*listener)());
    /// A context changed what it shows.
    void contextChanged(const MPxContext& context);

private:
    struct Tool {
        std::string name;
        std::string command;  ///< empty for a built-in one
        std::string module;
        std::string title;  ///< of a built-in one; others tell theirs
        std::shared_ptr<MPxContextCommand> maker;
        std::unique_ptr<MPxContext> context;
    };
    class Handling;

    ToolBox();
    Tool* find(const std::string& name) const;
    std::string nameFor(const std::string& commandName, const std::string& wanted) const;
    void enter(Tool& tool);
    void leave();
    void drop(Tool& tool);
    void endPress();
    void act(void (MPxContext::*action)());
    void updateHelp();
    void notify() const;

    std::vector<std::unique_ptr<Tool>> m_tools;
    Tool* m_current;
    int m_handling = 0;      ///< depth of calls into a tool
    bool m_pressed = false;  ///< between press and release; an undo chunk is open then
    void (*m_listener)() = nullptr;
};

}  // namespace api
