#pragma once

#include "node/ViewportMetrics.h"

// Before the host's view headers, which may bring the window system's macros (None, Bool, CursorShape).
#include <QPointF>
#include <QString>

#include <maya/M3dView.h>
#include <maya/MUIDrawManager.h>

#include <array>

/// Four corners in the order in which lines join them.
using Corners = std::array<QPointF, 4>;

/// What the transform tool works on, outlined in every view of one camera.
struct RegionOutline {
    QString camera;   ///< empty: there is none
    Corners corners;  ///< canvas pixels
};

/// Where a view shows corners given in canvas pixels: port pixels, y pointing up.
Corners cornersInView(const Corners& corners, const ViewportMetrics& metrics);

/// Draws the lines, from corners in port pixels; the caller begins and ends the drawable.
void drawOutline(MHWRender::MUIDrawManager& drawManager, const Corners& corners);
/// Inverts the picture of a legacy view along the lines, until the view is drawn anew. Nothing happens in Viewport 2.0.
void drawOutline(M3dView& legacyView, const Corners& corners);
