#include "contexts/AdjustmentPreview.h"

#include <maya/MColor.h>
#include <maya/MGl.h>

#include <cmath>

namespace {

const int kCirclePoints = 360;
const double kTurn = 6.283185307179586;

}  // namespace

void drawPreview(MHWRender::MUIDrawManager& drawManager, const QPoint& centre, double radius, int value)
{
    const MPoint at(centre.x(), centre.y());
    MString number;
    number += value;
    drawManager.beginDrawable();
    drawManager.setColor(MColor(1.0f, 0.0f, 0.0f, 1.0f));
    drawManager.setLineWidth(1.0f);
    if (radius > 0.0) {
        drawManager.circle2d(at, radius);
    }
    drawManager.text2d(at, number, MHWRender::MUIDrawManager::kRight);
    drawManager.endDrawable();
}

bool invertPreview(M3dView& legacyView, const QPoint& centre, double radius)
{
    const bool isLegacy = legacyView.getRendererName() != M3dView::kViewport2Renderer;
    if (!isLegacy || !legacyView.beginXorDrawing()) {
        return false;
    }
    glBegin(GL_LINE_LOOP);
    for (int i = 0; i < kCirclePoints; ++i) {
        const double angle = i * kTurn / kCirclePoints;
        glVertex2d(centre.x() + radius * std::cos(angle), centre.y() + radius * std::sin(angle));
    }
    glEnd();
    legacyView.endXorDrawing();
    return true;
}
