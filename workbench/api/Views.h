#pragma once

#include "kernel/Node.h"

#include <string>
#include <vector>

class QWidget;

namespace api {

struct ViewMatrices {
    kernel::Matrix4 view;        ///< world to camera
    kernel::Matrix4 projection;  ///< camera to clip space
};

/// One camera view as the host API's handles see it; the views themselves live above.
/// Port coordinates are pixels of the drawing area, origin lower left, y up.
class View {
public:
    virtual ~View() = default;
    virtual std::string panelName() const = 0;
    virtual QWidget* widget() = 0;
    virtual kernel::NodePtr camera() const = 0;  ///< the camera shape; null after it was deleted
    virtual void setCamera(const kernel::NodePtr& cameraShape) = 0;
    virtual int portWidth() const = 0;
    virtual int portHeight() const = 0;
    virtual bool isLegacy() const = 0;  ///< drawn by the legacy viewport, not Viewport 2.0
    virtual ViewMatrices matrices() const = 0;
    virtual void refresh(bool force) = 0;  ///< draws now
    virtual void scheduleRefresh() = 0;    ///< draws at the next idle moment; any thread
    /// Makes OpenGL calls go to this view until endGl(); false where there is no OpenGL.
    virtual bool beginGl() { return false; }
    virtual void endGl() {}
    /// Inverting line drawing of the legacy viewport: drawing the same twice erases it.
    virtual void beginXorDrawing(float lineWidth, const float colour[4]) = 0;
    virtual void endXorDrawing() = 0;
};

/// The program's views as the host API sees them. None is installed in batch mode.
class ViewHost {
public:
    virtual ~ViewHost() = default;
    virtual std::vector<View*> views() const = 0;
    virtual View* activeView() const = 0;  ///< null when there was none
};

ViewHost* viewHost();                  ///< null in batch mode
void installViewHost(ViewHost* host);  ///< null to take it away

}  // namespace api
