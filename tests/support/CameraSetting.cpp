#include "support/CameraSetting.h"

#include <algorithm>

namespace support {

namespace {

/// Width of film that the view shows, inches.
double shownFilm(const CameraSetting& camera, double viewAspect)
{
    const double byWidth = camera.horizontalAperture;
    const double byHeight = camera.verticalAperture * viewAspect;
    switch (camera.fit) {
    case FilmFit::Fill: return camera.isOrthographic() ? byWidth : std::min(byWidth, byHeight);
    case FilmFit::Overscan: return camera.isOrthographic() ? byHeight : std::max(byWidth, byHeight);
    case FilmFit::Vertical: return byHeight;
    default: return byWidth;
    }
}

}  // namespace

std::vector<CameraSetting> everyFilmFit()
{
    std::vector<CameraSetting> cameras;
    for (const char* name : {"persp", "front"}) {
        for (const FilmFit fit : {FilmFit::Fill, FilmFit::Horizontal, FilmFit::Vertical, FilmFit::Overscan}) {
            CameraSetting camera;
            camera.camera = name;
            camera.fit = fit;
            cameras.push_back(camera);
        }
    }
    return cameras;
}

int literalCanvasSide(const CameraSetting& camera, const QSize& view)
{
    const double width = view.width() / camera.overscan;
    const double height = view.height() / camera.overscan;
    const double viewAspect = double(view.width()) / view.height();
    const double film = camera.filmAspect();
    const double resolution = camera.resolutionAspect();
    double k = 1;
    if (film <= viewAspect) {
        k = resolution < film ? resolution / film : 1;
    } else {
        k = resolution <= film ? resolution / viewAspect : film / viewAspect;
    }
    switch (camera.fit) {
    case FilmFit::Fill: return int(camera.isOrthographic() ? width : width * k);
    case FilmFit::Overscan: return int(camera.isOrthographic() ? height * resolution : height / k * resolution);
    case FilmFit::Vertical: return int(height * resolution);
    default: return int(width);
    }
}

QRectF literalCanvasRect(const CameraSetting& camera, const QSize& view)
{
    const double zoom = camera.panZoom ? camera.zoom : 1;
    const double side = literalCanvasSide(camera, view) / zoom;
    QPointF centre(view.width() / 2.0, view.height() / 2.0);
    if (camera.panZoom) {
        const double pixelsPerInch =
            view.width() / (shownFilm(camera, double(view.width()) / view.height()) * camera.overscan * zoom);
        centre += QPointF(-camera.pan.x(), camera.pan.y()) * pixelsPerInch;
    }
    return QRectF(centre.x() - side / 2, centre.y() - side / 2, side, side);
}

}  // namespace support
