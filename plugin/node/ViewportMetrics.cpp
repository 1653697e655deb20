#include "node/ViewportMetrics.h"

#include "model/Canvas.h"

#include <maya/MFnCamera.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

const double kSmallestZoom = 0.001;

/// Whole part of a value, kept within int; 0 for what is no number (an empty view, an aspect of 0).
int wholePart(double value)
{
    if (std::isnan(value)) {
        return 0;
    }
    const double limit = std::numeric_limits<int>::max();
    return static_cast<int>(std::max(-limit, std::min(limit, value)));
}

int roundHalfUp(double value)
{
    return wholePart(std::floor(value + 0.5));
}

/// How much a perspective camera's fill or overscan fit widens the picture against the view.
double fitFactor(const CameraFilm& film, double viewAspect)
{
    if (film.filmAspect <= viewAspect) {
        return film.resolutionAspect < film.filmAspect ? film.resolutionAspect / film.filmAspect : 1.0;
    }
    return film.resolutionAspect <= film.filmAspect ? film.resolutionAspect / viewAspect : film.filmAspect / viewAspect;
}

}  // namespace

int canvasSizeInView(const CameraFilm& film, int width, int height)
{
    if (width <= 0 || height <= 0) {
        return 0;
    }
    const double byWidth = width / film.overscan;
    const double byHeight = height / film.overscan;
    const double factor = film.isOrtho ? 1.0 : fitFactor(film, double(width) / height);
    switch (film.filmFit) {
    case MFnCamera::kVerticalFilmFit: return wholePart(byHeight * film.resolutionAspect);
    case MFnCamera::kOverscanFilmFit: return wholePart(byHeight / factor * film.resolutionAspect);
    case MFnCamera::kFillFilmFit: return wholePart(byWidth * factor);
    default: return wholePart(byWidth);
    }
}

ViewportMetrics viewportMetrics(const CameraFilm& film, int width, int height, const double* zoom)
{
    ViewportMetrics metrics;
    metrics.width = width;
    metrics.height = height;
    metrics.canvasSize = canvasSizeInView(film, width, height);
    metrics.drawnSize = float(metrics.canvasSize);
    metrics.halfSize = float(metrics.canvasSize * 0.5);
    metrics.centre = MPoint(width * 0.5, height * 0.5, 0.0);
    metrics.isPanZoomed = zoom != nullptr;
    if (zoom) {
        const double factor = *zoom > 0.0 ? *zoom : kSmallestZoom;
        metrics.drawnSize = float(metrics.drawnSize / factor);
        metrics.halfSize = float(metrics.halfSize / factor);
    }
    return metrics;
}

void panTo(ViewportMetrics& metrics, const MPoint& target)
{
    metrics.panOffset = MVector(metrics.centre.x - target.x, metrics.centre.y - target.y, 0.0);
    metrics.centre = metrics.centre - metrics.panOffset;
}

QPoint canvasPixelAt(const ViewportMetrics& metrics, double x, double y)
{
    const double size = metrics.drawnSize;
    if (!(size > 0.0)) {
        return QPoint();
    }
    const double scale = kCanvasSize / size;
    const double left = (size - metrics.width) / 2.0 + metrics.panOffset.x;
    const double below = metrics.height - (metrics.panOffset.y + y);
    return QPoint(roundHalfUp((left + x) * scale), roundHalfUp((below + (size - metrics.height) / 2.0) * scale));
}

MPoint viewPointOf(const ViewportMetrics& metrics, const QPoint& pixel)
{
    const double size = metrics.drawnSize;
    const double scale = size / kCanvasSize;
    const double left = (size - metrics.width) / 2.0 + metrics.panOffset.x;
    const double top = (size + metrics.height) / 2.0 - metrics.panOffset.y;
    return MPoint(pixel.x() * scale - left, top - pixel.y() * scale);
}
