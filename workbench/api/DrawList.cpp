#include "api/DrawList.h"

#include "api/Access.h"
#include "api/Handles.h"
#include "api/Projection.h"

#include <algorithm>
#include <cmath>

using api::report;

namespace api {

/// Turns the calls of one draw manager into items.
class DrawRecorder {
public:
    DrawRecorder(DrawList& list, const kernel::Matrix4& world) : m_list(list), m_world(world) {}

    void begin()
    {
        m_open = true;
        state = DrawState();
    }
    void end()
    {
        m_open = false;
        state = DrawState();
    }

    /// Adds an item in the state of now; only filled shapes keep the texture. Null outside a drawable.
    DrawItem* add(DrawItem::Kind kind, bool is2d)
    {
        if (!m_open)
            return nullptr;
        DrawItem item;
        item.kind = kind;
        item.is2d = is2d;
        item.state = state;
        if (kind != DrawItem::Kind::Triangles)
            item.state.texture.reset();
        if (!is2d)
            item.world = m_world;
        m_list.items.push_back(std::move(item));
        return &m_list.items.back();
    }

    DrawState state;

private:
    DrawList& m_list;
    kernel::Matrix4 m_world;
    bool m_open = false;
};

namespace {

kernel::Vector3 toVector(const MPoint& p)
{
    return {p.x, p.y, p.z};
}

void setColour(DrawState& state, const MColor& colour)
{
    state.colour[0] = colour.r;
    state.colour[1] = colour.g;
    state.colour[2] = colour.b;
    state.colour[3] = colour.a;
}

/// Corners from the upper left one on, clockwise as seen with `up` pointing up.
std::vector<kernel::Vector3> rectangle(const MPoint& centre, const MVector& up, double halfWidth, double halfHeight)
{
    const double length = std::hypot(up.x, up.y);
    const double upX = length > 0 ? up.x / length : 0;
    const double upY = length > 0 ? up.y / length : 1;
    const auto corner = [&](double across, double along) {
        return kernel::Vector3{centre.x + across * upY + along * upX, centre.y - across * upX + along * upY, 0};
    };
    return {corner(-halfWidth, halfHeight), corner(halfWidth, halfHeight), corner(halfWidth, -halfHeight),
            corner(-halfWidth, -halfHeight)};
}

/// Fans out from the first point.
std::vector<kernel::Vector3> fan(const std::vector<kernel::Vector3>& outline)
{
    std::vector<kernel::Vector3> triangles;
    for (std::size_t i = 2; i < outline.size(); ++i) {
        triangles.push_back(outline[0]);
        triangles.push_back(outline[i - 1]);
        triangles.push_back(outline[i]);
    }
    return triangles;
}

std::vector<kernel::Vector3> circle(const MPoint& centre, double radius)
{
    constexpr double kTurn = 6.283185307179586;
    // Chords of about three pixels.
    const int count = std::clamp(int(std::ceil(kTurn * std::fabs(radius) / 3)), 16, 512);
    std::vector<kernel::Vector3> points;
    for (int i = 0; i < count; ++i) {
        const double angle = kTurn * i / count;
        points.push_back({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle), 0});
    }
    return points;
}

void addPoints(DrawItem* item, const MPointArray& points)
{
    if (!item)
        return;
    for (const MPoint& point : points)
        item->points.push_back(toVector(point));
}

void addText(DrawItem* item, const MPoint& position, const MString& text,
             MHWRender::MUIDrawManager::TextAlignment alignment)
{
    if (!item)
        return;
    item->points.push_back(toVector(position));
    item->text = toKernel(text);
    item->textAlignment = alignment;
}

}  // namespace

std::unique_ptr<MHWRender::MUIDrawManager> Access::drawManager(DrawList& list, const kernel::Matrix4& world)
{
    return std::unique_ptr<MHWRender::MUIDrawManager>(
        new MHWRender::MUIDrawManager(std::make_unique<DrawRecorder>(list, world)));
}

std::unique_ptr<MHWRender::MDrawContext> Access::drawContext(const FrameState& state, const kernel::Matrix4& world)
{
    return std::unique_ptr<MHWRender::MDrawContext>(new MHWRender::MDrawContext(state, toHost(world)));
}

std::unique_ptr<MHWRender::MFrameContext> Access::frameContext(const FrameState& state)
{
    return std::unique_ptr<MHWRender::MFrameContext>(new MHWRender::MFrameContext(state));
}

