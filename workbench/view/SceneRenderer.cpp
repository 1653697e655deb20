#include "view/SceneRenderer.h"

#include "view/GlState.h"
#include "view/Meshes.h"

#include <QOpenGLFunctions>

#include <algorithm>
#include <cmath>

namespace view {

namespace {

const QColor kTop(0x5a, 0x64, 0x70);
const QColor kBottom(0x2a, 0x2d, 0x31);
const QColor kGridLine(0x6e, 0x6e, 0x6e);
const QColor kAxisX(0x8c, 0x4a, 0x4a);
const QColor kAxisZ(0x4a, 0x8c, 0x4a);
const QColor kSelected(0x8f, 0xc1, 0xcf);
constexpr double kGridExtent = 12;  // units from the middle to the edge
constexpr int kGridMajor = 4;       // every so many lines a stronger one

/// Quiet, slightly different greys, so that shapes in front of each other part.
QColor surfaceColour(const kernel::Node& shape)
{
    const struct {
        const char* type;
        QColor colour;
    } colours[] = {
        {"implicitBox", QColor(0xa8, 0x9c, 0x8c)},
        {"implicitSphere", QColor(0x8c, 0x9c, 0xa8)},
        {"implicitCone", QColor(0x9c, 0xa0, 0x8a)},
    };
    for (const auto& c : colours) {
        if (shape.typeName() == c.type) {
            return c.colour;
        }
    }
    return QColor(0xa0, 0xa0, 0xa0);
}

/// Two lights that go with the viewer, so that forms read from everywhere: one over the left shoulder, a weaker, cooler
/// one from the right that keeps shadow sides apart from each other.
void setLights()
{
    const struct {
        unsigned light;
        float direction[4];
        float diffuse[4];
    } lights[] = {
        {GL_LIGHT0, {-0.45f, 0.70f, 0.70f, 0}, {0.66f, 0.65f, 0.63f, 1}},
        {GL_LIGHT1, {0.85f, 0.10f, 0.35f, 0}, {0.20f, 0.22f, 0.25f, 1}},
    };
    const float none[] = {0, 0, 0, 1};
    const float ambient[] = {0.34f, 0.35f, 0.37f, 1};
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();  // directions are the viewer's
    for (const auto& light : lights) {
        glLightfv(light.light, GL_POSITION, light.direction);
        glLightfv(light.light, GL_DIFFUSE, light.diffuse);
        glLightfv(light.light, GL_SPECULAR, none);
        glLightfv(light.light, GL_AMBIENT, none);
        glEnable(light.light);
    }
    glPopMatrix();
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, ambient);
}

bool isMirrored(const kernel::Matrix4& world)
{
    const double(&m)[4][4] = world.m;
    return m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) - m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0])
             + m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0])
         < 0;
}

/// The two axes the grid lies along: the ground, or for a flat view the plane it looks at.
struct GridPlane {
    int across;
    int along;
};

GridPlane gridPlane(const api::FrameState& frame)
{
    const bool isFlat = frame.matrices.projection.m[3][3] == 1;
    if (isFlat) {
        const double x = std::abs(frame.matrices.view.m[0][2]);
        const double y = std::abs(frame.matrices.view.m[1][2]);
        const double z = std::abs(frame.matrices.view.m[2][2]);
        if (x > y && x > z) {
            return {2, 1};
        }
        if (z > y) {
            return {0, 1};
        }
    }
    return {0, 2};
}

bool isSelected(const kernel::Scene& scene, const kernel::Node& shape)
{
    const auto& selection = scene.selection();
    return std::any_of(selection.begin(), selection.end(), [&shape](const kernel::NodePtr& node) {
        return node.get() == &shape || node.get() == shape.parent();
    });
}

}  // namespace

void SceneRenderer::draw(const kernel::Scene& scene, const api::FrameState& frame, const ViewOptions& options)
{
    drawBackground();
    if (options.imagePlanes) {
        m_imagePlanes.draw(scene, frame);
    }
    const GlMatrices matrices(frame.matrices.view, frame.matrices.projection);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    if (options.objects) {
        drawShapes(scene, options.wireframe);
    }
    if (options.grid) {
        drawGrid(frame);
    }
    glDisable(GL_DEPTH_TEST);
}

