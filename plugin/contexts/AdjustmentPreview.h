#pragma once

#include <QPoint>

#include <maya/M3dView.h>
#include <maya/MUIDrawManager.h>

// What is seen of a tool's size or opacity while it is changed. centre, radius: port pixels.

/// For Viewport 2.0: the value as a number to the left of the centre, and a red circle; none for radius 0.
void drawPreview(MHWRender::MUIDrawManager& drawManager, const QPoint& centre, double radius, int value);
/// For a legacy view: inverts a circle, which erases one that is there. False, and nothing is drawn, in other views.
bool invertPreview(M3dView& legacyView, const QPoint& centre, double radius);
