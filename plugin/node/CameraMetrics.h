#pragma once

#include "node/ViewportMetrics.h"

#include <maya/MDagPath.h>
#include <maya/MPoint.h>

/// Where a view of this size through this camera shows the canvas, before its 2D pan is followed.
ViewportMetrics cameraMetrics(const MDagPath& cameraPath, int width, int height);

/// The point of the world that the middle of a panned canvas stands on.
MPoint panTarget(const MDagPath& cameraPath);
