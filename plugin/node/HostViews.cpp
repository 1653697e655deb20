#include "node/HostViews.h"

#include "model/LayerManager.h"
#include "node/BaseNode.h"
#include "node/ViewOfWidget.h"
#include "settings/ScriptBridge.h"

#include <maya/M3dView.h>
#include <maya/MDagPath.h>

namespace {

QString cameraOf(M3dView& view)
{
    MDagPath camera;
    return view.getCamera(camera) ? script::cameraKey(camera) : QString();
}

}  // namespace

QString HostViews::cameraShownIn(const QWidget& widget)
{
    M3dView view;
    return findView(&widget, view) ? cameraOf(view) : QString();
}

QString HostViews::activeCamera()
{
    MStatus status;
    M3dView view = M3dView::active3dView(&status);
    return status ? cameraOf(view) : QString();
}

void HostViews::redrawDrawing()
{
    if (BaseNode* node = BaseNode::masterNode()) {
        node->redrawActiveView();
    }
}

bool HostViews::isAnotherEdited(const LayerManager& drawing)
{
    const BaseNode* node = BaseNode::masterNode();
    return node && node->layerManager().get() != &drawing;
}

void HostViews::activeOpacityChanged()
{
    // No view shows a layer's opacity as a number.
}
