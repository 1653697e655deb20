#include "view/Gates.h"

#include "view/CameraMath.h"
#include "view/GlState.h"

#include <QOpenGLFunctions>

#include <algorithm>
#include <cmath>

namespace view {

namespace {

const QColor kLine(0x5f, 0x8f, 0x5f);
const QColor kMask(0x30, 0x30, 0x30);
constexpr int kTextSize = 11;  // pixels of the user's
constexpr int kTextGap = 4;
constexpr double kNarrowest = 0.001;  // aspect
constexpr double kSafeAction = 0.9;   // of the render's width and height
constexpr double kSafeTitle = 0.8;

struct RenderSize {
    int width = 960;
    int height = 540;
    double aspect = 960.0 / 540;
};

/// The usual one in a scene that has lost its render settings.
RenderSize renderSize(const kernel::Scene& scene)
{
    const kernel::NodePtr node = scene.findOrNull("defaultResolution");
    if (!node || !node->type().isA("resolution")) {
        return {};
    }
    const double width = std::max(1.0, node->number("width"));
    const double height = std::max(1.0, node->number("height"));
    const double aspect = width / height * node->number("pixelAspect");
    return {int(width), int(height), std::clamp(aspect, kNarrowest, 1 / kNarrowest)};
}

PortRect shrunk(const PortRect& rect, double part)
{
    const double width = rect.width * part, height = rect.height * part;
    return {rect.left + (rect.width - width) / 2, rect.bottom + (rect.height - height) / 2, width, height};
}

void drawOutline(const PortRect& rect)
{
    // Through the middle of pixels: a line between two would be drawn in either.
    const double left = std::round(rect.left) + 0.5, right = std::round(rect.left + rect.width) - 0.5;
    const double bottom = std::round(rect.bottom) + 0.5, top = std::round(rect.bottom + rect.height) - 0.5;
    glBegin(GL_LINE_LOOP);
    glVertex2d(left, bottom);
    glVertex2d(right, bottom);
    glVertex2d(right, top);
    glVertex2d(left, top);
    glEnd();
}

void drawBlock(double left, double bottom, double right, double top)
{
    if (left < right && bottom < top) {
        glRectd(left, bottom, right, top);
    }
}

/// Dims the port around a rectangle.
void drawMask(const PortRect& rect, const api::FrameState& frame, double opacity)
{
    QColor colour = kMask;
    colour.setAlphaF(std::clamp(opacity, 0.0, 1.0));
    setGlColour(colour);
    const double width = frame.width, height = frame.height;
    const double left = std::clamp(rect.left, 0.0, width), right = std::clamp(rect.left + rect.width, 0.0, width);
    const double bottom = std::clamp(rect.bottom, 0.0, height);
    const double top = std::clamp(rect.bottom + rect.height, 0.0, height);
    drawBlock(0, 0, left, height);
    drawBlock(right, 0, width, height);
    drawBlock(left, 0, right, bottom);
    drawBlock(left, top, right, height);
}

/// Above the gate, or below its upper edge when that is out of sight.
void drawSize(const RenderSize& size, const PortRect& gate, const api::FrameState& frame, GlText& text, double scale)
{
    const int pixels = std::max(1, int(std::lround(kTextSize * scale)));
    const double gap = kTextGap * scale;
    const double above = gate.bottom + gate.height + gap;
    const double inside = std::min(gate.bottom + gate.height, double(frame.height)) - gap - pixels;
    const double baseline = above + pixels <= frame.height ? above : inside;
    text.draw({gate.left + gate.width / 2, baseline}, QString("%1 x %2").arg(size.width).arg(size.height), pixels,
              kLine.lighter(130), GlText::Align::Centre);
}

}  // namespace

void drawGates(const kernel::Scene& scene, const api::FrameState& frame, GlText& text, double scale)
{
    const kernel::Node& camera = *frame.camera;
    const auto isOn = [&](const char* attribute) { return camera.number(attribute) != 0; };
    const bool showsFilm = isOn("displayFilmGate"), showsRender = isOn("displayResolution");
    const bool showsAction = isOn("displaySafeAction"), showsTitle = isOn("displaySafeTitle");
    if (!(showsFilm || showsRender || showsAction || showsTitle)) {
        return;
    }
    const RenderSize size = renderSize(scene);
    const Lens lens = lensOf(camera);
    const double filmAspect = lens.horizontalAperture / lens.verticalAperture;
    const PortRect film = gateRect(lens, frame.width, frame.height, filmAspect);
    const PortRect render = gateRect(lens, frame.width, frame.height, size.aspect);

    const GlMatrices matrices({}, pixelProjection(frame.width, frame.height));
    glEnable(GL_BLEND);
    if (isOn("displayGateMask") && (showsFilm || showsRender)) {
        drawMask(showsRender ? render : film, frame, camera.number("displayGateMaskOpacity"));
    }
    glLineWidth(float(scale));
    setGlColour(kLine);
    const struct {
        bool isShown;
        PortRect rect;
    } outlines[] = {
        {showsFilm, film},
        {showsRender, render},
        {showsAction, shrunk(render, kSafeAction)},
        {showsTitle, shrunk(render, kSafeTitle)},
    };
    for (const auto& outline : outlines) {
        if (outline.isShown) {
            drawOutline(outline.rect);
        }
    }
    if (showsRender) {
        drawSize(size, render, frame, text, scale);
    }
    glDisable(GL_BLEND);
}

}  // namespace view
