#pragma once

#include "settings/Names.h"
#include "settings/Text.h"

#include <maya/MGlobal.h>

#include <QString>
#include <QStringList>

/// The texts the script bridge sends, and the one way to send them. Only the bridge's own sources include this.
namespace script {

/// A command text and how it runs: echoed to the script editor or not, recorded for undo or not.
struct Template {
    const char* command;  ///< stands in front of the text as it is
    const char* text;     ///< %1, %2 ... are what is filled in, at most nine
    bool display;
    bool undo;
};

/// The text of a row, its places filled in one pass, so that a %1 in what is filled in stays what it is.
QString filled(const Template& row, const QStringList& values = QStringList());

/// Runs a row; false when the host reports failure.
bool run(const Template& row, const QStringList& values = QStringList());
/// Has the host run a row without places when it is next idle.
bool runDeferred(const Template& row);

/// Runs a row for its result. False, and the result as it was, when the host fails or answers with another type.
template <class Result>
bool ask(const Template& row, Result& result, const QStringList& values = QStringList())
{
    return MGlobal::executeCommand(toMString(filled(row, values)), result, row.display, row.undo);
}

namespace templates {

using namespace names;

// By FrameAction.
constexpr Template kFrames[] = {
    {kFrameCommand, " -insert", true, true},    {kFrameCommand, " -duplicate", true, true},
    {kFrameCommand, " -delete", true, true},    {kFrameCommand, " -cut", true, true},
    {kFrameCommand, " -copy", true, false},     {kFrameCommand, " -paste", true, true},
    {kFrameCommand, " -clear", true, true},     {kFrameCommand, " -stepForward", false, true},
    {kFrameCommand, " -stepBack", false, true},
};
// A place right behind a word takes the flags that are given, each with a blank in front.
constexpr Template kRetime = {kFrameCommand, " -retime %1%2", true, true};
constexpr Template kMoveFrames = {kFrameCommand, " -move %1 %2 %3", false, true};

constexpr Template kCommitStroke = {kStrokeCommand, "%1 %2", false, true};

constexpr Template kAddLayer = {kLayerCommand, " -add%1 %2", false, true};
constexpr Template kSetActiveLayer = {kLayerCommand, " -e -active %1 %2", false, true};
constexpr Template kDeleteLayer = {kLayerCommand, " -delete %1 %2", false, true};
constexpr Template kRenameLayer = {kLayerCommand, " -en %1 %2 %3", false, true};
constexpr Template kSetLayerState = {kLayerCommand, " -es %1 %2 %3", false, true};
constexpr Template kSetLayerVisible = {kLayerCommand, " -ev %1 %2 %3", false, true};
constexpr Template kMoveLayer = {kLayerCommand, " -move %1 %2 %3", false, true};
constexpr Template kMoveAllLayers = {kLayerCommand, " -moveAll %1 %2", false, true};
constexpr Template kMoveLayerToCamera = {kLayerCommand, " -newCamera %1 -move %2 %3 %4", false, true};

constexpr Template kCreateNode = {kNodeCommand, "%1", false, true};
constexpr Template kRefreshGhosts = {kNodeCommand, " -rg", false, false};

// By ToolType.
constexpr Template kTools[] = {
    {kUtilCommand, " -pencilTool", false, false},  {kUtilCommand, " -brushTool", false, false},
    {kUtilCommand, " -eraserTool", false, false},  {kUtilCommand, " -textTool", false, false},
    {kUtilCommand, " -lineTool", false, false},    {kUtilCommand, " -arrowTool", false, false},
    {kUtilCommand, " -ellipseTool", false, false}, {kUtilCommand, " -rectangleTool", false, false},
};
// By ToolType. %1 size, %2 opacity, %3 hardness, %4 tablet, %5 font.
constexpr Template kToolOptions[] = {
    {kUtilCommand, " -pencilOptions %1 %2 %4", false, false},
    {kUtilCommand, " -brushOptions %1 %2 %3 %4", false, false},
    {kUtilCommand, " -eraserOptions %1 %2 %3 %4", false, false},
    {kUtilCommand, " -textOptions %1 %2 %5", false, false},
    {kUtilCommand, " -lineOptions %1 %2", false, false},
    {kUtilCommand, " -arrowOptions %1 %2", false, false},
    {kUtilCommand, " -ellipseOptions %1 %2", false, false},
    {kUtilCommand, " -rectangleOptions %1 %2", false, false},
};
constexpr Template kDrawColour = {kUtilCommand, " -e -drawColor %1 %2 %3", true, false};
constexpr Template kUseDrawTool = {kUtilCommand, " -draw", false, false};
constexpr Template kUseTransformTool = {kUtilCommand, " -transform", false, false};

// By GhostSide.
constexpr Template kShowGhosts[] = {
    {kUtilCommand, " -e -ghostPrevious %1", true, false},
    {kUtilCommand, " -e -ghostNext %1", true, false},
};
constexpr Template kGhostCount[] = {
    {kUtilCommand, " -e -ghostPreviousCount %1", false, false},
    {kUtilCommand, " -e -ghostNextCount %1", false, false},
};
constexpr Template kGhostColour[] = {
    {kUtilCommand, " -e -ghostColorPrevious %1 %2 %3", false, false},
    {kUtilCommand, " -e -ghostColorNext %1 %2 %3", false, false},
};
constexpr Template kGhostColourOverride = {kUtilCommand, " -e -ghostColorOverride %1", false, false};

constexpr Template kTimelineDisplay = {kUtilCommand, " -e -timelineFrameDisplay %1", false, false};
constexpr Template kRefreshTimeline = {kUtilCommand, " -refreshTimelineDisplay", false, false};
constexpr Template kRefreshLayerManager = {kUtilCommand, " -rlm", false, false};
constexpr Template kRefreshToolbox = {kUtilCommand, " -rtb", false, false};

// By Panel.
constexpr Template kPanels[] = {
    {kUtilCommand, " -layerManager", false, false}, {kUtilCommand, " -toolbox", false, false},
    {kUtilCommand, " -toolOptions", false, false},  {kUtilCommand, " -colorPalette", false, false},
    {kUtilCommand, " -retimingTool", false, false},
};
// By Dialog.
constexpr Template kDialogs[] = {
    {kUtilCommand, " -newLayer", false, false},
    {kUtilCommand, " -ghostingSettings", false, false},
    {kUtilCommand, " -preferences", false, false},
    {kUtilCommand, " -about", false, false},
};
constexpr Template kLayerProperties = {kUtilCommand, " -layerProperties", false, false};
constexpr Template kShowFloatingView = {kUtilCommand, " -fv", false, false};
constexpr Template kMoveToFloatingView = {kUtilCommand, " -fvm %1", false, false};
constexpr Template kResetPanels = {kUtilCommand, " -resetUI", false, false};

constexpr Template kCreateMenu = {kCreateMainMenu, "(%1)", false, false};
constexpr Template kDeleteMenu = {kDeleteMainMenu, "()", false, false};
constexpr Template kUpdateMenu = {kUpdateMainMenu, "(%1, %2, %3, %4)", false, false};
constexpr Template kFloatingView = {kCreateFloatingViewport, "(%1)", false, true};
// By Cleanup.
constexpr Template kCleanups[] = {
    {kDeleteActiveLayer, "()", false, true},
    {kDeleteActiveCameraLayers, "()", false, true},
    {kDeleteAllNodes, "()", false, true},
};
constexpr Template kSourceText = {"", "%1", false, false};

constexpr Template kDeferred = {"evalDeferred", "(%1)", false, false};
constexpr Template kStartPlaybackJob = {"scriptJob", " -cf \"playingBack\" %1", false, false};
constexpr Template kStopPlaybackJob = {"scriptJob", " -f -k %1", false, false};

constexpr Template kUserPrefDir = {"internalVar", " -userPrefDir", false, false};
constexpr Template kContextExists = {"contextInfo", " -exists %1", false, false};
constexpr Template kSetTool = {"setToolTo", " %1", false, false};
constexpr Template kCurrentContext = {"currentCtx", "", false, false};
constexpr Template kContextClass = {"contextInfo", " -class %1", false, false};
constexpr Template kSetSelectTool = {"setToolTo", " $gSelect", false, false};
constexpr Template kIsBatch = {"about", " -batch", false, false};
constexpr Template kHighlightedSpan = {"timeControl", " -q -rangeArray $gPlayBackSlider", false, false};
constexpr Template kIsSpanHighlighted = {"timeControl", " -q -rangeVisible $gPlayBackSlider", false, false};
constexpr Template kTimeControlName = {"$tempVar", " = $gPlayBackSlider", false, false};
constexpr Template kSceneCameras = {"ls", " -cameras", false, false};

// The control's name stands last, after a flag's values.
constexpr Template kMakeColourSlider = {"colorSliderGrp", " -columnWidth3 0 %1 0 %2", false, false};
constexpr Template kSliderColour = {"colorSliderGrp", " -q -rgbValue %1", false, false};
constexpr Template kSetSliderColour = {"colorSliderGrp", " -e -rgbValue %1 %2 %3 %4", false, false};
constexpr Template kSetSliderCommand = {"colorSliderGrp", " -e -changeCommand %1 %2", false, false};

}  // namespace templates

}  // namespace script
