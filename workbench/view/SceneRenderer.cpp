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

void setLight()
{
    // Over the viewer's left shoulder, so that forms read from everywhere.
    const float direction[] = {-0.45f, 0.65f, 0.75f, 0};
    const float diffuse[] = {0.78f, 0.77f, 0.75f, 1};
    const float none[] = {0, 0, 0, 1};
    const float ambient[] = {0.30f, 0.31f, 0.33f, 1};
    const kernel::Matrix4 inEyeSpace;
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadMatrixd(&inEyeSpace.m[0][0]);
    glLightfv(GL_LIGHT0, GL_POSITION, direction);
    glPopMatrix();
    glLightfv(GL_LIGHT0, GL_DIFFUSE, diffuse);
    glLightfv(GL_LIGHT0, GL_SPECULAR, none);
    glLightfv(GL_LIGHT0, GL_AMBIENT, none);
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, ambient);
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 1);
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

void SceneRenderer::draw(const kernel::Scene& scene, const api::FrameState& frame) const
{
    drawBackground();
    const GlMatrices matrices(frame.matrices.view, frame.matrices.projection);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    drawShapes(scene);
    drawGrid(frame);
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
    const auto line = [&plane](int fixedAxis, int runningAxis, double at) {
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

void SceneRenderer::drawShapes(const kernel::Scene& scene) const
{
    setLight();
    glEnable(GL_NORMALIZE);
    glEnable(GL_POLYGON_OFFSET_FILL);  // the grid and outlines lie on surfaces
    glPolygonOffset(1, 1);
    scene.walkDag([&](kernel::Node& node) {
        if (!node.isVisible()) {
            return false;
        }
        if (node.type().isShape()) {
            drawShape(node, isSelected(scene, node));
        }
        return true;
    });
    glDisable(GL_POLYGON_OFFSET_FILL);
    glDisable(GL_NORMALIZE);
}

void SceneRenderer::drawShape(kernel::Node& shape, bool selected) const
{
    const std::optional<Mesh> mesh = meshOf(shape);
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
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glDrawElements(GL_TRIANGLES, int(mesh->triangles.size()), GL_UNSIGNED_INT, mesh->triangles.data());
    glDisable(GL_LIGHT0);
    glDisable(GL_LIGHTING);
    glDisableClientState(GL_NORMAL_ARRAY);
    if (selected) {
        setGlColour(kSelected);
        glLineWidth(1.5f);
        glDrawElements(GL_LINES, int(mesh->edges.size()), GL_UNSIGNED_INT, mesh->edges.data());
    }
    glDisableClientState(GL_VERTEX_ARRAY);
    glPopMatrix();
}

}  // namespace view
