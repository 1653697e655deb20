#include "node/HostViews.h"

#include "node/BaseNode.h"
#include "settings/ScriptBridge.h"

#include <maya/M3dView.h>
#include <maya/MDagPath.h>

QString HostViews::activeCamera()
{
    MStatus status;
    M3dView view = M3dView::active3dView(&status);
    MDagPath camera;
    return status && view.getCamera(camera) ? script::cameraKey(camera) : QString();
}

void HostViews::redrawDrawing()
{
    if (BaseNode* node = BaseNode::masterNode()) {
        node->redrawActiveView();
    }
}

void HostViews::activeOpacityChanged()
{
    // No view shows a layer's opacity as a number.
}
