#include <maya/M3dView.h>

#include "api/Access.h"
#include "api/Handles.h"
#include "api/Projection.h"

#include <QtCore/QPoint>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <cmath>
#include <limits>

using api::report;

namespace {

std::vector<api::View*> allViews()
{
    api::ViewHost* const host = api::viewHost();
    return host ? host->views() : std::vector<api::View*>();
}

short toPort(double coordinate)
{
    using Limits = std::numeric_limits<short>;
    return short(std::lround(std::clamp(coordinate, double(Limits::min()), double(Limits::max()))));
}

MPoint toPoint(const kernel::Vector3& v)
{
    return MPoint(v.x, v.y, v.z);
}

MStatus found(bool ok)
{
    return ok ? MStatus::kSuccess : MStatus::kFailure;
}

}  // namespace

namespace api {

M3dView Access::viewOf(View* view)
{
    M3dView handle;
    handle.m_view = view;
    return handle;
}

}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// The view, as long as it is one of the program's; null after that.
api::View* M3dView::live() const
{
    const auto views = allViews();
    return m_view && std::find(views.begin(), views.end(), m_view) != views.end() ? m_view : nullptr;
}

M3dView M3dView::active3dView(MStatus* ReturnStatus)
{
    api::ViewHost* const host = api::viewHost();
    const M3dView view = api::Access::viewOf(host ? host->activeView() : nullptr);
    report(ReturnStatus, view.live() ? MStatus::kSuccess : MStatus::kFailure);
    return view;
}

unsigned int M3dView::numberOf3dViews()
{
    return static_cast<unsigned int>(allViews().size());
}

MStatus M3dView::get3dView(const unsigned int index, M3dView& view)
{
    const auto views = allViews();
    if (index >= views.size())
        return MStatus::kInvalidParameter;
    view = api::Access::viewOf(views[index]);
    return MStatus::kSuccess;
}

MStatus M3dView::getM3dViewFromModelPanel(const MString& panelName, M3dView& view)
{
    const std::string name = api::toKernel(panelName);
    for (api::View* candidate : allViews()) {
        if (candidate->panelName() == name) {
            view = api::Access::viewOf(candidate);
            return MStatus::kSuccess;
        }
    }
    return MStatus::kFailure;
}

// A panel and the editor in it go by one name.
MStatus M3dView::getM3dViewFromModelEditor(const MString& editorName, M3dView& view)
{
    return getM3dViewFromModelPanel(editorName, view);
}

QWidget* M3dView::widget(MStatus* ReturnStatus)
{
    api::View* const view = live();
    QWidget* const widget = view ? view->widget() : nullptr;
    report(ReturnStatus, widget ? MStatus::kSuccess : MStatus::kFailure);
    return widget;
}

MNativeWindowHdl M3dView::window(MStatus* ReturnStatus)
{
    QWidget* const view = widget(ReturnStatus);
    return view ? MNativeWindowHdl(view->effectiveWinId()) : 0;
}

MStatus M3dView::getCamera(MDagPath& camera)
{
    api::View* const view = live();
    const kernel::NodePtr node = view ? view->camera() : nullptr;
    if (node)
        camera = api::toPath(node);
    return found(node != nullptr);
}

MStatus M3dView::setCamera(MDagPath& camera)
{
    api::View* const view = live();
    MDagPath shape(camera);
    if (!view || !shape.extendToShape() || !shape.hasFn(MFn::kCamera))
        return MStatus::kFailure;
    view->setCamera(api::nodeOf(shape));
    return MStatus::kSuccess;
}

int M3dView::portWidth(MStatus* ReturnStatus)
{
    api::View* const view = live();
    report(ReturnStatus, view ? MStatus::kSuccess : MStatus::kFailure);
    return view ? view->portWidth() : 0;
}

int M3dView::portHeight(MStatus* ReturnStatus)
{
    api::View* const view = live();
    report(ReturnStatus, view ? MStatus::kSuccess : MStatus::kFailure);
    return view ? view->portHeight() : 0;
}

MStatus M3dView::refresh(bool all, bool force)
{
    if (all) {
        for (api::View* view : allViews())
            view->refresh(force);
        return found(!allViews().empty());
    }
    api::View* const view = live();
    if (view)
        view->refresh(force);
    return found(view != nullptr);
}

MStatus M3dView::refresh(bool all, bool force, bool /*offscreen*/)
{
    return refresh(all, force);
}