void SceneRenderer::drawBackground() const
{
    const GlMatrices matrices({}, {});
    glBegin(GL_QUADS);
    setGlColour(kBottom);
    glVertex2i(-1, -1);
    glVertex2i(1, -1);
    setGlColour(kTop);
    glVertex2i(1, 1);
    glVertex2i(-1, 1);
    glEnd();
}

void SceneRenderer::drawGrid(const api::FrameState& frame) const
{
    const GridPlane plane = gridPlane(frame);
    const auto line = [](int fixedAxis, int runningAxis, double at) {
        double from[3] = {0, 0, 0};
        from[fixedAxis] = at;
        double to[3] = {from[0], from[1], from[2]};
        from[runningAxis] = -kGridExtent;
        to[runningAxis] = kGridExtent;
        glVertex3dv(from);
        glVertex3dv(to);
    };
    const auto lines = [&](bool major) {
        for (int i = int(-kGridExtent); i <= int(kGridExtent); ++i) {
            if (i != 0 && (i % kGridMajor == 0) == major) {
                line(plane.across, plane.along, i);
                line(plane.along, plane.across, i);
            }
        }
    };
    glEnable(GL_BLEND);
    glDepthMask(GL_FALSE);
    glLineWidth(1);
    glBegin(GL_LINES);
    QColor minor = kGridLine;
    minor.setAlphaF(0.35);
    setGlColour(minor);
    lines(false);
    setGlColour(kGridLine);
    lines(true);
    setGlColour(plane.across == 0 ? kAxisX : kAxisZ);
    line(plane.along, plane.across, 0);
    setGlColour(plane.along == 2 ? kAxisZ : kGridLine);
    line(plane.across, plane.along, 0);
    glEnd();
    glDepthMask(GL_TRUE);
    glDisable(GL_BLEND);
}

void SceneRenderer::drawShapes(const kernel::Scene& scene, bool wireframe) const
{
    setLights();
    glEnable(GL_NORMALIZE);
    glEnable(GL_POLYGON_OFFSET_FILL);  // the grid and outlines lie on surfaces
    glPolygonOffset(0.5f, 1);
    scene.walkDag([&](kernel::Node& node) {
        if (!node.isVisible()) {
            return false;
        }
        if (node.type().isShape()) {
            drawShape(node, isSelected(scene, node), wireframe);
        }
        return true;
    });
    glDisable(GL_POLYGON_OFFSET_FILL);
    glDisable(GL_CULL_FACE);
    glDisable(GL_NORMALIZE);
}

void SceneRenderer::drawShape(kernel::Node& shape, bool selected, bool wireframe) const
{
    const std::shared_ptr<const Mesh> mesh = meshOf(shape);
    if (!mesh) {
        return;
    }
    const kernel::Matrix4 world = shape.worldMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glMultMatrixd(&world.m[0][0]);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_NORMAL_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, mesh->positions.data());
    glNormalPointer(GL_FLOAT, 0, mesh->normals.data());

    const QColor surface = surfaceColour(shape);
    const float colour[] = {float(surface.redF()), float(surface.greenF()), float(surface.blueF()), 1};
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, colour);
    if (!wireframe) {
        glEnable(GL_LIGHTING);
        glFrontFace(isMirrored(world) ? GL_CW : GL_CCW);
        (mesh->isOpen ? glDisable : glEnable)(GL_CULL_FACE);
        glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, mesh->isOpen);
        glDrawElements(GL_TRIANGLES, int(mesh->triangles.size()), GL_UNSIGNED_INT, mesh->triangles.data());
        glDisable(GL_LIGHTING);
    }
    glDisableClientState(GL_NORMAL_ARRAY);
    if (selected || wireframe) {
        setGlColour(selected ? kSelected : surface);
        glLineWidth(selected ? 1.5f : 1);
        glDrawElements(GL_LINES, int(mesh->edges.size()), GL_UNSIGNED_INT, mesh->edges.data());
    }
    glDisableClientState(GL_VERTEX_ARRAY);
    glPopMatrix();
}

}  // namespace view