std::unique_ptr<MHWRender::MUIDrawManager> makeDrawManager(DrawList& list)
{
    return Access::drawManager(list, kernel::Matrix4());
}

std::unique_ptr<MHWRender::MFrameContext> makeFrameContext(const FrameState& state)
{
    return Access::frameContext(state);
}

}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN
namespace MHWRender {

using Kind = api::DrawItem::Kind;

MUIDrawManager::MUIDrawManager(std::unique_ptr<api::DrawRecorder> recorder) : m_recorder(std::move(recorder)) {}

MUIDrawManager::~MUIDrawManager() = default;

void MUIDrawManager::beginDrawable(Selectability, unsigned int)
{
    m_recorder->begin();
}

void MUIDrawManager::endDrawable()
{
    m_recorder->end();
}

void MUIDrawManager::setColor(const MColor& color)
{
    api::setColour(m_recorder->state, color);
}

void MUIDrawManager::setLineWidth(float width)
{
    m_recorder->state.lineWidth = width;
}

void MUIDrawManager::setLineStyle(LineStyle style)
{
    m_recorder->state.dashed = style != kSolid;
}

void MUIDrawManager::setFontSize(unsigned int size)
{
    m_recorder->state.fontSize = size;
}

void MUIDrawManager::setDepthPriority(unsigned int priority)
{
    m_recorder->state.depthPriority = priority;
}

unsigned int MUIDrawManager::depthPriority() const
{
    return m_recorder->state.depthPriority;
}

void MUIDrawManager::setTexture(MTexture* texture)
{
    m_recorder->state.texture = texture ? api::Access::texture(*texture) : nullptr;
}

void MUIDrawManager::setTextureSampler(MSamplerState::TextureFilter filter, MSamplerState::TextureAddress address)
{
    m_recorder->state.linearFilter = filter != MSamplerState::kMinMagMipPoint;
    m_recorder->state.clampTexture = address == MSamplerState::kTexClamp || address == MSamplerState::kTexBorder;
}

void MUIDrawManager::setTextureMask(MBlendState::ChannelMask mask)
{
    m_recorder->state.colourMask = static_cast<unsigned char>(mask);
}

void MUIDrawManager::line(const MPoint& start, const MPoint& end)
{
    if (api::DrawItem* item = m_recorder->add(Kind::LineStrip, false))
        item->points = {api::toVector(start), api::toVector(end)};
}

void MUIDrawManager::line2d(const MPoint& start, const MPoint& end)
{
    if (api::DrawItem* item = m_recorder->add(Kind::LineStrip, true))
        item->points = {api::toVector(start), api::toVector(end)};
}

void MUIDrawManager::lineList(const MPointArray& points, bool draw2D)
{
    api::addPoints(m_recorder->add(Kind::Lines, draw2D), points);
}

void MUIDrawManager::lineStrip(const MPointArray& points, bool draw2D)
{
    api::addPoints(m_recorder->add(Kind::LineStrip, draw2D), points);
}

void MUIDrawManager::rect2d(const MPoint& center, const MVector& up, double scaleX, double scaleY, bool filled)
{
    api::DrawItem* const item = m_recorder->add(filled ? Kind::Triangles : Kind::ClosedLine, true);
    if (!item)
        return;
    const auto corners = api::rectangle(center, up, scaleX, scaleY);
    item->points = filled ? api::fan(corners) : corners;
    if (filled)
        item->textureCoordinates = api::fan({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}});
}

void MUIDrawManager::circle2d(const MPoint& center, double radius, bool filled)
{
    api::DrawItem* const item = m_recorder->add(filled ? Kind::Triangles : Kind::ClosedLine, true);
    if (!item)
        return;
    const auto outline = api::circle(center, radius);
    item->points = filled ? api::fan(outline) : outline;
}

void MUIDrawManager::text2d(const MPoint& position, const MString& text, TextAlignment alignment,
                            const int* backgroundSize, const MColor* backgroundColor, bool /*dynamic*/)
{
    if (backgroundSize && backgroundColor) {
        if (api::DrawItem* box = m_recorder->add(Kind::Triangles, true)) {
            const double width = backgroundSize[0];
            const double height = backgroundSize[1];
            // The box starts, is centred or ends at the point, as the text does.
            const double centreX = position.x + width * (1 - alignment) * 0.5;
            box->points = api::fan(
                api::rectangle(MPoint(centreX, position.y + height * 0.5), MVector::yAxis, width * 0.5, height * 0.5));
            box->state.texture.reset();
            api::setColour(box->state, *backgroundColor);
        }
    }
    api::addText(m_recorder->add(Kind::Text, true), position, text, alignment);
}

