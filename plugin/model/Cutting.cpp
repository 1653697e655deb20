#include "model/Cutting.h"

Cutting Cutting::of(const InkedImage& canvas, const QRect& region)
{
    const QRect inked = region & canvas.ink.box();
    return {region.size(), inked.isEmpty() ? QImage() : canvas.image.copy(inked), inked.topLeft() - region.topLeft()};
}

Cutting Cutting::within(const QRect& area) const
{
    const QRect kept = area & inked();
    return {size, kept.isEmpty() ? QImage() : copy(kept), kept.topLeft()};
}
