#include "api/Tools.h"

#include "api/Access.h"
#include "api/Handles.h"
#include "api/Registration.h"
#include "kernel/Session.h"

#include <algorithm>

namespace api {

namespace {

const char kSelectTool[] = "selectSuperContext";

struct BuiltIn {
    const char* name;
    const char* title;
};
const BuiltIn kBuiltIns[] = {
    {kSelectTool, "Select Tool"},
    {"moveSuperContext", "Move Tool"},
    {"RotateSuperContext", "Rotate Tool"},
    {"scaleSuperContext", "Scale Tool"},
};

using ViewportHandler = MStatus (MPxContext::*)(MEvent&, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&);
using PlainHandler = MStatus (MPxContext::*)(MEvent&);

struct Handlers {
    ViewportHandler viewport;  ///< null: there is only the plain form
    PlainHandler plain;        ///< null: tools do not hear of it
};

Handlers handlersFor(ToolEvent::Kind kind)
{
    switch (kind) {
    case ToolEvent::Kind::Press: return {&MPxContext::doPress, &MPxContext::doPress};
    case ToolEvent::Kind::Drag: return {&MPxContext::doDrag, &MPxContext::doDrag};
    case ToolEvent::Kind::Release: return {&MPxContext::doRelease, &MPxContext::doRelease};
    case ToolEvent::Kind::Hold: return {&MPxContext::doHold, &MPxContext::doHold};
    case ToolEvent::Kind::Move: return {&MPxContext::doPtrMoved, &MPxContext::doPtrMoved};
    case ToolEvent::Kind::Enter: return {nullptr, &MPxContext::doEnterRegion};
    case ToolEvent::Kind::Leave: break;
    }
    return {nullptr, nullptr};
}

bool needsPress(ToolEvent::Kind kind)
{
    return kind == ToolEvent::Kind::Drag || kind == ToolEvent::Kind::Release || kind == ToolEvent::Kind::Hold;
}

}  // namespace

/// Marks that a tool's code runs.
class ToolBox::Handling {
public:
    Handling(ToolBox& box, const Tool& tool) : m_box(box), m_module(tool.module) { ++m_box.m_handling; }
    ~Handling() { --m_box.m_handling; }
    Handling(const Handling&) = delete;
    Handling& operator=(const Handling&) = delete;

private:
    ToolBox& m_box;
    ModuleScope m_module;
};

ToolBox& ToolBox::instance()
{
    static ToolBox box;
    return box;
}

ToolBox::ToolBox()
{
    for (const BuiltIn& builtIn : kBuiltIns) {
        auto tool = std::make_unique<Tool>();
        tool->name = builtIn.name;
        tool->title = builtIn.title;
        m_tools.push_back(std::move(tool));
    }
    m_current = m_tools.front().get();
}

ToolBox::Tool* ToolBox::find(const std::string& name) const
{
    for (const auto& tool : m_tools) {
        if (tool->name == name)
            return tool.get();
    }
    return nullptr;
}

bool ToolBox::exists(const std::string& name) const
{
    return find(name) != nullptr;
}

std::string ToolBox::nameFor(const std::string& commandName, const std::string& wanted) const
{
    if (!wanted.empty() && !exists(wanted))
        return wanted;
    const std::string& base = wanted.empty() ? commandName : wanted;
    int number = 1;
    while (exists(base + std::to_string(number)))
        ++number;
    return base + std::to_string(number);
}

std::string ToolBox::add(const std::string& commandName, const std::string& wanted, MPxContext* context,
                         std::shared_ptr<MPxContextCommand> maker)
{
    auto tool = std::make_unique<Tool>();
    tool->name = nameFor(commandName, wanted);
    tool->command = commandName;
    tool->module = currentModule();
    tool->maker = std::move(maker);
    tool->context.reset(context);
    m_tools.push_back(std::move(tool));
    return m_tools.back()->name;
}

void ToolBox::drop(Tool& tool)
{
    const ModuleScope scope(tool.module);
    tool.context.reset();
    tool.maker.reset();
}

void ToolBox::removeOf(const std::string& commandName)
{
    if (m_current->command == commandName) {
        leave();
        enter(*m_tools.front());
    }
    const auto gone = [&](const std::unique_ptr<Tool>& tool) { return tool->command == commandName; };
    for (const auto& tool : m_tools) {
        if (gone(tool))
            drop(*tool);
    }
    m_tools.erase(std::remove_if(m_tools.begin(), m_tools.end(), gone), m_tools.end());
}

void ToolBox::remove(const std::string& name)
{
    const auto found =
        std::find_if(m_tools.begin(), m_tools.end(), [&](const auto& tool) { return tool->name == name; });
    if (found == m_tools.end() || (*found)->command.empty())
        throw kernel::CommandError("deleteUI: Object '" + name + "' not found.");
    if (m_handling > 0)
        throw kernel::CommandError("deleteUI: A tool cannot be deleted while one is at work: " + name);
    if (m_current == found->get()) {
        leave();
        enter(*m_tools.front());
    }
    drop(**found);
    m_tools.erase(found);
}

void ToolBox::clear()
{
    std::vector<std::string> commands;
    for (const auto& tool : m_tools) {
        if (!tool->command.empty())
            commands.push_back(tool->command);
    }
    for (const std::string& command : commands)
        removeOf(command);
    m_current = m_tools.front().get();
}

std::string ToolBox::currentName() const
{
    return m_current->name;
}

MPxContext* ToolBox::current() const
{
    return m_current->context.get();
}

void ToolBox::setCurrent(const std::string& name)
{
    kernel::Session& session = kernel::Session::current();
    Tool* const tool = find(name);
    if (!tool)
        throw kernel::CommandError("Cannot find tool context: " + name);
    if (session.batch && tool->context)
        throw kernel::CommandError("Tool contexts cannot be entered in batch mode: " + name);
    if (m_handling > 0) {
        session.idle.post([this, &session, name] {
            try {
                setCurrent(name);
            } catch (const kernel::CommandError& error) {
                session.output.error(error.what());
            }
        });
        return;
    }
    session.events.raise("ToolChanged");
    leave();
    enter(*tool);
    session.events.raise("PostToolChanged");
}

void ToolBox::enter(Tool& tool)
{
    m_current = &tool;
    if (tool.context) {
        const Handling handling(*this, tool);
        MEvent event;
        tool.context->toolOnSetup(event);
    }
    updateHelp();
    notify();
}

void ToolBox::leave()
{
    endPress();
    if (!m_current->context)
        return;
    const Handling handling(*this, *m_current);
    m_current->context->toolOffCleanup();
}

MPxContext* ToolBox::context(const std::string& name) const
{
    const Tool* tool = find(name);
    return tool ? tool->context.get() : nullptr;
}

std::shared_ptr<MPxContextCommand> ToolBox::makerOf(const std::string& name) const
{
    const Tool* tool = find(name);
    return tool ? tool->maker : nullptr;
}

std::string ToolBox::classOf(const std::string& name) const
{
    const Tool* tool = find(name);
    if (!tool || !tool->context)
        return tool ? tool->name : std::string();
    MString className;
    tool->context->getClassName(className);
    return toKernel(className);
}

std::string ToolBox::titleOf(const std::string& name) const
{
    const Tool* tool = find(name);
    if (!tool)
        return {};
    return tool->context ? Access::state(*tool->context).title : tool->title;
}

std::string ToolBox::imageOf(const std::string& name) const
{
    const Tool* tool = find(name);
    return tool && tool->context ? toKernel(tool->context->image(MPxContext::kImage1)) : std::string();
}

void ToolBox::endPress()
{
    if (!m_pressed)
        return;
    m_pressed = false;
    kernel::Session::current().undo.closeChunk();
}

void ToolBox::send(const ToolEvent& event, MHWRender::MUIDrawManager* manager, const MHWRender::MFrameContext* frame)
{
    const Handlers handlers = handlersFor(event.kind);
    MPxContext* const context = current();
    // A tool entered while a button is down has not seen the press.
    if (!context || !handlers.plain || (needsPress(event.kind) && !m_pressed))
        return;

    kernel::Session& session = kernel::Session::current();
    if (event.kind == ToolEvent::Kind::Press) {
        endPress();
        session.undo.openChunk(m_current->name);
        m_pressed = true;
    }
    {
        const Handling handling(*this, *m_current);
        MEvent hostEvent = Access::event(event);
        MStatus status = MStatus::kUnknownParameter;
        if (handlers.viewport && manager && frame)
            status = (context->*handlers.viewport)(hostEvent, *manager, *frame);
        if (status == MStatus::kUnknownParameter)
            (context->*handlers.plain)(hostEvent);
    }
    if (event.kind == ToolEvent::Kind::Release)
        endPress();
    if (event.kind == ToolEvent::Kind::Press || event.kind == ToolEvent::Kind::Release)
        updateHelp();
}

void ToolBox::drawFeedback(MHWRender::MUIDrawManager& manager, const MHWRender::MFrameContext& frame)
{
    MPxContext* const context = current();
    if (!context)
        return;
    const Handling handling(*this, *m_current);
    context->drawFeedback(manager, frame);
}

void ToolBox::act(void (MPxContext::*action)())
{
    MPxContext* const context = current();
    if (!context)
        return;
    {
        const kernel::UndoQueue::OneStep step(kernel::Session::current().undo, m_current->name);
        const Handling handling(*this, *m_current);
        (context->*action)();
    }
    updateHelp();
}

void ToolBox::complete()
{
    act(&MPxContext::completeAction);
}

void ToolBox::abort()
{
    act(&MPxContext::abortAction);
}

void ToolBox::deleteAction()
{
    act(&MPxContext::deleteAction);
}

void ToolBox::updateHelp()
{
    MPxContext* const context = current();
    if (!context)
        return;
    const Handling handling(*this, *m_current);
    MEvent event;
    context->helpStateHasChanged(event);
}

std::string ToolBox::helpString() const
{
    MPxContext* const context = current();
    return context ? Access::state(*context).help : m_current->title;
}

const char* ToolBox::title() const
{
    MPxContext* const context = current();
    return context ? Access::state(*context).title.c_str() : m_current->title.c_str();
}

QCursor ToolBox::cursor() const
{
    MPxContext* const context = current();
    return Access::cursor(context ? Access::state(*context).cursor : MCursor::defaultCursor);
}

void ToolBox::setListener(void (*listener)())
{
    m_listener = listener;
}

void ToolBox::notify() const
{
    if (m_listener)
        m_listener();
}

void ToolBox::contextChanged(const MPxContext& context)
{
    if (&context == current())
        notify();
}

}  // namespace api
