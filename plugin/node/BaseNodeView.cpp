// Where the node is shown, and how the tools find the canvas there.

#include "node/BaseNode.h"

#include "model/Canvas.h"
#include "model/FrameNumber.h"
#include "node/CameraMetrics.h"
#include "node/ViewOfWidget.h"
#include "settings/ScriptBridge.h"

#include <maya/MViewport2Renderer.h>

namespace {

// The host calls these two obsolete and has nothing else for its legacy viewport.
#ifdef _MSC_VER
#pragma warning(push)
#pragma warning(disable : 4996)
#else
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#endif
bool beginGl(M3dView& view)
{
    return view.beginGL() == MStatus::kSuccess;
}

void endGl(M3dView& view)
{
    view.endGL();
}
#ifdef _MSC_VER
#pragma warning(pop)
#else
#pragma GCC diagnostic pop
#endif

bool looksThrough(M3dView& view, const QString& camera)
{
    MDagPath path;
    return view.getCamera(path) && script::cameraKey(path) == camera;
}

}  // namespace

// The metrics come first, for they bring the current frames.
void BaseNode::draw(M3dView& view, const MDagPath&, M3dView::DisplayStyle, M3dView::DisplayStatus)
{
    MDagPath cameraPath;
    if (!view.getCamera(cameraPath)) {
        return;
    }
    updateViewportMetrics(cameraPath, view);
    const QString camera = script::cameraKey(cameraPath);
    const QImage* image = compositeImage(camera);
    if (image && beginGl(view)) {
        m_legacyPicture.draw(*image, compositeGeneration(camera), m_metrics, opacity());
        endGl(view);
    }
}

void BaseNode::updateViewportMetrics(const MDagPath& cameraPath, int width, int height)
{
    m_metrics = cameraMetrics(cameraPath, width, height);
    setCurrentFrame(::currentFrameNumber(), false);
}

void BaseNode::updatePanOffset(const MDagPath& cameraPath, const MHWRender::MFrameContext& frameContext)
{
    if (!m_metrics.isPanZoomed) {
        return;
    }
    MPoint target;
    frameContext.worldToViewport(panTarget(cameraPath), target.x, target.y);
    panTo(m_metrics, target);
}

void BaseNode::updateViewportMetrics(const MDagPath& cameraPath, M3dView& view)
{
    const int width = view.portWidth();
    const int height = view.portHeight();
    updateViewportMetrics(cameraPath, width, height);
    if (!m_metrics.isPanZoomed) {
        return;
    }
    MMatrix toCamera;
    MMatrix toClip;
    view.modelViewMatrix(toCamera);
    view.projectionMatrix(toClip);
    MPoint target = panTarget(cameraPath) * toCamera * toClip;
    target.cartesianize();
    panTo(m_metrics, MPoint((target.x + 1.0) * 0.5 * width, (target.y + 1.0) * 0.5 * height));
}

bool BaseNode::prepareToolView(M3dView& view)
{
    MDagPath camera;
    if (!view.getCamera(camera)) {
        return false;
    }
    updateViewportMetrics(camera, view);
    if (!isReady(m_metrics)) {
        return false;
    }
    m_toolMetrics = m_metrics;
    const QWidget* widget = view.widget();
    m_toolPixelRatio = widget && widget->width() > 0 ? double(m_metrics.width) / widget->width() : 1.0;
    return true;
}

BaseNode::ToolView BaseNode::followToolView(const QWidget* widget, const QString& camera)
{
    const ViewportMetrics before = m_toolMetrics;
    M3dView view;
    if (!findView(widget, view) || !looksThrough(view, camera) || !prepareToolView(view)) {
        return ToolView::Gone;
    }
    return showAlike(before, m_toolMetrics) ? ToolView::AsBefore : ToolView::Changed;
}

QPoint BaseNode::viewToCanvas(const QPoint& point) const
{
    return canvasPixelAt(m_toolMetrics, point.x() * m_toolPixelRatio, point.y() * m_toolPixelRatio);
}

QPoint BaseNode::portToCanvas(const QPoint& point) const
{
    return canvasPixelAt(m_toolMetrics, point.x(), point.y());
}

QPointF BaseNode::portToCanvasPoint(const QPoint& point) const
{
    return canvasPointAt(m_toolMetrics, point.x(), point.y());
}

double BaseNode::portPixelsPerCanvasPixel() const
{
    return double(m_toolMetrics.drawnSize) / kCanvasSize;
}

bool BaseNode::showsRegionOutline(const QString& camera) const
{
    return !camera.isEmpty() && m_regionOutline.camera == camera && isReady(m_metrics);
}

void BaseNode::requestRedraw()
{
    MHWRender::MRenderer::setGeometryDrawDirty(thisMObject());
}

void BaseNode::redrawActiveView()
{
    requestRedraw();
    MStatus status;
    M3dView view = M3dView::active3dView(&status);
    if (status) {
        view.refresh(false, true);
    }
}

void BaseNode::scheduleRedraw()
{
    requestRedraw();
    MStatus status;
    M3dView view = M3dView::active3dView(&status);
    if (status) {
        view.scheduleRefresh();
    }
}
