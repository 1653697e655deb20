#include "node/RegionOutline.h"

#include <maya/MColor.h>

void drawOutline(MHWRender::MUIDrawManager& drawManager, const std::array<QPointF, 4>& corners)
{
    drawManager.setColor(MColor(1.0f, 0.0f, 0.0f, 1.0f));
    drawManager.setLineWidth(1.0f);
    for (size_t i = 0; i < corners.size(); ++i) {
        const QPointF& start = corners[i];
        const QPointF& end = corners[(i + 1) % corners.size()];
        drawManager.line2d(MPoint(start.x(), start.y()), MPoint(end.x(), end.y()));
    }
}
