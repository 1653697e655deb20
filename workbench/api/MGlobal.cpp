#include <maya/MGlobal.h>

#include "api/Access.h"
#include "api/Handles.h"
#include "api/Results.h"
#include "kernel/Session.h"

#include <maya/MAnimControl.h>

#include <algorithm>
#include <utility>

using api::report;

namespace {

kernel::Session& session()
{
    return kernel::Session::current();
}

kernel::ScriptResult execute(const MString& command, bool display, bool undo)
{
    return session().script().execute(api::toKernel(command), display, undo);
}

template <typename T>
MStatus executeFor(const MString& command, T& result, bool display, bool undo)
{
    const kernel::ScriptResult ran = execute(command, display, undo);
    return ran.ok ? api::getExactly(ran.value, result) : MStatus(MStatus::kFailure);
}

using Nodes = std::vector<kernel::NodePtr>;

bool contains(const Nodes& nodes, const kernel::NodePtr& node)
{
    return std::find(nodes.begin(), nodes.end(), node) != nodes.end();
}

/// Those of `nodes` that are not in `others`.
Nodes without(const Nodes& nodes, const Nodes& others)
{
    Nodes rest;
    std::copy_if(nodes.begin(), nodes.end(), std::back_inserter(rest),
                 [&](const kernel::NodePtr& node) { return !contains(others, node); });
    return rest;
}

Nodes joined(Nodes first, const Nodes& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

Nodes adjusted(const Nodes& selection, const Nodes& nodes, MGlobal::ListAdjustment adjustment)
{
    switch (adjustment) {
    case MGlobal::kReplaceList: return nodes;
    case MGlobal::kXORWithList: return joined(without(selection, nodes), without(nodes, selection));
    case MGlobal::kAddToList: return joined(selection, without(nodes, selection));
    case MGlobal::kRemoveFromList: return without(selection, nodes);
    case MGlobal::kAddToHeadOfList: return joined(nodes, without(selection, nodes));
    }
    return selection;
}

const kernel::Value* optionVar(const MString& name, bool* exists)
{
    const auto found = session().optionVars.find(api::toKernel(name));
    const bool there = found != session().optionVars.end();
    if (exists)
        *exists = there;
    return there ? &found->second : nullptr;
}

bool setOptionVar(const MString& name, kernel::Value value)
{
    const std::string variable = api::toKernel(name);
    session().optionVars[variable] = std::move(value);
    session().tellOptionVarChanged(variable);
    return true;
}

std::string quoted(const std::string& text)
{
    return '"' + text + '"';
}

}  // namespace

OPENMAYA_MAJOR_NAMESPACE_OPEN

MStatus MGlobal::executeCommand(const MString& command, bool displayEnabled, bool undoEnabled)
{
    return execute(command, displayEnabled, undoEnabled).ok ? MStatus::kSuccess : MStatus::kFailure;
}

MStatus MGlobal::executeCommand(const MString& command, MCommandResult& result, bool displayEnabled, bool undoEnabled)
{
    kernel::ScriptResult ran = execute(command, displayEnabled, undoEnabled);
    api::Access::value(result) = std::move(ran.value);
    return ran.ok ? MStatus::kSuccess : MStatus::kFailure;
}

MStatus MGlobal::executeCommand(const MString& command, int& result, bool displayEnabled, bool undoEnabled)
{
    return executeFor(command, result, displayEnabled, undoEnabled);
}

MStatus MGlobal::executeCommand(const MString& command, MIntArray& result, bool displayEnabled, bool undoEnabled)
{
    return executeFor(command, result, displayEnabled, undoEnabled);
}

MStatus MGlobal::executeCommand(const MString& command, double& result, bool displayEnabled, bool undoEnabled)
{
    return executeFor(command, result, displayEnabled, undoEnabled);
}

MStatus MGlobal::executeCommand(const MString& command, MDoubleArray& result, bool displayEnabled, bool undoEnabled)
{
    return executeFor(command, result, displayEnabled, undoEnabled);
}

MStatus MGlobal::executeCommand(const MString& command, MString& result, bool displayEnabled, bool undoEnabled)
{
    return executeFor(command, result, displayEnabled, undoEnabled);
}

MStatus MGlobal::executeCommand(const MString& command, MStringArray& result, bool displayEnabled, bool undoEnabled)
{
    return executeFor(command, result, displayEnabled, undoEnabled);
}

MString MGlobal::executeCommandStringResult(const MString& command, bool displayEnabled, bool undoEnabled,
                                            MStatus* ReturnStatus)
{
    MString result;
    report(ReturnStatus, executeFor(command, result, displayEnabled, undoEnabled).statusCode());
    return result;
}

MStatus MGlobal::executeCommandOnIdle(const MString& command, bool displayEnabled)
{
    kernel::Session& host = session();
    const std::string text = api::toKernel(command);
    host.idle.post([&host, text, displayEnabled] { host.script().execute(text, displayEnabled, true); },
                   kernel::IdleQueue::Priority::Usual, text);
    return MStatus::kSuccess;
}

MStatus MGlobal::sourceFile(const MString& fileName)
{
    return session().script().executeFile(api::toKernel(fileName), false).ok ? MStatus::kSuccess : MStatus::kFailure;
}

void MGlobal::displayInfo(const MString& text)
{
    session().output.info(api::toKernel(text));
}

void MGlobal::displayWarning(const MString& text)
{
    session().output.warning(api::toKernel(text));
}

void MGlobal::displayError(const MString& text)
{
    session().output.error(api::toKernel(text));
}

MStatus MGlobal::getActiveSelectionList(MSelectionList& dest, bool /*orderedSelectionIfAvailable*/)
{
    dest = api::toSelectionList(session().scene.selection());
    return MStatus::kSuccess;
}

MStatus MGlobal::setActiveSelectionList(const MSelectionList& src, ListAdjustment adjustment)
{
    kernel::Scene& scene = session().scene;
    scene.setSelection(adjusted(scene.selection(), api::nodesOf(src), adjustment));
    return MStatus::kSuccess;
}

MStatus MGlobal::clearSelectionList()
{
    session().scene.setSelection({});
    return MStatus::kSuccess;
}

MStatus MGlobal::select(MObject& object, ListAdjustment adjustment)
{
    MSelectionList list;
    const MStatus status = list.add(object);
    return status ? setActiveSelectionList(list, adjustment) : status;
}

MStatus MGlobal::unselect(MObject& object)
{
    return select(object, kRemoveFromList);
}

MStatus MGlobal::selectByName(const MString& name, ListAdjustment adjustment)
{
    MSelectionList list;
    const MStatus status = list.add(name);
    return status ? setActiveSelectionList(list, adjustment) : status;
}

MStatus MGlobal::selectCommand(const MSelectionList& src, ListAdjustment adjustment)
{
    kernel::Scene& scene = session().scene;
    const Nodes nodes = adjusted(scene.selection(), api::nodesOf(src), adjustment);
    std::string text = nodes.empty() ? "select -clear" : "select -replace";
    for (const kernel::NodePtr& node : nodes)
        text += ' ' + quoted(scene.partialPath(*node));
    return session().script().execute(text, false, true).ok ? MStatus::kSuccess : MStatus::kFailure;
}

MStatus MGlobal::getSelectionListByName(const MString& name, MSelectionList& list)
{
    return list.add(name);
}

MGlobal::MMayaState MGlobal::mayaState(MStatus* ReturnStatus)
{
    report(ReturnStatus, MStatus::kSuccess);
    return session().batch ? kBatch : kInteractive;
}

int MGlobal::apiVersion()
{
    return MAYA_API_VERSION;
}

MString MGlobal::mayaVersion()
{
    return "2019";
}

bool MGlobal::isUndoing()
{
    return session().undo.isUndoing();
}

bool MGlobal::isRedoing()
{
    return session().undo.isRedoing();
}

int MGlobal::optionVarIntValue(const MString& name, bool* exists)
{
    const kernel::Value* value = optionVar(name, exists);
    int number = 0;
    if (value)
        kernel::toInt(*value, number);
    return number;
}

double MGlobal::optionVarDoubleValue(const MString& name, bool* exists)
{
    const kernel::Value* value = optionVar(name, exists);
    double number = 0;
    if (value)
        kernel::toDouble(*value, number);
    return number;
}

MString MGlobal::optionVarStringValue(const MString& name, bool* exists)
{
    const kernel::Value* value = optionVar(name, exists);
    return value && kernel::hasValue(*value) ? api::toHost(kernel::toText(*value)) : MString();
}

bool MGlobal::optionVarExists(const MString& name)
{
    return optionVar(name, nullptr) != nullptr;
}

bool MGlobal::setOptionVarValue(const MString& name, int value)
{
    return setOptionVar(name, value);
}

bool MGlobal::setOptionVarValue(const MString& name, double value)
{
    return setOptionVar(name, value);
}

bool MGlobal::setOptionVarValue(const MString& name, MString value)
{
    return setOptionVar(name, api::toKernel(value));
}

MStatus MGlobal::viewFrame(const MTime& time)
{
    return MAnimControl::setCurrentTime(time);
}

MStatus MGlobal::viewFrame(double time)
{
    return MAnimControl::setCurrentTime(MTime(time, MTime::uiUnit()));
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
