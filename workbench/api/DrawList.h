#pragma once

#include "api/Views.h"

#include <maya/MUIDrawManager.h>

#include <memory>
#include <string>
#include <vector>

namespace api {

/// A GPU texture as its owner sees it. The pixels are kept on this side; `revision` tells the renderer to upload.
struct Texture {
    std::string name;
    int width = 0;
    int height = 0;
    std::vector<unsigned char> pixels;  ///< RGBA, row 0 first (the top row of a picture)
    bool mipmaps = false;
    unsigned revision = 1;
    int references = 1;
    void* renderer = nullptr;  ///< the renderer's own record
};

struct DrawState {
    float colour[4] = {1, 1, 1, 1};
    float lineWidth = 1;
    float pointSize = 1;
    unsigned fontSize = 12;
    unsigned depthPriority = 0;
    bool dashed = false;
    std::shared_ptr<Texture> texture;  ///< multiplies the colour of filled shapes
    bool linearFilter = true;
    bool clampTexture = true;
    unsigned char colourMask = 15;  ///< channels written: red 1, green 2, blue 4, alpha 8
};

/// One queued shape. 2D points are port pixels (origin lower left), 3D ones world space.
struct DrawItem {
    enum class Kind { LineStrip, ClosedLine, Lines, Triangles, Text } kind = Kind::LineStrip;
    bool is2d = true;
    DrawState state;
    std::vector<kernel::Vector3> points;
    std::vector<kernel::Vector3> textureCoordinates;  ///< as many as points, or none; v = 0 is row 0
    std::string text;
    int textAlignment = 0;  ///< 0 left, 1 centre, 2 right of the point
    kernel::Matrix4 world;  ///< 3D items: object to world
};

/// What draw overrides and tools queued for one frame, in call order.
struct DrawList {
    std::vector<DrawItem> items;
};

/// What a frame context reports.
struct FrameState {
    kernel::NodePtr camera;  ///< the camera shape looked through
    int width = 0;
    int height = 0;
    ViewMatrices matrices;
};

/// The host API's draw manager and frame context over these records, valid while the records are.
std::unique_ptr<MHWRender::MUIDrawManager> makeDrawManager(DrawList& list);
std::unique_ptr<MHWRender::MFrameContext> makeFrameContext(const FrameState& state);

/// The renderer switches Viewport 2.0 on; without one MRenderer::theRenderer() is null.
void setRendererAvailable(bool available);
bool isRendererAvailable();
/// Called with each texture nobody holds any more, neither an owner nor a draw list (its renderer record must be
/// freed).
void setTextureReleaseListener(void (*listener)(Texture&));

/// The draw override of a node, made on first use by the creator registered for its type; null when there is none.
MHWRender::MPxDrawOverride* drawOverrideFor(const kernel::NodePtr& node);
/// Drops the overrides of nodes that are gone, or all of them.
void dropDrawOverrides(bool all);
/// Runs prepareForDraw and addUIDrawables of every drawn node of the scene that has an override.
void drawOverrides(const FrameState& frame, DrawList& list);

}  // namespace api
