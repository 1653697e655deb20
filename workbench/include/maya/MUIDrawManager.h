#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MColor.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <maya/MStateManager.h>
#include <maya/MString.h>
#include <maya/MTextureManager.h>
#include <maya/MVector.h>

#include <memory>

namespace api {
struct Access;
class DrawRecorder;
}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN
namespace MHWRender {

/// Queues simple shapes for the frame being drawn. What does not stand between beginDrawable and endDrawable is lost.
/// 2D coordinates are viewport pixels, origin lower left, y up, z ignored; others are in the drawn object's space (the
/// world for tools). A background is drawn behind 2D text when its size and its colour are given.
class MUIDrawManager {
public:
    enum Selectability { kNonSelectable = 0, kSelectable = 1, kAutomatic = 2 };
    enum LineStyle { kSolid = 0, kShortDotted = 1, kShortDashed = 2, kDashed = 3, kDotted = 4 };
    enum TextAlignment { kLeft = 0, kCenter = 1, kRight = 2 };
    enum FontSize { kDefaultFontSize = 12, kSmallFontSize = 9 };

    ~MUIDrawManager();
    MUIDrawManager(const MUIDrawManager&) = delete;
    MUIDrawManager& operator=(const MUIDrawManager&) = delete;

    void beginDrawable(Selectability selectability = kAutomatic, unsigned int selectionName = 0);
    /// Every state goes back to its default.
    void endDrawable();

    void setColor(const MColor& color);
    void setLineWidth(float width);
    void setLineStyle(LineStyle style);
    void setFontSize(unsigned int size);
    /// Drawables of a higher priority are drawn above those of a lower one.
    void setDepthPriority(unsigned int priority);
    unsigned int depthPriority() const;

    /// Multiplies the colour of filled shapes until it is set to null. The texture must live until the frame is drawn.
    void setTexture(MTexture* texture);
    void setTextureSampler(MSamplerState::TextureFilter filter, MSamplerState::TextureAddress address);
    void setTextureMask(MBlendState::ChannelMask mask);

    void line(const MPoint& start, const MPoint& end);
    void line2d(const MPoint& start, const MPoint& end);
    void lineList(const MPointArray& points, bool draw2D);
    void lineStrip(const MPointArray& points, bool draw2D);
    /// A rectangle from -scaleX to scaleX across and from -scaleY to scaleY along up. Row 0 of a texture is at the top.
    void rect2d(const MPoint& center, const MVector& up, double scaleX, double scaleY, bool filled = false);
    void circle2d(const MPoint& center, double radius, bool filled = false);
    void text2d(const MPoint& position, const MString& text, TextAlignment alignment = kLeft,
                const int* backgroundSize = NULL, const MColor* backgroundColor = NULL, bool dynamic = false);
    void text(const MPoint& position, const MString& text, TextAlignment alignment = kLeft,
              const int* backgroundSize = NULL, const MColor* backgroundColor = NULL, bool dynamic = false);

private:
    friend struct api::Access;
    explicit MUIDrawManager(std::unique_ptr<api::DrawRecorder> recorder);
    std::unique_ptr<api::DrawRecorder> m_recorder;
};

}  // namespace MHWRender
OPENMAYA_MAJOR_NAMESPACE_CLOSE
