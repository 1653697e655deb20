#include "node/ViewportMetrics.h"

#include "model/Canvas.h"
#include "settings/Rounding.h"

#include <maya/MFnCamera.h>

#include <cmath>

namespace {

const double kSmallestZoom = 0.001;
/// Canvases drawn larger or further away than this are not those of a camera anybody works with.
const double kFarthest = 1 << 24;

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
    case MFnCamera::kVerticalFilmFit: return truncated(byHeight * film.resolutionAspect);
    case MFnCamera::kOverscanFilmFit: return truncated(byHeight / factor * film.resolutionAspect);
    case MFnCamera::kFillFilmFit: return truncated(byWidth * factor);
    default: return truncated(byWidth);
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

// Written so that no comparison with what is not a number holds.
bool isReady(const ViewportMetrics& metrics)
{
    return metrics.width > 0 && metrics.height > 0 && metrics.drawnSize >= 1.0f
        && double(metrics.drawnSize) <= kFarthest && std::abs(metrics.panOffset.x) <= kFarthest
        && std::abs(metrics.panOffset.y) <= kFarthest;
}

QPointF canvasPointAt(const ViewportMetrics& metrics, double x, double y)
{
    if (!isReady(metrics)) {
        return QPointF();
    }
    const double size = metrics.drawnSize;
    const double scale = kCanvasSize / size;
    const double left = (size - metrics.width) / 2.0 + metrics.panOffset.x;
    const double below = metrics.height - (metrics.panOffset.y + y);
    return QPointF((left + x) * scale, (below + (size - metrics.height) / 2.0) * scale);
}

QPoint canvasPixelAt(const ViewportMetrics& metrics, double x, double y)
{
    return roundedHalfUp(canvasPointAt(metrics, x, y));
}

QPointF viewPointOf(const ViewportMetrics& metrics, const QPointF& point)
{
    const double size = metrics.drawnSize;
    const double scale = size / kCanvasSize;
    const double left = (size - metrics.width) / 2.0 + metrics.panOffset.x;
    const double top = (size + metrics.height) / 2.0 - metrics.panOffset.y;
    return QPointF(point.x() * scale - left, top - point.y() * scale);
}

bool showAlike(const ViewportMetrics& a, const ViewportMetrics& b)
{
    const double kSame = 0.5;
    return a.width == b.width && a.height == b.height && std::abs(double(a.drawnSize) - double(b.drawnSize)) < kSame
        && a.panOffset.isEquivalent(b.panOffset, kSame);
}
