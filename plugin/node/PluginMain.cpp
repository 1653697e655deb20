// The module's entry: the one place that knows every other and wires them together.

#include "commands/FrameCommand.h"
#include "commands/LayerCommand.h"
#include "commands/NodeCommand.h"
#include "commands/StrokeCommand.h"
#include "commands/UtilCommand.h"
#include "contexts/DrawContextCommand.h"
#include "contexts/ThreadManager.h"
#include "contexts/TransformContextCommand.h"
#include "model/BaseNodeLayerData.h"
#include "model/LayerManager.h"
#include "model/PictureEncoder.h"
#include "model/RowBands.h"
#include "node/BaseNode.h"
#include "node/BaseNodeDrawOverride.h"
#include "node/Callbacks.h"
#include "node/HostViews.h"
#include "node/TimelineMarks.h"
#include "settings/Messages.h"
#include "settings/Names.h"
#include "settings/Panels.h"
#include "settings/Preferences.h"
#include "settings/ScriptBridge.h"
#include "settings/Text.h"

#include <maya/MDrawRegistry.h>
#include <maya/MFnPlugin.h>

#include <QCoreApplication>

#include <functional>
#include <vector>

namespace {

const char kVendor[] = "Lumisketch";
const char kVersion[] = "2.5.4";

// For the whole load; set anew by each, as the host may have kept the module in memory since it was last unloaded.
bool s_isInteractive = false;
bool s_isShutDown = false;
int s_playbackJob = -1;

/// A step of loading and the step of unloading that takes it back; either may do nothing.
struct Registration {
    std::function<MStatus(MFnPlugin&)> enter;
    std::function<MStatus(MFnPlugin&)> leave;
    QString enterFailure;
    QString leaveFailure;
    bool givesReason;  ///< the host's reason follows the message
};

Registration command(const char* name, MCreatorFunction creator, MCreateSyntaxFunction syntax)
{
    return {[=](MFnPlugin& plugin) { return plugin.registerCommand(name, creator, syntax); },
            [=](MFnPlugin& plugin) { return plugin.deregisterCommand(name); },
            QString("Failed to register '%1' command: ").arg(name),
            QString("Failed to deregister '%1' command: ").arg(name), true};
}

Registration contextCommand(const char* name, MCreatorFunction creator)
{
    return {[=](MFnPlugin& plugin) { return plugin.registerContextCommand(name, creator); },
            [=](MFnPlugin& plugin) { return plugin.deregisterContextCommand(name); },
            QString("Failed to register '%1' contextCommand: ").arg(name),
            QString("Failed to deregister '%1' contextCommand: ").arg(name), true};
}

Registration layerData()
{
    return {[](MFnPlugin& plugin) {
                return plugin.registerData(names::kLayerDataType, names::kLayerDataTypeId, BaseNodeLayerData::creator,
                                           MPxData::kData);
            },
            [](MFnPlugin& plugin) { return plugin.deregisterData(names::kLayerDataTypeId); },
            QString("Could not register '%1").arg(names::kLayerDataType),  // the quote stays open, as it always has
            QString("Could not deregister %1").arg(names::kLayerDataType), false};
}

Registration baseNode()
{
    return {[](MFnPlugin& plugin) {
                const MString classification(names::kDrawClassification);
                return plugin.registerNode(names::kNodeType, names::kNodeTypeId, BaseNode::creator,
                                           BaseNode::initialize, MPxNode::kLocatorNode, &classification);
            },
            [](MFnPlugin& plugin) { return plugin.deregisterNode(names::kNodeTypeId); }, "Failed to register base node",
            "Failed to deregister base node", false};
}

Registration drawOverride()
{
    return {[](MFnPlugin&) {
                return MHWRender::MDrawRegistry::registerDrawOverrideCreator(
                    names::kDrawClassification, names::kDrawRegistrant, BaseNodeDrawOverride::creator);
            },
            [](MFnPlugin&) {
                return MHWRender::MDrawRegistry::deregisterDrawOverrideCreator(names::kDrawClassification,
                                                                               names::kDrawRegistrant);
            },
            "Failed to register draw node override", "Failed to deregister base node draw override", false};
}

MStatus nothing(MFnPlugin&)
{
    return MStatus::kSuccess;
}

Registration onlyEntered(Registration step)
{
    step.leave = nothing;
    return step;
}

Registration onlyLeft(Registration step)
{
    step.enter = nothing;
    return step;
}

Registration whenLeaving(void (*step)())
{
    return {nothing,
            [=](MFnPlugin&) {
                step();
                return MStatus();
            },
            QString(), QString(), false};
}

void stopThreads()
{
    PictureEncoder::instance().stop();
    stopRowHelpers();
}

/// Takes our windows away and saves the settings: once, when the host quits or when the module is unloaded before.
void shutDown()
{
    if (s_isShutDown) {
        return;
    }
    s_isShutDown = true;
    if (Panels* panels = Panels::installed()) {
        panels->destroyAll(Panels::Places::Keep);
    }
    Panels::install(nullptr);
    TimelineMarks::install(nullptr);
    LayerManager::setLayerListView(nullptr);
    Preferences::instance().save();
    stopThreads();
}

/// Nothing of ours may be under the pointer or at work while the rest goes.
void leaveTools()
{
    const QString toolClass = script::currentToolClass();
    if (toolClass == names::kDrawContextCommand || toolClass == names::kTransformContextCommand) {
        script::setSelectTool();
    }
    ThreadManager::destroy();
}

/// What is to be deleted later would be deleted without its code.
void deleteNow()
{
    if (QCoreApplication::instance()) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

/// In the order of loading; unloading goes the other way.
std::vector<Registration> registrations()
{
    const Registration transformTool =
        contextCommand(names::kTransformContextCommand, TransformContextCommand::creator);
    return {
        whenLeaving(deleteNow),
        command(names::kNodeCommand, NodeCommand::creator, NodeCommand::newSyntax),
        command(names::kLayerCommand, LayerCommand::creator, LayerCommand::newSyntax),
        command(names::kFrameCommand, FrameCommand::creator, FrameCommand::newSyntax),
        command(names::kStrokeCommand, StrokeCommand::creator, StrokeCommand::newSyntax),
        command(names::kUtilCommand, UtilCommand::creator, UtilCommand::newSyntax),
        // Of the tools the draw tool is the first both ways.
        onlyLeft(transformTool),
        contextCommand(names::kDrawContextCommand, DrawContextCommand::creator),
        onlyEntered(transformTool),
        layerData(),
        whenLeaving(shutDown),
        baseNode(),
        drawOverride(),
    };
}

/// Without its menu the module is as useful to scripts: a failure is only reported.
void makeMenu()
{
    if (!script::sourceMenuScript()) {
        messages::bareError("Failed to source scripts");
        return;
    }
    if (!s_isInteractive) {
        return;
    }
    if (!script::createMainMenu()) {
        messages::bareError("Failed to create main menu");
    }
    if (!script::notifyMainMenu()) {
        messages::bareError("Failed to update main menu");
    }
}

MStatus report(const Registration& step, const QString& failure, const MStatus& status)
{
    messages::bareError(step.givesReason ? failure + toQString(status.errorString()) : failure);
    return status;
}

MStatus enterAll(MFnPlugin& plugin)
{
    for (const Registration& step : registrations()) {
        const MStatus status = step.enter(plugin);
        if (!status) {
            return report(step, step.enterFailure, status);
        }
    }
    return MStatus::kSuccess;
}

MStatus leaveAll(MFnPlugin& plugin)
{
    const std::vector<Registration> steps = registrations();
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
        const MStatus status = step->leave(plugin);
        if (!status) {
            return report(*step, step->leaveFailure, status);
        }
    }
    return MStatus::kSuccess;
}

HostViews& hostViews()
{
    static HostViews views;
    return views;
}

MStatus leave(MObject& object)
{
    if (s_isInteractive && !script::deleteMainMenu()) {
        messages::bareError("Failed to delete main menu");
    }
    const int job = s_playbackJob;
    s_playbackJob = -1;  // one that cannot be stopped is gone: the next attempt goes on without it
    if (job >= 0 && !script::stopPlaybackJob(job)) {
        messages::bareError("Failed to remove scriptJobs");
        return MStatus::kFailure;
    }
    MStatus status = callbacks::remove();
    if (!status) {
        messages::bareError("Failed to remove callbacks");
        return status;
    }
    MFnPlugin plugin(object, kVendor, kVersion, "Any", &status);
    if (!status) {
        messages::bareError("Failed to uninitialize plugin: " + toQString(status.errorString()));
        return status;
    }
    status = leaveAll(plugin);
    if (status) {
        LayerManager::setDrawingViews(nullptr);  // a module that could not leave goes on drawing
    }
    return status;
}

}  // namespace

MStatus initializePlugin(MObject object)
{
    MStatus status;
    MFnPlugin plugin(object, kVendor, kVersion, "Any", &status);
    if (!status) {
        messages::bareError("Failed to initialize plugin: " + toQString(status.errorString()));
        return status;
    }
    s_isInteractive = !script::isBatch();
    s_isShutDown = false;
    script::drawingNodeCommandRan();  // one asked for in an earlier load never ran
    Preferences::instance() = Preferences();
    Preferences::instance().load();
    makeMenu();
    LayerManager::setDrawingViews(&hostViews());
    status = enterAll(plugin);
    if (!status) {
        return status;
    }
    status = callbacks::install(shutDown);
    if (!status) {
        return status;
    }
    s_playbackJob = script::startPlaybackJob();
    return status;
}

MStatus uninitializePlugin(MObject object)
{
    leaveTools();
    const MStatus status = leave(object);
    stopThreads();  // the host may let the module go whatever the status says
    return status;
}
