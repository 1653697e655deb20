#pragma once

#include <maya/MUIDrawManager.h>

#include <QPointF>
#include <QString>

#include <array>

/// What the transform tool works on, outlined in the views of one camera.
struct RegionOutline {
    QString camera;                  ///< empty: there is none
    std::array<QPointF, 4> corners;  ///< port pixels, y pointing up, in the order in which lines join them
};

/// Draws the lines; the caller begins and ends the drawable.
void drawOutline(MHWRender::MUIDrawManager& drawManager, const std::array<QPointF, 4>& corners);