void MUIDrawManager::text(const MPoint& position, const MString& text, TextAlignment alignment, const int*,
                          const MColor*, bool /*dynamic*/)
{
    api::addText(m_recorder->add(Kind::Text, false), position, text, alignment);
}

MFrameContext::MFrameContext(const api::FrameState& state) : m_state(state) {}

MFrameContext::~MFrameContext() = default;

MStatus MFrameContext::getViewportDimensions(int& originX, int& originY, int& width, int& height) const
{
    originX = 0;
    originY = 0;
    width = m_state.width;
    height = m_state.height;
    return MStatus::kSuccess;
}

MDagPath MFrameContext::getCurrentCameraPath(MStatus* ReturnStatus) const
{
    report(ReturnStatus, m_state.camera ? MStatus::kSuccess : MStatus::kFailure);
    return api::toPath(m_state.camera);
}

namespace {

/// Types come in groups of four: plain, transposed, inverse, and both.
MMatrix variantOf(const MMatrix& matrix, MFrameContext::MatrixType type)
{
    switch (type % 4) {
    case 1: return matrix.transpose();
    case 2: return matrix.inverse();
    case 3: return matrix.inverse().transpose();
    default: return matrix;
    }
}

MFrameContext::MatrixType groupOf(MFrameContext::MatrixType type)
{
    return MFrameContext::MatrixType(type - type % 4);
}

}  // namespace

MMatrix MFrameContext::getMatrix(MatrixType type, MStatus* ReturnStatus) const
{
    const MMatrix view = api::toHost(m_state.matrices.view);
    const MMatrix projection = api::toHost(m_state.matrices.projection);
    report(ReturnStatus, MStatus::kSuccess);
    switch (groupOf(type)) {
    case kViewMtx: return variantOf(view, type);
    case kProjectionMtx: return variantOf(projection, type);
    case kViewProjMtx: return variantOf(view * projection, type);
    default: report(ReturnStatus, MStatus::kInvalidParameter); return MMatrix();
    }
}

bool MFrameContext::worldToViewport(const MPoint& worldPoint, double& x, double& y, MStatus* ReturnStatus) const
{
    const api::PortPoint point =
        api::projectToPort(api::toVector(worldPoint), m_state.matrices, m_state.width, m_state.height);
    if (point.isDefined) {
        x = point.x;
        y = point.y;
    }
    report(ReturnStatus, point.isDefined ? MStatus::kSuccess : MStatus::kFailure);
    return point.isInside;
}

bool MFrameContext::viewportToWorld(double x, double y, MPoint& worldPoint, MVector& worldVector,
                                    MStatus* ReturnStatus) const
{
    const api::PortRay ray = api::rayThroughPort(x, y, m_state.matrices, m_state.width, m_state.height);
    const kernel::Vector3 direction = ray.direction();
    worldPoint = MPoint(ray.nearPoint.x, ray.nearPoint.y, ray.nearPoint.z);
    worldVector = MVector(direction.x, direction.y, direction.z);
    report(ReturnStatus, MStatus::kSuccess);
    return true;
}

float MFrameContext::getGlobalLineWidth() const
{
    return 1.0f;
}

MDrawContext::MDrawContext(const api::FrameState& state, const MMatrix& world) : MFrameContext(state), m_world(world) {}

MDrawContext::~MDrawContext() = default;

MMatrix MDrawContext::getMatrix(MatrixType type, MStatus* ReturnStatus) const
{
    const MatrixType group = groupOf(type);
    if (group != kWorldMtx && group != kWorldViewMtx && group != kWorldViewProjMtx)
        return MFrameContext::getMatrix(type, ReturnStatus);
    report(ReturnStatus, MStatus::kSuccess);
    if (group == kWorldMtx)
        return variantOf(m_world, type);
    const MatrixType rest = group == kWorldViewMtx ? kViewMtx : kViewProjMtx;
    return variantOf(m_world * MFrameContext::getMatrix(rest), type);
}

}  // namespace MHWRender
OPENMAYA_MAJOR_NAMESPACE_CLOSE
