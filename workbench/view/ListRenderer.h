#pragma once

#include "api/DrawList.h"
#include "view/GlText.h"

namespace view {

/// Draws what draw overrides and tools queued, lower depth priorities first and otherwise in order. To be used with a
/// context current.
class ListRenderer {
public:
    void draw(const api::DrawList& list, const api::FrameState& frame, GlText& text) const;

private:
    void drawItem(const api::DrawItem& item, const api::FrameState& frame, GlText& text) const;
    void drawTriangles(const api::DrawItem& item) const;
    void drawLines(const api::DrawItem& item) const;
    void drawText(const api::DrawItem& item, const api::FrameState& frame, GlText& text) const;
};

}  // namespace view
