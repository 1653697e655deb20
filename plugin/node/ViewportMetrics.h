#pragma once

#include <maya/MPoint.h>
#include <maya/MVector.h>

#include <QPoint>
#include <QPointF>

/// What decides how large a camera's view shows the canvas.
struct CameraFilm {
    int filmFit;  ///< MFnCamera::FilmFit; values without a rule of their own count as horizontal
    bool isOrtho;
    double overscan;          ///< 1 = none
    double filmAspect;        ///< width / height of the film back
    double resolutionAspect;  ///< width / height of the rendered picture
};

/// Where a view shows the canvas. All lengths are view pixels, origin lower left, y up.
struct ViewportMetrics {
    int width = 0;
    int height = 0;
    int canvasSize = 0;   ///< side of the canvas before 2D zoom
    float halfSize = 0;   ///< half of drawnSize
    float drawnSize = 0;  ///< side of the canvas as drawn
    MPoint centre;        ///< of the canvas; z 0, w 1
    MVector panOffset;    ///< from the canvas's centre to the view's; zero without 2D pan
    bool isPanZoomed = false;
};

/// Side of the canvas in a view of this size, whole pixels (cut, not rounded). 0 for an empty view.
int canvasSizeInView(const CameraFilm& film, int width, int height);

/// Metrics of an unpanned view. zoom: the camera's 2D zoom, null when its pan and zoom do not count;
/// 0 and below count as 0.001.
ViewportMetrics viewportMetrics(const CameraFilm& film, int width, int height, const double* zoom);

/// Moves the canvas's centre to `target`, the view position of the point the 2D pan looks at.
void panTo(ViewportMetrics& metrics, const MPoint& target);

/// Points of the view can be told on the canvas: it is shown at least a pixel large, and not absurdly large or far away
/// (a zoom, overscan or aspect of nearly 0 makes it so).
bool isReady(const ViewportMetrics& metrics);
/// The canvas's point under a point of the view, in canvas pixels; may lie off the canvas, whose y points down. The
/// origin when the metrics are not ready.
QPointF canvasPointAt(const ViewportMetrics& metrics, double x, double y);
/// The canvas pixel under a point of the view. Halves round up, below zero too.
QPoint canvasPixelAt(const ViewportMetrics& metrics, double x, double y);
/// Where the view shows a point of the canvas; a pixel's whole numbers are its upper left corner.
QPointF viewPointOf(const ViewportMetrics& metrics, const QPointF& point);
/// Points of one view are the same points of the other, to half a view pixel: the two kinds of views work their pan out
/// in different ways.
bool showAlike(const ViewportMetrics& a, const ViewportMetrics& b);
