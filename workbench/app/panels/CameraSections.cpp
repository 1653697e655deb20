#include "app/panels/CameraSections.h"

#include <cmath>

namespace app {

namespace {

constexpr double kHalfInch = 12.7;  // in millimetres, which focal lengths are in
constexpr double kRadiansPerDegree = 3.14159265358979323846 / 180;

double halfAperture(const kernel::Node& camera)
{
    return camera.number("horizontalFilmAperture") * kHalfInch;
}

double angleOfView(const kernel::Node& camera)
{
    return 2 * std::atan2(halfAperture(camera), camera.number("focalLength")) / kRadiansPerDegree;
}

double focalLengthOf(const kernel::Node& camera, double angle)
{
    return halfAperture(camera) / std::tan(angle * kRadiansPerDegree / 2);
}

double filmAspect(const kernel::Node& camera)
{
    return camera.number("horizontalFilmAperture") / camera.number("verticalFilmAperture");
}

double widthOfAspect(const kernel::Node& camera, double aspect)
{
    return aspect * camera.number("verticalFilmAperture");
}

const DerivedNumber kAngleOfView{angleOfView, "focalLength", focalLengthOf};
const DerivedNumber kFilmAspect{filmAspect, "horizontalFilmAperture", widthOfAspect};

}  // namespace

const std::vector<PanelSection>& cameraSections()
{
    static const std::vector<PanelSection> sections{
        {"Camera Attributes",
         false,
         {{nullptr, "Angle of View", {10, 120}, &kAngleOfView},
          {"focalLength", nullptr, {10, 200}},
          {"nearClipPlane", nullptr},
          {"farClipPlane", nullptr}}},
        {"Film Back",
         false,
         {{"horizontalFilmAperture", "Film Width (inch)", {0.2, 3}},
          {"verticalFilmAperture", "Film Height (inch)", {0.2, 3}},
          {nullptr, "Film Aspect Ratio", {}, &kFilmAspect},
          {"filmFit", nullptr}}},
        {"Orthographic Views", false, {{"orthographic", nullptr}, {"orthographicWidth", nullptr, {1, 100}}}},
        {"Display Options",
         false,
         {{"overscan", nullptr, {0.5, 2}},
          {"displayFilmGate", nullptr},
          {"displayResolution", nullptr},
          {"displayGateMask", nullptr},
          {"displayGateMaskOpacity", "Gate Mask Opacity", {0, 1}}}},
        {"2D Pan/Zoom",
         false,
         {{"panZoomEnabled", "Enable"},
          {"horizontalPan", nullptr, {-1, 1}},
          {"verticalPan", nullptr, {-1, 1}},
          {"zoom", nullptr, {0.1, 2}}}},
    };
    return sections;
}

}  // namespace app
