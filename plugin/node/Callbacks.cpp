#include "node/Callbacks.h"

#include "model/FrameNumber.h"
#include "model/HiddenFrames.h"
#include "model/LayerManager.h"
#include "node/BaseNode.h"
#include "node/MasterDrawing.h"
#include "node/TimelineMarks.h"
#include "settings/ToolGesture.h"

#include <maya/MAnimControl.h>
#include <maya/MCallbackIdArray.h>
#include <maya/MEventMessage.h>
#include <maya/MMessage.h>

namespace {

void (*s_shutDown)() = nullptr;

MCallbackIdArray& installedIds()
{
    static MCallbackIdArray ids;
    return ids;
}

void selectionChanged(void*)
{
    TimelineMarks::refreshInstalled();
    if (!BaseNode::masterNode()) {
        publishMasterDrawing();
    }
}

void timeChanged(void*)
{
    const int frameNumber = currentFrameNumber();
    for (BaseNode* node : BaseNode::allNodes()) {
        node->changeTime(frameNumber);
    }
    if (!MAnimControl::isPlaying()) {
        toolGesture::timeChanged();
    }
}

void timeUnitChanged(void*)
{
    std::vector<std::shared_ptr<const LayerManager>> drawings;
    for (const BaseNode* node : BaseNode::allNodes()) {
        drawings.push_back(node->layerManagerIfAny());
    }
    hiddenFrames::warnOfTimeUnit(drawings);
    TimelineMarks::refreshInstalled();
}

void undoneOrRedone(void*)
{
    toolGesture::takeBack();
    TimelineMarks::refreshInstalled();
    publishMasterDrawing();
}

void sceneOpened(void*)
{
    toolGesture::takeBack();
    timeChanged(nullptr);
    TimelineMarks::refreshInstalled();
    publishMasterDrawing();
}

void quitApplication(void*)
{
    s_shutDown();
}

const struct {
    const char* event;
    MMessage::MBasicFunction answer;
} kCallbacks[] = {
    {"SelectionChanged", selectionChanged},
    {"timeChanged", timeChanged},
    {"timeUnitChanged", timeUnitChanged},
    {"SceneOpened", sceneOpened},
    {"quitApplication", quitApplication},
    {"Undo", undoneOrRedone},
    {"Redo", undoneOrRedone},
};

}  // namespace

MStatus callbacks::install(void (*shutDown)())
{
    s_shutDown = shutDown;
    for (const auto& callback : kCallbacks) {
        MStatus status;
        const MCallbackId id = MEventMessage::addEventCallback(callback.event, callback.answer, nullptr, &status);
        if (!status) {
            return status;
        }
        installedIds().append(id);
    }
    return MStatus::kSuccess;
}

MStatus callbacks::remove()
{
    const MStatus status = MMessage::removeCallbacks(installedIds());
    installedIds().clear();
    return status;
}
