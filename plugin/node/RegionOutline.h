#pragma once

// Before the host's view headers, which may bring the window system's macros (None, Bool, CursorShape).
#include <QPointF>
#include <QString>

#include <maya/M3dView.h>
#include <maya/MUIDrawManager.h>

#include <array>

/// What the transform tool works on, outlined in the views of one camera that are as large as the tool's.
struct RegionOutline {
    QString camera;                  ///< empty: there is none
    std::array<QPointF, 4> corners;  ///< port pixels, y pointing up, in the order in which lines join them
};

/// Draws the lines; the caller begins and ends the drawable.
void drawOutline(MHWRender::MUIDrawManager& drawManager, const std::array<QPointF, 4>& corners);
/// Inverts the picture of a legacy view along the lines, until the view is drawn anew. Nothing happens in Viewport 2.0.
void drawOutline(M3dView& legacyView, const std::array<QPointF, 4>& corners);
