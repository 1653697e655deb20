#include "view/ListRenderer.h"

#include "view/GlState.h"
#include "view/TextureCache.h"

#include <QOpenGLFunctions>

#include <algorithm>
#include <cmath>

namespace view {

namespace {

constexpr double kToCentre = 0.5;  // a pixel's name is its lower left corner, a line runs through its centre

float lineWidth(const api::DrawItem& item)
{
    return std::max(1.f, item.state.lineWidth);
}

unsigned lineMode(api::DrawItem::Kind kind)
{
    switch (kind) {
    case api::DrawItem::Kind::ClosedLine: return GL_LINE_LOOP;
    case api::DrawItem::Kind::Lines: return GL_LINES;
    default: return GL_LINE_STRIP;
    }
}

/// A line in the picture's plane as the rectangle that it covers. Software renderers lose some lines of several samples
/// beside the edges of their tiles, and no rectangles.
void drawBars(const api::DrawItem& item)
{
    const std::vector<kernel::Vector3>& points = item.points;
    const std::size_t step = item.kind == api::DrawItem::Kind::Lines ? 2 : 1;
    const std::size_t ends = item.kind == api::DrawItem::Kind::ClosedLine ? points.size() + 1 : points.size();
    glBegin(GL_QUADS);
    for (std::size_t i = 0; i + 1 < ends; i += step) {
        const kernel::Vector3& from = points[i];
        const kernel::Vector3& to = points[(i + 1) % points.size()];
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        const double half = length > 0 ? lineWidth(item) / 2 / length : 0;
        const double x = (to.y - from.y) * half;
        const double y = (from.x - to.x) * half;
        glVertex2d(from.x + kToCentre + x, from.y + kToCentre + y);
        glVertex2d(to.x + kToCentre + x, to.y + kToCentre + y);
        glVertex2d(to.x + kToCentre - x, to.y + kToCentre - y);
        glVertex2d(from.x + kToCentre - x, from.y + kToCentre - y);
    }
    glEnd();
}

}  // namespace

void ListRenderer::draw(const api::DrawList& list, const api::FrameState& frame, GlText& text) const
{
    std::vector<const api::DrawItem*> items;
    items.reserve(list.items.size());
    for (const api::DrawItem& item : list.items) {
        items.push_back(&item);
    }
    std::stable_sort(items.begin(), items.end(), [](const api::DrawItem* a, const api::DrawItem* b) {
        return a->state.depthPriority < b->state.depthPriority;
    });
    glEnable(GL_BLEND);
    for (const api::DrawItem* item : items) {
        drawItem(*item, frame, text);
    }
    glDisable(GL_BLEND);
}

void ListRenderer::drawItem(const api::DrawItem& item, const api::FrameState& frame, GlText& text) const
{
    if (item.points.empty()) {
        return;
    }
    if (item.kind == api::DrawItem::Kind::Text) {
        drawText(item, frame, text);
        return;
    }
    const kernel::Matrix4 pixels = pixelProjection(frame.width, frame.height);
    const GlMatrices matrices(item.is2d ? kernel::Matrix4() : item.world * frame.matrices.view,
                              item.is2d ? pixels : frame.matrices.projection);
    if (!item.is2d) {
        glEnable(GL_DEPTH_TEST);
    }
    glColor4fv(item.state.colour);
    if (item.kind == api::DrawItem::Kind::Triangles) {
        drawTriangles(item);
    } else {
        drawLines(item);
    }
    glDisable(GL_DEPTH_TEST);
}

void ListRenderer::drawTriangles(const api::DrawItem& item) const
{
    const bool isTextured = item.state.texture && item.textureCoordinates.size() == item.points.size();
    if (isTextured) {
        TextureCache::instance().bind(*item.state.texture, item.state.linearFilter, item.state.clampTexture);
        glEnable(GL_TEXTURE_2D);
        glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    }
    glBegin(GL_TRIANGLES);
    for (std::size_t i = 0; i < item.points.size(); ++i) {
        if (isTextured) {
            glTexCoord2d(item.textureCoordinates[i].x, item.textureCoordinates[i].y);
        }
        glVertex3d(item.points[i].x, item.points[i].y, item.is2d ? 0 : item.points[i].z);
    }
    glEnd();
    glDisable(GL_TEXTURE_2D);
}

void ListRenderer::drawLines(const api::DrawItem& item) const
{
    if (item.is2d && !item.state.dashed) {
        drawBars(item);
        return;
    }
    const double toCentre = item.is2d ? kToCentre : 0;
    glLineWidth(lineWidth(item));
    if (item.state.dashed) {
        glLineStipple(std::max(1, int(item.state.lineWidth)), 0x3333);
        glEnable(GL_LINE_STIPPLE);
    }
    glBegin(lineMode(item.kind));
    for (const kernel::Vector3& p : item.points) {
        glVertex3d(p.x + toCentre, p.y + toCentre, item.is2d ? 0 : p.z);
    }
    glEnd();
    glDisable(GL_LINE_STIPPLE);
}

void ListRenderer::drawText(const api::DrawItem& item, const api::FrameState& frame, GlText& text) const
{
    kernel::Vector3 at = item.points.front();
    if (!item.is2d) {
        const kernel::Matrix4 toClip = item.world * frame.matrices.view * frame.matrices.projection;
        const double w = at.x * toClip.m[0][3] + at.y * toClip.m[1][3] + at.z * toClip.m[2][3] + toClip.m[3][3];
        if (w <= 0) {
            return;  // behind the camera
        }
        const double x = at.x * toClip.m[0][0] + at.y * toClip.m[1][0] + at.z * toClip.m[2][0] + toClip.m[3][0];
        const double y = at.x * toClip.m[0][1] + at.y * toClip.m[1][1] + at.z * toClip.m[2][1] + toClip.m[3][1];
        at = {(x / w + 1) * frame.width / 2, (y / w + 1) * frame.height / 2, 0};
    }
    const GlMatrices matrices({}, pixelProjection(frame.width, frame.height));
    const float* const c = item.state.colour;
    const auto align = item.textAlignment == 1 ? GlText::Align::Centre
                     : item.textAlignment == 2 ? GlText::Align::Right
                                               : GlText::Align::Left;
    text.draw(QPointF(at.x, at.y), QString::fromStdString(item.text), int(item.state.fontSize),
              QColor::fromRgbF(c[0], c[1], c[2], c[3]), align);
}

}  // namespace view
