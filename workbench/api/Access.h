#pragma once

#include "api/Tools.h"
#include "kernel/Arguments.h"
#include "kernel/Syntax.h"

#include <maya/MArgParser.h>
#include <maya/MCommandResult.h>
#include <maya/MPxCommand.h>
#include <maya/MPxContext.h>
#include <maya/MPxContextCommand.h>
#include <maya/MPxDrawOverride.h>
#include <maya/MSyntax.h>

#include <memory>
#include <string>

namespace api {

/// A number is in the current unit, a text may carry its own; false for anything else.
bool toTime(const kernel::Value& value, MTime& time);

// What the API's commands, tools and argument lists hold.

/// Arguments a list holds, or those it is lent while a module reads its data. A copy holds them in any case.
class ArgumentValues {
public:
    explicit ArgumentValues(kernel::ValueList values = {}) : m_values(std::move(values)) {}
    explicit ArgumentValues(const kernel::Arguments& lent) : m_lent(&lent) {}
    ArgumentValues(const ArgumentValues& other) : m_values(other.all()) {}
    ArgumentValues& operator=(const ArgumentValues& other);

    std::size_t size() const { return m_lent ? m_lent->size() : m_values.size(); }
    /// Null when there is none. A lent one is borrowed until the next is asked for.
    const kernel::Value* at(std::size_t index) const;
    kernel::ValueList all() const;
    void append(kernel::Value value) { m_values.push_back(std::move(value)); }  ///< not to a lent list

private:
    kernel::ValueList m_values;
    const kernel::Arguments* m_lent = nullptr;
    mutable kernel::Value m_made;  ///< the lent argument asked for last
};

struct ParsedArguments {
    kernel::Syntax syntax;
    kernel::ParsedArgs args;
};

struct ResultValue {
    kernel::Value value;
};

struct CommandState {
    std::shared_ptr<const kernel::Syntax> syntax;  ///< null when the command was registered without one
    MString text;
    bool history = true;
};

struct ContextState {
    std::string title;
    std::string help;
    MString images[3];
    MCursor cursor = MCursor::defaultCursor;
};

struct ContextCommandState {
    std::shared_ptr<kernel::Syntax> syntax;
    std::shared_ptr<const ParsedArguments> parsed;
    kernel::Value result;
};

/// The one way into the private parts of those classes.
struct Access {
    /// A syntax that stands for `own`: what is added to it is added there.
    static MSyntax aliasOf(std::shared_ptr<kernel::Syntax> own);
    static std::shared_ptr<kernel::Syntax> syntax(const MSyntax& syntax) { return syntax.m_syntax; }
    static MArgList arguments(kernel::ValueList values);
    /// A list that asks for its arguments as they are read from it. args: outlives it.
    static MArgList lent(const kernel::Arguments& args);
    static kernel::ValueList values(const MArgList& list) { return list.m_values->all(); }
    static MArgParser parser(std::shared_ptr<const ParsedArguments> parsed);
    static kernel::Value& value(MCommandResult& result) { return result.m_value->value; }
    static CommandState& state(MPxCommand& command) { return *command.m_state; }

    static MEvent event(const ToolEvent& event);
    static ContextState& state(MPxContext& context) { return *context.m_state; }
    static ContextCommandState& state(MPxContextCommand& command) { return *command.m_state; }
    static QCursor cursor(const MCursor& cursor);

    static M3dView viewOf(View* view);

    static std::shared_ptr<Texture> texture(const MHWRender::MTexture& texture) { return texture.m_texture; }
    static MHWRender::MRenderer& renderer();
    static MHWRender::MTextureManager& textureManager();
    static std::unique_ptr<MHWRender::MUIDrawManager> drawManager(DrawList& list, const kernel::Matrix4& world);
    static std::unique_ptr<MHWRender::MFrameContext> frameContext(const FrameState& state);
    static std::unique_ptr<MHWRender::MDrawContext> drawContext(const FrameState& state, const kernel::Matrix4& world);
    static void callBack(const MHWRender::MPxDrawOverride& drawOverride, const MHWRender::MDrawContext& context,
                         const MUserData* data);
};

}  // namespace api
