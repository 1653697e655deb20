#include "node/RegionOutline.h"

#include <maya/MColor.h>
#include <maya/MGl.h>

#include <algorithm>

Corners cornersInView(const Corners& corners, const ViewportMetrics& metrics)
{
    Corners mapped;
    std::transform(corners.begin(), corners.end(), mapped.begin(),
                   [&metrics](const QPointF& corner) { return viewPointOf(metrics, corner); });
    return mapped;
}

void drawOutline(MHWRender::MUIDrawManager& drawManager, const Corners& corners)
{
    drawManager.setColor(MColor(1.0f, 0.0f, 0.0f, 1.0f));
    drawManager.setLineWidth(1.0f);
    for (size_t i = 0; i < corners.size(); ++i) {
        const QPointF& start = corners[i];
        const QPointF& end = corners[(i + 1) % corners.size()];
        drawManager.line2d(MPoint(start.x(), start.y()), MPoint(end.x(), end.y()));
    }
}

void drawOutline(M3dView& legacyView, const Corners& corners)
{
    const bool isLegacy = legacyView.getRendererName() != M3dView::kViewport2Renderer;
    if (!isLegacy || !legacyView.beginXorDrawing()) {
        return;
    }
    glBegin(GL_LINE_LOOP);
    for (const QPointF& corner : corners) {
        glVertex2d(corner.x(), corner.y());
    }
    glEnd();
    legacyView.endXorDrawing();
}
