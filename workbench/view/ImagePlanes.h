#pragma once

#include "api/DrawList.h"
#include "kernel/Scene.h"
#include "view/CameraMath.h"
#include "view/PictureStore.h"

#include <QRectF>
#include <QSize>

#include <map>
#include <memory>
#include <vector>

namespace view {

/// Where a picture of a size in pixels lies on the film back by the plane's fit, size and offset: inches from the
/// middle of the film gate, y up (so that top() is the lower side).
QRectF pictureRect(const kernel::Node& imagePlane, const Lens& lens, const QSize& picture);

/// The visible image planes under a camera's transform, those under another camera further below left out; in drawing
/// order.
std::vector<kernel::NodePtr> imagePlanesOf(const kernel::Node& cameraShape);

/// Draws a camera's image planes behind everything else. While the scene plays they may show an earlier picture of a
/// sequence, whenever it stands the true one. Pictures that cannot be shown are warned about once.
class ImagePlanes {
public:
    /// With a context current; the port starts at 0, 0.
    void draw(const kernel::Scene& scene, const api::FrameState& frame);
    /// Deletes the textures. With a context current.
    void clear();

private:
    struct Texture {
        std::weak_ptr<kernel::Node> plane;
        unsigned name = 0;
        long long picture = 0;  ///< which one it shows, 0 for none
        QSize size;             ///< of the picture as it was decoded
        bool hasAlpha = true;
        bool hasMipmaps = false;
    };

    void drawPlane(const kernel::NodePtr& plane, const Lens& lens, const kernel::Scene& scene, int portWidth);
    Texture& textureOf(const kernel::NodePtr& plane);
    /// Gives the texture what the plane shows at the current time; false for nothing.
    bool update(Texture& texture, const kernel::Node& plane, const kernel::Scene& scene, int portWidth) const;
    void dropLostTextures();

    std::map<const kernel::Node*, Texture> m_textures;
};

}  // namespace view
