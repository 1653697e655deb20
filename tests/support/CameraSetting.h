#pragma once

#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QString>

#include <vector>

namespace support {

enum class FilmFit { Fill, Horizontal, Vertical, Overscan };

/// What of a camera and of the render settings decides how a view shows it. Pans and apertures are inches.
struct CameraSetting {
    QString camera = "persp";  ///< a transform; persp, top, front and side are in every scene
    FilmFit fit = FilmFit::Fill;
    double overscan = 1;
    double horizontalAperture = 1.5;
    double verticalAperture = 1;
    QSize resolution = QSize(1920, 1080);
    bool panZoom = false;
    double zoom = 1;  ///< below 1 magnifies
    QPointF pan;      ///< to the right, up

    bool isOrthographic() const { return camera != "persp"; }
    double filmAspect() const { return horizontalAperture / verticalAperture; }
    double resolutionAspect() const { return double(resolution.width()) / resolution.height(); }
};

/// A camera of every kind with every film fit: four of perspective, then four without.
std::vector<CameraSetting> everyFilmFit();

/// Side of the canvas before 2D zoom in a view of this size, whole view pixels; written out from the rules alone.
int literalCanvasSide(const CameraSetting& camera, const QSize& view);
/// The canvas as a rectangle in the view; pixels from the upper left corner, y down.
QRectF literalCanvasRect(const CameraSetting& camera, const QSize& view);

}  // namespace support
