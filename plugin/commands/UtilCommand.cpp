#include "commands/UtilCommand.h"

#include "commands/Arguments.h"
#include "commands/Flags.h"
#include "commands/GhostActions.h"
#include "commands/PanelActions.h"
#include "commands/ToolActions.h"
#include "node/TimelineMarks.h"
#include "settings/Messages.h"
#include "settings/Preferences.h"
#include "settings/ScriptBridge.h"

#include <maya/MArgDatabase.h>

namespace {

constexpr MSyntax::MArgType kUnsigned = MSyntax::kUnsigned;
constexpr int kTimelineDisplayCount = 3;

using Action = MStatus (*)(const MArgDatabase& args, const char* flag);

/// A flag and what it does, by the mode the command is called in; null where it does nothing.
struct Row {
    Flag flag;
    Action plain;
    Action edit;
    Action query;
};

/// Something to be done. Values are not read in query mode, so that only what takes none can be done there too.
Row act(const Flag& flag, Action action)
{
    return {flag, action, action, flag.types[0] == MSyntax::kNoArg ? action : nullptr};
}

/// A setting to be changed or asked for.
Row setting(const Flag& flag, Action edit, Action query)
{
    return {flag, nullptr, edit, query};
}

template <class Value>
MStatus answer(const Value& value)
{
    MPxCommand::setResult(value);
    return MStatus::kSuccess;
}

Preferences& preferences()
{
    return Preferences::instance();
}

template <MStatus (*action)()>
MStatus run(const MArgDatabase&, const char*)
{
    return action();
}

template <ToolType tool>
MStatus use(const MArgDatabase&, const char*)
{
    return useTool(tool);
}

template <ToolType tool>
MStatus setOptions(const MArgDatabase& args, const char* flag)
{
    return setToolOptions(args, flag, tool);
}

MStatus editDrawColour(const MArgDatabase& args, const char* flag)
{
    QColor colour;
    if (!readColourArgument(args, flag, colour)) {
        return MStatus::kFailure;
    }
    preferences().setActiveColor(colour);
    Panels::refreshInstalled(Panel::Toolbox);
    return MStatus::kSuccess;
}

template <const QColor& (Preferences::*colour)() const>
MStatus queryColour(const MArgDatabase&, const char*)
{
    return answer(components((preferences().*colour)()));
}

template <const GhostSide& side>
MStatus editGhosts(const MArgDatabase& args, const char* flag)
{
    return showGhosts(side, numberArgument(args, flag));
}

template <const GhostSide& side>
MStatus queryGhosts(const MArgDatabase&, const char*)
{
    return answer((preferences().*side.isShown)() ? 1 : 0);
}

template <const GhostSide& side>
MStatus editGhostCount(const MArgDatabase& args, const char* flag)
{
    return setGhostCount(side, unsignedArgument(args, flag));
}

template <const GhostSide& side>
MStatus queryGhostCount(const MArgDatabase&, const char*)
{
    return answer((preferences().*side.count)());
}

template <const GhostSide& side>
MStatus editGhostColour(const MArgDatabase& args, const char* flag)
{
    return setGhostColour(side, args, flag);
}

MStatus editGhostColourOverride(const MArgDatabase& args, const char* flag)
{
    return setGhostColourOverride(unsignedArgument(args, flag) != 0);
}

MStatus queryGhostColourOverride(const MArgDatabase&, const char*)
{
    return answer(preferences().ghostColorOverride());
}

MStatus editTimelineDisplay(const MArgDatabase& args, const char* flag)
{
    const int display = unsignedArgument(args, flag);
    if (display >= kTimelineDisplayCount) {
        messages::error("Invalid timeline frame display option.");
        return MStatus::kFailure;
    }
    preferences().setTimelineFrameDisplay(display);
    TimelineMarks::refreshInstalled();
    script::notifyMainMenu();
    return MStatus::kSuccess;
}

MStatus queryTimelineDisplay(const MArgDatabase&, const char*)
{
    return answer(preferences().timelineFrameDisplay());
}

MStatus refreshTimelineDisplay()
{
    TimelineMarks::refreshInstalled();
    return MStatus::kSuccess;
}

MStatus openFloatingViewport()
{
    script::openFloatingViewport(QString());
    return MStatus::kSuccess;
}

MStatus moveToFloatingViewport(const MArgDatabase& args, const char* flag)
{
    return openFloatingViewportWith(textArgument(args, flag));
}

template <Panel panel>
MStatus show(const MArgDatabase&, const char*)
{
    return showPanel(panel);
}

template <Dialog dialog>
MStatus open(const MArgDatabase&, const char*)
{
    return openDialog(dialog);
}

MStatus refreshToolbox()
{
    Panels::refreshInstalled(Panel::Toolbox);
    return MStatus::kSuccess;
}

/// An import brings in nothing of this system's own.
MStatus importNothing()
{
    return MStatus::kSuccess;
}

// In order of registration, in which they are tested as well: the first that is set is run. Some long names are
// registered without a dash; callers type it all the same.
const Row kRows[] = {
    act({"-d", "-draw"}, run<useDrawContext>),
    act({"-t", "-transform"}, run<useTransformContext>),
    setting({"-dc", "-drawColor", kUnsigned, kUnsigned, kUnsigned}, editDrawColour,
            queryColour<&Preferences::activeColor>),
    act({"-pt", "-pencilTool"}, use<ToolType::Pencil>),
    act({"-bt", "-brushTool"}, use<ToolType::Brush>),
    act({"-et", "-eraserTool"}, use<ToolType::Eraser>),
    act({"-lt", "-lineTool"}, use<ToolType::Line>),
    act({"-at", "-arrowTool"}, use<ToolType::Arrow>),
    act({"-elt", "-ellipseTool"}, use<ToolType::Ellipse>),
    act({"-rt", "-rectangleTool"}, use<ToolType::Rectangle>),
    act({"-tt", "-textTool"}, use<ToolType::Text>),
    act({"-po", "-pencilOptions", kUnsigned, kUnsigned, kUnsigned}, setOptions<ToolType::Pencil>),
    act({"-bo", "-brushOptions", kUnsigned, kUnsigned, kUnsigned, kUnsigned}, setOptions<ToolType::Brush>),
    act({"-eo", "-eraserOptions", kUnsigned, kUnsigned, kUnsigned, kUnsigned}, setOptions<ToolType::Eraser>),
    act({"-txo", "-textOptions", kUnsigned, kUnsigned, MSyntax::kString}, setOptions<ToolType::Text>),
    act({"-lo", "-lineOptions", kUnsigned, kUnsigned}, setOptions<ToolType::Line>),
    act({"-ao", "-arrowOptions", kUnsigned, kUnsigned}, setOptions<ToolType::Arrow>),
    act({"-elo", "-ellipseOptions", kUnsigned, kUnsigned}, setOptions<ToolType::Ellipse>),
    act({"-ro", "-rectangleOptions", kUnsigned, kUnsigned}, setOptions<ToolType::Rectangle>),
    setting({"-gp", "-ghostPrevious", MSyntax::kLong}, editGhosts<kPreviousGhosts>, queryGhosts<kPreviousGhosts>),
    setting({"-gn", "-ghostNext", MSyntax::kLong}, editGhosts<kNextGhosts>, queryGhosts<kNextGhosts>),
    setting({"-gpc", "-ghostPreviousCount", kUnsigned}, editGhostCount<kPreviousGhosts>,
            queryGhostCount<kPreviousGhosts>),
    setting({"-gnc", "-ghostNextCount", kUnsigned}, editGhostCount<kNextGhosts>, queryGhostCount<kNextGhosts>),
    setting({"-gco", "-ghostColorOverride", kUnsigned}, editGhostColourOverride, queryGhostColourOverride),
    setting({"-gcp", "-ghostColorPrevious", kUnsigned, kUnsigned, kUnsigned}, editGhostColour<kPreviousGhosts>,
            queryColour<&Preferences::ghostColorOverridePrev>),
    setting({"-gcn", "-ghostColorNext", kUnsigned, kUnsigned, kUnsigned}, editGhostColour<kNextGhosts>,
            queryColour<&Preferences::ghostColorOverrideNext>),
    setting({"-tfd", "-timelineFrameDisplay", kUnsigned}, editTimelineDisplay, queryTimelineDisplay),
    act({"-rtd", "-refreshTimelineDisplay"}, run<refreshTimelineDisplay>),
    act({"-fv", "-floatingViewport"}, run<openFloatingViewport>),
    act({"-fvm", "-floatingViewportMove", MSyntax::kString}, moveToFloatingViewport),
    act({"-lm", "-layerManager"}, show<Panel::LayerManager>),
    act({"-rlm", "-refreshLayerManager"}, run<refreshLayerManager>),
    act({"-tb", "-toolbox"}, show<Panel::Toolbox>),
    act({"-to", "-toolOptions"}, show<Panel::ToolOptions>),
    act({"-rtb", "-refreshToolbox"}, run<refreshToolbox>),
    act({"-cp", "colorPalette"}, show<Panel::ColorPalette>),
    act({"-rtt", "retimingTool"}, show<Panel::RetimingTool>),
    act({"-nl", "-newLayer"}, open<Dialog::NewLayer>),
    act({"-lp", "-layerProperties"}, run<openLayerProperties>),
    act({"-gs", "-ghostingSettings"}, open<Dialog::GhostingSettings>),
    act({"-fwi", "-framewrightImport"}, run<importNothing>),
    act({"-rui", "-resetUI"}, run<resetPanels>),
    act({"-pr", "-preferences"}, open<Dialog::Preferences>),
    act({"-ab", "-about"}, open<Dialog::About>),
};

MStatus invalidParameters()
{
    messages::error("Invalid command parameters");
    return MStatus::kInvalidParameter;
}

Action actionOf(const Row& row, const MArgDatabase& args)
{
    return args.isEdit() ? row.edit : args.isQuery() ? row.query : row.plain;
}

}  // namespace

void* UtilCommand::creator()
{
    return new UtilCommand;
}

MSyntax UtilCommand::newSyntax()
{
    MSyntax syntax;
    for (const Row& row : kRows) {
        addFlag(syntax, row.flag);
    }
    syntax.enableEdit(true);
    syntax.enableQuery(true);
    return syntax;
}

MStatus UtilCommand::doIt(const MArgList& list)
{
    MStatus status;
    const MArgDatabase args(syntax(), list, &status);
    if (!status) {
        return status;
    }
    for (const Row& row : kRows) {
        if (args.isFlagSet(row.flag.longName)) {
            const Action action = actionOf(row, args);
            return action ? action(args, row.flag.longName) : invalidParameters();
        }
    }
    return invalidParameters();
}