MStatus M3dView::scheduleRefresh()
{
    api::View* const view = live();
    if (view)
        view->scheduleRefresh();
    return found(view != nullptr);
}

MStatus M3dView::scheduleRefreshAllViews()
{
    for (api::View* view : allViews())
        view->scheduleRefresh();
    return MStatus::kSuccess;
}

MStatus M3dView::viewToWorld(short x, short y, MPoint& worldPt, MVector& worldVector)
{
    api::View* const view = live();
    if (!view)
        return MStatus::kFailure;
    const api::PortRay ray = api::rayThroughPort(x, y, view->matrices(), view->portWidth(), view->portHeight());
    worldPt = toPoint(ray.nearPoint);
    worldVector = MVector(toPoint(ray.direction()));
    return MStatus::kSuccess;
}

MStatus M3dView::viewToWorld(short x, short y, MPoint& nearClipPt, MPoint& farClipPt)
{
    api::View* const view = live();
    if (!view)
        return MStatus::kFailure;
    const api::PortRay ray = api::rayThroughPort(x, y, view->matrices(), view->portWidth(), view->portHeight());
    nearClipPt = toPoint(ray.nearPoint);
    farClipPt = toPoint(ray.farPoint);
    return MStatus::kSuccess;
}

bool M3dView::worldToView(const MPoint& worldPt, short& x, short& y, MStatus* ReturnStatus)
{
    api::View* const view = live();
    if (!view) {
        report(ReturnStatus, MStatus::kFailure);
        return false;
    }
    const api::PortPoint point =
        api::projectToPort({worldPt.x, worldPt.y, worldPt.z}, view->matrices(), view->portWidth(), view->portHeight());
    if (point.isDefined) {
        x = toPort(point.x);
        y = toPort(point.y);
    }
    report(ReturnStatus, point.isDefined ? MStatus::kSuccess : MStatus::kFailure);
    return point.isInside;
}

MStatus M3dView::viewport(unsigned int& x, unsigned int& y, unsigned int& width, unsigned int& height) const
{
    api::View* const view = live();
    if (!view)
        return MStatus::kFailure;
    x = 0;
    y = 0;
    width = unsigned(std::max(0, view->portWidth()));
    height = unsigned(std::max(0, view->portHeight()));
    return MStatus::kSuccess;
}

MStatus M3dView::projectionMatrix(MMatrix& matrix) const
{
    api::View* const view = live();
    if (view)
        matrix = api::toHost(view->matrices().projection);
    return found(view != nullptr);
}

MStatus M3dView::modelViewMatrix(MMatrix& matrix) const
{
    api::View* const view = live();
    if (view)
        matrix = api::toHost(view->matrices().view);
    return found(view != nullptr);
}

M3dView::RendererName M3dView::getRendererName(MStatus* ReturnStatus)
{
    api::View* const view = live();
    report(ReturnStatus, view ? MStatus::kSuccess : MStatus::kFailure);
    return view && !view->isLegacy() ? kViewport2Renderer : kDefaultQualityRenderer;
}

bool M3dView::isVisible(MStatus* ReturnStatus)
{
    QWidget* const view = widget(ReturnStatus);
    return view && view->isVisible();
}

void M3dView::getScreenPosition(int& x, int& y, MStatus* ReturnStatus)
{
    QWidget* const view = widget(ReturnStatus);
    if (!view)
        return;
    const QPoint corner = view->mapToGlobal(QPoint(0, 0));
    x = corner.x();
    y = corner.y();
}

MStatus M3dView::beginGL()
{
    api::View* const view = live();
    return found(view && view->isLegacy() && view->beginGl());
}

MStatus M3dView::endGL()
{
    api::View* const view = live();
    if (!view || !view->isLegacy())
        return MStatus::kFailure;
    view->endGl();
    return MStatus::kSuccess;
}

MStatus M3dView::beginXorDrawing(bool, bool, float lineWidth, LineStipplePattern, const MColor& lineColor)
{
    api::View* const view = live();
    if (!view || !view->isLegacy())
        return MStatus::kFailure;
    const float colour[4] = {lineColor.r, lineColor.g, lineColor.b, lineColor.a};
    view->beginXorDrawing(lineWidth, colour);
    return MStatus::kSuccess;
}

MStatus M3dView::endXorDrawing()
{
    api::View* const view = live();
    if (!view || !view->isLegacy())
        return MStatus::kFailure;
    view->endXorDrawing();
    return MStatus::kSuccess;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
