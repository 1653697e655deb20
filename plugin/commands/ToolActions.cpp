#include "commands/ToolActions.h"

#include "commands/Arguments.h"
#include "settings/Messages.h"
#include "settings/Names.h"
#include "settings/Panels.h"
#include "settings/Preferences.h"
#include "settings/ScriptBridge.h"
#include "settings/Text.h"

#include <maya/MGlobal.h>

namespace {

constexpr int kComponentCount = 3;
constexpr int kMaxComponent = 255;

// contextName: of the context that the command made last.
MStatus useContext(const char* command, QString& contextName)
{
    if (contextName.isEmpty() || !script::contextExists(contextName)) {
        MString made;
        MGlobal::executeCommand(command, made, false, false);
        contextName = toQString(made);
    }
    return !contextName.isEmpty() && script::setCurrentTool(contextName) ? MStatus::kSuccess : MStatus::kFailure;
}

}  // namespace

MStatus useDrawContext()
{
    static QString contextName;
    return useContext(names::kDrawContextCommand, contextName);
}

MStatus useTransformContext()
{
    static QString contextName;
    return useContext(names::kTransformContextCommand, contextName);
}

MStatus useTool(ToolType tool)
{
    const MStatus status = useDrawContext();
    if (status) {
        Preferences::instance().setActiveTool(tool);
        script::notifyMainMenu();
        Panels::refreshInstalled(Panel::Toolbox);
        Panels::refreshInstalled(Panel::ToolOptions);
    }
    return status;
}

MStatus setToolOptions(const MArgDatabase& args, const char* flag, ToolType tool)
{
    Preferences& preferences = Preferences::instance();
    unsigned int next = 0;
    preferences.setToolSize(tool, unsignedArgument(args, flag, next++));
    preferences.setToolOpacity(tool, unsignedArgument(args, flag, next++));
    if (tool == ToolType::Brush || tool == ToolType::Eraser) {
        preferences.setToolHardness(tool, unsignedArgument(args, flag, next++));
    }
    if (isFreehand(tool)) {
        preferences.setTabletEnabled(tool, unsignedArgument(args, flag, next++) != 0);
    }
    if (tool == ToolType::Text) {
        preferences.setTextFontFamily(textArgument(args, flag, next++));
    }
    Panels::refreshInstalled(Panel::ToolOptions);
    Panels::refreshInstalled(Panel::Toolbox);
    return MStatus::kSuccess;
}

bool readColourArgument(const MArgDatabase& args, const char* flag, QColor& colour)
{
    int values[kComponentCount];
    for (unsigned int i = 0; i < kComponentCount; ++i) {
        values[i] = unsignedArgument(args, flag, i);
        if (values[i] > kMaxComponent) {
            messages::error("Color values must be in the range of 0-255.");
            return false;
        }
    }
    colour = QColor(values[0], values[1], values[2]);
    return true;
}

MIntArray components(const QColor& colour)
{
    MIntArray values;
    for (int value : {colour.red(), colour.green(), colour.blue()}) {
        values.append(value);
    }
    return values;
}
